// The file that the scenes belong to: the one that they were opened from or saved in last. The
// window's title has its name, marked while the scenes are not what the file holds.
#pragma once

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

    // The file holds the stored scenes.
    void set(const QString& file);
    // The scenes belong to the file, and what it holds is not known.
    void setUnsaved(const QString& file);
    // Scenes of elsewhere have taken the place of the file's.
    void forget();

signals:
    // Another file, or what it holds.
    void changed();

private:
    void change(const QString& file, const std::optional<BankImage>& held);
    void showMark();

    MainWindow& window_;
    const QString program_; // the window's title without a file
    QString file_;
    std::optional<BankImage> held_;
    std::optional<BankImage> beforeCommand_; // the scenes, to see whether a read replaced them
};

} // namespace scenewright
