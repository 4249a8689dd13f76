#include "editor/qt/DeviceVerification.h"

#include "bank/SettingText.h"
#include "editor/qt/QtHelpers.h"
#include "model/Setting.h"
#include "protocol/Transactions.h"
#include "tests/editor-qt-files/CommandsBench.h"
#include "tests/support/Limits.h"
#include "tests/support/NoMoreThreads.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {

namespace {

constexpr const char* kSame = "The controller holds what you see";
const QString kNotReached = QStringLiteral("The keyboard could not be reached");
const QString kPlugIn =
    QStringLiteral("No keyboard of the device list is plugged in: plug it in, or see what "
                   "'scenewright-cli devices' says about yours");
const QString kOneShort =
    QStringLiteral("1 of 2030 transfers failed, the first at byte 100 of 1012 "
                   "(the answer was too short)");

class DeviceVerificationTest : public OpenWindow {
protected:
    QStringList differences() {
        const auto* dialog = window().findChild<DifferenceDialog*>();
        return dialog == nullptr ? QStringList() : dialog->lines();
    }
    // Whether another program could take the interface now.
    bool portIsFree() {
        const auto devices = host->devices({});
        auto interface = devices->front()->interface(1);
        return (*interface)->open().has_value();
    }
    void startToVerify() {
        press(Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(window().commands().isBusy());
    }
};

TEST_F(DeviceVerificationTest, TheSameIsSaidUntilItIsDismissed) {
    const QString before = message();
    press(Qt::Key_D);
    choose(kPad); // a look at other controls and scenes
    press(Qt::Key_2);
    emit window().menu().modeChosen(4);
    EXPECT_EQ(notice(), kSame);
    EXPECT_TRUE(differences().isEmpty());
    EXPECT_EQ(message(), before) << "the status line tells of the user's command alone";
    for (auto* dismissal : notices().findChildren<QPushButton*>())
        if (dismissal->text() == "Dismiss")
            dismissal->click();
    EXPECT_EQ(notice(), "");
}

TEST_F(DeviceVerificationTest, WhatTheKeyboardHoldsIsTakenOverAsAStepThatCanBeUndone) {
    const std::int32_t held = record(kPad).CR();
    const std::string name = WindowAction::getSceneWithIndex(1)->commonValue()->SceneName();
    record(kPad).setCR(12);
    WindowAction::getSceneWithIndex(1)->commonValue()->setSceneName("Live");
    window().view().showChosenControl();
    press(Qt::Key_D);
    auto* dialog = window().findChild<DifferenceDialog*>();
    ASSERT_NE(dialog, nullptr);
    ASSERT_EQ(dialog->lines().size(), 2);
    EXPECT_EQ(record(kPad).CR(), 12) << "the scenes stay";
    EXPECT_TRUE(earlier().list().empty());
    dialog->table().setCurrentItem(dialog->table().topLevelItem(0));
    EXPECT_EQ(window().view().selectControl(), kPad);
    dialog->table().clearSelection();
    emit dialog->findChildren<QPushButton*>().front()->clicked();
    EXPECT_EQ(record(kPad).CR(), held);
    EXPECT_EQ(window().panes().popUp("padCR").currentIndex(), held);
    EXPECT_EQ(nameAsText(WindowAction::getSceneWithIndex(1)->commonValue()->SceneName()),
              nameAsText(name));
    commands().history().undoAction().trigger();
    EXPECT_EQ(record(kPad).CR(), 12);
    EXPECT_EQ(controller->sendsEnded(), 0U);
}

TEST_F(DeviceVerificationTest, SendAndVerifyReadsBackAndAPlainSendDoesNot) {
    record(kPad).setCR(12);
    startToVerify();
    commands().verification().compare(); // neither is done meanwhile
    commands().verification().sendAndVerify();
    window().commands().send();
    EXPECT_EQ(notice(), "");
    EXPECT_FALSE(entry("Compare With Device").isEnabled());
    waitForSend();
    EXPECT_EQ(controller->sendsEnded(), 1U);
    EXPECT_EQ(notice(), kSame);
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
    notices().dismiss();
    send();
    EXPECT_EQ(notice(), "");
}

TEST_F(DeviceVerificationTest, ASendGoesOnToItsEndWhenTheWindowGoes) {
    startToVerify();
    close();
    EXPECT_TRUE(waitUntil([] { return !SendJob::isRunning(); }));
    EXPECT_EQ(controller->sendsEnded(), 1U);
}

TEST_F(DeviceVerificationTest, SendAndVerifyListsWhatTheControllerDoesNotHold) {
    startToVerify();
    record(kPad).setCR(12); // the send holds the scenes as they were
    waitForSend();
    ASSERT_EQ(differences().size(), 1);
    EXPECT_TRUE(differences()[0].startsWith("Scene 1, Pad 1, Red: "));
    EXPECT_TRUE(differences()[0].endsWith(" -> 12"));
}

TEST_F(DeviceVerificationTest, WhatCouldNotBeReadIsNotComparedAndMayBeTriedAgain) {
    const QString before = message();
    unplug();
    press(Qt::Key_D);
    EXPECT_EQ(notice(), kNotReached + ": nothing was compared\n" + kPlugIn);
    EXPECT_EQ(message(), before);
    plugIn({{Fault::Kind::ShortTransfer, 100}});
    press(Qt::Key_D);
    EXPECT_EQ(notice(), kOneShort + ": nothing was compared");
    EXPECT_TRUE(differences().isEmpty());
    plugIn();
    ASSERT_NE(notices().action(0), nullptr);
    notices().action(0)->click();
    EXPECT_EQ(notice(), kSame);
}

TEST_F(DeviceVerificationTest, AHalfSendOffersToSendAgainAndToVerifyWhereThatWasWanted) {
    for (const bool isVerified : {false, true}) {
        record(kPad).setCR(80 + (isVerified ? 1 : 0));
        plugIn({{Fault::Kind::Unplug, 1012 + 500}});
        if (isVerified)
            startToVerify();
        else
            press(Qt::Key_Return);
        waitForSend();
        EXPECT_EQ(notice(),
                  "525 of 1032 transfers failed, the first at packet 505 (the keyboard was "
                  "unplugged): the keyboard may hold half a bank, and sending again repairs it\n"
                  "The keyboard was unplugged: plug it in and try again");
        controller->reset(); // plugged in again
        clickNotice("Send Again");
        EXPECT_EQ(notice(), isVerified ? kSame : "");
        EXPECT_EQ(controller->sendsEnded(), 1U);
    }
}

TEST_F(DeviceVerificationTest, ASendThatReachedNothingIsNotVerified) {
    unplug();
    commands().verification().sendAndVerify();
    waitForSend();
    EXPECT_EQ(notice(), kNotReached + ": nothing was sent\n" + kPlugIn);
    plugIn();
    send();
    EXPECT_EQ(notice(), "");
}

TEST_F(DeviceVerificationTest, ADoubtfulReadSaysHowMuchAndOffersTheEarlierScenes) {
    record(kPad).setCR(77);
    plugIn({{Fault::Kind::ShortTransfer, 100}});
    record(kPad).setCR(78);
    press(Qt::Key_R);
    EXPECT_EQ(notice(), kOneShort + ": 1 of the 1012 bytes shown did not come from the keyboard");
    ASSERT_NE(notices().action(0), nullptr);
    notices().action(0)->click();
    EXPECT_EQ(record(kPad).CR(), 78);
    EXPECT_EQ(notice(), "Brought back the earlier scenes");
}

TEST_F(DeviceVerificationTest, AReadThatReachedNothingSaysSoAndOffersOtherEarlierScenes) {
    unplug();
    press(Qt::Key_R); // default scenes replace default scenes
    EXPECT_NE(notice(), "");
    EXPECT_EQ(notices().action(0), nullptr);
    record(kPad).setCR(79);
    press(Qt::Key_R);
    EXPECT_EQ(notice(), kNotReached + ": default scenes are shown\n" + kPlugIn);
    EXPECT_NE(record(kPad).CR(), 79);
    ASSERT_NE(notices().action(0), nullptr);
    QTest::mouseClick(notices().action(0), Qt::LeftButton);
    EXPECT_EQ(record(kPad).CR(), 79);
}

TEST_F(DeviceVerificationTest, NoKindOfChangeLeavesTheNoticeThatBothAreTheSame) {
    struct Row {
        const char* change;
        std::function<void()> make;
    };
    const QString bank = bankWithRed("other.json", 111);
    QWidget& red = window().panes().popUp("padCR");
    const auto paste = [this] {
        choose(kPad + 1);
        press(Qt::Key_C);
        choose(kPad);
        press(Qt::Key_V);
    };
    const Row rows[] = {
        {"a key", [&red] { QTest::keyClick(&red, Qt::Key_Up); }},
        {"a typed value", [this] { type("padCR", "77"); }},
        {"undo", [this] { undo(); }},
        {"redo", [this] { redo(); }},
        {"a colour",
         [this] {
             commands().colours().choose(PadColour{1, 2, 3});
         }},
        {"reset", [this] { entry("Reset").trigger(); }},
        {"paste", paste},
        {"scenes swapped", [this] { commands().scenes().swap(0, 1); }},
        {"a bank opened", [this, bank] { commands().banks().openBank(bank); }},
        {"earlier scenes", [this] { commands().earlier().restoreLatest(); }},
    };
    record(kPad + 1).setCG(9);
    choose(kPad);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.change);
        startToVerify();
        waitForSend();
        ASSERT_EQ(notice(), kSame);
        const BankImage before = storedImage();
        row.make();
        EXPECT_NE(storedImage(), before);
        EXPECT_NE(notice(), kSame);
        notices().dismiss();
        EXPECT_EQ(notice(), "");
    }
}

TEST_F(DeviceVerificationTest, AReadTellsWhatFailedAndThatTheFormerScenesWereNotKept) {
    writeBytes(folder.file("backups"), {});
    record(kPad).setCR(78);
    plugIn({{Fault::Kind::ShortTransfer, 100}});
    press(Qt::Key_R);
    const QString expected =
        kOneShort + ": 1 of the 1012 bytes shown did not come from the keyboard\nThe former scenes "
                    "could not be kept: ";
    EXPECT_TRUE(notice().startsWith(expected)) << notice().toStdString();
    EXPECT_TRUE(notice().contains("backups")) << notice().toStdString();
}

TEST_F(DeviceVerificationTest, ASendWithoutAThreadIsToldAndSendsNothing) {
    {
        const NoMoreThreads none;
        send();
    }
    EXPECT_EQ(notice(),
              "The transfer could not be started: nothing was sent\nThe system is short of "
              "memory or threads: close other programs and try again");
    EXPECT_EQ(controller->sendsEnded(), 0U);
    EXPECT_TRUE(portIsFree());
    ASSERT_NE(notices().action(0), nullptr);
    notices().action(0)->click();
    waitForSend();
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(controller->sendsEnded(), 1U);
}

TEST_F(DeviceVerificationTest, AVirtualMemoryThatCannotBeWrittenIsTold) {
    plugIn({}, BankFileStore(folder.file("none/held.bank")));
    send();
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
    EXPECT_TRUE(notice().contains("none/held.bank")) << notice().toStdString();
    commands().verification().sendAndVerify();
    waitForSend();
    EXPECT_EQ(notice(), kSame);
    notices().dismiss();
    EXPECT_TRUE(notice().contains("none/held.bank")) << notice().toStdString();
}

TEST_F(DeviceVerificationTest, EachCommandGivesTheKeyboardBack) {
    EXPECT_TRUE(portIsFree());
    press(Qt::Key_R);
    EXPECT_EQ(notice(), "") << "a clean read tells nothing";
    EXPECT_TRUE(portIsFree());
    press(Qt::Key_D);
    EXPECT_TRUE(portIsFree());
    press(Qt::Key_Return);
    EXPECT_FALSE(portIsFree());
    waitForSend();
    EXPECT_TRUE(portIsFree());
    startToVerify();
    waitForSend();
    EXPECT_EQ(notice(), kSame);
    EXPECT_TRUE(portIsFree());
}

Difference red(std::int32_t pad, const std::string& keyboard, const std::string& window) {
    return {{.scene = 1,
             .kind = ControlKind::Pad,
             .control = pad,
             .setting = findSetting(ControlKind::Pad, "CR")},
            {keyboard, keyboard},
            {window, window}};
}

const Difference kName{{.scene = 0}, {"LEAD", ""}, {"SCENE1", ""}};

class DifferenceDialogTest : public ::testing::Test {
protected:
    DifferenceDialogTest() {
        QObject::connect(&dialog_, &DifferenceDialog::chosen,
                         [this](std::int32_t scene, std::int32_t control) {
                             chosen_.emplace_back(scene, control);
                         });
        QObject::connect(&dialog_, &DifferenceDialog::takeWanted,
                         [this](const std::vector<Difference>& taken) { taken_ = taken; });
        dialog_.show();
    }

    void press(const QString& title) {
        for (auto* button : dialog_.findChildren<QPushButton*>())
            if (button->accessibleName() == title)
                return button->click();
        FAIL() << title.toStdString();
    }

    [[nodiscard]] QString heading() const { return dialog_.findChild<QLabel*>()->text(); }

    DifferenceDialog dialog_{{kName, red(0, "12", "99"), red(2, "1", "2")}, nullptr};
    QTreeWidget& table_ = dialog_.table();
    std::vector<std::pair<std::int32_t, std::int32_t>> chosen_;
    std::vector<Difference> taken_;
};

TEST_F(DifferenceDialogTest, ListsControlSettingAndBothValues) {
    const QStringList rows[] = {{"Scene 1", "Scene name", "\"LEAD\"", "\"SCENE1\""},
                                {"Scene 2, Pad 1", "Red", "12", "99"},
                                {"Scene 2, Pad 3", "Red", "1", "2"}};
    ASSERT_EQ(table_.topLevelItemCount(), 3);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(table_.topLevelItem(row)->text(column), rows[row][column]);
    EXPECT_EQ(heading(), "3 settings of the controller are not what you see.");
    EXPECT_EQ(dialog_.lines()[1], "Scene 2, Pad 1, Red: 12 -> 99");
}

TEST_F(DifferenceDialogTest, AClickAndTheArrowsTellTheControl) {
    const QRect row = table_.visualItemRect(table_.topLevelItem(2));
    QTest::mouseClick(table_.viewport(), Qt::LeftButton, {}, row.center());
    QTest::keyClick(&table_, Qt::Key_Up);
    QTest::keyClick(&table_, Qt::Key_Up);
    EXPECT_EQ(chosen_,
              (std::vector<std::pair<std::int32_t, std::int32_t>>{{1, 15}, {1, 13}, {0, 0}}));
    EXPECT_TRUE(dialog_.isVisible());
    QTest::mouseClick(table_.viewport(), Qt::LeftButton, {}, row.center());
    chosen_.clear();
    QTest::mouseDClick(table_.viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(chosen_, (std::vector<std::pair<std::int32_t, std::int32_t>>{{1, 15}}));
    EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(DifferenceDialogTest, TakesTheSelectedRowsThenAll) {
    table_.topLevelItem(1)->setSelected(true);
    press("Take the Keyboard's");
    ASSERT_EQ(taken_.size(), 1U);
    EXPECT_EQ(taken_[0].first.value, "12");
    EXPECT_EQ(table_.topLevelItemCount(), 2);
    EXPECT_EQ(heading(), "2 settings of the controller are not what you see.");
    press("Take the Keyboard's");
    EXPECT_EQ(taken_.size(), 2U);
    EXPECT_FALSE(dialog_.isVisible());
    const DifferenceDialog one({kName}, nullptr);
    EXPECT_EQ(one.findChild<QLabel*>()->text(),
              "One setting of the controller is not what you see.");
}

TEST_F(DifferenceDialogTest, CopiesTheSelectedRowsOrAllAsTextAndASendClosesIt) {
    press("Copy as Text");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), dialog_.lines().join('\n'));
    table_.setFocus();
    table_.topLevelItem(2)->setSelected(true);
    QTest::keyClick(&table_, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Scene 2, Pad 3, Red: 1 -> 2");
    int sends = 0;
    QObject::connect(&dialog_, &DifferenceDialog::sendWanted, [&] { ++sends; });
    press("Send These");
    EXPECT_EQ(sends, 1);
    EXPECT_FALSE(dialog_.isVisible());
}

} // namespace

} // namespace scenewright::testing
