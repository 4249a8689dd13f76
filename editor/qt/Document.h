// The file that the scenes belong to: the one that they were opened from or saved in last. The
// window's title has its name, marked while the scenes are not what the file holds; without a file
// they are marked while they are nowhere else.
#pragma once

#include "app/KnownKeyboard.h"
#include "app/StoreFiles.h"
#include "editor/qt/History.h"
#include "editor/qt/MainWindow.h"
#include "protocol/SceneImage.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <map>
#include <optional>

namespace scenewright {

// Made while the window shows the scenes of its start. Window and history outlive it. Main thread
// only.
class Document final : public QObject {
    Q_OBJECT

public:
    Document(MainWindow& window, History& history);

    // Empty while the scenes belong to none.
    [[nodiscard]] const QString& file() const { return current().file; }
    // Whether the stored scenes are elsewhere too: on the keyboard, in their file, or as those of
    // the start.
    [[nodiscard]] bool isElsewhere() const;

    // Shows scenes that have been put into the store, as a step of the history. A notice tells
    // `done`, or why they were not; then nothing is changed, and this gives false.
    bool show(const Result<StoreFiles::Opened>& outcome, const QString& done, const QString& step);
    // What the scenes belong to that have just taken the place of others, until that is undone: to
    // the file that they come from, to one that may hold others, or to none.
    void opened(const QString& file);
    void setUnsaved(const QString& file);
    void forget();
    // The stored scenes have been written into the file, and belong to it.
    void saved(const QString& file);

signals:
    // Other scenes are shown now.
    void replaced();
    // Another file, or what it holds.
    void changed();

private:
    struct Belonging {
        QString file{};
        std::optional<BankImage> held{}; // by the file, as far as it is known
    };
    [[nodiscard]] const Belonging& current() const;
    void begin(Belonging belonging);
    void followHistory();
    void showTitle();

    MainWindow& window_;
    History& history_;
    const QString program_; // the window's title without a file
    const BankImage start_;
    std::map<std::uint64_t, Belonging> since_{{0, {}}}; // from which version of the history on
    std::uint64_t seen_ = 0;                            // version of the history
    std::uint64_t newest_ = 0;                          // of those seen
    std::optional<BankImage> beforeCommand_; // the scenes, to see whether a read replaced them
    KnownKeyboard::Subscription keyboard_;
};

} // namespace scenewright
