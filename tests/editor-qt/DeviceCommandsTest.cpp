// The commands on the controller as the window runs them, and the program's end.
#include "editor/qt/DeviceCommands.h"

#include "app/WindowAction.h"
#include "protocol/SendJob.h"
#include "tests/editor-qt/WindowBench.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

namespace scenewright::testing {
namespace {

class DeviceCommandsTest : public WindowBench {
protected:
    explicit DeviceCommandsTest(FaultPlan faults = {})
        : WindowBench(usableScenes(), std::move(faults)) {}

    void startSend() { QTest::keyClick(&window(), Qt::Key_Return, Qt::ControlModifier); }

    // Ends the event loop when the program wants to end; tells whether it did in time.
    bool endsWithin(int milliseconds, const std::function<void()>& act) {
        bool isEnded = false;
        QTimer::singleShot(0, act);
        QTimer watchdog;
        watchdog.setSingleShot(true);
        QObject::connect(&watchdog, &QTimer::timeout, [] { QCoreApplication::exit(99); });
        watchdog.start(milliseconds);
        isEnded = QApplication::exec() == 0;
        return isEnded;
    }
};

TEST_F(DeviceCommandsTest, SendEndsWithItsMessage) {
    open();
    send();
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
    EXPECT_EQ(held(), imageOf(WindowAction::scenes()));
}

TEST_F(DeviceCommandsTest, BothCommandsAreGreyedAndAMarkTurnsWhileASendRuns) {
    open();
    closeGate();
    startSend();
    EXPECT_TRUE(window().status().isBusy());
    EXPECT_FALSE(window().menu().read().isEnabled());
    EXPECT_FALSE(window().menu().send().isEnabled());
    EXPECT_FALSE(window().readButton().isEnabled());
    EXPECT_FALSE(window().sendButton().isEnabled());
    openGate();
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
    EXPECT_FALSE(window().status().isBusy());
    EXPECT_TRUE(window().menu().read().isEnabled());
    EXPECT_TRUE(window().sendButton().isEnabled());
}

TEST_F(DeviceCommandsTest, ReadIsRefusedWhileASendRuns) {
    open();
    closeGate();
    startSend();
    const QString before = message();
    read();
    window().commands().read();
    QTest::mouseClick(&window().readButton(), Qt::LeftButton);
    EXPECT_EQ(message(), before);
    openGate();
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
}

TEST_F(DeviceCommandsTest, SecondSendIsRefusedWhileOneRuns) {
    open();
    closeGate();
    startSend();
    window().commands().send();
    openGate();
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
    EXPECT_EQ(controller().sendsEnded(), 1U);
}

TEST_F(DeviceCommandsTest, MissingControllerIsToldWithCauseAndCure) {
    open();
    Transport::instance().use(nullptr);
    read();
    EXPECT_EQ(message(), "Could not connect to midi device");
    EXPECT_TRUE(window().status().advice().startsWith("No keyboard of the device list"));
    EXPECT_TRUE(window().status().findChildren<QLabel*>().at(1)->isVisible());
    send();
    EXPECT_EQ(message(), "Could not connect to midi device");
    EXPECT_FALSE(window().status().advice().isEmpty());
    EXPECT_TRUE(window().menu().read().isEnabled());
}

TEST_F(DeviceCommandsTest, AdviceGoesWithTheNextCommandThatWorks) {
    open();
    const auto host = makeVirtualHost(std::make_shared<VirtualController>(held()));
    Transport::instance().use(nullptr);
    read();
    ASSERT_FALSE(window().status().advice().isEmpty());
    Transport::instance().use(host, [](std::chrono::nanoseconds) {});
    read();
    EXPECT_EQ(window().status().advice(), "");
}

TEST_F(DeviceCommandsTest, CloseButtonEndsTheProgram) {
    open();
    EXPECT_TRUE(endsWithin(3000, [this] { window().close(); }));
}

TEST_F(DeviceCommandsTest, QuitEndsTheProgram) {
    open();
    EXPECT_TRUE(
        endsWithin(3000, [this] { QTest::keyClick(&window(), Qt::Key_Q, Qt::ControlModifier); }));
}

TEST_F(DeviceCommandsTest, QuitWaitsForASend) {
    open();
    closeGate();
    startSend();
    QTimer::singleShot(300, [this] {
        EXPECT_FALSE(window().status().advice().isEmpty());
        openGate();
    });
    EXPECT_TRUE(endsWithin(10000, [this] { window().close(); }));
    EXPECT_FALSE(SendJob::isRunning());
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
    EXPECT_EQ(controller().sendsEnded(), 1U);
}

TEST_F(DeviceCommandsTest, SecondQuitDuringASendWaitsTooAndEndsOnce) {
    open();
    closeGate();
    startSend();
    int advices = 0;
    QTimer::singleShot(100, [&] {
        window().status().setAdvice({});
        window().close();
        advices = window().status().advice().isEmpty() ? 0 : 1;
        openGate();
    });
    EXPECT_TRUE(endsWithin(10000, [this] { window().close(); }));
    EXPECT_EQ(advices, 0);
    EXPECT_EQ(controller().sendsEnded(), 1U);
}

class FailingTransfers : public DeviceCommandsTest {
protected:
    FailingTransfers() : DeviceCommandsTest({{Fault::Kind::FailedWrite, 300}}) {}
};

TEST_F(FailingTransfers, AreCountedAndTold) {
    open();
    send();
    EXPECT_TRUE(window().status().advice().contains("transfers failed"));
    EXPECT_TRUE(window().status().advice().contains("Send again"));
}

class SilentController : public DeviceCommandsTest {
protected:
    SilentController() : DeviceCommandsTest({{Fault::Kind::NoAnswer, 2}}) {}
};

TEST_F(SilentController, QuitCancelsASendThatDoesNotEnd) {
    open(std::chrono::milliseconds(400));
    startSend();
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(endsWithin(8000, [this] { window().close(); }));
    EXPECT_GE(clock.elapsed(), 350);
    EXPECT_LT(clock.elapsed(), 4000);
}

} // namespace
} // namespace scenewright::testing
