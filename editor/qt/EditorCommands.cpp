#include "editor/qt/EditorCommands.h"

#include "editor/qt/Owned.h"
#include "editor/qt/ProgramSettings.h"

#include <QBoxLayout>

namespace scenewright {

namespace {

const QString kGeometryKey = QStringLiteral("geometry");
const QString kModeKey = QStringLiteral("displayMode");

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
    settings.setValue(kModeKey, window_.view().dispaly_index());
}

void EditorCommands::restoreWindow() {
    const QSettings settings = programSettings();
    window_.restoreGeometry(settings.value(kGeometryKey).toByteArray());
    bool isNumber = false;
    const int mode = settings.value(kModeKey).toInt(&isNumber);
    if (isNumber && mode >= 0 && mode < window_.displayModes().count())
        emit window_.menu().modeChosen(mode);
}

} // namespace scenewright
