// What tells a person whether window and controller hold the same: comparing, sending with a look
// afterwards, the dialog of what differs, and the notice after a command that did not do
// everything.
#pragma once

#include "app/DeviceSession.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/EarlierCommands.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QDialog>
#include <QObject>
#include <QStringList>

#include <cstdint>
#include <vector>

class QAbstractButton;
class QHBoxLayout;
class QLabel;
class QTreeWidget;

namespace scenewright {

// What differs between the keyboard and the window, a row each.
//
// A table of control, setting, and the two values. The row that the keyboard or the pointer chooses
// is told, so that its control can be shown. Rows can be taken over from the keyboard, some or all,
// and copied as text; whoever opens the dialog carries out what it tells.
class DifferenceDialog final : public QDialog {
    Q_OBJECT

public:
    // The keyboard's values first.
    DifferenceDialog(std::vector<Difference> differences, QWidget* parent);

    // The rows in words: "Scene 1, Pad 3, Red: 12 -> 99".
    [[nodiscard]] QStringList lines() const;
    [[nodiscard]] QTreeWidget& table() { return *table_; }

signals:
    // A row was chosen: its scene, 0 to 3, and its control, 0 to 45.
    void chosen(std::int32_t scene, std::int32_t control);
    // The keyboard's values are wanted in the window. The rows are gone when this is told.
    void takeWanted(const std::vector<scenewright::Difference>& differences);
    // The window's scenes are to be sent. The dialog is closed when this is told.
    void sendWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fill();
    void addButtons(QHBoxLayout& row);
    // Those that are selected, or all when none is.
    [[nodiscard]] std::vector<std::size_t> wanted() const;
    void take();
    void copy() const;
    void tellChosen();
    void showCount();

    std::vector<Difference> differences_; // as the rows of the table
    // Children of the dialog.
    QLabel* count_;
    QTreeWidget* table_;
    QAbstractButton* take_ = nullptr;
};

// The others outlive it. Main thread only.
class DeviceVerification final : public QObject {
    Q_OBJECT

public:
    DeviceVerification(MainWindow& window, EarlierCommands& earlier, SafeSending& sending);

    // Both do nothing while a send runs. Comparing blocks until it has ended.
    void compare();
    void sendAndVerify();

    // A dialog of them; the keyboard's values first.
    void showDifferences(std::vector<Difference> differences);

private:
    // Puts the controller's values into the stored scenes.
    void take(const std::vector<Difference>& differences);
    QAction* addAction(const QString& title, const QString& keys,
                       void (DeviceVerification::*command)());
    void compareFor(DeviceOperation operation);
    void postOutcome(DeviceOperation operation, const Outcome& outcome,
                     std::vector<NoticeAction> actions);
    void afterRead(const Outcome& outcome);
    void afterSend(const Outcome& outcome);

    MainWindow& window_;
    EarlierCommands& earlier_;
    SafeSending& sending_;
    bool isVerifying_ = false;
    // Children of the Device menu.
    QAction* compare_ = nullptr;
    QAction* verify_ = nullptr;
};

} // namespace scenewright
