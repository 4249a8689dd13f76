#include "editor/qt/KeyboardsDialog.h"

#include "app/DeviceSession.h"
#include "app/Keyboards.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/QtHelpers.h"
#include "usb/Devices.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStandardPaths>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

namespace scenewright {

namespace {

const QString kPkexec = QStringLiteral("pkexec");

// As the superuser: the rules come in on standard input, and count for what is plugged in now.
// Where udev does not take them at once, it does when something is plugged in. The exit codes are
// none of those with which pkexec tells that it started nothing.
QString script() {
    return QStringLiteral("umask 022; "
                          "cat >%1.new && mv %1.new %1 || { rm -f %1.new; exit 1; }; "
                          "udevadm control --reload && "
                          "udevadm trigger --action=change --subsystem-match=usb; "
                          "exit 0")
        .arg(QLatin1String(kAccessRulesFile));
}

// By what pkexec documents of its exit codes.
QString resultOf(QProcess& pkexec) {
    constexpr int kDismissed = 126;
    constexpr int kNotAuthorized = 127; // also when there is nobody to ask
    const bool isEnded =
        pkexec.error() != QProcess::FailedToStart && pkexec.exitStatus() == QProcess::NormalExit;
    const int code = isEnded ? pkexec.exitCode() : kNotAuthorized;
    if (code == 0)
        return AccessInstaller::tr("The rules are installed. If the keyboard is still not allowed, "
                                   "plug it in again.");
    if (code == kDismissed)
        return AccessInstaller::tr(
            "The rules were not installed: the question for a password was closed.");
    if (code == kNotAuthorized)
        return AccessInstaller::tr(
            "The rules were not installed: polkit did not allow it, or cannot ask for a password "
            "here. Copy Command copies a line for a terminal.");
    return AccessInstaller::tr("The rules were not installed: %1")
        .arg(QString::fromLocal8Bit(pkexec.readAllStandardError()).trimmed());
}

constexpr QSize kDialogSize(760, 360);
constexpr int kWidestColumn = 280; // before the state
constexpr int kHelpLines = 3;

using Access = AttachedDevice::Access;

QString stateWords(const PluggedDevice& plugged) {
    QStringList words;
    if (plugged.isInUse)
        words.append(KeyboardsDialog::tr("in use"));
    if (!plugged.isListed)
        words.append(KeyboardsDialog::tr("not in the list"));
    if (plugged.device.access == Access::NoPermission)
        words.append(KeyboardsDialog::tr("not allowed"));
    if (plugged.device.access == Access::Claimed)
        words.append(KeyboardsDialog::tr("busy"));
    return words.empty() ? KeyboardsDialog::tr("ready") : words.join(QLatin1String(", "));
}

QString helpFor(const PluggedDevice& plugged) {
    if (!plugged.isListed)
        return KeyboardsDialog::tr(
            "Only keyboards of the list are worked with. What you add stands "
            "in a list of your own, beside the one that came with the "
            "program. Add it only if it has the controls of the picture.");
    if (plugged.device.access == Access::NoPermission)
        return shown(causeAndCure(kResultAccess));
    if (plugged.device.access == Access::Claimed)
        return shown(causeAndCure(kResultBusy));
    return plugged.isInUse ? KeyboardsDialog::tr("This keyboard is read from and sent to.")
                           : QString();
}

} // namespace

bool AccessInstaller::isAvailable() {
    return !QStandardPaths::findExecutable(kPkexec).isEmpty();
}

QString AccessInstaller::command(const QString& programs) {
    const QString name = QStringLiteral("scenewright-cli");
    const QFileInfo beside(QDir(programs), name);
    const QFileInfo found(QStandardPaths::findExecutable(name));
    const bool isFound =
        !beside.exists() || beside.canonicalFilePath() == found.canonicalFilePath();
    const QString program = isFound ? name : beside.filePath();
    return QString::fromStdString(accessCommand(program.toStdString()));
}

void AccessInstaller::start() {
    auto& process = makeChild<QProcess>(this);
    const auto end = [this, &process] {
        process.deleteLater();
        emit ended(resultOf(process));
    };
    connect(&process, &QProcess::finished, this, end);
    connect(&process, &QProcess::errorOccurred, this, [end](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end(); // and nothing finishes
    });
    // Without a desktop's question pkexec would ask in the terminal that the window was started
    // from.
    process.start(kPkexec, {QStringLiteral("--disable-internal-agent"), QStringLiteral("/bin/sh"),
                            QStringLiteral("-c"), script()});
    process.write(QByteArray::fromStdString(udevRules(deviceList())));
    process.closeWriteChannel();
}

KeyboardsDialog::KeyboardsDialog(bool canInstall, QWidget* parent)
    : QDialog(parent), table_(&makeChild<QTreeWidget>(this)), help_(&makeChild<QLabel>(this)) {
    auto& column = layOutDialog(*this, tr("Keyboards"));
    column.setSpacing(8);
    layOutTable(*table_, windowTitle(),
                {tr("Device"), tr("Port"), tr("Serial number"), tr("State")});
    column.addWidget(table_, 1);
    help_->setProperty("role", "hint");
    help_->setTextFormat(Qt::PlainText);
    help_->setWordWrap(true);
    help_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    help_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    help_->setMinimumHeight(kHelpLines * help_->fontMetrics().lineSpacing());
    column.addWidget(help_);
    addButtons(addRow(*this, column, tr("Actions")), canInstall);
    connect(table_, &QTreeWidget::currentItemChanged, this, [this] {
        showButtons();
        help_->setText(rowHelp());
    });
    help_->setText(rowHelp());
    resize(kDialogSize);
}

void KeyboardsDialog::addButtons(QHBoxLayout& row, bool canInstall) {
    const auto add = [&row](const QString& title, const QString& help) -> QPushButton& {
        return addRowButton(row, title, help);
    };
    use_ = &add(tr("&Use This One"), tr("Reads from and sends to this keyboard from now on"));
    allow_ = &add(tr("&Allow"), tr("Installs the rules that let you use the keyboards of the list, "
                                   "with an administrator's password"));
    allow_->setVisible(canInstall);
    copy_ = &add(tr("Cop&y Command"),
                 tr("Copies the command that lets you use the keyboards of the list, for a "
                    "terminal"));
    add_ = &add(tr("Add To My &List"), tr("Adds the device to your own list of keyboards"));
    row.addStretch();
    auto& close = add(tr("&Close"), {});
    close.setDefault(true);
    connect(use_, &QAbstractButton::clicked, this, [this] { emit useWanted(*chosen()); });
    connect(allow_, &QAbstractButton::clicked, this, &KeyboardsDialog::allowWanted);
    connect(copy_, &QAbstractButton::clicked, this, &KeyboardsDialog::copyWanted);
    connect(add_, &QAbstractButton::clicked, this, [this] { emit addWanted(*chosen()); });
    connect(&close, &QPushButton::clicked, this, &QDialog::accept);
}

void KeyboardsDialog::list(std::vector<PluggedDevice> devices) {
    const auto former = chosen();
    const QString formerHelp = rowHelp();
    const QSignalBlocker quiet(table_);
    devices_ = std::move(devices);
    table_->clear();
    for (const PluggedDevice& plugged : devices_) {
        const QStringList texts{shown(plugged.name()), shown(plugged.device.port),
                                shown(plugged.device.serial), stateWords(plugged)};
        table_->addTopLevelItem(std::make_unique<QTreeWidgetItem>(texts).release());
    }
    fitColumns(*table_, kWidestColumn);
    const auto isFormer = [&former](const PluggedDevice& plugged) {
        return former ? plugged.device.port == former->device.port : plugged.isInUse;
    };
    const auto place = std::ranges::find_if(devices_, isFormer);
    if (place != devices_.end())
        table_->setCurrentItem(table_->topLevelItem(static_cast<int>(place - devices_.begin())));
    showButtons();
    if (rowHelp() != formerHelp)
        help_->setText(rowHelp());
}

void KeyboardsDialog::setBusy(bool isBusy) {
    isBusy_ = isBusy;
    showButtons();
}

void KeyboardsDialog::setAsking(bool isAsking) {
    isAsking_ = isAsking;
    showButtons();
}

void KeyboardsDialog::tell(const QString& sentence) {
    help_->setText(sentence);
}

std::optional<PluggedDevice> KeyboardsDialog::chosen() const {
    const int row = table_->indexOfTopLevelItem(table_->currentItem());
    return row < 0 ? std::nullopt : std::optional(devices_.at(static_cast<std::size_t>(row)));
}

void KeyboardsDialog::showButtons() {
    const auto device = chosen();
    use_->setEnabled(device && device->isListed && !device->isInUse && !isBusy_);
    const bool isForbidden =
        device && device->isListed && device->device.access == Access::NoPermission;
    allow_->setEnabled(isForbidden && !isAsking_);
    copy_->setEnabled(isForbidden);
    add_->setEnabled(device && !device->isListed);
}

QString KeyboardsDialog::rowHelp() const {
    if (devices_.empty())
        return tr("No USB MIDI device is plugged in.");
    const auto device = chosen();
    return device ? helpFor(*device) : QString();
}

} // namespace scenewright
