// The Edit menu: changes undone and done again, and what is done to the chosen controls, one or
// several of a kind: copied, pasted, put back to their defaults, filled, transposed.
#pragma once

#include "editor/ControlSelection.h"
#include "editor/qt/FillDialog.h"
#include "editor/qt/Document.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QObject>

#include <functional>

namespace scenewright {

// Window and history outlive the commands. Main thread only.
class ControlCommands final : public QObject {
    Q_OBJECT

public:
    ControlCommands(MainWindow& window, History& history);

    [[nodiscard]] QAction& copyAction() { return *copy_; }
    [[nodiscard]] QAction& pasteAction() { return *paste_; }
    [[nodiscard]] QAction& resetAction() { return *reset_; }
    [[nodiscard]] QAction& selectAllAction() { return *selectAll_; }
    [[nodiscard]] QAction& fillAction() { return *fill_; }
    [[nodiscard]] QAction& transposeAction() { return *transpose_; }

private:
    void copy();
    void paste();
    void reset();
    void selectAll() { window_.choice().selectAll(); }
    void fill() { ask(FillDialog::What::Notes, tr("Fill %1")); }
    void transpose() { ask(FillDialog::What::Transpose, tr("Transpose %1")); }
    // What the dialog comes to is a step of that name.
    void ask(FillDialog::What what, const QString& step);
    // Whether it was done to any of the chosen controls.
    using Change = std::function<bool(const SceneValue& scene, std::int32_t control)>;
    bool changeAll(const Change& change);
    // What was done to the chosen control, where nothing else shows it.
    void tell(const QString& done);
    // Names what is meant, and greys what the chosen control does not allow.
    void update();
    // Shows what was written into the chosen controls, as a step of that name.
    void showStep(const QString& name);
    [[nodiscard]] QString chosenTitle();

    MainWindow& window_;
    History& history_;
    ControlClipboard clipboard_;
    // Children of the menu.
    QAction* copy_ = nullptr;
    QAction* paste_ = nullptr;
    QAction* reset_ = nullptr;
    QAction* selectAll_ = nullptr;
    QAction* fill_ = nullptr;
    QAction* transpose_ = nullptr;
};

} // namespace scenewright
