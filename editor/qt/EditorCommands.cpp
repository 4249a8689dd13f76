#include "editor/qt/EditorCommands.h"

#include "editor/qt/MidiPorts.h"
#include "editor/qt/QtHelpers.h"

#include <QScreen>
#include <QStyle>

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

EditorCommands::EditorCommands(MainWindow& window, std::shared_ptr<Keyboards> keyboards,
                               StoreFiles files, SendJournal journal,
                               std::shared_ptr<Recovery> recovery)
    : window_(window), keyboard_(&makeChild<KeyboardWatch>(keyboards, &window.status())),
      history_(window), document_(window, history_), banks_(window, files, history_, document_),
      earlier_(window, std::move(files), document_), controls_(window, history_),
      scenes_(window, history_), checks_(window, history_), colours_(window, history_),
      input_(&makeChild<KeyboardInput>(window)),
      monitor_(&makeChild<MonitorStrip>(window, *input_)), playing_(window),
      sending_(window, earlier_, std::move(journal)), verification_(window, earlier_, sending_),
      trying_(&makeChild<TryStrip>(window, *input_)), marks_(window, history_, verification_),
      keyboards_(window, keyboards, *keyboard_) {
    window.menu().file().insertAction(
        &window.menu().quit(),
        &playing_.add(PlayBar::tr("&Play This Scene Here"), [] { return openPlayPort(); }));
    window.menu().file().insertSeparator(&window.menu().quit());
    if (recovery)
        keeper_ = std::make_unique<ScenesKeeper>(window, history_, earlier_, std::move(recovery));
    const auto lookAgain = [this] { keyboard_->look(); };
    QObject::connect(&window.commands(), &DeviceCommands::readEnded, keyboard_, lookAgain);
    QObject::connect(&window.commands(), &DeviceCommands::sendEnded, keyboard_, lookAgain);
    if (keyboards)
        input_->listenTo([keyboards] { return heardKeyboards(*keyboards); });
    QObject::connect(&keyboards_, &KeyboardCommands::chosen, input_, &KeyboardInput::listenAnew);
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
