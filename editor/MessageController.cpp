#include "editor/MessageController.h"

namespace scenewright {

void MessageController::setMessage(const std::string& text) {
    if (messageField() != nullptr)
        messageField()->setText(text);
}

} // namespace scenewright
