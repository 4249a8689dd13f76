#include "app/DeviceSession.h"

#include "bank/BankFile.h"
#include "protocol/Transactions.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

// The process's one, kept to its end.
struct Known {
    std::optional<BankImage> image;
    std::string name;
    KnownKeyboard::Naming naming;
    std::vector<std::weak_ptr<const KnownKeyboard::Observer>> observers;
};

Known& known() {
    static Known state;
    return state;
}

void tell() {
    std::erase_if(known().observers, [](const auto& observer) { return observer.expired(); });
    // A copy, as an observer may begin and end observations.
    for (const auto& observer : std::vector(known().observers))
        if (const auto told = observer.lock())
            (*told)();
}

} // namespace

KnownKeyboard::Subscription KnownKeyboard::addObserver(Observer observer) {
    auto added = std::make_shared<const Observer>(std::move(observer));
    known().observers.push_back(added);
    return added;
}

const std::optional<BankImage>& KnownKeyboard::image() {
    return known().image;
}

const std::string& KnownKeyboard::name() {
    return known().name;
}

void KnownKeyboard::set(const BankImage& image, std::string name) {
    if (known().image == image && known().name == name)
        return;
    known().image = image;
    known().name = std::move(name);
    tell();
}

void KnownKeyboard::forget() {
    if (!known().image)
        return;
    known().image.reset();
    known().name.clear();
    tell();
}

void KnownKeyboard::follow(const Outcome& outcome, const BankImage& image) {
    switch (outcome.end) {
    case Outcome::End::Done:
        return set(image, pluggedInName());
    case Outcome::End::Unreliable:
    case Outcome::End::Cancelled:
        return forget();
    case Outcome::End::NotConnected:
    case Outcome::End::NotStarted:
        break;
    }
}

void KnownKeyboard::setNaming(Naming naming) {
    known().naming = std::move(naming);
}

std::string KnownKeyboard::pluggedInName() {
    return known().naming ? known().naming() : std::string();
}

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
