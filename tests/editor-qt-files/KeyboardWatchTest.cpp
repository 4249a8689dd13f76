#include "editor/qt/KeyboardWatch.h"

#include "app/OutcomeText.h"
#include "platform/Diagnostics.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright::testing {

namespace {

class KeyboardWatchTest : public CommandsBench {
protected:
    // The keyboard is there from now on.
    void attach(AttachedDevice::Access access = AttachedDevice::Access::Usable) {
        plugged = {{.port = "1-1", .ids = deviceList().at(0), .access = access}};
    }
    std::vector<AttachedDevice> plugged;
    int looks = 0;
    void watch(const std::string& chosen = {}) {
        open(std::make_shared<Keyboards>(chosen, [this] {
            ++looks;
            return plugged;
        }));
    }
    KeyboardWatch& keyboard() { return commands().keyboard(); }
    [[nodiscard]] QString text() { return keyboard().text(); }
};

TEST_F(KeyboardWatchTest, TheVirtualControllerIsCalledSo) {
    open();
    EXPECT_EQ(text(), "Virtual controller");
    keyboard().look();
    EXPECT_EQ(text(), "Virtual controller");
}

struct Shown {
    AttachedDevice::Access access;
    const char* text;
    ResultCode cure; // success for none
};

TEST_F(KeyboardWatchTest, EachLookShowsWhetherAndWhyTheKeyboardCannotBeUsed) {
    watch();
    EXPECT_EQ(text(), "No keyboard plugged in");
    for (const Shown& shown :
         {Shown{AttachedDevice::Access::Usable, "Keyboard plugged in", kResultSuccess},
          Shown{AttachedDevice::Access::NoPermission,
                "Keyboard plugged in, but you have no permission to use it", kResultAccess},
          Shown{AttachedDevice::Access::Claimed, "Keyboard in use by another program",
                kResultBusy}}) {
        attach(shown.access);
        keyboard().look();
        EXPECT_EQ(text(), shown.text);
        EXPECT_EQ(keyboard().toolTip().toStdString(),
                  shown.cure == kResultSuccess ? "" : causeAndCure(shown.cure));
    }
    plugged.clear();
    keyboard().look();
    EXPECT_EQ(text(), "No keyboard plugged in");
    EXPECT_EQ(keyboard().toolTip(), "");
}

TEST_F(KeyboardWatchTest, AChosenKeyboardThatIsNotThereIsNotAnyKeyboard) {
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
    press(Qt::Key_Return);
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
    EXPECT_GT(looks, afterRead);
}

TEST_F(KeyboardWatchTest, OurOwnClaimDuringASendIsNotShown) {
    watch();
    press(Qt::Key_Return);
    attach(AttachedDevice::Access::Claimed);
    keyboard().look();
    EXPECT_EQ(text(), "No keyboard plugged in");
    attach();
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
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
    attach();
    QEvent readable(QEvent::SockAct);
    QCoreApplication::sendEvent(notifier, &readable);
    EXPECT_EQ(text(), "Keyboard plugged in");
}

TEST_F(KeyboardWatchTest, WithoutAMonitorOnlyCallsLook) {
    watch();
    keyboard().follow(failure("none"));
    EXPECT_EQ(keyboard().findChild<QSocketNotifier*>(), nullptr);
    attach();
    keyboard().look();
    EXPECT_EQ(text(), "Keyboard plugged in");
}

TEST_F(KeyboardWatchTest, NothingIsLookedAtByTheClock) {
    watch();
    keyboard().follow(DeviceMonitor::start());
    EXPECT_TRUE(keyboard().findChildren<QTimer*>().isEmpty());
}

TEST_F(KeyboardWatchTest, TheLogHoldsNothingOfIt) {
    std::string log;
    watch();
    Diagnostics::setLog([&log](std::string_view line) { log += line; });
    attach();
    keyboard().look();
    Diagnostics::setLog(nullptr);
    EXPECT_EQ(log, "");
}

} // namespace

} // namespace scenewright::testing
