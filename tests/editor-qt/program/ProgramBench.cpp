#include "tests/editor-qt/program/ProgramBench.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcessEnvironment>
#include <QScreen>
#include <QTest>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <xcb/xcb.h>

namespace scenewright::testing {

namespace {

const QString kTitle = QStringLiteral("Virtual controller");

struct Free {
    void operator()(void* memory) const { std::free(memory); }
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

xcb_atom_t atomNamed(xcb_connection_t* connection, std::string_view name) {
    const auto request =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
        xcb_intern_atom_reply(connection, request, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QString outputOf(const QStringList& command) {
    QProcess process;
    process.start(command.front(), command.sliced(1));
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

} // namespace

ProgramBench::ProgramBench()
    : appearance_(std::make_unique<Appearance>()), quit_(std::make_unique<QuitController>()),
      twin_(std::make_unique<MainWindow>(*quit_, *appearance_, true)) {
    // What a test leaves unsent is not for the next one.
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_STATE_HOME"),
                       QString::fromStdString(folder_.file("state")));
    program_.setProcessEnvironment(environment);
    twin_->setAttribute(Qt::WA_DontShowOnScreen);
    twin_->show();
    QApplication::processEvents();
}

ProgramBench::~ProgramBench() {
    program_.kill();
    program_.waitForFinished();
}

void ProgramBench::start(const QStringList& arguments) {
    const QStringList common{"--virtual=" + QString::fromStdString(bankFile()), "--log",
                             QString::fromStdString(folder_.file("log"))};
    program_.start(QStringLiteral(SCENEWRIGHT_BINARY_DIR "/bin/scenewright"), common + arguments);
    const QStringList search{"xdotool", "search", "--onlyvisible", "--name", kTitle};
    ASSERT_TRUE(waitUntil([&] { return !(window_ = outputOf(search)).isEmpty(); }));
    window_ = window_.section('\n', 0, 0);
    run({"xdotool", "windowmove", window_, "0", "0", "windowfocus", "--sync", window_});
    origin_ = QPoint(0, 0);
    QTest::qWait(150);
}

void ProgramBench::run(const QStringList& command) {
    EXPECT_EQ(QProcess::execute(command.front(), command.sliced(1)), 0)
        << command.join(' ').toStdString();
}

void ProgramBench::clickAt(const QWidget& twinWidget, const QPoint& place, int button) {
    const QPoint there = origin_ + twinWidget.mapTo(twin_.get(), place);
    run({"xdotool", "mousemove", QString::number(there.x()), QString::number(there.y()), "click",
         QString::number(button)});
    QTest::qWait(60);
}

void ProgramBench::click(const QWidget& twinWidget, int button) {
    clickAt(twinWidget, twinWidget.rect().center(), button);
}

void ProgramBench::key(const QString& keys) {
    run({"xdotool", "key", keys});
    QTest::qWait(60);
}

void ProgramBench::typeText(const QString& text) {
    run({"xdotool", "type", "--delay", "15", text});
    QTest::qWait(60);
}

void ProgramBench::pressCloseButton() {
    const std::unique_ptr<xcb_connection_t, Free> connection(xcb_connect(nullptr, nullptr));
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window_.toUInt();
    event.type = atomNamed(connection.get(), "WM_PROTOCOLS");
    event.data.data32[0] = atomNamed(connection.get(), "WM_DELETE_WINDOW");
    std::array<char, 32> bytes{};
    static_assert(sizeof(event) <= bytes.size());
    std::memcpy(bytes.data(), &event, sizeof(event));
    xcb_send_event(connection.get(), 0, event.window, XCB_EVENT_MASK_NO_EVENT, bytes.data());
    // A round trip, so that the server has the event before the connection goes.
    const std::unique_ptr<xcb_get_input_focus_reply_t, Free> answer(xcb_get_input_focus_reply(
        connection.get(), xcb_get_input_focus(connection.get()), nullptr));
    EXPECT_NE(answer, nullptr);
}

void ProgramBench::chooseControl(std::int32_t index) {
    if (ControlButton* button = twin_->picture().button(index)) {
        button->click();
        clickAt(*button, {button->width() / 2, button->height() - 6});
    } else {
        ControlList& list = twin_->list();
        const QPoint row = list.visualRect(list.model()->index(index, 0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row);
        clickAt(*list.viewport(), row);
    }
    QApplication::processEvents();
}

std::optional<int> ProgramBench::waitForExit(int milliseconds) {
    if (isRunning() && !program_.waitForFinished(milliseconds))
        return std::nullopt;
    return program_.exitStatus() == QProcess::NormalExit ? program_.exitCode() : -1;
}

QStringList ProgramBench::log() const {
    QFile file(QString::fromStdString(folder_.file("log")));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split('\n')
                                          : QStringList();
}

bool ProgramBench::waitForLog(const QString& line, int times) {
    return waitUntil([&] { return log().count(line) >= times; });
}

void ProgramBench::read() {
    key("ctrl+r");
    ASSERT_TRUE(waitForLog(kReadDone));
    // What comes while it blocks the window is dropped: it is over once a key is heard.
    const auto scenesShown = [this] { return log().filter(QStringLiteral("SceneValue ")).size(); };
    ASSERT_TRUE(waitUntil([&] {
        const auto before = scenesShown();
        key("ctrl+1");
        return scenesShown() > before;
    }));
}

void ProgramBench::send() {
    key("ctrl+Return");
    ASSERT_TRUE(waitForLog(kSendDone));
}

bool ProgramBench::waitUntil(const std::function<bool()>& condition, int milliseconds) {
    return QTest::qWaitFor(condition, milliseconds);
}

QColor ProgramBench::seenAt(const QWidget& twinWidget, const QPoint& place) {
    const QPoint there = origin_ + twinWidget.mapTo(twin_.get(), place);
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    return QColor(screen.pixel(there));
}

} // namespace scenewright::testing
