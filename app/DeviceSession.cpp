#include "app/DeviceSession.h"

#include "bank/BankFile.h"
#include "platform/Text.h"
#include "protocol/Transactions.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
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

namespace {

constexpr int kExitFailed = 1;

// What follows for an operation when nothing was moved, and when transfers failed.
struct Consequence {
    DeviceOperation operation{};
    SourceText ofNothing{};
    SourceText ofFailures = ofNothing;
};

constexpr std::array<Consequence, 7> kConsequences{{
    {DeviceOperation::ShowScenes, sourceText("scenewright::Outcome", "default scenes are shown"),
     sourceText("scenewright::Outcome",
                "{0} of the {1} bytes shown did not come from the keyboard")},
    {DeviceOperation::SaveScenes, sourceText("scenewright::Outcome", "no file was written")},
    {DeviceOperation::Backup,
     sourceText("scenewright::Outcome", "there is no backup and nothing was sent")},
    {DeviceOperation::Send, sourceText("scenewright::Outcome", "nothing was sent"),
     sourceText("scenewright::Outcome",
                "the keyboard may hold half a bank, and sending again repairs it")},
    {DeviceOperation::Verify,
     sourceText("scenewright::Outcome", "what was sent could not be checked")},
    {DeviceOperation::Compare, sourceText("scenewright::Outcome", "nothing was compared")},
    {DeviceOperation::DryRun,
     sourceText("scenewright::Outcome", "it is not known what would change")},
}};

// What a failed transfer met.
SourceText transferFailure(ResultCode code) {
    switch (code) {
    case kResultSuccess:
        return sourceText("scenewright::Outcome", "the answer was too short");
    case kResultNoDevice:
        return sourceText("scenewright::Outcome", "the keyboard was unplugged");
    case kResultStall:
        return sourceText("scenewright::Outcome", "the keyboard refused it");
    case kResultTimeout:
        return sourceText("scenewright::Outcome", "the keyboard did not answer");
    case kResultOverflow:
        return sourceText("scenewright::Outcome", "the answer was too long");
    case kResultNoMemory:
        return sourceText("scenewright::Outcome", "the system has no memory left");
    default:
        return sourceText("scenewright::Outcome", "the USB transfer failed");
    }
}

SourceText cureFor(ResultCode failure) {
    switch (failure) {
    case kResultNotPlugged:
        return sourceText("scenewright::Cause",
                          "No keyboard of the device list is plugged in: plug it in, or see what "
                          "'scenewright-cli devices' says about yours");
    case kResultNoList:
        return sourceText(
            "scenewright::Cause",
            "The list of keyboards, project.plist, cannot be read: mend or remove it");
    case kResultAccess:
        return sourceText(
            "scenewright::Cause",
            "You have no permission to use the keyboard: install the rule with "
            "'scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules', "
            "then plug the keyboard in again");
    case kResultBusy:
        return sourceText("scenewright::Cause",
                          "Another program is using the keyboard: close it and try again");
    case kResultNoDevice:
        return sourceText("scenewright::Cause",
                          "The keyboard was unplugged: plug it in and try again");
    case kResultNotFound:
        return sourceText(
            "scenewright::Cause",
            "The keyboard lacks the second USB interface that scenes travel on: check that it "
            "is the model that the device list names, and plug it in again");
    case kResultTimeout:
    case kResultStall:
    case kResultInputOutput:
        return sourceText(
            "scenewright::Cause",
            "The keyboard does not answer: unplug it, plug it in again and try again");
    case kResultOverflow:
        return sourceText("scenewright::Cause",
                          "The keyboard answers with longer transfers than scenes have: check that "
                          "it is the model that the device list names, and plug it in again");
    case kResultNoDriver:
        return sourceText("scenewright::Cause",
                          "The keyboard's MIDI port did not come back: plug the keyboard in again");
    case kResultNoMemory:
    case kResultNoThread:
        return sourceText("scenewright::Cause",
                          "The system is short of memory or threads: close other programs and try "
                          "again");
    default:
        return sourceText("scenewright::Cause",
                          "The USB system refused to work with the keyboard ({:08x}): plug it in "
                          "again, at another socket if that does not help");
    }
}

// Where the first failure happened. Before a read's first byte come the handshakes, as many as it
// took, and the read start with its reply.
std::string placeOf(DeviceOperation operation, const TransferStats::Failure& failure,
                    const TransferStats& stats) {
    if (operation == DeviceOperation::Send)
        return failure.isWrite ? translated(sourceText("scenewright::Outcome", "at packet {}"),
                                            failure.transfer)
                               : translated(sourceText("scenewright::Outcome", "at answer {}"),
                                            failure.transfer);
    constexpr std::uint32_t kWritesOfHandshake = 2;
    const std::uint32_t handshakes = std::max(stats.versionReads, 1U);
    const std::uint32_t before =
        (failure.isWrite ? kWritesOfHandshake * handshakes : handshakes) + 1;
    if (failure.transfer < before)
        return translated(sourceText("scenewright::Outcome", "before the first byte"));
    return translated(sourceText("scenewright::Outcome", "at byte {0} of {1}"),
                      failure.transfer - before, kBankSize);
}

std::string failedTransfers(DeviceOperation operation, const Outcome& outcome) {
    const TransferStats& stats = outcome.stats;
    if (!stats.first) // it was no transfer that failed
        return translated(sourceText("scenewright::Outcome", "The program could not go on"));
    return translated(
        sourceText("scenewright::Outcome", "{0} of {1} transfers failed, the first {2} ({3})"),
        stats.failedReads + stats.failedWrites, stats.reads + stats.writes,
        placeOf(operation, *stats.first, stats), translated(transferFailure(stats.first->code)));
}

std::string whatHappened(DeviceOperation operation, const Outcome& outcome) {
    switch (outcome.end) {
    case Outcome::End::NotConnected:
        return translated(sourceText("scenewright::Outcome", "The keyboard could not be reached"));
    case Outcome::End::NotStarted:
        if (outcome.cause == kResultBusy)
            return translated(sourceText("scenewright::Outcome", "A send is still running"));
        return translated(sourceText("scenewright::Outcome", "The transfer could not be started"));
    case Outcome::End::Unreliable:
        return failedTransfers(operation, outcome);
    case Outcome::End::Cancelled:
        return translated(sourceText("scenewright::Outcome", "The transfer was cancelled"));
    case Outcome::End::Done:
        break;
    }
    return {};
}

std::string consequenceOf(DeviceOperation operation, const Outcome& outcome) {
    const auto* const row = std::ranges::find(kConsequences, operation, &Consequence::operation);
    const bool hasMoved = outcome.stats.writes > 0;
    return hasMoved ? translated(row->ofFailures, unreliableBytes(outcome.stats), kBankSize)
                    : translated(row->ofNothing);
}

// Nothing where the sentence says it all.
bool hasCure(const Outcome& outcome) {
    if (outcome.end == Outcome::End::NotStarted)
        return outcome.cause != kResultBusy;
    return outcome.end == Outcome::End::NotConnected ||
           (outcome.end == Outcome::End::Unreliable && outcome.cause != kResultSuccess);
}

} // namespace

std::string OutcomeText::joined(std::string_view between) const {
    std::string text = sentence;
    for (const std::string& detail : details)
        text += fmt::format("{}{}", text.empty() ? "" : between, detail);
    return text;
}

OutcomeText textOf(DeviceOperation operation, const Outcome& outcome) {
    OutcomeText text;
    if (outcome.end != Outcome::End::Done)
        text.sentence =
            translated(sourceText("scenewright::Outcome", "{0}: {1}"),
                       whatHappened(operation, outcome), consequenceOf(operation, outcome));
    if (hasCure(outcome))
        text.details.push_back(causeAndCure(outcome.cause));
    text.details.insert(text.details.end(), outcome.notKept.begin(), outcome.notKept.end());
    if (outcome.release != kResultSuccess)
        text.details.push_back(causeAndCure(outcome.release));
    if (outcome.replacedBytes > 0)
        text.details.push_back(translated(
            sourceText("scenewright::Outcome",
                       "The keyboard holds values above 127, which scenes cannot hold; read as 0 "
                       "instead: {}"),
            outcome.replacedBytes));
    if (!outcome.isDone() || outcome.release != kResultSuccess)
        text.exitCode = kExitFailed;
    return text;
}

std::string comparisonText(DeviceOperation operation, std::size_t differences) {
    const bool isVerify = operation == DeviceOperation::Verify;
    if (differences == 0)
        return isVerify ? translated(sourceText("scenewright::Outcome",
                                                "The controller holds what was sent"))
                        : translated(sourceText("scenewright::Outcome",
                                                "The controller holds what you see"));
    if (!isVerify)
        return translated(sourceText("scenewright::Outcome", "Settings that differ: {}"),
                          differences);
    return translated(
        sourceText("scenewright::Outcome",
                   "The controller does not hold what was sent; settings that differ: {}"),
        differences);
}

std::string causeAndCure(ResultCode failure) {
    return translated(cureFor(failure), failure);
}

std::uint32_t unreliableBytes(const TransferStats& stats) {
    return std::min(std::max(stats.failedReads, stats.failedWrites),
                    static_cast<std::uint32_t>(kBankSize));
}

} // namespace scenewright
