#include "app/AppDelegate.h"

#include "app/WindowAction.h"

namespace scenewright {

void AppDelegate::readSceneDataAction() {
    WindowAction::readSceneData();
}

void AppDelegate::sendSceneDataAction() {
    WindowAction::sendSceneData();
}

} // namespace scenewright
