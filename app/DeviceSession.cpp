#include "app/DeviceSession.h"

#include "app/KnownKeyboard.h"
#include "bank/BankFile.h"
#include "protocol/Transactions.h"

#include <utility>

namespace scenewright {

namespace {

// What the program has put around each transaction; kept to its end.
struct Around {
    std::function<void()> before;
    std::function<void()> after;
};

Around& around() {
    static Around state;
    return state;
}

void call(const std::function<void()>& hook) {
    if (hook)
        hook();
}

} // namespace

void DeviceSession::setAround(std::function<void()> before, std::function<void()> after) {
    around() = {std::move(before), std::move(after)};
}

void DeviceSession::read(const Ended& ended) {
    call(around().before);
    WindowAction::readSceneData([ended](const Outcome& read) {
        Outcome outcome = read;
        releaseKeyboard(outcome);
        call(around().after);
        KnownKeyboard::follow(outcome, storedImage());
        if (ended)
            ended(outcome);
    });
}

// What was sent is what the store holds now: it can be edited before the send ends.
void DeviceSession::send(const Ended& ended, const SceneSent& sceneSent) {
    call(around().before);
    const Ended follow = [ended, sent = storedImage()](const Outcome& outcome) {
        call(around().after);
        KnownKeyboard::follow(outcome, sent);
        if (ended)
            ended(outcome);
    };
    WindowAction::sendSceneData(follow, sceneSent); // its end releases the interface
}

ScenesRead DeviceSession::heldScenes() {
    if (SendJob::isRunning())
        return {.scenes = {}, .outcome = {.end = Outcome::End::NotStarted, .cause = kResultBusy}};
    call(around().before);
    MessageValue own; // whoever watches the user's command is told nothing of this one
    ScenesRead read = readScenes(own);
    releaseKeyboard(read.outcome);
    call(around().after);
    KnownKeyboard::follow(read.outcome,
                          read.scenes.empty() ? BankImage{} : encodeBank(read.scenes));
    return read;
}

BankImage storedImage() {
    return encodeBank(WindowAction::scenes());
}

BankImage defaultImage() {
    return encodeBank(WindowAction::defaultScenes());
}

std::vector<Difference> unsentChanges(const PopUpValue& lists) {
    const auto& known = KnownKeyboard::image();
    if (!known || *known == storedImage())
        return {};
    const auto held = readBankImage(*known);
    return held ? differences(lists, *held, WindowAction::scenes()) : std::vector<Difference>{};
}

DeviceComparison compareWithDevice(const PopUpValue& lists, const SceneList& bank) {
    ScenesRead held = DeviceSession::heldScenes();
    DeviceComparison comparison{.outcome = std::move(held.outcome), .differences = {}};
    if (comparison.outcome.end == Outcome::End::Done)
        comparison.differences = differences(lists, held.scenes, bank);
    return comparison;
}

} // namespace scenewright
