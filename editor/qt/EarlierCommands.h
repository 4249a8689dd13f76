// The scenes of earlier times: the menu of them, the edited ones that an ended program has left,
// and how they come back into the window. Nothing here needs a controller or sends anything. Main
// thread only.
#pragma once

#include "app/DeviceSession.h"
#include "app/Recovery.h"
#include "app/StoredScenes.h"
#include "editor/qt/Document.h"
#include "editor/qt/MainWindow.h"
#include "protocol/SceneImage.h"

#include <QMenu>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

namespace scenewright {

// Window and document outlive the commands. A notice tells what was brought back.
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
    // The newest of the earlier scenes that are not those shown.
    void restoreLatest();
    [[nodiscard]] bool hasLatest() const { return files_.newestOther().has_value(); }

private:
    void fill();
    void add(QMenu& menu, const EarlierScenes::Entry& entry);

    StoreFiles files_;
    Document& document_;
    QMenu* menu_; // child of the File menu
};

// Keeps the edited scenes on the disk while they are neither sent nor saved, and offers those that
// an ended program has left. All that it is given outlives it; its end puts the last edit on the
// disk.
class ScenesKeeper final : public QObject {
    Q_OBJECT

public:
    // From an edit to the disk, while the event loop runs.
    static constexpr std::chrono::milliseconds kDelay{1000};

    ScenesKeeper(MainWindow& window, History& history, EarlierCommands& earlier,
                 std::shared_ptr<Recovery> recovery);
    ~ScenesKeeper() override;
    Q_DISABLE_COPY_MOVE(ScenesKeeper)

private:
    void follow();
    void flush();
    // A notice for the newest that was left; none when there is nothing.
    void offer();
    void bringBack(const Recovery::Left& left);

    MainWindow& window_;
    EarlierCommands& earlier_;
    std::shared_ptr<Recovery> recovery_;
    QTimer delay_;
    bool isTroubleTold_ = false;
    KnownKeyboard::Subscription keyboard_;
};

} // namespace scenewright
