#include "editor/WindowControllers.h"

namespace scenewright {

void MainWindowController::windowDidLoad() {
    window_.standardCloseButton().setAction([this] { closeApplication(); });
}

void MainWindowController::closeApplication() {
    application_.terminate();
}

void MessageController::setMessage(const std::string& text) {
    if (messageField() != nullptr)
        messageField()->setText(text);
}

} // namespace scenewright
