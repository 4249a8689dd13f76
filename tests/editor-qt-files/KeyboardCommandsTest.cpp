#include "editor/qt/KeyboardCommands.h"

#include "app/DeviceSession.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/Edit.h"
#include "editor/qt/QtHelpers.h"
#include "platform/Diagnostics.h"
#include "tests/editor-qt-files/CommandsBench.h"
#include "usb/LibusbHost.h"
#include "usb/Transport.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <QTest>
#include <QTimer>

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright::testing {

namespace {

class KeyboardWatchTest : public CommandsBench {
protected:
    // The keyboard is there from now on.
    void attach(AttachedDevice::Access access = AttachedDevice::Access::Usable) {
        plugged = {deviceAt("1-1")};
        plugged.front().access = access;
    }
    KeyboardWatch& keyboard() { return commands().keyboard(); }
    [[nodiscard]] QString text() { return keyboard().text(); }
};

TEST_F(KeyboardWatchTest, EachLookShowsWhetherAndWhyTheKeyboardCannotBeUsed) {
    using Access = AttachedDevice::Access;
    struct Row {
        std::optional<Access> access; // nothing for no keyboard
        const char* text;
        ResultCode cure = kResultSuccess; // for none
    };
    const Row rows[] = {{{}, "No keyboard plugged in"},
                        {Access::Usable, "Keyboard plugged in"},
                        {Access::NoPermission,
                         "Keyboard plugged in, but you have no permission to use it",
                         kResultAccess},
                        {Access::Claimed, "Keyboard in use by another program", kResultBusy},
                        {{}, "No keyboard plugged in"}};
    std::string log;
    watch();
    Diagnostics::setLog([&log](std::string_view line) { log += line; });
    for (const Row& row : rows) {
        plugged.clear();
        if (row.access)
            attach(*row.access);
        keyboard().look();
        EXPECT_EQ(text(), row.text);
        EXPECT_EQ(keyboard().toolTip().toStdString(),
                  row.cure == kResultSuccess ? "" : causeAndCure(row.cure));
    }
    Diagnostics::setLog(nullptr);
    EXPECT_EQ(log, "");
}

TEST_F(KeyboardWatchTest, TheVirtualControllerAndAChosenKeyboardAreNotAnyKeyboard) {
    open();
    EXPECT_EQ(text(), "Virtual controller");
    keyboard().look();
    EXPECT_EQ(text(), "Virtual controller");
    close();
    attach();
    watch("1-2");
    EXPECT_EQ(text(), "The chosen keyboard is not plugged in");
}

TEST_F(KeyboardWatchTest, TheEndOfEachCommandLooksAgain) {
    watch();
    const int before = looks;
    press(Qt::Key_R);
    const int afterRead = looks;
    EXPECT_GT(afterRead, before);
    send();
    EXPECT_GT(looks, afterRead);
}

TEST_F(KeyboardWatchTest, OurOwnClaimDuringASendIsNotShown) {
    watch();
    press(Qt::Key_Return);
    attach(AttachedDevice::Access::Claimed);
    keyboard().look();
    EXPECT_EQ(text(), "No keyboard plugged in");
    attach();
    waitForSend();
    EXPECT_EQ(text(), "Keyboard plugged in");
}

// The monitor's descriptor cannot be written to without root; the notifier's event stands for it.
TEST_F(KeyboardWatchTest, WhatTheMonitorTellsIsLookedAt) {
    auto monitor = DeviceMonitor::start();
    ASSERT_TRUE(monitor) << monitor.error();
    const int descriptor = monitor->descriptor();
    watch();
    keyboard().follow(std::move(monitor));
    auto* notifier = keyboard().findChild<QSocketNotifier*>();
    ASSERT_NE(notifier, nullptr);
    EXPECT_EQ(notifier->socket(), descriptor);
    EXPECT_TRUE(notifier->isEnabled());
    EXPECT_TRUE(keyboard().findChildren<QTimer*>().isEmpty());
    attach();
    QEvent readable(QEvent::SockAct);
    QCoreApplication::sendEvent(notifier, &readable);
    EXPECT_EQ(text(), "Keyboard plugged in");
}

TEST_F(KeyboardWatchTest, WithoutAMonitorOnlyCallsLookAndNoneByTheClock) {
    watch();
    keyboard().follow(failure("none"));
    EXPECT_EQ(keyboard().findChild<QSocketNotifier*>(), nullptr);
    EXPECT_TRUE(keyboard().findChildren<QTimer*>().isEmpty());
    attach();
    keyboard().look();
    EXPECT_EQ(text(), "Keyboard plugged in");
}

// A virtual controller at the port 1-1 and another at 1-2 of one bus.
class TwoControllers : public UsbHost {
public:
    UsbResult<Devices> devices(const DeviceMatch& match) override {
        class AtPort : public UsbDevice {
        public:
            AtPort(std::shared_ptr<UsbDevice> device, std::string port)
                : device_(std::move(device)), port_(std::move(port)) {}

            [[nodiscard]] std::string name() const override { return device_->name(); }
            [[nodiscard]] std::string port() const override { return port_; }
            [[nodiscard]] std::uint16_t vendor() override { return device_->vendor(); }
            [[nodiscard]] std::uint16_t product() override { return device_->product(); }
            [[nodiscard]] UsbResult<std::unique_ptr<UsbInterface>>
            interface(std::size_t place) override {
                return device_->interface(place);
            }

        private:
            std::shared_ptr<UsbDevice> device_;
            std::string port_;
        };
        Devices both;
        for (const auto& controller : controllers) {
            const Devices found = makeVirtualHost(controller)->devices(match).value();
            for (const auto& device : found)
                both.push_back(
                    std::make_shared<AtPort>(device, controller == controllers[0] ? "1-1" : "1-2"));
        }
        return both;
    }

    std::array<std::shared_ptr<VirtualController>, 2> controllers{controllerWith("First"),
                                                                  controllerWith("Second")};

private:
    static std::shared_ptr<VirtualController> controllerWith(const std::string& name) {
        SceneList scenes = copyOf(WindowAction::scenes());
        scenes.front()->commonValue()->setSceneName(name);
        return std::make_shared<VirtualController>(encodeBank(scenes));
    }
};

class KeyboardCommandsTest : public CommandsBench {
protected:
    KeyboardCommandsTest() { plugged = {deviceAt("1-1"), deviceAt("1-2")}; }
    ~KeyboardCommandsTest() override { KnownKeyboard::setNaming({}); }

    KeyboardCommands& choices() { return commands().keyboards(); }
    QPushButton& picker() { return mark("Which keyboard to use"); }
    // The entries of the picker, the one in use in brackets.
    QStringList picks() {
        QStringList texts;
        for (const QAction* action : picker().menu()->actions())
            texts.append(action->isChecked() ? "[" + action->text() + "]" : action->text());
        return texts;
    }
    void pick(int place) { picker().menu()->actions().at(place)->trigger(); }
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
    const int width = picker().fontMetrics().horizontalAdvance(picker().text());
    EXPECT_LE(width, 200);
    EXPECT_GT(width, 200 - picker().fontMetrics().horizontalAdvance("K"));
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
    waitForSend();
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

TEST_F(KeyboardCommandsTest, AChoiceIsRememberedAsLongAsItsKeyboardIsThere) {
    const auto chosenAnew = [this](std::vector<AttachedDevice> devices) {
        close();
        plugged = std::move(devices);
        watch();
        return keyboards->chosen();
    };
    watch();
    pick(1);
    EXPECT_EQ(chosenAnew(plugged), "1-2");
    EXPECT_EQ(chosenAnew({deviceAt("1-1")}), "") << "the only one is used";
    EXPECT_EQ(chosenAnew({deviceAt("1-1"), strange("1-2")}), "") << "that is no keyboard";
}

TEST_F(KeyboardCommandsTest, AChoiceOfTheCommandLineIsNotRememberedAndMissedUntilItIsThere) {
    programSettings().setValue("keyboard", "1-1");
    watch("1-3");
    EXPECT_EQ(notice(), "There is no keyboard 1-3; plugged in: 1-1 (Keys), 1-2 (Keys)");
    plugged.push_back(deviceAt("1-3"));
    look();
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(keyboards->chosen(), "1-3");
    EXPECT_EQ(programSettings().value("keyboard").toString(), "1-1");
}

} // namespace

} // namespace scenewright::testing
