// Makes the close button of the main window end the program, not just close the window.
//
// Borrows the window and the application, which outlive it; it outlives the user's last click on
// the close button. Main thread only.
#pragma once

#include "editor/widgets/Widgets.h"

namespace scenewright {

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

} // namespace scenewright
