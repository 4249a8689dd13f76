#include "editor/qt/EditorCommands.h"

#include "editor/qt/Owned.h"
#include "editor/qt/ProgramSettings.h"
#include "editor/qt/Text.h"

namespace scenewright {

namespace {

const QString kGeometryKey = QStringLiteral("geometry");

} // namespace

EditorCommands::EditorCommands(MainWindow& window, KeyboardWatch::Look look, StoreFiles files)
    : window_(window), keyboard_(&makeChild<KeyboardWatch>(std::move(look), &window.status())),
      banks_(window, std::move(files)), controls_(window), verification_(window, banks_) {
    window.status().addMark(*keyboard_);
    const auto lookAgain = [this] { keyboard_->look(); };
    QObject::connect(&window.commands(), &DeviceCommands::readEnded, keyboard_, lookAgain);
    QObject::connect(&window.commands(), &DeviceCommands::sendEnded, keyboard_, lookAgain);
    window_.restoreGeometry(programSettings().value(kGeometryKey).toByteArray());
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
    programSettings().setValue(kGeometryKey, window_.saveGeometry());
}

} // namespace scenewright
