// A scene that is played here: gestures in, what the keyboard would send out. All that has been
// begun ends before another scene is played, when releaseAll() is called, and with the object.
//
// The bank is asked for at each gesture, so that what is edited is heard. One thread.
#pragma once

#include "protocol/SceneImage.h"
#include "virtual/Playing.h"

#include <functional>
#include <optional>

namespace scenewright {

class ScenePlayer {
public:
    using Bank = std::function<BankImage()>;
    using Send = std::function<void(const MidiMessage& message)>;

    // Plays scene 1 until it is told another.
    ScenePlayer(Bank bank, Send send);
    ~ScenePlayer();
    ScenePlayer(const ScenePlayer&) = delete;
    ScenePlayer& operator=(const ScenePlayer&) = delete;
    ScenePlayer(ScenePlayer&&) = delete;
    ScenePlayer& operator=(ScenePlayer&&) = delete;

    void play(const PlayOrder& order, PlayingTime now = PlayingTime::clock::now());
    // For slides: what is due by now, and when to call it again.
    void advance(PlayingTime now = PlayingTime::clock::now());
    [[nodiscard]] std::optional<PlayingTime> next() const { return playing_.next(); }
    void releaseAll();

private:
    void send(const Playing::Messages& messages) const;

    Bank bank_;
    Send send_;
    Playing playing_;
};

} // namespace scenewright
