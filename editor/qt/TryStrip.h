// Try It: what was sent, tried by touch. A strip below the picture names each control of the scene
// in turn, the picture shows it, and beside it stands what the keyboard then sent.
#pragma once

#include "app/TryRun.h"
#include "editor/qt/MidiPorts.h"

#include <QAction>
#include <QFrame>
#include <QPushButton>
#include <QTreeWidget>

#include <cstdint>
#include <optional>
#include <vector>

namespace scenewright {

// Main thread only. Window and input outlive it.
class TryStrip final : public QFrame {
    Q_OBJECT

public:
    TryStrip(MainWindow& window, KeyboardInput& input);

    // Of the Device menu: begins with the chosen scene, as the keyboard is known to hold it.
    [[nodiscard]] QAction& action() { return *action_; }

    // The last of the results, with those of all.
    [[nodiscard]] QString report() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut();
    void start();
    void take(const std::vector<MidiMessage>& messages);
    // The run has gone on: shows what is next, after what was done.
    void showNext(const QString& done);
    void end();
    void close();
    void showRow(std::size_t place);
    [[nodiscard]] Titles noteNames() const;

    MainWindow& window_;
    KeyboardInput& input_;
    std::optional<TryRun> run_; // nothing while the strip is hidden
    std::int32_t scene_ = 0;    // which is tried, from 0
    // Children of the menu and the strip; null before it was first shown, but for the action.
    QAction* action_ = nullptr;
    SpokenText* told_ = nullptr;
    QTreeWidget* table_ = nullptr;
    QPushButton* skip_ = nullptr;
    QPushButton* back_ = nullptr;
    QPushButton* end_ = nullptr;
};

} // namespace scenewright
