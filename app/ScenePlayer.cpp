#include "app/ScenePlayer.h"

#include <utility>

namespace scenewright {

ScenePlayer::ScenePlayer(Bank bank, Send send) : bank_(std::move(bank)), send_(std::move(send)) {}

ScenePlayer::~ScenePlayer() {
    releaseAll();
}

void ScenePlayer::play(const PlayOrder& order, PlayingTime now) {
    if (order.kind == PlayOrder::Kind::Scene)
        releaseAll();
    send(playing_.take(order, bank_(), now));
}

void ScenePlayer::advance(PlayingTime now) {
    if (next())
        send(playing_.advance(bank_(), now));
}

void ScenePlayer::releaseAll() {
    send(playing_.releaseAll());
}

void ScenePlayer::send(const Playing::Messages& messages) const {
    for (const MidiMessage& message : messages)
        send_(message);
}

} // namespace scenewright
