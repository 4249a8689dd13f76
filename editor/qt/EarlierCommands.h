// The scenes of earlier times: the menu of them, and how they come back into the window. Nothing
// here needs a controller or sends anything.
#pragma once

#include "app/Recovery.h"
#include "app/StoreFiles.h"
#include "editor/qt/Document.h"
#include "editor/qt/MainWindow.h"
#include "protocol/SceneImage.h"

#include <QMenu>
#include <QObject>

namespace scenewright {

// Window and document outlive the commands. A notice tells what was brought back. Main thread only.
class EarlierCommands final : public QObject {
    Q_OBJECT

public:
    // From here on a read keeps what it replaces. The menu stands at the end of the File menu.
    EarlierCommands(MainWindow& window, StoreFiles files, Document& document);

    [[nodiscard]] Document& document() { return document_; }
    [[nodiscard]] const EarlierScenes& kept() const { return files_.earlier(); }
    [[nodiscard]] QMenu& menu() { return *menu_; }

    // Shows them; the notice says `done`.
    void bringBack(const BankImage& image, const QString& done);
    // Scenes that an ended program has left, and their file.
    void bringBackEdited(const EditedScenes& scenes);
    // The newest of the earlier scenes that are not those shown.
    void restoreLatest();
    [[nodiscard]] bool hasLatest() const { return files_.newestOther().has_value(); }

private:
    void fill();
    static QMenu& olderMenu(QMenu& menu);
    void add(QMenu& menu, const EarlierScenes::Entry& entry);

    StoreFiles files_;
    Document& document_;
    QMenu* menu_; // child of the File menu
};

} // namespace scenewright
