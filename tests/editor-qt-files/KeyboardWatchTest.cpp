#include "editor/qt/KeyboardWatch.h"

#include "app/OutcomeText.h"
#include "platform/Diagnostics.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <QTimer>

#include <string>
#include <string_view>

namespace scenewright::testing {

namespace {

class KeyboardWatchTest : public CommandsBench {
protected:
    KeyboardPresence presence = KeyboardPresence::Unplugged;
    int looks = 0;
    void watch() {
        open([this] {
            ++looks;
            return presence;
        });
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
    KeyboardPresence presence;
    const char* text;
    ResultCode cure; // success for none
};

TEST_F(KeyboardWatchTest, EachLookShowsWhetherAndWhyTheKeyboardCannotBeUsed) {
    watch();
    EXPECT_EQ(text(), "No keyboard plugged in");
    for (const Shown& shown :
         {Shown{KeyboardPresence::Usable, "Keyboard plugged in", kResultSuccess},
          Shown{KeyboardPresence::NoPermission,
                "Keyboard plugged in, but you have no permission to use it", kResultAccess},
          Shown{KeyboardPresence::Claimed, "Keyboard in use by another program", kResultBusy},
          Shown{KeyboardPresence::Unplugged, "No keyboard plugged in", kResultSuccess}}) {
        presence = shown.presence;
        keyboard().look();
        EXPECT_EQ(text(), shown.text);
        EXPECT_EQ(keyboard().toolTip().toStdString(),
                  shown.cure == kResultSuccess ? "" : causeAndCure(shown.cure));
    }
}

TEST_F(KeyboardWatchTest, TheEndOfEachCommandLooksAgain) {
    watch();
    const int before = looks;
    press(Qt::Key_R);
    EXPECT_EQ(looks, before + 1);
    press(Qt::Key_Return);
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
    EXPECT_EQ(looks, before + 2);
}

TEST_F(KeyboardWatchTest, OurOwnClaimDuringASendIsNotShown) {
    watch();
    press(Qt::Key_Return);
    presence = KeyboardPresence::Claimed;
    keyboard().look();
    EXPECT_EQ(text(), "No keyboard plugged in");
    presence = KeyboardPresence::Usable;
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
    presence = KeyboardPresence::Usable;
    QEvent readable(QEvent::SockAct);
    QCoreApplication::sendEvent(notifier, &readable);
    EXPECT_EQ(text(), "Keyboard plugged in");
}

TEST_F(KeyboardWatchTest, WithoutAMonitorOnlyCallsLook) {
    watch();
    keyboard().follow(failure("none"));
    EXPECT_EQ(keyboard().findChild<QSocketNotifier*>(), nullptr);
    presence = KeyboardPresence::Usable;
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
    presence = KeyboardPresence::Usable;
    keyboard().look();
    Diagnostics::setLog(nullptr);
    EXPECT_EQ(log, "");
}

} // namespace

} // namespace scenewright::testing
