#include "editor/qt/PaneFrame.h"

namespace scenewright {

PaneFrame::PaneFrame(QWidget* parent) : QFrame(parent) {
    setProperty("panel", true);
}

void PaneFrame::setHidden(bool hidden) {
    setVisible(!hidden);
}

} // namespace scenewright
