#include "tests/editor-qt/Situations.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "editor/qt/DeviceVerification.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/StripPlace.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <QApplication>
#include <QKeyEvent>
#include <QThread>
#include <QTreeWidget>
#include <fmt/format.h>

#include <chrono>
#include <memory>

namespace scenewright {

namespace {

using Keep = std::function<bool(const QPixmap& picture, const std::string& name)>;

void plugIn(FaultPlan faults) {
    auto device =
        std::make_shared<VirtualController>(encodeBank(WindowAction::scenes()), std::move(faults));
    Transport::instance().use(makeVirtualHost(std::move(device)), [](std::chrono::nanoseconds) {});
}

void settle(MainWindow& window) {
    do {
        QApplication::processEvents();
        QThread::msleep(10);
    } while (window.commands().isBusy());
    QApplication::processEvents();
}

bool keepNotices(MainWindow& window, EditorCommands& commands, const Keep& keep) {
    window.picture().button(14)->click();
    plugIn({{Fault::Kind::Unplug, 1012 + 500}});
    window.commands().send();
    settle(window);
    if (!keep(window.grab(), "notice-half-bank"))
        return false;
    WindowAction::scenes()[0]->buttonValueArray()[13]->setCR(5);
    plugIn({{Fault::Kind::ShortTransfer, 100}, {Fault::Kind::ShortTransfer, 400}});
    window.commands().read();
    settle(window);
    if (!keep(window.grab(), "notice-doubtful-read"))
        return false;
    plugIn({});
    commands.verification().compare();
    settle(window);
    if (!keep(window.grab(), "notice-same"))
        return false;
    commands.verification().sendAndVerify();
    settle(window);
    if (!keep(window.grab(), "notice-verified"))
        return false;
    window.notices().dismiss();
    commands.banks().saveBank(QDir::temp().filePath("my live set & more.json"));
    settle(window);
    if (!keep(window.grab(), "notice-saved"))
        return false;
    WindowAction::scenes()[0]->buttonValueArray()[13]->setCR(6);
    Transport::instance().use(makeVirtualHost(std::make_shared<VirtualController>(BankImage{}),
                                              BankFileStore({}), {.vendor = 1}));
    window.notices().withdraw(Notice::Source::Files);
    window.commands().read();
    settle(window);
    return keep(window.grab(), "notice-no-keyboard");
}

bool keepDifferences(MainWindow& window, EditorCommands& commands, const Keep& keep) {
    plugIn({});
    const auto& scene = WindowAction::scenes()[0];
    scene->commonValue()->setSceneName("Live");
    scene->commonValue()->setKeyTranspose(1);
    for (std::size_t control = 12; control < 20; ++control) {
        scene->buttonValueArray()[control]->setAssignType(1);
        scene->buttonValueArray()[control]->setCG(100);
        scene->buttonValueArray()[control]->setCCOrNoteNumber(20);
    }
    commands.verification().compare();
    settle(window);
    const std::unique_ptr<DifferenceDialog> dialog(window.findChild<DifferenceDialog*>());
    return dialog && keep(dialog->grab(), "differences");
}

bool keepMenus(MainWindow& window, EditorCommands& commands, const Keep& keep) {
    commands.banks().saveBank(QDir::temp().filePath("my live set & more.json"));
    for (QMenu* menu : window.menuBar()->findChildren<QMenu*>()) {
        emit menu->aboutToShow();
        menu->ensurePolished();
        menu->resize(menu->sizeHint());
        if (!menu->isEmpty() && !keep(menu->grab(), "menu-" + menu->accessibleName().toStdString()))
            return false;
    }
    emit commands.earlier().menu().aboutToShow();
    return true;
}

bool keepDialogs(MainWindow& window, EditorCommands& commands, const Keep& keep) {
    for (const char* name : {"openBank", "saveBankAs", "openScene", "saveScene"}) {
        window.findChild<QAction*>(name)->trigger();
        settle(window);
        const std::unique_ptr<QFileDialog> dialog(window.findChild<QFileDialog*>());
        if (!dialog || !keep(dialog->grab(), std::string("dialog-") + name))
            return false;
    }
    commands.banks().openBank("/etc/hostname");
    if (!keep(window.grab(), "bad-bank"))
        return false;
    window.menu().guide().trigger();
    settle(window);
    About about(&window);
    return keep(window.subWindow<GuideWindow>().grab(), "guide") && keep(about.grab(), "about");
}

AttachedDevice deviceAt(const char* port, AttachedDevice::Access access) {
    return {.port = port,
            .ids = deviceList().at(0),
            .name = "Virtual Controller",
            .hasMidiStreaming = true,
            .access = access};
}

bool keepKeyboards(MainWindow& window, EditorCommands& commands, const Keep& keep) {
    using Access = AttachedDevice::Access;
    const auto keepLook = [&](const char* name) {
        commands.keyboard().look();
        settle(window);
        return keep(window.grab(), std::string("keyboard-") + name);
    };
    picturedDevices = {};
    if (!keepLook("unplugged"))
        return false;
    for (const auto& [access, name] :
         {std::pair{Access::NoPermission, "no-permission"}, std::pair{Access::Claimed, "claimed"},
          std::pair{Access::Usable, "usable"}}) {
        picturedDevices = {deviceAt("1-1", access)};
        if (!keepLook(name))
            return false;
    }
    picturedDevices.push_back(deviceAt("1-2.4", Access::NoPermission));
    picturedDevices.back().serial = "SC2207-0815";
    picturedDevices.push_back(deviceAt("3-1", Access::Claimed));
    picturedDevices.push_back(deviceAt("3-2", Access::NoPermission));
    picturedDevices.back().ids = {.vendor = 1, .product = 2};
    picturedDevices.back().name = "Eight Drum Pads & a Very Long Name of a Device";
    if (!keepLook("one-of-several"))
        return false;
    commands.keyboards().action().trigger();
    settle(window);
    QTreeWidget& table = commands.keyboards().dialog()->table();
    for (int row = 0; row < table.topLevelItemCount(); ++row) {
        table.setCurrentItem(table.topLevelItem(row));
        if (!keep(commands.keyboards().dialog()->grab(), fmt::format("keyboards-{}", row)))
            return false;
    }
    commands.keyboards().dialog()->close();
    return true;
}

// What the keyboard plays and sends is the virtual controller's.
bool keepStrips(MainWindow& window, const Keep& keep) {
    QAction& monitor = window.findChild<MonitorStrip*>()->action();
    TryStrip& trying = *window.findChild<TryStrip*>();
    plugIn({});
    window.commands().read();
    settle(window);
    QAction& play = *window.menu().view().actions().back();
    const auto keepTouched = [&](const char* name) {
        play.setChecked(true);
        for (const std::int32_t control : {13, 15, 21, 24, 40})
            window.picture().button(control)->click();
        play.setChecked(false);
        settle(window);
        return keep(window.grab(), name);
    };
    monitor.setChecked(true);
    if (!keepTouched("strip-monitor"))
        return false;
    monitor.setChecked(false);
    trying.action().trigger();
    if (!keepTouched("strip-try"))
        return false;
    monitor.setChecked(true);
    play.setChecked(true);
    settle(window);
    if (!keep(window.grab(), "strips-all"))
        return false;
    window.strips().showSettings();
    settle(window);
    if (!keep(window.grab(), "strips-settings"))
        return false;
    monitor.setChecked(false);
    for (int press = 0; press < 2; ++press) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&trying, &escape);
    }
    window.picture().button(13)->click();
    settle(window);
    const bool isKept = keep(window.grab(), "strip-play");
    play.setChecked(false);
    return isKept;
}

} // namespace

bool keepSituations(MainWindow& window, EditorCommands& commands, const Keep& keep) {
    return keepNotices(window, commands, keep) && keepDifferences(window, commands, keep) &&
           keepMenus(window, commands, keep) && keepDialogs(window, commands, keep) &&
           keepKeyboards(window, commands, keep) && keepStrips(window, keep);
}

} // namespace scenewright
