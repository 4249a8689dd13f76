#include "platform/Diagnostics.h"
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

TEST_F(KeyboardWatchTest, AChangeIsOneLineOfTheLog) {
    std::string log;
    Diagnostics::setLog([&log](std::string_view line) { log += std::string(line) + "|"; });
    int looks = 0;
    open([&] {
        ++looks;
        return presence;
    });
    ASSERT_TRUE(waitUntil([&] { return looks >= 3; }));
    presence = KeyboardPresence::Usable;
    ASSERT_TRUE(waitUntil([&] { return looks >= 6; }));
    close();
    Diagnostics::setLog(nullptr);
    std::erase_if(log, [](char letter) { return letter == '\n'; });
    const std::size_t first = log.find("Keyboard: not plugged in");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(log.find("Keyboard: not plugged in", first + 1), std::string::npos);
    const std::size_t second = log.find("Keyboard: plugged in", first);
    ASSERT_NE(second, std::string::npos);
    EXPECT_EQ(log.find("Keyboard: plugged in", second + 1), std::string::npos);
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
