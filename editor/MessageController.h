// A view that shows one text in a field and does not remember it.
//
// The field is the owner's; it may be missing, and then nothing is shown. Main thread only.
#pragma once

#include "editor/widgets/Widgets.h"
#include "model/Property.h"

#include <optional>
#include <string>

namespace scenewright {

class MessageController {
    SCENEWRIGHT_PROPERTY(TextField*, messageField, setMessageField)

public:
    void viewDidLoad() {}
    // Shows the text. It is not kept: message() goes on answering nothing.
    void setMessage(const std::string& text);
    [[nodiscard]] const std::optional<std::string>& message() const { return message_; }

private:
    std::optional<std::string> message_;
};

} // namespace scenewright
