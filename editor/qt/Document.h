// The scenes as a document: what was done to them, undone and redone; the file that they belong to,
// and those of before. Main thread only.
#pragma once

#include "app/DeviceSession.h"
#include "app/SceneChanges.h"
#include "app/StoredScenes.h"
#include "editor/qt/MainWindow.h"
#include "model/MessageValue.h"
#include "protocol/SceneImage.h"

#include <QAction>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUndoStack>

#include <cstdint>
#include <map>
#include <optional>

namespace scenewright {

// Undo and redo. Whatever changed the scenes, the difference to what they were before is one step:
// it is found after each refresh of the window, so that no command has to tell of its changes. The
// window outlives it.
class History final : public QObject {
    Q_OBJECT

public:
    static constexpr int kSteps = 200;

    // What the scenes are now is where the first step starts.
    explicit History(MainWindow& window);

    // Names what the next refresh of the window finds changed, and makes it a step of its own.
    // Without a name the step is called after its settings, and choices in the same popup that
    // follow each other are one.
    void name(const QString& step) { name_ = step; }
    // No step leads behind what the scenes are now.
    void forget();

    // A number of what the scenes are: a new one for each step, a former one again by undo and
    // redo.
    [[nodiscard]] std::uint64_t version() const { return version_; }

    [[nodiscard]] QUndoStack& steps() { return steps_; }
    [[nodiscard]] QAction& undoAction() { return undo_; }
    [[nodiscard]] QAction& redoAction() { return redo_; }

signals:
    // The scenes are not what they were, by a change, its undo or its redo.
    void changed();

private:
    class Step;
    // One of the two actions, and its part of the stack.
    struct Entry {
        QAction& action;
        QString keys;
        QString plain; // its text without a step, and with the place of one
        QString named;
        void (QUndoStack::*command)();
        void (QUndoStack::*textChanged)(const QString&);
        void (QUndoStack::*canChanged)(bool);
    };

    void connectAction(const Entry& entry);

    void record();
    void write(const SceneChanges& changes, SceneChanges::Side side, std::uint64_t version);
    void take();
    // Chooses a control that the changes concern, unless one that is chosen is among them.
    void show(const SceneChanges& changes);

    MainWindow& window_;
    QUndoStack steps_;
    QAction undo_;
    QAction redo_;
    QString name_;
    SceneList scenes_;         // a copy of what the scenes were when they were last looked at
    BankImage image_{};        // the same, to compare with
    std::int32_t chosen_ = -1; // the control when the scenes were last looked at,
    std::int32_t scene_ = 0;   // and its scene
    std::uint64_t version_ = 0;
    std::uint64_t newest_ = 0; // of the versions
    std::uint64_t run_ = 0;    // of choices in one popup; another starts with other controls
    MessageValue::Subscription reading_;
};

// The file that the scenes belong to: the one that they were opened from or saved in last. The
// window's title has its name, marked while the scenes are not what the file holds; without a file
// they are marked while they are nowhere else. Made while the window shows the scenes of its start;
// window and history outlive it.
class Document final : public QObject {
    Q_OBJECT

public:
    Document(MainWindow& window, History& history);

    // Empty while the scenes belong to none.
    [[nodiscard]] const QString& file() const { return current().file; }
    // What the file held when it was opened or saved here last, as far as that is known.
    [[nodiscard]] const std::optional<BankImage>& held() const { return current().held; }
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
    // The file holds something else now than a bank.
    void overwritten(const QString& file);

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

// The banks that were last opened or saved, and the folder that the next file is looked for in.
// Both are kept in the program's settings.
class RecentFiles {
public:
    RecentFiles() = delete;

    static constexpr int kMax = 8;

    // Those that still exist, newest first.
    [[nodiscard]] static QStringList list();
    static void add(const QString& file);

    // The home folder at first, or when it is gone.
    [[nodiscard]] static QString folder();
    static void setFolderOf(const QString& file);
};

} // namespace scenewright
