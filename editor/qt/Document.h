// The file that the scenes belong to: the one that they were opened from or saved in last. The
// window's title has its name, marked while the scenes are not what the file holds.
#pragma once

#include "app/StoreFiles.h"
#include "editor/qt/History.h"
#include "editor/qt/MainWindow.h"
#include "protocol/SceneImage.h"

#include <QObject>
#include <QString>

#include <optional>

namespace scenewright {

// Window and history outlive it. Main thread only.
class Document final : public QObject {
    Q_OBJECT

public:
    Document(MainWindow& window, History& history);

    // Empty while the scenes belong to none.
    [[nodiscard]] const QString& file() const { return file_; }
    // What the file holds, as far as it is known.
    [[nodiscard]] const std::optional<BankImage>& held() const { return held_; }

    // Shows scenes that have been put into the store, as a step of the history. A notice tells
    // `done`, or why they were not; then nothing is changed, and this gives false.
    bool show(const Result<StoreFiles::Opened>& outcome, const QString& done, const QString& step);
    // The file holds the stored scenes.
    void set(const QString& file);
    // The scenes belong to the file, and what it holds is not known.
    void setUnsaved(const QString& file);
    // Scenes of elsewhere have taken the place of the file's.
    void forget();

signals:
    // Other scenes are shown now.
    void replaced();
    // Another file, or what it holds.
    void changed();

private:
    void change(const QString& file, const std::optional<BankImage>& held);
    void showMark();

    MainWindow& window_;
    History& history_;
    const QString program_; // the window's title without a file
    QString file_;
    std::optional<BankImage> held_;
    std::optional<BankImage> beforeCommand_; // the scenes, to see whether a read replaced them
};

} // namespace scenewright
