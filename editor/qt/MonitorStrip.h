// The monitor: a strip under the picture that shows what the keyboard sends, in words, and which
// control of the scenes sends it. The control lights up on the picture meanwhile, and a knob or
// slider stands where it was moved to.
#pragma once

#include "app/KeyboardListener.h"
#include "editor/qt/MainWindow.h"

#include <QAbstractButton>
#include <QAbstractTableModel>
#include <QFrame>
#include <QLabel>
#include <QSocketNotifier>
#include <QSortFilterProxyModel>
#include <QTimer>
#include <QTreeView>

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <set>
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

// Main thread only. The window outlives it.
class MonitorStrip final : public QFrame {
    Q_OBJECT

public:
    using Open = std::function<Result<std::unique_ptr<Sequencer>>()>;

    // The sequencer is opened when the strip is first shown; the machine's and its keyboards where
    // none are given.
    explicit MonitorStrip(MainWindow& window, Open open = nullptr,
                          KeyboardConnections::Keyboards keyboards = nullptr);
    ~MonitorStrip() override;
    MonitorStrip(const MonitorStrip&) = delete;
    MonitorStrip& operator=(const MonitorStrip&) = delete;
    MonitorStrip(MonitorStrip&&) = delete;
    MonitorStrip& operator=(MonitorStrip&&) = delete;

    // Of the View menu; checked while the strip is there.
    [[nodiscard]] QAction& action() { return *action_; }
    // What is touched on the keyboard is chosen in the window.
    [[nodiscard]] QAction& chooseAction() { return *choose_; }
    [[nodiscard]] MonitorLines& lines() { return lines_; }

    // Takes what has come in.
    void take();
    // Shows what was taken, as the strip does by itself some times a second.
    void show();

private:
    [[nodiscard]] static Result<std::unique_ptr<Sequencer>> openMachines();
    void layOut();
    void turn(bool isOn);
    bool listen();
    [[nodiscard]] MonitorLines::Line lineOf(const MidiMessage& message, const QString& time) const;
    void light(const MidiMessage& message);
    void chooseSender(const MidiMessage& message);
    void copy() const;

    MainWindow& window_;
    Open open_;
    KeyboardConnections::Keyboards keyboards_;
    std::unique_ptr<Sequencer> sequencer_;
    std::unique_ptr<KeyboardListener> listener_;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::vector<MidiMessage> taken_; // and not shown yet
    QTimer pause_;                   // between two looks at it
    QTimer dark_;                    // after the last controller's message
    std::set<std::int32_t> lit_;     // the controls of these
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
