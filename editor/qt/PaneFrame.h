// A pane: one rounded panel of settings, shown or hidden as a whole.
#pragma once

#include "editor/widgets/Widgets.h"

#include <QFrame>

namespace scenewright {

class PaneFrame final : public QFrame, public Pane {
    Q_OBJECT

public:
    explicit PaneFrame(QWidget* parent = nullptr);

    void setHidden(bool hidden) override;
};

} // namespace scenewright
