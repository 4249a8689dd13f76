// The window as a keyboard: while it plays, the picture's controls and the computer's keys send
// what the scene makes them send, and a bar below the picture says where to.
#pragma once

#include "editor/qt/MainWindow.h"
#include "editor/qt/MidiPorts.h"
#include "editor/qt/NoticeBar.h"

#include <QAction>
#include <QFrame>
#include <QKeyEvent>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

namespace scenewright {

// Main thread only. The window outlives it, though it is its parent.
class PlayBar final : public QFrame {
    Q_OBJECT

public:
    using Open = std::function<Result<std::unique_ptr<PlayOutput>>()>;

    explicit PlayBar(MainWindow& window);
    ~PlayBar() override;
    Q_DISABLE_COPY_MOVE(PlayBar)

    // One more output. The action starts and stops playing into it; it is a child of the bar.
    [[nodiscard]] QAction& add(const QString& title, Open open);

protected:
    // Of the program while it plays.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void start(QAction& action, const Open& open);
    void stop();
    void setPicturePlays(bool plays);
    void follow();
    void process();
    void releaseAll();
    void play(PlayOrder::Kind kind, std::int32_t control, int value = 0);
    void turn(std::int32_t control, qreal share);
    void send(const MidiMessage& message);
    [[nodiscard]] bool takesKeys(const QObject* watched) const;
    void press(const QKeyEvent& event);
    [[nodiscard]] bool isStillHeld(const QKeyEvent& event);
    [[nodiscard]] bool release(const QKeyEvent& event);
    void playReleased();
    void showState();

    MainWindow& window_;
    std::unique_ptr<PlayOutput> output_; // both null while it does not play
    std::unique_ptr<ScenePlayer> player_;
    std::unique_ptr<QSocketNotifier> notifier_;
    QAction* action_ = nullptr; // what it was started by
    std::int32_t scene_ = 0;
    std::int32_t octave_ = 0;
    int velocity_ = 100;
    struct Held {
        std::int32_t control = 0;
        std::uint64_t releasedAt = 0; // by the system's clock; 0 while it is down
    };
    std::map<std::uint32_t, Held> held_; // by computer key
    QTimer released_;                    // until those are played that were not pressed again
    // Children; null before it has played.
    SpokenText* where_ = nullptr;
    SpokenText* keys_ = nullptr;
    NoticeText* last_ = nullptr;
};

} // namespace scenewright
