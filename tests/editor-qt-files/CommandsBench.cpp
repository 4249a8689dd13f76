#include "tests/editor-qt-files/CommandsBench.h"

#include "app/DeviceSession.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/Edit.h"
#include "editor/qt/QtHelpers.h"
#include "protocol/Transactions.h"
#include "tests/support/Limits.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <QTest>

#include <chrono>
#include <functional>

namespace scenewright::testing {

CommandsBench::CommandsBench() {
    programSettings().clear();
    WindowAction::getSceneValue();
    KnownKeyboard::forget();
    plugIn();
}

CommandsBench::~CommandsBench() {
    close();
    Transport::instance().shutDown();
    SendJob::join();
}

void CommandsBench::open(std::shared_ptr<Keyboards> attached) {
    appearance_ = std::make_unique<Appearance>();
    quit_ = std::make_unique<QuitController>();
    window_ = std::make_unique<MainWindow>(*quit_, *appearance_, true);
    commands_ = std::make_unique<EditorCommands>(*window_, std::move(attached),
                                                 StoreFiles(earlier_), journal_, recovery);
    window_->notices().setDoneLasts({}); // no pause of a busy machine takes one away
    window_->show();
    activate();
}

void CommandsBench::activate() {
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get(), testing::kLimitMilliseconds));
}

void CommandsBench::watch(const std::string& chosen) {
    keyboards = std::make_shared<Keyboards>(chosen, [this] {
        ++looks;
        return plugged;
    });
    open(keyboards);
}

AttachedDevice CommandsBench::deviceAt(const std::string& port, const std::string& name) {
    return {.port = port, .ids = {0x1209, 0x0001}, .name = name, .hasMidiStreaming = true};
}

AttachedDevice CommandsBench::strange(const std::string& port) {
    AttachedDevice device = deviceAt(port, "Drum");
    device.ids = {.vendor = 0x1234, .product = 0x5678};
    return device;
}

void CommandsBench::close() {
    commands_.reset();
    window_.reset();
}

void CommandsBench::plugIn(FaultPlan faults, BankFileStore keeper) {
    controller =
        std::make_shared<VirtualController>(encodeBank(WindowAction::scenes()), std::move(faults));
    host = makeVirtualHost(controller, std::move(keeper));
    Transport::instance().use(host, [](std::chrono::nanoseconds) {});
}

void CommandsBench::unplug() {
    Transport::instance().use(makeVirtualHost(std::make_shared<VirtualController>(BankImage{}),
                                              BankFileStore({}), {.vendor = 1}));
}

QString CommandsBench::file(const char* name) const {
    return QString::fromStdString(folder.file(name));
}

ButtonValue& CommandsBench::record(std::int32_t control) {
    const auto& records = WindowAction::getSceneWithIndex(0)->buttonValueArray();
    return *records.at(static_cast<std::size_t>(control) - 1);
}

void CommandsBench::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window_.get(), key, modifiers);
}

void CommandsBench::pick(const char* popUp, std::int32_t option) {
    PopUpBox& box = window().panes().popUp(popUp);
    box.selectItem(option);
    emit box.activated(option);
}

void CommandsBench::pickRed(std::int32_t red) {
    choose(kPad);
    pick("padCR", red);
}

void CommandsBench::type(const char* popUp, const QString& text) {
    PopUpBox& box = window().panes().popUp(popUp);
    box.setFocus();
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Return);
}

void CommandsBench::send() {
    press(Qt::Key_Return);
    waitForSend();
}

void CommandsBench::waitForSend() {
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
}

void CommandsBench::clickNotice(const char* title) {
    for (std::size_t place = 0; notices().action(place) != nullptr; ++place)
        if (notices().action(place)->text() == QLatin1String(title)) {
            notices().action(place)->click();
            return waitForSend();
        }
    ADD_FAILURE() << title << " is not offered";
}

QAction& CommandsBench::entry(const QString& title) {
    for (auto* action : window().menuBar()->findChildren<QAction*>())
        if (unmarked(action->text()).startsWith(title))
            return *action;
    throw std::out_of_range(title.toStdString());
}

QPushButton& CommandsBench::mark(const QString& meaning) {
    for (auto* button : window().status().findChildren<QPushButton*>())
        if (button->toolTip() == meaning || button->accessibleDescription() == meaning)
            return *button;
    throw std::out_of_range(meaning.toStdString());
}

QStringList CommandsBench::tabStops(const QWidget& first) {
    QStringList stops;
    for (const QWidget* at = &first; stops.isEmpty() || at != &first; at = at->nextInFocusChain())
        if (at->isVisible() && (at->focusPolicy() & Qt::TabFocus) != 0)
            stops.append(at->accessibleName());
    stops.removeAll(QString()); // the line in a box
    return stops;
}

QString CommandsBench::bankWithRed(const char* name, std::int32_t red) {
    const SceneList scenes = copyOf(WindowAction::scenes());
    scenes[0]->buttonValueArray()[kPad - 1]->setCR(red);
    EXPECT_TRUE(writeBank(folder.file(name), scenes, BankFormat::Image, {}));
    return file(name);
}

bool CommandsBench::waitUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, testing::kLimitMilliseconds);
}

} // namespace scenewright::testing
