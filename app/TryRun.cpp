#include "app/TryRun.h"

#include "model/SceneValue.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

namespace scenewright {

namespace {

using Verdict = TryRun::Verdict;

// A note's end is one alone where it may have been on from before.
bool isTouch(const ControlOutput& expected, const MidiMessage& message) {
    return message.kind() == kController || (message.kind() == kNoteOn && message.second > 0) ||
           (expected.behavior == Behavior::Toggle && canSend(expected, message));
}

bool isSameSource(const MidiMessage& one, const MidiMessage& other) {
    return one.status == other.status && one.first == other.first;
}

std::string nameOf(bool isNote, std::uint8_t number, const Titles& noteNames) {
    if (!isNote)
        return fmt::format("CC {}", number);
    const std::string* const name = titleAt(noteNames, number);
    return translated(sourceText("scenewright::Try", "note {}"),
                      name != nullptr ? *name : fmt::format("{}", number));
}

std::string withChannel(const std::string& name, std::uint8_t channel) {
    return translated(sourceText("scenewright::Try", "{0}, ch {1}"), name, channel + 1);
}

std::string wrongText(const ControlOutput& expected, const MidiMessage& sent,
                      const Titles& noteNames) {
    std::string found = nameOf(sent.kind() == kNoteOn, sent.first, noteNames);
    std::string wanted = nameOf(expected.isNote, expected.number, noteNames);
    if (sent.channel() != expected.channel) {
        found = withChannel(found, sent.channel());
        wanted = withChannel(wanted, expected.channel);
    }
    return translated(sourceText("scenewright::Try", "sent {0}, expected {1}"), found, wanted);
}

std::string silenceText(Silence silence) {
    switch (silence) {
    case Silence::Off:
        return translated(sourceText("scenewright::Try", "sends nothing: it is off"));
    case Silence::NoteOutOfRange:
        return translated(sourceText(
            "scenewright::Try", "may send nothing: the transposition moves its note out of range"));
    case Silence::UnknownOption:
        return translated(
            sourceText("scenewright::Try", "sends nothing: it has a value that its list has not"));
    case Silence::Group:
    case Silence::NoControl:
        break;
    }
    return {};
}

struct Count {
    Verdict verdict;
    SourceText format;
};
constexpr std::array kCounts{
    Count{Verdict::Right, sourceText("scenewright::Try", "{} right")},
    Count{Verdict::Assumed, sourceText("scenewright::Try", "{} not as assumed")},
    Count{Verdict::Wrong, sourceText("scenewright::Try", "{} wrong")},
    Count{Verdict::Skipped, sourceText("scenewright::Try", "{} skipped")},
    Count{Verdict::Silent, sourceText("scenewright::Try", "{} passed over")},
    Count{Verdict::Open, sourceText("scenewright::Try", "{} not tried")},
};

} // namespace

TryRun::TryRun(const SceneValue& scene) {
    for (std::int32_t control = controlRange(ControlKind::Knob).start; control < kControlIndexEnd;
         ++control) {
        auto expected = controlOutput(scene, control);
        const Verdict verdict = expected ? Verdict::Open : Verdict::Silent;
        rows_.push_back({.control = control, .expected = expected, .verdict = verdict});
    }
    passSilent();
}

const TryRun::Row* TryRun::next() const {
    return place_ < rows_.size() ? &rows_[place_] : nullptr;
}

const TryRun::Row* TryRun::take(const MidiMessage& message, Time now) {
    if (next() == nullptr || !isTouch(*next()->expected, message) || isRest(message, now))
        return nullptr;
    Row& row = rows_[place_];
    const Fit fit = fitOf(*row.expected, message);
    row.verdict = fit == Fit::Whole     ? Verdict::Right
                  : fit == Fit::Assumed ? Verdict::Assumed
                                        : Verdict::Wrong;
    row.sent = message;
    touch_ = message;
    lastOfTouch_ = now;
    awaitsOff_ = !row.expected->isTravel && row.expected->behavior == Behavior::Momentary &&
                 message.kind() == kController;
    ++place_;
    passSilent();
    return &row;
}

bool TryRun::isRest(const MidiMessage& message, Time now) {
    if (!isSameSource(message, touch_))
        return false;
    const bool isPrompt = now - lastOfTouch_ < kPause;
    lastOfTouch_ = now;
    return std::exchange(awaitsOff_, false) || isPrompt;
}

void TryRun::skip() {
    if (place_ == rows_.size())
        return;
    rows_[place_++].verdict = Verdict::Skipped;
    passSilent();
}

void TryRun::again() {
    for (std::size_t place = place_; place-- > 0;)
        if (rows_[place].verdict != Verdict::Silent) {
            rows_[place].verdict = Verdict::Open;
            place_ = place;
            touch_ = {};
            return;
        }
}

std::size_t TryRun::count(Verdict verdict) const {
    return static_cast<std::size_t>(std::ranges::count(rows_, verdict, &Row::verdict));
}

void TryRun::passSilent() {
    while (place_ < rows_.size() && rows_[place_].verdict == Verdict::Silent)
        ++place_;
}

std::string expectedText(const TryRun::Row& row, const Titles& noteNames) {
    if (!row.expected)
        return {};
    return withChannel(nameOf(row.expected->isNote, row.expected->number, noteNames),
                       row.expected->channel);
}

std::string verdictText(const TryRun::Row& row, const Titles& noteNames) {
    switch (row.verdict) {
    case Verdict::Open:
        break;
    case Verdict::Right:
        return translated(sourceText("scenewright::Try", "sent {}"),
                          messageText(row.sent, noteNames));
    case Verdict::Assumed:
        return translated(sourceText("scenewright::Try", "sent {}, not quite as is assumed"),
                          messageText(row.sent, noteNames));
    case Verdict::Wrong:
        return wrongText(*row.expected, row.sent, noteNames);
    case Verdict::Skipped:
        return translated(sourceText("scenewright::Try", "skipped"));
    case Verdict::Silent:
        return silenceText(row.expected.error());
    }
    return {};
}

std::string reportText(const TryRun& run) {
    std::string text;
    for (const Count& row : kCounts)
        if (const std::size_t count = run.count(row.verdict); count > 0)
            text += (text.empty() ? "" : ", ") + translated(row.format, count);
    return text;
}

} // namespace scenewright
