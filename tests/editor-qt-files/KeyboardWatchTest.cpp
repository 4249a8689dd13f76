#include "tests/editor-qt-files/CommandsBench.h"

#include <QElapsedTimer>

namespace scenewright::testing {

namespace {

class KeyboardWatchTest : public CommandsBench {
protected:
    KeyboardPresence presence = KeyboardPresence::Unplugged;
    void watch() {
        open([this] { return presence; });
    }
    [[nodiscard]] QString text() { return commands().keyboard().text(); }
};

TEST_F(KeyboardWatchTest, TheVirtualControllerIsCalledSo) {
    open();
    EXPECT_EQ(text(), "Virtual controller");
}

TEST_F(KeyboardWatchTest, APlugIsSeenWithinASecond) {
    watch();
    EXPECT_EQ(text(), "No keyboard plugged in");
    presence = KeyboardPresence::Usable;
    QElapsedTimer time;
    time.start();
    ASSERT_TRUE(waitUntil([this] { return text() == "Keyboard plugged in"; }));
    EXPECT_LT(time.elapsed(), 1000);
}

TEST_F(KeyboardWatchTest, WhatKeepsTheKeyboardFromUseIsTold) {
    presence = KeyboardPresence::NoPermission;
    watch();
    EXPECT_EQ(text(), "Keyboard plugged in, but you have no permission to use it");
    EXPECT_TRUE(commands().keyboard().toolTip().contains("udev-rules"));
}

TEST_F(KeyboardWatchTest, AnotherProgramsClaimIsToldApartFromTheOwn) {
    presence = KeyboardPresence::Claimed;
    watch();
    EXPECT_EQ(text(), "Keyboard in use by another program");
    press(Qt::Key_R); // leaves the interface open
    ASSERT_TRUE(waitUntil([this] { return text() == "Keyboard plugged in"; }));
}

TEST_F(KeyboardWatchTest, TheKernelsLookIsCheap) {
    const auto look = KeyboardWatch::kernelLook();
    static_cast<void>(look());
    QElapsedTimer time;
    time.start();
    for (int count = 0; count < 100; ++count)
        static_cast<void>(look());
    EXPECT_LT(time.elapsed() / 100, 20); // milliseconds
}

} // namespace

} // namespace scenewright::testing
