#include "editor/qt/KeyboardCommands.h"

#include "app/DeviceSession.h"
#include "app/OutcomeText.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/Edit.h"
#include "editor/qt/AccessInstaller.h"
#include "editor/qt/QtHelpers.h"
#include "tests/editor-qt-files/CommandsBench.h"
#include "tests/support/TempFolder.h"
#include "usb/LibusbHost.h"
#include "usb/Transport.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QTest>
#include <QTreeWidget>

#include <array>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace scenewright::testing {

namespace {

// A device of another host, at a port.
class DeviceAtPort : public UsbDevice {
public:
    DeviceAtPort(std::shared_ptr<UsbDevice> device, std::string port)
        : device_(std::move(device)), port_(std::move(port)) {}

    [[nodiscard]] std::string name() const override { return device_->name(); }
    [[nodiscard]] std::string port() const override { return port_; }
    [[nodiscard]] std::uint16_t vendor() override { return device_->vendor(); }
    [[nodiscard]] std::uint16_t product() override { return device_->product(); }
    [[nodiscard]] UsbResult<std::unique_ptr<UsbInterface>> interface(std::size_t place) override {
        return device_->interface(place);
    }

private:
    std::shared_ptr<UsbDevice> device_;
    std::string port_;
};

// Two virtual controllers on one bus, at the ports 1-1 and 1-2.
class TwoControllers : public UsbHost {
public:
    UsbResult<Devices> devices(const DeviceMatch& match) override {
        Devices both;
        for (std::size_t place = 0; place < hosts.size(); ++place) {
            const Devices found = hosts.at(place)->devices(match).value_or(Devices{});
            for (const auto& device : found)
                both.push_back(
                    std::make_shared<DeviceAtPort>(device, "1-" + std::to_string(place + 1)));
        }
        return both;
    }

    std::array<std::shared_ptr<VirtualController>, 2> controllers{
        std::make_shared<VirtualController>(bankWithName("First")),
        std::make_shared<VirtualController>(bankWithName("Second"))};

private:
    static BankImage bankWithName(const std::string& name) {
        SceneList scenes = copyOf(WindowAction::scenes());
        scenes.front()->commonValue()->setSceneName(name);
        return encodeBank(scenes);
    }

    std::array<std::shared_ptr<VirtualHost>, 2> hosts{makeVirtualHost(controllers[0]),
                                                      makeVirtualHost(controllers[1])};
};

class KeyboardCommandsTest : public CommandsBench {
protected:
    static AttachedDevice deviceAt(const std::string& port, const std::string& name = "Keys") {
        return {.port = port, .ids = {0x1209, 0x0001}, .name = name, .hasMidiStreaming = true};
    }
    static AttachedDevice strange(const std::string& port) {
        AttachedDevice device = deviceAt(port, "Drum");
        device.ids = {.vendor = 0x1234, .product = 0x5678};
        return device;
    }

    ~KeyboardCommandsTest() override { KnownKeyboard::setNaming({}); }

    void watch(const std::string& chosen = {}) {
        keyboards = std::make_shared<Keyboards>(chosen, [this] { return plugged; });
        open(keyboards);
    }
    void look() { commands().keyboard().look(); }
    KeyboardCommands& choices() { return commands().keyboards(); }
    QPushButton& picker() { return choices().picker(); }
    // The entries of the picker, the one in use in brackets.
    QStringList picks() {
        QStringList texts;
        for (const QAction* action : picker().menu()->actions())
            texts.append(action->isChecked() ? "[" + action->text() + "]" : action->text());
        return texts;
    }
    void pick(int place) { picker().menu()->actions().at(place)->trigger(); }

    KeyboardsDialog& dialog() {
        choices().action().trigger();
        return *choices().dialog();
    }
    static void chooseRow(KeyboardsDialog& dialog, int row) {
        dialog.table().setCurrentItem(dialog.table().topLevelItem(row));
    }
    // The buttons that can be pressed.
    static QString enabled(KeyboardsDialog& dialog) {
        QStringList names;
        for (const QAbstractButton* button : {&dialog.useButton(), &dialog.allowButton(),
                                              &dialog.copyButton(), &dialog.addButton()})
            if (button->isEnabled() && !button->isHidden())
                names.append(button->accessibleName());
        return names.join(", ");
    }

    std::vector<AttachedDevice> plugged{deviceAt("1-1"), deviceAt("1-2")};
    std::shared_ptr<Keyboards> keyboards;
};

TEST_F(KeyboardCommandsTest, TheVirtualControllerLeavesNothingToChoose) {
    open();
    EXPECT_FALSE(choices().action().isEnabled());
    EXPECT_TRUE(picker().isHidden());
}

TEST_F(KeyboardCommandsTest, ThePickerIsThereWhileThereIsAChoice) {
    plugged.clear();
    watch();
    EXPECT_TRUE(picker().isHidden());
    plugged = {deviceAt("1-1"), strange("1-3")};
    look();
    EXPECT_TRUE(picker().isHidden()) << "one that is not listed is no choice";
    plugged.push_back(deviceAt("1-2", "Pads & Keys"));
    plugged.back().serial = "A17";
    plugged.front().name = std::string(99, 'K');
    look();
    EXPECT_TRUE(picker().text().startsWith("1-1 (KKK")) << picker().text().toStdString();
    EXPECT_LT(picker().text().size(), 99) << "the status line has room for more";
    plugged.front().name = "Keys";
    look();
    EXPECT_FALSE(picker().isHidden());
    EXPECT_EQ(picker().text(), "1-1 (Keys)");
    EXPECT_EQ(picker().accessibleDescription(), "Which keyboard to use");
    EXPECT_EQ(picks(), (QStringList{"[1-1 (Keys)]", "1-2 (Pads && Keys, serial number A17)"}));
    pick(1);
    EXPECT_EQ(keyboards->chosen(), "A17");
    EXPECT_EQ(picker().text(), "1-2 (Pads && Keys)");
    EXPECT_EQ(picker().accessibleName(), "1-2 (Pads & Keys, serial number A17)");
    EXPECT_EQ(picks(), (QStringList{"1-1 (Keys)", "[1-2 (Pads && Keys, serial number A17)]"}));
    plugged.pop_back();
    look();
    EXPECT_FALSE(picker().isHidden()) << "the chosen one is away";
    EXPECT_EQ(picker().text(), "Choose a Keyboard");
    EXPECT_EQ(picks(), QStringList{"1-1 (Keys)"});
}

TEST_F(KeyboardCommandsTest, TwoKeyboardsInOneEveningAreNotMixedUp) {
    watch();
    KnownKeyboard::setNaming([this] { return keyboards->name(); });
    const auto bus = std::make_shared<TwoControllers>();
    Transport::instance().use(offerChosen(bus, [this] { return keyboards->offeredPort(); }),
                              [](std::chrono::nanoseconds) {});
    const BankImage first = bus->controllers[0]->bank();
    const BankImage second = bus->controllers[1]->bank();
    press(Qt::Key_R);
    EXPECT_EQ(encodeBank(WindowAction::scenes()), first);
    EXPECT_EQ(KnownKeyboard::name(), "Keys (1-1)");

    pick(1);
    EXPECT_FALSE(KnownKeyboard::image()) << "what the other one holds is not known";
    plugged.erase(plugged.begin()); // the first one; the second stays the chosen one
    look();
    plugged.insert(plugged.begin(), deviceAt("1-1"));
    look();
    press(Qt::Key_Return);
    EXPECT_FALSE(picker().isEnabled()) << "a send is on its way to the chosen one";
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
    EXPECT_TRUE(picker().isEnabled());
    EXPECT_EQ(bus->controllers[1]->bank(), first);
    EXPECT_EQ(bus->controllers[0]->bank(), first);
    EXPECT_EQ(bus->controllers[0]->sendsEnded(), 0U);
    EXPECT_EQ(KnownKeyboard::name(), "Keys (1-2)");
    const auto kept = earlier().list();
    ASSERT_FALSE(kept.empty());
    EXPECT_EQ(kept.front().occasion.keyboard, "Keys (1-2)");
    EXPECT_EQ(kept.front().image, second);
}

TEST_F(KeyboardCommandsTest, WhatOneHoldsSaysNothingOfAnotherAtItsPort) {
    plugged = {deviceAt("1-1")};
    plugged.front().serial = "A17";
    watch();
    KnownKeyboard::set(encodeBank(WindowAction::scenes()), "Keys");
    look();
    EXPECT_TRUE(KnownKeyboard::image());
    plugged.front().serial = "A18";
    look();
    EXPECT_FALSE(KnownKeyboard::image());
}

TEST_F(KeyboardCommandsTest, TheDialogsUseThisOneWaitsForTheEndOfASend) {
    watch();
    for (const bool isOpen : {false, true}) {
        window().commands().send();
        KeyboardsDialog& shown = isOpen ? *choices().dialog() : dialog();
        chooseRow(shown, 1);
        EXPECT_EQ(enabled(shown), "") << isOpen;
        ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
        chooseRow(shown, 1);
        EXPECT_EQ(enabled(shown), "Use This One") << isOpen;
    }
    field<QPushButton>(*choices().dialog(), "Close").click();
    EXPECT_FALSE(choices().dialog()->isVisible());
}

TEST_F(KeyboardCommandsTest, AChoiceIsRememberedAsLongAsItsKeyboardIsThere) {
    watch();
    pick(1);
    close();
    watch();
    EXPECT_EQ(keyboards->chosen(), "1-2");
    close();
    plugged.pop_back();
    watch();
    EXPECT_EQ(keyboards->chosen(), "") << "the only one is used";
    close();
    plugged.push_back(strange("1-2"));
    watch();
    EXPECT_EQ(keyboards->chosen(), "") << "one that is not listed is no keyboard";
}

TEST_F(KeyboardCommandsTest, AChoiceOfTheCommandLineIsNotRemembered) {
    programSettings().setValue("keyboard", "1-1");
    watch("1-2");
    EXPECT_EQ(keyboards->chosen(), "1-2");
    EXPECT_EQ(programSettings().value("keyboard").toString(), "1-1");
}

TEST_F(KeyboardCommandsTest, AChoiceOfTheCommandLineThatIsNotThereSaysWhatIsUntilItIs) {
    watch("1-3");
    EXPECT_EQ(notice(), "There is no keyboard 1-3; plugged in: 1-1 (Keys), 1-2 (Keys)");
    plugged.push_back(deviceAt("1-3"));
    look();
    EXPECT_EQ(notice(), "");
}

TEST_F(KeyboardCommandsTest, TheDialogsRowStaysWhereItWasAndUseThisOneUsesIt) {
    watch();
    KeyboardsDialog& shown = dialog();
    EXPECT_EQ(shown.table().currentItem()->text(1), "1-1") << "the one in use";
    chooseRow(shown, 1);
    plugged.insert(plugged.begin(), strange("1-0"));
    look();
    EXPECT_EQ(shown.table().currentItem()->text(1), "1-2");
    shown.useButton().click();
    EXPECT_EQ(keyboards->chosen(), "1-2");
    EXPECT_EQ(shown.table().currentItem()->text(3), "in use");
}

// A folder of configuration and a path of programs of the test's own.
class OwnFoldersTest : public KeyboardCommandsTest {
protected:
    OwnFoldersTest() {
        qputenv("XDG_CONFIG_HOME", folder.path().c_str());
        qputenv("PATH", folder.path().c_str());
    }
    ~OwnFoldersTest() override {
        qputenv("PATH", path_);
        qputenv("XDG_CONFIG_HOME", config_);
    }

    KeyboardsDialog& dialogOn(const AttachedDevice& device) {
        plugged = {device};
        watch();
        KeyboardsDialog& shown = dialog();
        chooseRow(shown, 0);
        return shown;
    }
    KeyboardsDialog& dialogOnForbidden() {
        AttachedDevice device = deviceAt("1-1");
        device.access = AttachedDevice::Access::NoPermission;
        return dialogOn(device);
    }

private:
    QByteArray path_ = qgetenv("PATH");
    QByteArray config_ = qgetenv("XDG_CONFIG_HOME");
};

struct Row {
    QString state;
    QString enabled;
    QString help; // how it begins
};

TEST_F(OwnFoldersTest, TheDialogTellsEachDevicesStateAndWhatCanBeDone) {
    using Access = AttachedDevice::Access;
    plugged = {deviceAt("1-1"), deviceAt("1-2"), deviceAt("1-3"), strange("1-4"), strange("1-5")};
    plugged[0].access = Access::Claimed;
    plugged[2].access = Access::NoPermission;
    plugged[4].access = Access::NoPermission;
    watch();
    KeyboardsDialog& dialog = this->dialog();
    const std::vector<Row> rows{
        {"in use, busy", "", shown(causeAndCure(kResultBusy))},
        {"ready", "Use This One", ""},
        {"not allowed", "Use This One, Copy Command", shown(causeAndCure(kResultAccess))},
        {"not in the list", "Add To My List", "Only keyboards of the list"},
        {"not in the list, not allowed", "Add To My List", "Only keyboards of the list"}};
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        chooseRow(dialog, row);
        EXPECT_EQ(dialog.table().topLevelItem(row)->text(1), QString("1-%1").arg(row + 1));
        EXPECT_EQ(dialog.table().topLevelItem(row)->text(3), rows.at(row).state);
        EXPECT_EQ(enabled(dialog), rows.at(row).enabled) << row;
        EXPECT_EQ(dialog.help().text().left(rows.at(row).help.size()), rows.at(row).help) << row;
        EXPECT_EQ(dialog.help().text().isEmpty(), rows.at(row).help.isEmpty()) << row;
    }
    plugged.clear();
    look();
    EXPECT_EQ(dialog.help().text(), "No USB MIDI device is plugged in.");
}

TEST_F(OwnFoldersTest, AddToMyListMakesADeviceAKeyboard) {
    KeyboardsDialog& shown = dialogOn(strange("1-1"));
    shown.addButton().click();
    EXPECT_EQ(shown.table().topLevelItem(0)->text(3), "in use");
    EXPECT_EQ(deviceList().front(), (DeviceIds{0x1234, 0x5678}));
}

TEST_F(OwnFoldersTest, AListThatCannotBeAddedToIsTold) {
    std::filesystem::create_directories(folder.path() / "scenewright/project.plist");
    KeyboardsDialog& shown = dialogOn(strange("1-1"));
    shown.addButton().click();
    EXPECT_TRUE(shown.help().text().contains(file("scenewright/project.plist")))
        << shown.help().text().toStdString();
}

TEST_F(OwnFoldersTest, WithoutPolkitThereIsOnlyTheCommandToCopy) {
    KeyboardsDialog& shown = dialogOnForbidden();
    EXPECT_EQ(enabled(shown), "Copy Command");
    shown.copyButton().click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              AccessInstaller::command(QCoreApplication::applicationDirPath()));
    EXPECT_TRUE(shown.help().text().startsWith("Copied.")) << shown.help().text().toStdString();
}

TEST_F(OwnFoldersTest, AllowAsksOnceAndItsAnswerStaysUntilTheStateIsAnother) {
    ASSERT_EQ(::mkfifo(folder.file("answer").c_str(), 0600), 0);
    QFile pkexec(file("pkexec"));
    ASSERT_TRUE(pkexec.open(QIODevice::WriteOnly));
    pkexec.write("#!/bin/sh\nread -r code <\"${0%/*}/answer\"\nexit $code\n");
    pkexec.close();
    pkexec.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    KeyboardsDialog& shown = dialogOnForbidden();
    EXPECT_EQ(enabled(shown), "Allow, Copy Command");
    shown.allowButton().click();
    EXPECT_EQ(enabled(shown), "Copy Command");
    EXPECT_EQ(shown.help().text(), "Waiting for an administrator's password...");
    QFile answer(file("answer"));
    ASSERT_TRUE(answer.open(QIODevice::WriteOnly));
    answer.write("126\n");
    answer.close();
    ASSERT_TRUE(waitUntil([&shown] { return shown.allowButton().isEnabled(); }));
    look();
    EXPECT_EQ(shown.help().text(),
              "The rules were not installed: the question for a password was closed.");
    plugged.front().access = AttachedDevice::Access::Usable;
    look();
    EXPECT_EQ(shown.help().text(), "This keyboard is read from and sent to.");
}

} // namespace

} // namespace scenewright::testing
