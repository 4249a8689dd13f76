#include "app/MainWindowController.h"

namespace scenewright {

void MainWindowController::windowDidLoad() {
    window_.standardCloseButton().setAction([this] { closeApplication(); });
}

void MainWindowController::closeApplication() {
    application_.terminate();
}

} // namespace scenewright
