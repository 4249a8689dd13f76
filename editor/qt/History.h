// Undo and redo. Whatever changed the scenes, the difference to what they were before is one step:
// it is found after each refresh of the window, so that no command has to tell of its changes.
#pragma once

#include "app/SceneChanges.h"
#include "editor/qt/MainWindow.h"
#include "model/MessageValue.h"
#include "protocol/SceneImage.h"

#include <QAction>
#include <QObject>
#include <QUndoStack>

#include <cstdint>

namespace scenewright {

// The window outlives it. Main thread only.
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

} // namespace scenewright
