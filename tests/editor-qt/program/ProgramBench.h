// The program itself on a display of its own, driven with the X server's mouse and keys.
#pragma once

#include "editor/qt/MainWindow.h"
#include "tests/support/Limits.h"
#include "tests/support/TempFolder.h"

#include <QProcess>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace scenewright::testing {

// What the log has when a read has ended, and a send.
inline const QString kReadDone = QStringLiteral("Read Scene Data Finish  (null)");
inline const QString kSendDone = QStringLiteral("Send Scene Data Finish:100%:Success  (null)");

// Where the widgets are is read off a twin: the same window, laid out in this process on the same
// display but never shown on it.
class ProgramBench : public ::testing::Test {
protected:
    ProgramBench();
    ~ProgramBench() override;

    // Starts the program on the virtual controller, whose memory is `bank()`, and waits for its
    // window. `environment` has lines NAME=value.
    void start(const QStringList& arguments = {});
    MainWindow& twin() { return *twin_; }

    void click(const QWidget& twinWidget, int button = 1);
    void clickAt(const QWidget& twinWidget, const QPoint& place, int button = 1);
    void key(const QString& keys);
    void typeText(const QString& text);
    // Asks the window to close, as its frame's close button does.
    void pressCloseButton();

    // Chooses the control in the program and in the twin.
    void chooseControl(std::int32_t index);

    // Nothing when the program still runs.
    std::optional<int> waitForExit(int milliseconds = kLimitMilliseconds);
    [[nodiscard]] bool isRunning() const { return program_.state() == QProcess::Running; }

    [[nodiscard]] std::string bankFile() const { return folder_.file("controller.bank"); }
    [[nodiscard]] std::vector<std::uint8_t> bank() const { return readBytes(bankFile()); }
    // The system log so far, a line an entry.
    [[nodiscard]] QStringList log() const;
    bool waitForLog(const QString& line, int times = 1);
    // With keys, until the program says in its log that it has ended, for the first time.
    void read();
    void send();
    bool waitUntil(const std::function<bool()>& condition, int milliseconds = kLimitMilliseconds);
    // What the screen shows at the middle of the twin's widget.
    [[nodiscard]] QColor seenAt(const QWidget& twinWidget, const QPoint& place);

    [[nodiscard]] const TempFolder& folder() const { return folder_; }
    [[nodiscard]] QProcess& program() { return program_; }

private:
    void run(const QStringList& command);

    TempFolder folder_;
    QProcess program_;
    std::unique_ptr<Appearance> appearance_;
    std::unique_ptr<QuitController> quit_;
    std::unique_ptr<MainWindow> twin_;
    QString window_; // the X window of the program
    QPoint origin_;  // of its content on the screen
};

} // namespace scenewright::testing
