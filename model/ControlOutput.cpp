#include "model/ControlOutput.h"

#include "model/SceneValue.h"
#include "model/Setting.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>

namespace scenewright {

namespace {

using Output = tl::expected<ControlOutput, Silence>;
using Messages = std::vector<MidiMessage>;

constexpr std::int32_t kGlobalChannel = 16; // the option after the channels
constexpr std::int32_t kChannelCount = 16;
constexpr std::int32_t kOctave = 12; // semitones
constexpr std::array<std::int32_t, 9> kOctaves{0, 1, 2, 3, 4, -1, -2, -3, -4};

// What a press and a release do.
enum class Step : std::uint8_t {
    None,
    On,   // begins what the off ends
    Off,  // ends what has been begun
    Flip, // on when it is off, off when it is on
    Once, // the on alone; a note ends at once
};
struct BehaviorSteps {
    Step press;
    Step release;
};
constexpr std::array<BehaviorSteps, 4> kBehaviors{{
    {Step::On, Step::Off},    // momentary
    {Step::Flip, Step::None}, // toggle
    {Step::Once, Step::None}, // trigger
    {Step::None, Step::Once}, // release
}};
constexpr std::int32_t kCurveCount = 4;

constexpr bool isDataByte(std::int32_t value) {
    return value >= 0 && value <= kLargestDataByte;
}

std::uint8_t byteOf(std::int32_t value) {
    return static_cast<std::uint8_t>(value);
}

// Puts the channel that the option stands for into the output.
Output onChannel(ControlOutput output, const CommonValue& common, std::int32_t option) {
    const std::int32_t channel = option == kGlobalChannel ? common.GlobalMIDICh() : option;
    if (channel < 0 || channel >= kChannelCount)
        return tl::unexpected(Silence::UnknownOption);
    output.channel = byteOf(channel);
    return output;
}

// Where pads and keys differ.
struct PlayedSettings {
    std::int32_t behavior;
    std::int32_t channel;
    std::int32_t curve;
    std::int32_t constantVelocity;
    std::int32_t octaves; // place in kOctaves
};

Output travelOutput(const ButtonValue& record, const CommonValue& common,
                    std::int32_t channelOption) {
    if (record.Enable() == 0)
        return tl::unexpected(Silence::Off);
    for (const std::int32_t value :
         {record.CCOrNoteNumber(), record.LowerOrLeftValue(), record.UpperOrRightValue()})
        if (!isDataByte(value))
            return tl::unexpected(Silence::UnknownOption);
    return onChannel({.number = byteOf(record.CCOrNoteNumber()),
                      .low = byteOf(record.LowerOrLeftValue()),
                      .high = byteOf(record.UpperOrRightValue()),
                      .isTravel = true},
                     common, channelOption);
}

Output noteOutput(const ButtonValue& record, const CommonValue& common,
                  const PlayedSettings& settings) {
    if (settings.octaves < 0 || settings.octaves >= std::ssize(kOctaves) || settings.curve < 0 ||
        settings.curve >= kCurveCount || !isDataByte(settings.constantVelocity) ||
        !isDataByte(record.CCOrNoteNumber()))
        return tl::unexpected(Silence::UnknownOption);
    const std::int32_t note =
        record.CCOrNoteNumber() + kOctave * kOctaves.at(static_cast<std::size_t>(settings.octaves));
    if (!isDataByte(note))
        return tl::unexpected(Silence::NoteOutOfRange);
    return onChannel({.isNote = true,
                      .isTransposed = note != record.CCOrNoteNumber(),
                      .number = byteOf(note),
                      .behavior = static_cast<Behavior>(settings.behavior),
                      .curve = static_cast<VelocityCurve>(settings.curve),
                      .constantVelocity = byteOf(settings.constantVelocity)},
                     common, settings.channel);
}

Output pressedOutput(const ButtonValue& record, const CommonValue& common,
                     const PlayedSettings& settings) {
    if (record.AssignType() == kAssignOff)
        return tl::unexpected(Silence::Off);
    if (settings.behavior < 0 || settings.behavior >= std::ssize(kBehaviors))
        return tl::unexpected(Silence::UnknownOption);
    if (record.AssignType() == kAssignNote)
        return noteOutput(record, common, settings);
    if (record.AssignType() != kAssignController || !isDataByte(record.CCOrNoteNumber()) ||
        !isDataByte(record.OnValue()) || !isDataByte(record.OffValue()))
        return tl::unexpected(Silence::UnknownOption);
    return onChannel({.number = byteOf(record.CCOrNoteNumber()),
                      .low = byteOf(record.OffValue()),
                      .high = byteOf(record.OnValue()),
                      .behavior = static_cast<Behavior>(settings.behavior)},
                     common, settings.channel);
}

std::uint8_t velocityOf(const ControlOutput& output, std::uint8_t velocity) {
    constexpr double kMost = kLargestDataByte;
    switch (output.curve) {
    case VelocityCurve::Soft:
        return byteOf(static_cast<std::int32_t>(std::lround(std::sqrt(velocity * kMost))));
    case VelocityCurve::Normal:
        break;
    case VelocityCurve::Hard: // never 0, which would be a note off
        return byteOf(std::max(1, static_cast<std::int32_t>(std::lround(
                                      static_cast<double>(velocity) * velocity / kMost))));
    case VelocityCurve::Constant:
        return output.constantVelocity;
    }
    return velocity;
}

MidiMessage controllerMessage(const ControlOutput& output, std::uint8_t value) {
    return {byteOf(kController | output.channel), output.number, value};
}

MidiMessage onMessage(const ControlOutput& output, std::uint8_t velocity) {
    if (!output.isNote)
        return controllerMessage(output, output.high);
    return {byteOf(kNoteOn | output.channel), output.number, velocityOf(output, velocity)};
}

MidiMessage offMessage(const ControlOutput& output) {
    if (!output.isNote)
        return controllerMessage(output, output.low);
    return {byteOf(kNoteOff | output.channel), output.number, 0};
}

Messages moved(const ControlOutput& output, std::uint8_t travel) {
    const double share = static_cast<double>(travel) / kLargestDataByte;
    return {controllerMessage(output, byteOf(static_cast<std::int32_t>(std::lround(
                                          output.low + share * (output.high - output.low)))))};
}

// Ends what has been begun, if anything has.
Messages end(ControlState& state) {
    const auto ending = std::exchange(state.ending, std::nullopt);
    return ending ? Messages{*ending} : Messages{};
}

Messages take(Step step, const ControlOutput& output, ControlState& state) {
    if (step == Step::Off || (step == Step::Flip && state.ending))
        return end(state);
    if (step == Step::None)
        return {};
    if (step == Step::Once) {
        Messages sent{onMessage(output, state.velocity)};
        if (output.isNote)
            sent.push_back(offMessage(output));
        return sent;
    }
    Messages sent = end(state); // of a press whose release has been missed
    sent.push_back(onMessage(output, state.velocity));
    state.ending = offMessage(output);
    return sent;
}

} // namespace

tl::expected<ControlOutput, Silence> controlOutput(const SceneValue& scene, std::int32_t control) {
    const ControlRange* const range = controlRangeOf(control);
    const ButtonValue* const record = recordAt(scene, control);
    const CommonValue* const common = scene.commonValue().get();
    if (range == nullptr || record == nullptr || common == nullptr)
        return tl::unexpected(Silence::NoControl);
    switch (range->kind) {
    case ControlKind::Knob:
    case ControlKind::Slider: {
        const ButtonValue* const group =
            recordAt(scene, controlRange(ControlKind::Group).start + control - range->start);
        return group == nullptr ? tl::unexpected(Silence::NoControl)
                                : travelOutput(*record, *common, group->MIDIChannel());
    }
    case ControlKind::Pad:
        return pressedOutput(*record, *common,
                             {.behavior = record->PadBehavior(),
                              .channel = record->MIDIChannel(),
                              .curve = common->PadVelocityCurve(),
                              .constantVelocity = common->PadConstVelocity(),
                              .octaves = 0});
    case ControlKind::Key:
        return pressedOutput(*record, *common,
                             {.behavior = record->KeyBehavior(),
                              .channel = common->PianoKeyCh(),
                              .curve = common->KeyVelocityCurve(),
                              .constantVelocity = common->KeyConstVelocity(),
                              .octaves = common->KeyTranspose()});
    case ControlKind::Common:
    case ControlKind::Group:
        break;
    }
    return tl::unexpected(Silence::Group);
}

bool canSend(const ControlOutput& output, const MidiMessage& message) {
    if (message.channel() != output.channel || message.first != output.number)
        return false;
    if (output.isNote)
        return message.kind() == kNoteOn || message.kind() == kNoteOff;
    if (message.kind() != kController)
        return false;
    if (output.isTravel)
        return message.second >= std::min(output.low, output.high) &&
               message.second <= std::max(output.low, output.high);
    const bool sendsOff =
        output.behavior == Behavior::Momentary || output.behavior == Behavior::Toggle;
    return message.second == output.high || (sendsOff && message.second == output.low);
}

Fit fitOf(const ControlOutput& output, const MidiMessage& message) {
    if (canSend(output, message))
        return Fit::Whole;
    const bool isNote = message.kind() == kNoteOn || message.kind() == kNoteOff;
    if (isNote != output.isNote || (!isNote && message.kind() != kController))
        return Fit::None;
    const bool hasNumber = message.first == output.number || output.isTransposed;
    const bool hasChannel = message.channel() == output.channel || output.isTravel;
    return hasNumber && hasChannel ? Fit::Assumed : Fit::None;
}

std::vector<std::int32_t> controlsSending(const SceneValue& scene, const MidiMessage& message) {
    std::vector<std::int32_t> controls;
    for (std::int32_t control = 1; control < kControlIndexEnd; ++control)
        if (const auto output = controlOutput(scene, control); output && canSend(*output, message))
            controls.push_back(control);
    return controls;
}

std::vector<MidiMessage> messagesOf(const SceneValue& scene, std::int32_t control, Gesture gesture,
                                    ControlState& state) {
    const Output output = controlOutput(scene, control);
    const bool isMove = gesture.kind == Gesture::Kind::Move;
    if (output && (output->isTravel != isMove || !isDataByte(gesture.value)))
        return {};
    if (isMove)
        return output ? moved(*output, gesture.value) : Messages{};
    const bool isPress = gesture.kind == Gesture::Kind::Press;
    if (isPress)
        state.velocity = gesture.value;
    if (!output)
        return end(state);
    const BehaviorSteps& steps = kBehaviors.at(static_cast<std::size_t>(output->behavior));
    return take(isPress ? steps.press : steps.release, *output, state);
}

std::string outputName(const PopUpValue& lists, const ControlOutput& output) {
    if (!output.isNote) {
        const std::string_view name = shortName(controllerNames()[output.number]);
        return fmt::format("CC {}{}{}", output.number, name.empty() ? "" : " ", name);
    }
    std::string text = fmt::format("MIDI {}", output.number);
    if (const std::string* const title = titleAt(lists.display_NoteNumber_Array(), output.number))
        text += " " + *title;
    const std::string_view name = percussionNames()[output.number];
    if (output.channel == kPercussionChannel && !name.empty())
        text += fmt::format(", {}", name);
    return text;
}

} // namespace scenewright
