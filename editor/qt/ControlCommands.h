// The Edit menu: changes undone and done again, the chosen control's settings copied, pasted and
// put back to their defaults.
#pragma once

#include "editor/ControlClipboard.h"
#include "editor/qt/History.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QObject>

namespace scenewright {

// Window and history outlive the commands. Main thread only.
class ControlCommands final : public QObject {
    Q_OBJECT

public:
    ControlCommands(MainWindow& window, History& history);

    [[nodiscard]] QAction& copyAction() { return *copy_; }
    [[nodiscard]] QAction& pasteAction() { return *paste_; }
    [[nodiscard]] QAction& resetAction() { return *reset_; }

private:
    void copy();
    void paste();
    void reset();
    // What was done to the chosen control, where nothing else shows it.
    void tell(const QString& done);
    // Names what is meant, and greys what the chosen control does not allow.
    void update();

    // Shows what was written into the chosen control, as a step of that name.
    void showStep(const QString& name);

    MainWindow& window_;
    History& history_;
    ControlClipboard clipboard_;
    // Children of the menu.
    QAction* copy_ = nullptr;
    QAction* paste_ = nullptr;
    QAction* reset_ = nullptr;
};

} // namespace scenewright
