// The monitor: a strip under the picture that shows what the keyboard sends, in words, and which
// control of the scenes sends it. The control lights up on the picture meanwhile, and a knob or
// slider stands where it was moved to.
#pragma once

#include "editor/qt/MidiPorts.h"

#include <QAbstractButton>
#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QSortFilterProxyModel>
#include <QTime>
#include <QTimer>
#include <QTreeView>

#include <array>
#include <cstdint>
#include <deque>
#include <set>
#include <utility>
#include <vector>

namespace scenewright {

// What came in: when, in words, and what sends it.
class MonitorLines final : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int kMost = 10000; // the oldest lines go first
    enum Column { Time, Words, Senders, kColumns };
    struct Line {
        std::array<QString, kColumns> texts;
        bool isExplained = true; // a control of the shown scene sends it
    };

    using QAbstractTableModel::QAbstractTableModel;

    void append(std::vector<Line> lines);
    void clear();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    std::deque<Line> lines_;
};

// Main thread only. Window and input outlive it.
class MonitorStrip final : public QFrame {
    Q_OBJECT

public:
    MonitorStrip(MainWindow& window, KeyboardInput& input);
    ~MonitorStrip() override;
    Q_DISABLE_COPY_MOVE(MonitorStrip)

    // Of the View menu; checked while the strip is there.
    [[nodiscard]] QAction& action() { return *action_; }
    // What is touched on the keyboard is chosen in the window.
    [[nodiscard]] MonitorLines& lines() { return lines_; }

    // Shows what was taken, as the strip does by itself some times a second.
    void show();

private:
    void layOut();
    // Is there as long as the action is checked.
    void follow();
    [[nodiscard]] bool listen();
    void take(const std::vector<MidiMessage>& messages);
    [[nodiscard]] MonitorLines::Line lineOf(const MidiMessage& message, const QString& time) const;
    void light(const MidiMessage& message);
    void darken(const std::set<std::int32_t>& controls);
    void chooseSender(const MidiMessage& message);
    void copy() const;

    MainWindow& window_;
    KeyboardInput& input_;
    std::vector<std::pair<QTime, MidiMessage>> taken_; // and not shown yet
    QTimer pause_;                                     // between two looks at it
    QTimer dark_;                                      // after the last controller's message
    MidiMessage touch_{};                              // the last that may have chosen
    QElapsedTimer touched_;                            // since then
    std::set<std::int32_t> lit_;                       // the controls of these
    std::set<std::int32_t> sounding_;                  // those of notes
    MonitorLines lines_;
    QSortFilterProxyModel filtered_;
    // Children of the window, the menu and the strip.
    QAction* action_ = nullptr;
    QAction* choose_ = nullptr;
    QTreeView* view_ = nullptr;
    QLabel* told_ = nullptr;
    QAbstractButton* paused_ = nullptr;
    QAbstractButton* all_ = nullptr;
};

} // namespace scenewright
