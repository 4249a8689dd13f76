// The USB MIDI devices that are plugged in, and what can be done about them. Main thread only.
#pragma once

#include "app/Keyboards.h"

#include <QDialog>
#include <QObject>
#include <QString>

#include <optional>
#include <vector>

class QAbstractButton;
class QHBoxLayout;
class QLabel;
class QTreeWidget;

namespace scenewright {

// Lets the user open the keyboards of the list: the access rules are installed as the superuser,
// through polkit, or by a command for a terminal. A question that is open when the installer goes
// is closed.
class AccessInstaller final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // Whether this system has what installs through polkit.
    [[nodiscard]] static bool isAvailable();

    // What installs the rules when it is typed into a terminal. It names the command-line program
    // in the folder `programs` by its path, unless that is the one that a shell finds.
    [[nodiscard]] static QString command(const QString& programs);

    // Asks for an administrator's password, where polkit wants one, and installs the rules of the
    // list as it is now.
    void start();

signals:
    // What came of it, in a sentence.
    void ended(const QString& sentence);
};

// The devices, a row each. Tells what is wanted for the chosen row; whoever opens the dialog
// carries it out.
class KeyboardsDialog final : public QDialog {
    Q_OBJECT

public:
    // `canInstall`: access rules can be installed from here, and not only by a command.
    KeyboardsDialog(bool canInstall, QWidget* parent);

    // The chosen row stays on its device, or its port.
    void list(std::vector<PluggedDevice> devices);
    // While the keyboard in use is being sent to it stays in use.
    void setBusy(bool isBusy);
    // The superuser's rights are being asked for: not twice at a time.
    void setAsking(bool isAsking);
    // In place of what is said about the row, until another one is chosen or its state is another.
    void tell(const QString& sentence);

    [[nodiscard]] QTreeWidget& table() { return *table_; }
    [[nodiscard]] QLabel& help() { return *help_; }

signals:
    void useWanted(const scenewright::PluggedDevice& device);
    void allowWanted();
    void copyWanted();
    void addWanted(const scenewright::PluggedDevice& device);

private:
    void addButtons(QHBoxLayout& row, bool canInstall);
    [[nodiscard]] std::optional<PluggedDevice> chosen() const;
    // Greys what the chosen row does not allow.
    void showButtons();
    // What there is to say about the chosen row.
    [[nodiscard]] QString rowHelp() const;

    std::vector<PluggedDevice> devices_; // as the rows of the table
    bool isBusy_ = false;
    bool isAsking_ = false;
    // Children of the dialog.
    QTreeWidget* table_;
    QLabel* help_;
    QAbstractButton* use_ = nullptr;
    QAbstractButton* allow_ = nullptr;
    QAbstractButton* copy_ = nullptr;
    QAbstractButton* add_ = nullptr;
};

} // namespace scenewright
