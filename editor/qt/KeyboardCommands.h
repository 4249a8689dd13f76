// The keyboard that the window works with: whether it is there, and which one it is. Main thread
// only.
#pragma once

#include "app/Keyboards.h"
#include "editor/qt/KeyboardsDialog.h"
#include "editor/qt/MainWindow.h"
#include "usb/Devices.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QObject>
#include <QPushButton>

#include <memory>
#include <optional>
#include <string>

namespace scenewright {

// Says at the foot of the window whether the keyboard that is worked with is plugged in and can be
// used.
//
// It looks at what the kernel shows when the system tells that a device came or went, opens
// nothing, and looks away while a transfer runs.
class KeyboardWatch final : public QLabel {
    Q_OBJECT

public:
    // Without `keyboards` there is nothing to see: the controller is the virtual one.
    explicit KeyboardWatch(std::shared_ptr<const Keyboards> keyboards, QWidget* parent = nullptr);

    // Looks each time the monitor has something to tell. Where none could be started, at the calls
    // of look() alone.
    void follow(Result<DeviceMonitor> monitor);

    void look();

signals:
    // What is plugged in may be something else now.
    void looked();

private:
    std::shared_ptr<const Keyboards> keyboards_;
    std::optional<DeviceMonitor> monitor_;
};

// Device > Keyboards, and a picker on the status line while there is a choice. A choice is
// remembered from one start to the next, unless it was made on the command line; one that is not
// plugged in then leaves the first keyboard in use. Window and watch outlive the commands.
class KeyboardCommands final : public QObject {
    Q_OBJECT

public:
    // No `keyboards` for the virtual controller, which leaves nothing to choose.
    KeyboardCommands(MainWindow& window, std::shared_ptr<Keyboards> keyboards,
                     KeyboardWatch& watch);

    [[nodiscard]] QAction& action() { return *action_; }
    // Hidden while there is nothing to choose.
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
