// The Edit and the Scene menu: what is done to the chosen controls, and to whole scenes. Window and
// history outlive the commands. Main thread only.
#pragma once

#include "editor/ControlSelection.h"
#include "editor/qt/Document.h"
#include "editor/qt/FillDialog.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QObject>
#include <QPushButton>

#include <cstdint>
#include <functional>
#include <optional>

class QDropEvent;
class QMouseEvent;

namespace scenewright {

// Changes undone and done again, and what is done to the chosen controls, one or several of a kind:
// copied, pasted, put back to their defaults, filled, transposed.
class ControlCommands final : public QObject {
    Q_OBJECT

public:
    ControlCommands(MainWindow& window, History& history);

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

// Asks for a scene's name; it can be accepted while the controller can hold what is typed.
class RenameDialog final : public QDialog {
    Q_OBJECT

public:
    RenameDialog(const QString& name, QWidget* parent);

    [[nodiscard]] QString name() const { return name_->text(); }

private:
    void check();

    // Children of the dialog.
    QLineEdit* name_;
    QLabel* told_;
    QPushButton* accept_ = nullptr;
};

// The shown scene renamed, copied, swapped with another one, and reset. The same is had on each
// scene's segment, by its context menu and by dragging one onto another.
class SceneCommands final : public QObject {
    Q_OBJECT

public:
    SceneCommands(MainWindow& window, History& history);

    [[nodiscard]] QMenu& menu() { return *menu_; }
    // Of scenes given by their index, each one step of the history.
    void rename(std::int32_t scene);
    void copy(std::int32_t from, std::int32_t to);
    void swap(std::int32_t first, std::int32_t second);
    void reset(std::int32_t scene);

protected:
    // Of a segment: its context menu, and what is dragged from it and dropped on it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Command = void (SceneCommands::*)(std::int32_t shown, std::int32_t other);
    void addOthers(const QString& title, const char* name, Command command);
    void showOthers(QMenu& menu, Command command);
    // From a segment; whether a drag began.
    bool dragFrom(std::int32_t scene, const QMouseEvent& mouse);
    // On a segment; whether it takes what is over it. With Ctrl a scene is copied, else swapped.
    bool takeDrop(std::int32_t scene, QDropEvent& drop);
    void end(const QString& step);
    [[nodiscard]] std::int32_t shownScene() const;
    // The place of a segment; nothing for anything else.
    [[nodiscard]] std::optional<std::int32_t> placeOf(const QObject* segment) const;

    MainWindow& window_;
    History& history_;
    QMenu* menu_ = nullptr; // child of the menu bar
    QPoint pressed_;        // where a drag may begin, in a segment
};

} // namespace scenewright
