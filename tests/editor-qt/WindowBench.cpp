#include "tests/editor-qt/WindowBench.h"

#include "bank/BankFile.h"
#include "protocol/Transactions.h"
#include "tests/support/Limits.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <QTest>

#include <condition_variable>
#include <functional>
#include <mutex>

namespace scenewright::testing {

class Gate {
public:
    void set(bool isOpen) {
        const std::lock_guard lock(mutex_);
        isOpen_ = isOpen;
        changed_.notify_all();
    }
    // A closed gate lets the thread of the window through, which must not wait for itself.
    void pass() {
        if (QThread::currentThread() == qApp->thread())
            return;
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isOpen_; });
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isOpen_ = true;
};

BankImage imageOf(const SceneList& scenes) {
    return encodeBank(scenes);
}

WindowBench::WindowBench(const SceneList& held, FaultPlan faults)
    : gate_(std::make_shared<Gate>()),
      controller_(std::make_shared<VirtualController>(imageOf(held), std::move(faults))) {
    const auto pause = [gate = gate_](std::chrono::nanoseconds) { gate->pass(); };
    Transport::instance().use(makeVirtualHost(controller_), pause);
}

WindowBench::~WindowBench() {
    openGate();
    Transport::instance().shutDown();
    SendJob::join();
    EXPECT_TRUE(waitUntil([] { return !SendJob::isRunning(); }));
}

MainWindow& WindowBench::open(std::chrono::milliseconds limit) {
    appearance_ = std::make_unique<Appearance>();
    quit_ = std::make_unique<QuitController>(limit);
    window_ = std::make_unique<MainWindow>(*quit_, *appearance_, true);
    window_->notices().setDoneLasts({}); // no pause of a busy machine takes one away
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get(), testing::kLimitMilliseconds));
    return *window_;
}

void WindowBench::read() {
    QTest::keyClick(window_.get(), Qt::Key_R, Qt::ControlModifier);
}

void WindowBench::send() {
    QWidget* at = window_->focusWidget(); // where a user's keys go
    QTest::keyClick(at != nullptr ? at : window_.get(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(waitUntil([this] { return !window_->commands().isBusy(); }));
}

bool WindowBench::waitUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, testing::kLimitMilliseconds);
}

void WindowBench::type(PopUpBox& box, const QString& text) {
    box.setFocus();
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Return);
}

void WindowBench::closeGate() {
    gate_->set(false);
}

void WindowBench::openGate() {
    gate_->set(true);
}

} // namespace scenewright::testing
