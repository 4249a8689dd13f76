#include "editor/qt/KeyboardCommands.h"

#include "app/DeviceSession.h"
#include "editor/qt/QtHelpers.h"
#include "protocol/Transactions.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

QString textOf(KeyboardPresence presence, bool isChosen) {
    switch (presence) {
    case KeyboardPresence::Unplugged:
        if (isChosen)
            return KeyboardWatch::tr("The chosen keyboard is not plugged in");
        return KeyboardWatch::tr("No keyboard plugged in");
    case KeyboardPresence::NoPermission:
        return KeyboardWatch::tr("Keyboard plugged in, but you have no permission to use it");
    case KeyboardPresence::Claimed:
        return KeyboardWatch::tr("Keyboard in use by another program");
    case KeyboardPresence::Usable:
        return KeyboardWatch::tr("Keyboard plugged in");
    }
    return {};
}

QString cureOf(KeyboardPresence presence) {
    if (presence == KeyboardPresence::NoPermission)
        return shown(causeAndCure(kResultAccess));
    if (presence == KeyboardPresence::Claimed)
        return shown(causeAndCure(kResultBusy));
    return {};
}

const QString kKeyboardKey = QStringLiteral("keyboard");
constexpr int kPickerWidth = 200; // of its text

std::string identityOf(const AttachedDevice& device) {
    return fmt::format("{} {:04x}:{:04x} {}", device.port, device.ids.vendor, device.ids.product,
                       device.serial);
}

} // namespace

KeyboardWatch::KeyboardWatch(std::shared_ptr<const Keyboards> keyboards, QWidget* parent)
    : QLabel(parent), keyboards_(std::move(keyboards)) {
    setAccessibleDescription(tr("Keyboard")); // its name is its text
    setProperty("role", "field");
    setTextFormat(Qt::PlainText);
    if (!keyboards_)
        setText(tr("Virtual controller"));
    this->look();
}

void KeyboardWatch::follow(Result<DeviceMonitor> monitor) {
    if (!monitor)
        return;
    monitor_ = *std::move(monitor);
    auto& notifier =
        makeChild<QSocketNotifier>(monitor_->descriptor(), QSocketNotifier::Read, this);
    connect(&notifier, &QSocketNotifier::activated, this, [this] {
        monitor_->drain();
        look();
    });
}

void KeyboardWatch::look() {
    // The claim that shows during a send is our own; the end of the send looks again.
    if (!keyboards_ || SendJob::isRunning())
        return;
    const KeyboardPresence presence = keyboards_->presence();
    setText(textOf(presence, !keyboards_->chosen().empty()));
    setToolTip(cureOf(presence));
    emit looked();
}

KeyboardCommands::KeyboardCommands(MainWindow& window, std::shared_ptr<Keyboards> keyboards,
                                   KeyboardWatch& watch)
    : window_(window), keyboards_(std::move(keyboards)), watch_(watch),
      action_(window.menu().device().addAction(tr("&Keyboards..."))),
      picker_(&makeChild<QPushButton>(&window.status())), choices_(&makeChild<QMenu>(picker_)),
      installer_(&makeChild<AccessInstaller>(this)) {
    picker_->setFlat(true);
    picker_->setMenu(choices_);
    picker_->setAccessibleDescription(tr("Which keyboard to use"));
    picker_->setAccessibleName(picker_->accessibleDescription());
    choices_->setAccessibleName(picker_->accessibleDescription());
    picker_->hide();
    window.status().addMark(*picker_);
    window.status().addMark(watch);
    action_->setEnabled(keyboards_ != nullptr);
    if (!keyboards_)
        return;
    chooseRemembered();
    if (const auto checked = keyboards_->checkChosen(); !checked)
        window.notices().post({.source = Notice::Source::Keyboards,
                               .kind = Notice::Kind::Error,
                               .text = shown(checked.error())});
    connect(action_, &QAction::triggered, this, &KeyboardCommands::showDialog);
    connect(&watch, &KeyboardWatch::looked, this, &KeyboardCommands::follow);
    connect(&window.commands(), &DeviceCommands::busyChanged, this, [this](bool isBusy) {
        picker_->setEnabled(!isBusy);
        if (dialog_ != nullptr)
            dialog_->setBusy(isBusy);
    });
    watch.look();
}

void KeyboardCommands::chooseRemembered() {
    if (!keyboards_->chosen().empty())
        return;
    const std::string remembered = programSettings().value(kKeyboardKey).toString().toStdString();
    const auto isMeant = [&remembered](const PluggedDevice& plugged) {
        return plugged.isListed && plugged.device.isNamed(remembered);
    };
    if (std::ranges::any_of(keyboards_->all(), isMeant))
        keyboards_->choose(remembered);
}

void KeyboardCommands::follow() {
    std::vector<PluggedDevice> devices = keyboards_->all();
    const auto used = std::ranges::find(devices, true, &PluggedDevice::isInUse);
    if (used != devices.end()) {
        window_.notices().withdraw(Notice::Source::Keyboards);
        // What the former one holds says nothing of this one.
        if (const std::string now = identityOf(used->device); std::exchange(worked_, now) != now)
            KnownKeyboard::forget();
    }
    fillPicker(devices);
    if (dialog_ != nullptr)
        dialog_->list(std::move(devices));
}

void KeyboardCommands::fillPicker(const std::vector<PluggedDevice>& devices) {
    choices_->clear();
    QString title = tr("Choose a Keyboard");
    QString described = title;
    bool isUsed = false;
    for (const PluggedDevice& plugged : devices) {
        if (!plugged.isListed)
            continue;
        QAction& action = *choices_->addAction(inMenu(shown(plugged.description())));
        action.setCheckable(true);
        action.setChecked(plugged.isInUse);
        connect(&action, &QAction::triggered, this,
                [this, device = plugged.device] { use(device); });
        if (!plugged.isInUse)
            continue;
        title = inMenu(shown(plugged.device.port + " (" + plugged.name() + ")"));
        described = shown(plugged.description());
        isUsed = true;
    }
    picker_->setVisible(choices_->actions().size() > (isUsed ? 1 : 0));
    picker_->setText(picker_->fontMetrics().elidedText(title, Qt::ElideRight, kPickerWidth));
    picker_->setAccessibleName(described);
    picker_->setToolTip(described);
}

void KeyboardCommands::use(const AttachedDevice& device) {
    keyboards_->choose(keyboards_->lastingName(device));
    programSettings().setValue(kKeyboardKey, shown(keyboards_->chosen()));
    watch_.look();
    emit chosen();
}

void KeyboardCommands::showDialog() {
    if (dialog_ == nullptr) {
        dialog_ = &makeChild<KeyboardsDialog>(AccessInstaller::isAvailable(), &window_);
        dialog_->setBusy(window_.commands().isBusy());
        connect(dialog_, &KeyboardsDialog::useWanted, this,
                [this](const PluggedDevice& plugged) { use(plugged.device); });
        connect(dialog_, &KeyboardsDialog::addWanted, this,
                [this](const PluggedDevice& plugged) { add(plugged.device); });
        connect(dialog_, &KeyboardsDialog::allowWanted, this, &KeyboardCommands::allow);
        connect(dialog_, &KeyboardsDialog::copyWanted, this, &KeyboardCommands::copyCommand);
        connect(installer_, &AccessInstaller::ended, this, [this](const QString& sentence) {
            watch_.look();
            dialog_->setAsking(false);
            dialog_->tell(sentence);
        });
    }
    watch_.look();
    bringUp(*dialog_);
}

void KeyboardCommands::add(const AttachedDevice& device) {
    const auto added = addToDeviceList(device.ids);
    watch_.look();
    if (!added)
        dialog_->tell(shown(added.error()));
}

void KeyboardCommands::allow() {
    dialog_->setAsking(true);
    dialog_->tell(tr("Waiting for an administrator's password..."));
    installer_->start();
}

void KeyboardCommands::copyCommand() {
    QGuiApplication::clipboard()->setText(
        AccessInstaller::command(QCoreApplication::applicationDirPath()));
    dialog_->tell(tr("Copied. Paste it into a terminal, then plug the keyboard in again."));
}

} // namespace scenewright
