// The controllers of a window's close button and of its message view. Main thread only.
#pragma once

#include "editor/Widgets.h"
#include "model/Property.h"

#include <optional>
#include <string>

namespace scenewright {

// Makes the close button of the main window end the program, not just close the window.
//
// Borrows the window and the application, which outlive it; it outlives the user's last click on
// the close button.
class MainWindowController {
public:
    MainWindowController(Window& window, Application& application)
        : window_(window), application_(application) {}
    ~MainWindowController() = default;
    MainWindowController(const MainWindowController&) = delete;
    MainWindowController& operator=(const MainWindowController&) = delete;
    MainWindowController(MainWindowController&&) = delete;
    MainWindowController& operator=(MainWindowController&&) = delete;

    // Once, when the window is there.
    void windowDidLoad();
    void closeApplication();

private:
    Window& window_;
    Application& application_;
};

// A view that shows one text in a field and does not remember it.
//
// The field is the owner's; it may be missing, and then nothing is shown.
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
