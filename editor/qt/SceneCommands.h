// The Scene menu: the shown scene renamed, copied, swapped with another one, and reset. The same is
// had on each scene's segment, by its context menu and by dragging one onto another.
#pragma once

#include "editor/qt/Document.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QObject>
#include <QPushButton>

#include <cstdint>

class QDropEvent;
class QMouseEvent;

namespace scenewright {

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

// Window and history outlive the commands. Main thread only.
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
    // The place of a segment; -1 for anything else.
    [[nodiscard]] std::int32_t placeOf(const QObject* segment) const;

    MainWindow& window_;
    History& history_;
    QMenu* menu_ = nullptr; // child of the menu bar
    QPoint pressed_;        // where a drag may begin, in a segment
};

} // namespace scenewright
