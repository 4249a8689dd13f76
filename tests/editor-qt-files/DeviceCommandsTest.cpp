#include "app/DeviceSession.h"
#include "bank/BankFile.h"
#include "editor/qt/QtHelpers.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QKeyEvent>
#include <QMessageBox>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace scenewright::testing {

namespace {

const QString kOthers = QStringLiteral("These are not your keyboard's scenes");
const QString kKept = QStringLiteral("The keyboard held other scenes; they are kept");

BankImage filled(std::uint8_t byte) {
    BankImage image{};
    image.fill(byte);
    return image;
}

class SafeSendingTest : public OpenWindow {
protected:
    // The keyboard holds these, of which nobody knows.
    void hold(const BankImage& image, FaultPlan faults = {}) {
        controller = std::make_shared<VirtualController>(image, std::move(faults));
        host = makeVirtualHost(controller, BankFileStore({}));
        Transport::instance().use(host, [](std::chrono::nanoseconds) {});
        KnownKeyboard::forget();
    }
    QMessageBox* question() {
        auto* box = window().findChild<QMessageBox*>();
        return box != nullptr && box->isVisible() ? box : nullptr;
    }
    void send() {
        press(Qt::Key_Return);
        EXPECT_TRUE(
            waitUntil([this] { return !window().commands().isBusy() || question() != nullptr; }));
    }
    void answer(const char* title) {
        ASSERT_NE(question(), nullptr);
        const auto buttons = question()->buttons();
        const auto chosen =
            std::ranges::find(buttons, QLatin1String(title), &QAbstractButton::text);
        ASSERT_NE(chosen, buttons.end()) << title;
        (*chosen)->click();
        waitForSend();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(question(), nullptr) << title;
        activate();
    }
    void breakOff(const BankImage& held) {
        hold(held);
        controller->order({{Fault::Kind::Unplug, 1012 + 600}});
        record(kPad).setCR(80);
        send();
        controller->reset(); // plugged in again
    }
};

TEST_F(SafeSendingTest, AFirstSendOfANewWindowIsAskedAbout) {
    hold(filled(1));
    send();
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(question()->text(), kOthers);
    answer("Cancel");
    EXPECT_EQ(controller->bank(), filled(1));
    EXPECT_EQ(notice(), "");
    hold(filled(1));
    send();
    answer("&Send Anyway");
    EXPECT_EQ(controller->sendsEnded(), 1U);
    EXPECT_EQ(notice(), kKept);
    EXPECT_EQ(earlier().list().size(), 1U);
}

TEST_F(SafeSendingTest, ReadFirstShowsWhatTheKeyboardHolds) {
    hold(filled(1));
    send();
    answer("&Read First");
    EXPECT_EQ(controller->sendsEnded(), 0U);
    EXPECT_EQ(record(kPad).CR(), 1);
    EXPECT_EQ(message(), "Read Scene Data Finish");
    record(kPad).setCR(80);
    send();
    EXPECT_EQ(notice(), "") << "what was read is sent without a word";
    EXPECT_EQ(earlier().list().front().image, filled(1));
}

TEST_F(SafeSendingTest, ScenesThatAFailedReadLeftAreAskedAboutToo) {
    hold(filled(1));
    press(Qt::Key_R);
    unplug();
    press(Qt::Key_R);
    ASSERT_NE(record(kPad).CR(), 1) << "default scenes are shown";
    hold(filled(1));
    send();
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(question()->text(), kOthers);
    answer("Cancel");
}

TEST_F(SafeSendingTest, DefaultScenesThatWereOpenedAreTheUsersChoice) {
    commands().banks().saveBank(file("default.bank"));
    commands().banks().openBank(file("default.bank"));
    hold(filled(1));
    send();
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(controller->sendsEnded(), 1U);
    EXPECT_EQ(earlier().list().front().occasion.subject, "default.bank");
}

TEST_F(SafeSendingTest, OtherScenesAreToldOfAndPutBack) {
    hold(filled(1));
    record(kPad).setCR(80);
    send();
    EXPECT_EQ(notice(), kKept);
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
    clickNotice("Put Them Back");
    EXPECT_EQ(controller->bank(), filled(1));
    EXPECT_EQ(record(kPad).CR(), 1);
    notices().dismiss(); // that they were brought back
    EXPECT_EQ(notice(), "") << "what was sent before was known";
    hold(filled(1));
    record(kPad).setCR(81);
    send();
    ASSERT_EQ(notice(), kKept);
    press(Qt::Key_R);
    EXPECT_EQ(notice(), "") << "the next command ends it";
    hold(filled(1));
    record(kPad).setCR(82);
    commands().verification().sendAndVerify();
    waitForSend();
    EXPECT_EQ(notice(), "The controller holds what you see");
    notices().dismiss();
    EXPECT_EQ(notice(), kKept) << "below what the verifying told";
}

TEST_F(SafeSendingTest, AKeyboardThatCouldNotBeReadIsAskedAbout) {
    hold(filled(1), {{Fault::Kind::ShortTransfer, 100}});
    record(kPad).setCR(80);
    commands().verification().sendAndVerify();
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(question()->text(), "What the keyboard holds could not be read");
    EXPECT_TRUE(question()->informativeText().startsWith("1 of 2030 transfers failed"));
    answer("Cancel");
    EXPECT_EQ(controller->sendsEnded(), 0U);
    send(); // a fault counts once
    EXPECT_EQ(controller->sendsEnded(), 1U);
    EXPECT_EQ(notice(), kKept) << "nothing is verified";
}

TEST_F(SafeSendingTest, WhatCannotBeKeptIsAskedAbout) {
    writeBytes(folder.file("backups"), {});
    hold(filled(1));
    record(kPad).setCR(80);
    send();
    ASSERT_NE(question(), nullptr);
    EXPECT_TRUE(question()->informativeText().contains("backups"));
    answer("&Send Anyway");
    EXPECT_EQ(controller->sendsEnded(), 1U);
    EXPECT_EQ(notice(), "");
}

TEST_F(SafeSendingTest, ThePreferenceTurnsTheReadingOffAndIsKept) {
    commands().sending().readFirstAction().trigger();
    close();
    open();
    EXPECT_FALSE(commands().sending().readFirstAction().isChecked());
    hold(filled(1));
    send();
    ASSERT_NE(question(), nullptr) << "default scenes over what is not known";
    EXPECT_EQ(controller->bank(), filled(1));
    answer("Cancel");
    record(kPad).setCR(80);
    send();
    EXPECT_EQ(controller->sendsEnded(), 1U);
    EXPECT_TRUE(earlier().list().empty());
    EXPECT_EQ(notice(), "");
}

TEST_F(SafeSendingTest, ABrokenSendOffersTheWayBack) {
    breakOff(filled(1));
    ASSERT_NE(controller->bank(), filled(1));
    ASSERT_NE(notices().action(0), nullptr);
    EXPECT_EQ(notices().action(0)->text(), "Send Again");
    clickNotice("Bring Back What Was There");
    EXPECT_EQ(controller->bank(), filled(1));
    EXPECT_TRUE(journal().unfinished().empty());
}

TEST_F(SafeSendingTest, TheNextStartTellsOfABrokenSendUntilItIsMadeGood) {
    breakOff(filled(1));
    const BankImage sent = encodeBank(WindowAction::scenes());
    for (const char* const title : {"Bring Back What Was There", "Send Again"}) {
        close();
        WindowAction::getSceneValue();
        open();
        commands().sending().tellUnfinished();
        EXPECT_TRUE(
            notice().endsWith("scenes were sent, and the keyboard may hold a part of each bank"))
            << notice().toStdString();
        if (title == QLatin1String("Send Again"))
            clickNotice(title);
    }
    EXPECT_EQ(controller->bank(), sent);
    EXPECT_TRUE(journal().unfinished().empty());
    close();
    open();
    commands().sending().tellUnfinished();
    EXPECT_EQ(notice(), "");
}

TEST_F(SafeSendingTest, NoWayBackIsOfferedDuringASend) {
    hold(filled(1));
    record(kPad).setCR(80);
    send();
    ASSERT_EQ(notice(), kKept);
    breakOff(filled(2));
    commands().sending().tellUnfinished();
    ASSERT_GE(notices().count(), 2U);
    window().commands().send();
    ASSERT_TRUE(window().commands().isBusy());
    EXPECT_EQ(notices().count(), 0U) << notice().toStdString();
    waitForSend();
}

TEST_F(SafeSendingTest, AReadThatFindsAWholeBankEndsTheMatter) {
    breakOff(filled(1));
    close();
    open();
    commands().sending().tellUnfinished();
    ASSERT_NE(notice(), "");
    hold(filled(1));
    press(Qt::Key_D);
    EXPECT_FALSE(notice().contains("did not end"));
    EXPECT_TRUE(journal().unfinished().empty());
}

// What the window system has told while the read blocked comes when it is over.
TEST_F(SafeSendingTest, KeysAndClicksOfTheBlockedTimeAreDropped) {
    hold(filled(1));
    QPushButton& button = window().sendButton();
    const QPointF middle = QRectF(button.rect()).center();
    for (const bool isPress : {true, false}) {
        QCoreApplication::postEvent(
            &button,
            new QMouseEvent(isPress ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, middle,
                            button.mapToGlobal(middle), Qt::LeftButton,
                            isPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
        QCoreApplication::postEvent(&window().scenes().segment(1),
                                    new QKeyEvent(isPress ? QEvent::KeyPress : QEvent::KeyRelease,
                                                  Qt::Key_Space, Qt::NoModifier, " "));
    }
    window().commands().read();
    waitForSend();
    QCoreApplication::processEvents();
    EXPECT_EQ(controller->sendsEnded(), 0U);
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(window().view().sceneIndex(), 0);
    button.click();
    waitForSend();
    EXPECT_EQ(controller->sendsEnded(), 1U) << "what comes later is carried out";
}

// A window that was told to close meanwhile does so once what blocked the input has gone on.
TEST(BlockedInput, PutsOffTheEndOfAWindow) {
    QWidget window;
    window.show();
    {
        const BlockedInput blocked;
        QMetaObject::invokeMethod(&window, &QWidget::close, Qt::QueuedConnection);
    }
    EXPECT_TRUE(window.isVisible());
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isVisible());
}

} // namespace

} // namespace scenewright::testing
