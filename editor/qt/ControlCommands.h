// The Edit menu: the chosen control's settings copied, pasted and put back to their defaults.
#pragma once

#include "editor/ControlClipboard.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QObject>

namespace scenewright {

// The window outlives its commands. Main thread only.
class ControlCommands final : public QObject {
    Q_OBJECT

public:
    explicit ControlCommands(MainWindow& window);

    [[nodiscard]] QAction& copyAction() { return *copy_; }
    [[nodiscard]] QAction& pasteAction() { return *paste_; }
    [[nodiscard]] QAction& resetAction() { return *reset_; }

private:
    void copy();
    void paste();
    void reset();
    // Greys what the chosen control does not allow.
    void update();

    MainWindow& window_;
    ControlClipboard clipboard_;
    // Children of the menu.
    QAction* copy_ = nullptr;
    QAction* paste_ = nullptr;
    QAction* reset_ = nullptr;
};

} // namespace scenewright
