// The commands on the controller as the window runs them, and the program's end.
#include "editor/qt/DeviceCommands.h"

#include "app/WindowAction.h"
#include "protocol/Transactions.h"
#include "tests/editor-qt/WindowBench.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <QObject>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <functional>
#include <vector>

namespace scenewright::testing {
namespace {

class DeviceCommandsTest : public WindowBench {
protected:
    void open(std::chrono::milliseconds limit = QuitController::kLimit) {
        WindowBench::open(limit);
        const DeviceCommands& commands = window().commands();
        QObject::connect(&commands, &DeviceCommands::readEnded, &receiver_,
                         [this](const Outcome& outcome) { reads_.push_back(outcome); });
        QObject::connect(&commands, &DeviceCommands::sendEnded, &receiver_,
                         [this](const Outcome& outcome) { sends_.push_back(outcome); });
    }
    [[nodiscard]] const std::vector<Outcome>& reads() const { return reads_; }
    [[nodiscard]] const std::vector<Outcome>& sends() const { return sends_; }

    void startSend() { QTest::keyClick(&window(), Qt::Key_Return, Qt::ControlModifier); }

    // Ends the event loop when the program wants to end; tells whether it did in time.
    bool endsWithin(int milliseconds, const std::function<void()>& act) {
        QTimer::singleShot(0, act);
        QTimer watchdog;
        watchdog.setSingleShot(true);
        QObject::connect(&watchdog, &QTimer::timeout, [] { QCoreApplication::exit(99); });
        watchdog.start(milliseconds);
        return QApplication::exec() == 0;
    }

private:
    std::vector<Outcome> reads_;
    std::vector<Outcome> sends_;
    QObject receiver_; // ends first: the window, which ends later, may still tell of a send
};

TEST_F(DeviceCommandsTest, TellsWhatEachCommandDid) {
    open();
    read();
    ASSERT_EQ(reads().size(), 1U);
    EXPECT_TRUE(reads()[0].isDone());
    send();
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
    EXPECT_EQ(held(), imageOf(WindowAction::scenes()));
    ASSERT_EQ(sends().size(), 1U);
    EXPECT_TRUE(sends()[0].isDone());
    EXPECT_EQ(sends()[0].stats.writes, 1028U);
}

TEST_F(DeviceCommandsTest, WhileASendRunsAMarkTurnsAndNoCommandIsTaken) {
    open();
    const auto expectBusy = [this](bool isBusy) {
        EXPECT_EQ(window().status().isBusy(), isBusy);
        EXPECT_EQ(window().menu().read().isEnabled(), !isBusy);
        EXPECT_EQ(window().menu().send().isEnabled(), !isBusy);
        EXPECT_EQ(window().readButton().isEnabled(), !isBusy);
        EXPECT_EQ(window().sendButton().isEnabled(), !isBusy);
    };
    closeGate();
    startSend();
    expectBusy(true);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << "the pointer waits for a read alone";
    const QString before = message();
    read();
    window().commands().read();
    QTest::mouseClick(&window().readButton(), Qt::LeftButton);
    window().commands().send();
    EXPECT_EQ(message(), before);
    openGate();
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
    expectBusy(false);
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
    EXPECT_EQ(controller().sendsEnded(), 1U);
    EXPECT_TRUE(reads().empty());
}

TEST_F(DeviceCommandsTest, TellsThatTheControllerIsMissing) {
    open();
    Transport::instance().use(makeVirtualHost(std::make_shared<VirtualController>(BankImage{}),
                                              BankFileStore({}), {.vendor = 1}));
    read();
    EXPECT_EQ(message(), "Could not connect to midi device");
    ASSERT_EQ(reads().size(), 1U);
    EXPECT_EQ(reads()[0].end, Outcome::End::NotConnected);
    EXPECT_EQ(reads()[0].cause, kResultNotPlugged);
    send();
    EXPECT_EQ(message(), "Could not connect to midi device");
    ASSERT_EQ(sends().size(), 1U);
    EXPECT_EQ(sends()[0].end, Outcome::End::NotConnected);
    EXPECT_TRUE(window().menu().read().isEnabled());
}

TEST_F(DeviceCommandsTest, CloseButtonAndQuitEndTheProgram) {
    open();
    EXPECT_TRUE(endsWithin(3000, [this] { window().close(); }));
    open();
    EXPECT_TRUE(
        endsWithin(3000, [this] { QTest::keyClick(&window(), Qt::Key_Q, Qt::ControlModifier); }));
}

TEST_F(DeviceCommandsTest, QuitWaitsForASend) {
    open();
    closeGate();
    startSend();
    QTimer::singleShot(0, [this] {
        window().close();
        EXPECT_EQ(window().notices().text(), "The program ends when the scenes have been sent");
        EXPECT_EQ(message(), "sendSceneData");
        openGate();
    });
    EXPECT_TRUE(endsWithin(20000, [] {}));
    EXPECT_FALSE(SendJob::isRunning());
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
    EXPECT_EQ(controller().sendsEnded(), 1U);
}

TEST_F(DeviceCommandsTest, SecondQuitDuringASendWaitsTooAndEndsOnce) {
    open();
    QuitController quit;
    int waits = 0;
    int ends = 0;
    QObject::connect(&quit, &QuitController::waiting, [&] { ++waits; });
    QObject::connect(&quit, &QuitController::ended, [&] { ++ends; });
    closeGate();
    startSend();
    EXPECT_TRUE(endsWithin(20000, [&] {
        quit.terminate();
        quit.terminate();
        openGate();
    }));
    EXPECT_EQ(waits, 1);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(controller().sendsEnded(), 1U);
}

TEST_F(DeviceCommandsTest, QuitCancelsASendThatDoesNotEnd) {
    controller().order({{Fault::Kind::NoAnswer, 2}});
    open(std::chrono::milliseconds(400));
    startSend();
    EXPECT_TRUE(endsWithin(20000, [this] { window().close(); }));
    EXPECT_TRUE(Transport::instance().isShutDown());
}

} // namespace
} // namespace scenewright::testing
