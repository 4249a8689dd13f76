// Which keyboard the window works with: Device > Keyboards, and a picker on the status line while
// there is a choice.
#pragma once

#include "app/Keyboards.h"
#include "editor/qt/AccessInstaller.h"
#include "editor/qt/KeyboardWatch.h"
#include "editor/qt/KeyboardsDialog.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QPushButton>

#include <memory>
#include <string>

namespace scenewright {

// A choice is remembered from one start to the next, unless it was made on the command line; one
// that is not plugged in then leaves the first keyboard in use. Window and watch outlive the
// commands. Main thread only.
class KeyboardCommands final : public QObject {
    Q_OBJECT

public:
    // No `keyboards` for the virtual controller, which leaves nothing to choose.
    KeyboardCommands(MainWindow& window, std::shared_ptr<Keyboards> keyboards,
                     KeyboardWatch& watch);

    [[nodiscard]] QAction& action() { return *action_; }
    // Hidden while there is nothing to choose.
    [[nodiscard]] QPushButton& picker() { return *picker_; }
    // Null until it was shown once.
    [[nodiscard]] KeyboardsDialog* dialog() { return dialog_; }

signals:
    // Another keyboard is worked with.
    void chosen();

private:
    void chooseRemembered();
    // What is plugged in, or chosen, may be something else.
    void follow();
    void fillPicker(const std::vector<PluggedDevice>& devices);
    void showDialog();
    void use(const AttachedDevice& device);
    void add(const AttachedDevice& device);
    void allow();
    void endAllowing(const QString& sentence);
    void copyCommand();

    MainWindow& window_;
    std::shared_ptr<Keyboards> keyboards_;
    KeyboardWatch& watch_;
    std::string worked_; // the keyboard that was last in use, by all that tells it apart
    // Children of the menu, the status line, this and the window.
    QAction* action_;
    QPushButton* picker_;
    QMenu* choices_;
    AccessInstaller* installer_;
    KeyboardsDialog* dialog_ = nullptr;
};

} // namespace scenewright
