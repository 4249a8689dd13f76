#include "editor/qt/DifferenceDialog.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QTest>

namespace scenewright::testing {

namespace {

constexpr const char* kSame = "The controller holds what you see";

class DeviceChecksTest : public CommandsBench {
protected:
    DeviceChecksTest() { open(); }

    QStringList differences() {
        const auto* dialog = window().findChild<DifferenceDialog*>();
        return dialog == nullptr ? QStringList() : dialog->lines();
    }
    void waitForSend() {
        ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
    }
};

TEST_F(DeviceChecksTest, TheSameIsSaid) {
    press(Qt::Key_D);
    EXPECT_EQ(notice(), kSame);
    EXPECT_TRUE(differences().isEmpty());
}

TEST_F(DeviceChecksTest, DifferencesAreListedAndTheScenesStay) {
    record(kPad).setCR(12);
    press(Qt::Key_D);
    ASSERT_EQ(differences().size(), 1);
    EXPECT_TRUE(differences()[0].startsWith("Scene 1, Pad 1, Red: "));
    EXPECT_TRUE(differences()[0].endsWith(" -> 12"));
    EXPECT_EQ(record(kPad).CR(), 12);
    EXPECT_TRUE(earlier().list().empty());
}

TEST_F(DeviceChecksTest, WithoutAControllerTheCauseIsToldAndTheScenesStay) {
    unplug();
    record(kPad).setCR(12);
    press(Qt::Key_D);
    EXPECT_TRUE(advice().startsWith("No keyboard of the device list is plugged in"));
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(record(kPad).CR(), 12);
}

TEST_F(DeviceChecksTest, SendAndVerifyReadsBack) {
    record(kPad).setCR(12);
    press(Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier);
    waitForSend();
    EXPECT_EQ(controller->sendsEnded(), 1U);
    EXPECT_EQ(notice(), kSame);
}

TEST_F(DeviceChecksTest, SendAndVerifyListsWhatTheControllerDoesNotHold) {
    commands().checks().sendAndVerify();
    record(kPad).setCR(12); // the send holds the scenes as they were
    waitForSend();
    ASSERT_EQ(differences().size(), 1);
    EXPECT_TRUE(differences()[0].startsWith("Scene 1, Pad 1, Red: "));
}

TEST_F(DeviceChecksTest, WhatCouldNotBeReadIsNotComparedAndMayBeTriedAgain) {
    plugIn({{Fault::Kind::ShortTransfer, 100}});
    press(Qt::Key_D);
    EXPECT_EQ(notice(), "Not compared: 1 of the controller's 1012 bytes could not be read.");
    EXPECT_TRUE(differences().isEmpty());
    plugIn();
    ASSERT_NE(commands().notice().offer(0), nullptr);
    commands().notice().offer(0)->click();
    EXPECT_EQ(notice(), kSame);
}

TEST_F(DeviceChecksTest, DuringASendNeitherIsDone) {
    commands().checks().sendAndVerify();
    ASSERT_TRUE(window().commands().isBusy());
    commands().checks().compare();
    commands().checks().sendAndVerify();
    EXPECT_EQ(notice(), "");
    EXPECT_FALSE(commands().checks().compareAction().isEnabled());
    waitForSend();
    EXPECT_EQ(controller->sendsEnded(), 1U);
    EXPECT_EQ(notice(), kSame);
}

TEST_F(DeviceChecksTest, AHalfSendThatWasToBeVerifiedIsVerifiedWhenSentAgain) {
    plugIn({{Fault::Kind::Unplug, 500}});
    commands().checks().sendAndVerify();
    waitForSend();
    ASSERT_NE(commands().notice().offer(0), nullptr);
    controller->reset(); // plugged in again
    commands().notice().offer(0)->click();
    waitForSend();
    EXPECT_EQ(notice(), kSame);
}

TEST_F(DeviceChecksTest, APlainSendDoesNotReadBack) {
    press(Qt::Key_Return);
    waitForSend();
    EXPECT_EQ(notice(), "");
}

TEST_F(DeviceChecksTest, ASendThatReachedNothingIsNotVerified) {
    unplug();
    commands().checks().sendAndVerify();
    EXPECT_EQ(notice(), "");
    plugIn();
    press(Qt::Key_Return);
    waitForSend();
    EXPECT_EQ(notice(), "");
}

TEST_F(DeviceChecksTest, ACleanReadTellsNothing) {
    press(Qt::Key_R);
    EXPECT_EQ(notice(), "");
}

TEST_F(DeviceChecksTest, ADoubtfulReadSaysHowMuchAndOffersTheEarlierScenes) {
    record(kPad).setCR(77);
    plugIn({{Fault::Kind::ShortTransfer, 100}});
    record(kPad).setCR(78);
    press(Qt::Key_R);
    EXPECT_EQ(notice(), "1 of the 1012 bytes shown did not come from the keyboard.");
    ASSERT_NE(commands().notice().offer(0), nullptr);
    commands().notice().offer(0)->click();
    EXPECT_EQ(record(kPad).CR(), 78);
    EXPECT_EQ(notice(), "");
}

TEST_F(DeviceChecksTest, AReadThatReachedNothingSaysSoAndOffersTheEarlierScenes) {
    record(kPad).setCR(79);
    unplug();
    press(Qt::Key_R);
    EXPECT_EQ(notice(),
              "Nothing of what is shown came from the keyboard: these are default scenes.");
    EXPECT_NE(record(kPad).CR(), 79);
    ASSERT_NE(commands().notice().offer(0), nullptr);
    QTest::mouseClick(commands().notice().offer(0), Qt::LeftButton);
    EXPECT_EQ(record(kPad).CR(), 79);
}

TEST_F(DeviceChecksTest, WithoutOtherEarlierScenesNoneAreOffered) {
    unplug();
    press(Qt::Key_R); // default scenes replace default scenes
    EXPECT_NE(notice(), "");
    EXPECT_EQ(commands().notice().offer(0), nullptr);
}

TEST_F(DeviceChecksTest, AHalfSendOffersToSendAgain) {
    record(kPad).setCR(80);
    plugIn({{Fault::Kind::Unplug, 500}});
    press(Qt::Key_Return);
    waitForSend();
    EXPECT_TRUE(notice().endsWith(" transfers failed: the controller may hold half a bank."))
        << notice().toStdString();
    ASSERT_NE(commands().notice().offer(0), nullptr);
    controller->reset(); // plugged in again
    commands().notice().offer(0)->click();
    waitForSend();
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(controller->sendsEnded(), 1U);
}

TEST_F(DeviceChecksTest, DismissedIsGone) {
    press(Qt::Key_D);
    ASSERT_EQ(notice(), kSame);
    for (auto* button : commands().notice().findChildren<QPushButton*>())
        if (button->text() == "Dismiss")
            button->click();
    EXPECT_EQ(notice(), "");
}

} // namespace

} // namespace scenewright::testing
