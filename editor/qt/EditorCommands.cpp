#include "editor/qt/EditorCommands.h"

#include "editor/qt/Owned.h"
#include "editor/qt/ProgramSettings.h"

#include <QBoxLayout>

namespace scenewright {

namespace {

const QString kGeometryKey = QStringLiteral("geometry");

} // namespace

EditorCommands::EditorCommands(MainWindow& window, KeyboardWatch::Look look, StoreFiles files)
    : window_(window), notice_(&owned<NoticeBar>(window.centralWidget())),
      keyboard_(&owned<KeyboardWatch>(std::move(look), &window.status())),
      banks_(window, std::move(files)), controls_(window), checks_(window, banks_, *notice_) {
    static_cast<QBoxLayout*>(window.centralWidget()->layout())->insertWidget(0, notice_);
    window.status().addMark(*keyboard_);
    restoreWindow();
}

EditorCommands::~EditorCommands() {
    QSettings settings = programSettings();
    settings.setValue(kGeometryKey, window_.saveGeometry());
}

void EditorCommands::restoreWindow() {
    const QSettings settings = programSettings();
    window_.restoreGeometry(settings.value(kGeometryKey).toByteArray());
}

} // namespace scenewright
