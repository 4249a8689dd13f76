#include "editor/qt/EditorCommands.h"

#include "editor/ControlDescription.h"
#include "editor/qt/PlayOutputs.h"
#include "editor/qt/ProgramSettings.h"
#include "editor/qt/QtHelpers.h"

#include <QScreen>
#include <QStyle>

#include <cstdint>

namespace scenewright {

namespace {

const QString kGeometryKey = QStringLiteral("geometry");

// On a small screen, with room for the title bar: what is done most is at the upper right.
void fitIntoScreen(QWidget& window) {
    const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QSize room = window.screen()->availableGeometry().size() - QSize(0, titleBar);
    window.resize(window.size().boundedTo(room));
}

} // namespace

ControlCommands::ControlCommands(MainWindow& window, History& history)
    : window_(window), history_(history) {
    auto& menu = makeChild<QMenu>(tr("&Edit"), window.menuBar());
    menu.setAccessibleName(tr("Edit"));
    window.menuBar()->insertMenu(window.menu().device().menuAction(), &menu);
    const auto add = [&menu, this](const QString& title, const QString& keys,
                                   void (ControlCommands::*command)()) {
        QAction* action = menu.addAction(title);
        action->setShortcut(QKeySequence(keys));
        connect(action, &QAction::triggered, this, command);
        return action;
    };
    menu.addActions({&history.undoAction(), &history.redoAction()});
    menu.addSeparator();
    copy_ = add({}, tr("Ctrl+C"), &ControlCommands::copy);
    paste_ = add({}, tr("Ctrl+V"), &ControlCommands::paste);
    menu.addSeparator();
    reset_ = add({}, tr("Ctrl+Backspace"), &ControlCommands::reset);
    connect(&window_, &MainWindow::refreshed, this, &ControlCommands::update);
    update();
}

void ControlCommands::copy() {
    clipboard_.copy(*window_.view().sceneValue(), window_.view().selectControl());
    update();
    tell(tr("Copied %1"));
}

void ControlCommands::paste() {
    if (clipboard_.paste(*window_.view().sceneValue(), window_.view().selectControl()))
        showStep(tr("Paste Into %1"));
}

void ControlCommands::reset() {
    if (resetControl(*window_.view().sceneValue(), window_.view().selectControl())) {
        showStep(tr("Reset %1"));
        tell(tr("%1 has its default settings"));
    }
}

void ControlCommands::tell(const QString& done) {
    window_.notices().post({.source = Notice::Source::Edit,
                            .kind = Notice::Kind::Done,
                            .text = done.arg(shown(controlName(window_.view().selectControl())))});
}

void ControlCommands::showStep(const QString& name) {
    history_.name(name.arg(shown(controlName(window_.view().selectControl()))));
    window_.view().showChosenControl();
}

void ControlCommands::update() {
    const std::int32_t control = window_.view().selectControl();
    const bool isChosen = control >= 0 && control < kControlIndexEnd;
    const bool isScene = control == 0;
    copy_->setText(isScene ? tr("&Copy Scene Settings") : tr("&Copy Control"));
    paste_->setText(isScene ? tr("&Paste Scene Settings") : tr("&Paste Control"));
    reset_->setText(isScene ? tr("&Reset Scene Settings") : tr("&Reset Control"));
    copy_->setEnabled(isChosen);
    reset_->setEnabled(isChosen);
    paste_->setEnabled(clipboard_.canPaste(control));
}

EditorCommands::EditorCommands(MainWindow& window, KeyboardWatch::Look look, StoreFiles files,
                               SendJournal journal, std::shared_ptr<Recovery> recovery)
    : window_(window), keyboard_(&makeChild<KeyboardWatch>(std::move(look), &window.status())),
      history_(window), document_(window, history_),
      banks_(window, std::move(files), history_, document_), controls_(window, history_),
      scenes_(window, history_), checks_(window, history_), colours_(window, history_),
      input_(&makeChild<KeyboardInput>(window)),
      monitor_(&makeChild<MonitorStrip>(window, *input_)), playing_(window),
      sending_(window, banks_, std::move(journal)), verification_(window, banks_, sending_),
      trying_(&makeChild<TryStrip>(window, *input_)), marks_(window, history_, verification_) {
    window.menu().file().insertAction(
        &window.menu().quit(),
        &playing_.add(PlayBar::tr("&Play This Scene Here"), [] { return openPlayPort(); }));
    window.menu().file().insertSeparator(&window.menu().quit());
    if (recovery)
        keeper_ = std::make_unique<ScenesKeeper>(window, history_, banks_, std::move(recovery));
    window.status().addMark(*keyboard_);
    const auto lookAgain = [this] { keyboard_->look(); };
    QObject::connect(&window.commands(), &DeviceCommands::readEnded, keyboard_, lookAgain);
    QObject::connect(&window.commands(), &DeviceCommands::sendEnded, keyboard_, lookAgain);
    if (!window_.restoreGeometry(programSettings().value(kGeometryKey).toByteArray()))
        fitIntoScreen(window_);
}

void EditorCommands::useVirtual() {
    listenToVirtual(*input_);
    window_.menu().view().addAction(&playing_.add(PlayBar::tr("Play"), &makeVirtualOutput));
}

void EditorCommands::reportLists(const std::vector<std::string>& errors) {
    QStringList lines;
    for (const std::string& error : errors)
        lines.append(shown(error));
    if (!lines.isEmpty())
        window_.notices().post({.source = Notice::Source::Resources,
                                .kind = Notice::Kind::Error,
                                .text = lines.join(QLatin1Char('\n'))});
}

EditorCommands::~EditorCommands() {
    window_.finishTyping(); // while there is who keeps it
    programSettings().setValue(kGeometryKey, window_.saveGeometry());
}

} // namespace scenewright
