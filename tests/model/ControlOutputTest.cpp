#include "model/ControlOutput.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace scenewright {
namespace {

using Messages = std::vector<MidiMessage>;
using enum Gesture::Kind;

constexpr std::int32_t kGroup2 = 2;
constexpr std::int32_t kKnob1 = 5;
constexpr std::int32_t kKnob2 = 6;
constexpr std::int32_t kSlider4 = 12;
constexpr std::int32_t kPad1 = 13;
constexpr std::int32_t kKey1 = 21;
constexpr std::int32_t kKey25 = 45;

constexpr std::int32_t kGlobal = 16;
constexpr std::int32_t kNote = 2;

struct Played : SceneValue {
    Played() {
        auto common = std::make_shared<CommonValue>();
        common->setGlobalMIDICh(4); // channel 5
        common->setPianoKeyCh(kGlobal);
        common->setKeyVelocityCurve(1);
        common->setPadVelocityCurve(1);
        setCommonValue(common);
        std::vector<std::shared_ptr<ButtonValue>> buttons;
        for (std::int32_t control = 1; control <= 45; ++control) {
            auto button = std::make_shared<ButtonValue>();
            button->setEnable(1);
            button->setAssignType(control >= kPad1 ? kNote : 0);
            button->setCCOrNoteNumber(30 + control);
            button->setUpperOrRightValue(127);
            button->setOnValue(127);
            buttons.push_back(button);
        }
        setButtonValueArray(buttons);
    }
    [[nodiscard]] ButtonValue& at(std::int32_t control) const {
        return *buttonValueArray()[static_cast<std::size_t>(control - 1)];
    }
    [[nodiscard]] CommonValue& common() const { return *commonValue(); }
};

using Change = std::function<void(const Played&)>;

struct Row {
    const char* what;
    std::int32_t control;
    Change change;
    std::vector<Gesture> gestures;
    Messages sent;
};

void controllerPad(const Played& scene, std::int32_t behavior) {
    scene.at(kPad1).setAssignType(1);
    scene.at(kPad1).setOnValue(100);
    scene.at(kPad1).setOffValue(20);
    scene.at(kPad1).setPadBehavior(behavior);
}

const std::vector<Gesture> kTwice{{Press, 90}, {Release}, {Press, 80}, {Release}};

const std::vector<Row> kRows{
    {"a momentary note",
     kPad1,
     [](const Played&) {},
     kTwice,
     {{0x90, 43, 90}, {0x80, 43, 0}, {0x90, 43, 80}, {0x80, 43, 0}}},
    {"a toggled note",
     kPad1,
     [](const Played& scene) { scene.at(kPad1).setPadBehavior(1); },
     kTwice,
     {{0x90, 43, 90}, {0x80, 43, 0}}},
    {"a triggered note",
     kPad1,
     [](const Played& scene) { scene.at(kPad1).setPadBehavior(2); },
     kTwice,
     {{0x90, 43, 90}, {0x80, 43, 0}, {0x90, 43, 80}, {0x80, 43, 0}}},
    {"a note at the release, with the velocity of its press",
     kPad1,
     [](const Played& scene) { scene.at(kPad1).setPadBehavior(3); },
     {{Press, 90}, {Release}, {Press, 80}},
     {{0x90, 43, 90}, {0x80, 43, 0}}},
    {"a momentary controller, whatever the velocity",
     kPad1,
     [](const Played& scene) { controllerPad(scene, 0); },
     kTwice,
     {{0xB0, 43, 100}, {0xB0, 43, 20}, {0xB0, 43, 100}, {0xB0, 43, 20}}},
    {"a toggled controller",
     kPad1,
     [](const Played& scene) { controllerPad(scene, 1); },
     kTwice,
     {{0xB0, 43, 100}, {0xB0, 43, 20}}},
    {"a triggered controller, which is never off",
     kPad1,
     [](const Played& scene) { controllerPad(scene, 2); },
     kTwice,
     {{0xB0, 43, 100}, {0xB0, 43, 100}}},
    {"a controller at the release",
     kPad1,
     [](const Played& scene) { controllerPad(scene, 3); },
     {{Press, 90}, {Release}},
     {{0xB0, 43, 100}}},
    {"a press whose release was missed ends first",
     kPad1,
     [](const Played&) {},
     {{Press, 90}, {Press, 80}},
     {{0x90, 43, 90}, {0x80, 43, 0}, {0x90, 43, 80}}},
    {"a release without its press", kPad1, [](const Played&) {}, {{Release}}, {}},
    {"a pad on its own channel",
     kPad1,
     [](const Played& scene) { scene.at(kPad1).setMIDIChannel(9); },
     {{Press, 1}},
     {{0x99, 43, 1}}},
    {"a pad on the global channel",
     kPad1,
     [](const Played& scene) { scene.at(kPad1).setMIDIChannel(kGlobal); },
     {{Press, 1}},
     {{0x94, 43, 1}}},
    {"a pad is not transposed",
     kPad1,
     [](const Played& scene) { scene.common().setKeyTranspose(1); },
     {{Press, 1}},
     {{0x90, 43, 1}}},
    {"a key on the global channel", kKey1, [](const Played&) {}, {{Press, 1}}, {{0x94, 51, 1}}},
    {"a key on the keyboard channel, not its own",
     kKey1,
     [](const Played& scene) {
         scene.common().setPianoKeyCh(15);
         scene.at(kKey1).setMIDIChannel(3);
     },
     {{Press, 1}},
     {{0x9F, 51, 1}}},
    {"a key four octaves up",
     kKey25,
     [](const Played& scene) { scene.common().setKeyTranspose(4); },
     {{Press, 1}, {Release}},
     {{0x94, 123, 1}, {0x84, 123, 0}}},
    {"a key four octaves down",
     kKey1,
     [](const Played& scene) { scene.common().setKeyTranspose(8); },
     {{Press, 1}},
     {{0x94, 3, 1}}},
    {"a key that sends a controller is not transposed",
     kKey1,
     [](const Played& scene) {
         scene.common().setKeyTranspose(4);
         scene.at(kKey1).setAssignType(1);
     },
     {{Press, 1}, {Release}},
     {{0xB4, 51, 127}, {0xB4, 51, 0}}},
    {"a key has its own behavior",
     kKey1,
     [](const Played& scene) { scene.at(kKey1).setKeyBehavior(1); },
     kTwice,
     {{0x94, 51, 90}, {0x84, 51, 0}}},
    {"a soft curve",
     kPad1,
     [](const Played& scene) { scene.common().setPadVelocityCurve(0); },
     {{Press, 1}, {Press, 64}, {Press, 127}},
     {{0x90, 43, 11}, {0x80, 43, 0}, {0x90, 43, 90}, {0x80, 43, 0}, {0x90, 43, 127}}},
    {"a hard curve",
     kPad1,
     [](const Played& scene) { scene.common().setPadVelocityCurve(2); },
     {{Press, 1}, {Press, 64}, {Press, 127}},
     {{0x90, 43, 1}, {0x80, 43, 0}, {0x90, 43, 32}, {0x80, 43, 0}, {0x90, 43, 127}}},
    {"pads of constant velocity",
     kPad1,
     [](const Played& scene) {
         scene.common().setPadVelocityCurve(3);
         scene.common().setPadConstVelocity(77);
         scene.common().setKeyConstVelocity(11);
     },
     {{Press, 1}},
     {{0x90, 43, 77}}},
    {"keys of constant velocity",
     kKey1,
     [](const Played& scene) {
         scene.common().setKeyVelocityCurve(3);
         scene.common().setPadConstVelocity(77);
         scene.common().setKeyConstVelocity(11);
     },
     {{Press, 1}},
     {{0x94, 51, 11}}},
    {"a knob, on the channel of its group",
     kKnob2,
     [](const Played& scene) { scene.at(kGroup2).setMIDIChannel(2); },
     {{Move, 0}, {Move, 64}, {Move, 127}},
     {{0xB2, 36, 0}, {0xB2, 36, 64}, {0xB2, 36, 127}}},
    {"a slider, on the global channel by its group",
     kSlider4,
     [](const Played& scene) {
         scene.at(4).setMIDIChannel(kGlobal);
         scene.at(kSlider4).setLowerOrLeftValue(100);
         scene.at(kSlider4).setUpperOrRightValue(20);
     },
     {{Move, 0}, {Move, 1}, {Move, 64}, {Move, 127}},
     {{0xB4, 42, 100}, {0xB4, 42, 99}, {0xB4, 42, 60}, {0xB4, 42, 20}}},
    {"a knob with one end of travel",
     kKnob1,
     [](const Played& scene) { scene.at(kKnob1).setLowerOrLeftValue(127); },
     {{Move, 0}, {Move, 127}},
     {{0xB0, 35, 127}, {0xB0, 35, 127}}},
    {"a knob is not pressed", kKnob1, [](const Played&) {}, {{Press, 90}, {Release}}, {}},
    {"a pad is not moved", kPad1, [](const Played&) {}, {{Move, 90}}, {}},
};

std::string shown(const Messages& messages) {
    std::string text;
    for (const MidiMessage& message : messages)
        text += messageText(message, nullptr) + "; ";
    return text;
}

Messages played(const Row& row) {
    const Played scene;
    row.change(scene);
    ControlState state;
    Messages sent;
    for (const Gesture& gesture : row.gestures)
        for (const MidiMessage& message : messagesOf(scene, row.control, gesture, state))
            sent.push_back(message);
    return sent;
}

TEST(ControlOutput, EachGestureSendsWhatTheTableHas) {
    for (const Row& row : kRows)
        EXPECT_EQ(shown(played(row)), shown(row.sent)) << row.what;
}

TEST(ControlOutput, WhatSendsNothingSaysWhy) {
    struct SilentRow {
        Silence why;
        std::int32_t control;
        Change change;
    };
    const std::vector<SilentRow> rows{
        {Silence::Group, kGroup2, [](const Played&) {}},
        {Silence::Off, kKnob1, [](const Played& s) { s.at(kKnob1).setEnable(0); }},
        {Silence::Off, kPad1, [](const Played& s) { s.at(kPad1).setAssignType(0); }},
        {Silence::Off, kKey1, [](const Played& s) { s.at(kKey1).setAssignType(0); }},
        {Silence::NoteOutOfRange, kKey1,
         [](const Played& s) {
             s.common().setKeyTranspose(8);
             s.at(kKey1).setCCOrNoteNumber(47);
         }},
        {Silence::NoteOutOfRange, kKey1,
         [](const Played& s) {
             s.common().setKeyTranspose(1);
             s.at(kKey1).setCCOrNoteNumber(116);
         }},
        {Silence::UnknownOption, kPad1, [](const Played& s) { s.at(kPad1).setAssignType(3); }},
        {Silence::UnknownOption, kPad1, [](const Played& s) { s.at(kPad1).setPadBehavior(4); }},
        {Silence::UnknownOption, kPad1, [](const Played& s) { s.at(kPad1).setMIDIChannel(17); }},
        {Silence::UnknownOption, kPad1, [](const Played& s) { s.at(kPad1).setMIDIChannel(-1); }},
        {Silence::UnknownOption, kPad1, [](const Played& s) { s.common().setPadVelocityCurve(4); }},
        {Silence::UnknownOption, kPad1, [](const Played& s) { s.at(kPad1).setCCOrNoteNumber(-1); }},
        {Silence::UnknownOption, kPad1,
         [](const Played& s) {
             s.at(kPad1).setAssignType(1);
             s.at(kPad1).setOnValue(128);
         }},
        {Silence::UnknownOption, kKey1, [](const Played& s) { s.common().setKeyTranspose(9); }},
        {Silence::UnknownOption, kKey1, [](const Played& s) { s.common().setGlobalMIDICh(16); }},
        {Silence::UnknownOption, kKnob1,
         [](const Played& s) { s.at(kKnob1).setLowerOrLeftValue(128); }},
        {Silence::NoControl, 0, [](const Played&) {}},
        {Silence::NoControl, 46, [](const Played&) {}},
    };
    for (const SilentRow& row : rows) {
        const Played scene;
        row.change(scene);
        const auto output = controlOutput(scene, row.control);
        ASSERT_FALSE(output) << &row - rows.data();
        EXPECT_EQ(output.error(), row.why) << &row - rows.data();
        ControlState state;
        for (const Gesture gesture : {Gesture{Press, 90}, Gesture{Release}, Gesture{Move, 90}})
            EXPECT_TRUE(messagesOf(scene, row.control, gesture, state).empty());
    }
    EXPECT_EQ(controlOutput(SceneValue(), kPad1).error(), Silence::NoControl);
}

TEST(ControlOutput, WhatSoundsEndsAsItBeganAfterTheSceneHasChanged) {
    const Played scene;
    ControlState state;
    EXPECT_EQ(messagesOf(scene, kKey1, {Press, 90}, state), (Messages{{0x94, 51, 90}}));
    scene.common().setKeyTranspose(1);
    scene.common().setPianoKeyCh(0);
    EXPECT_EQ(messagesOf(scene, kKey1, {Release}, state), (Messages{{0x84, 51, 0}}));
    EXPECT_EQ(messagesOf(scene, kKey1, {Press, 90}, state), (Messages{{0x90, 63, 90}}));
    scene.at(kKey1).setAssignType(0);
    EXPECT_EQ(messagesOf(scene, kKey1, {Release}, state), (Messages{{0x80, 63, 0}}));
}

TEST(ControlOutput, WhatDiffersInAnAssumptionAloneIsToldApart) {
    const Played scene;
    scene.at(kKnob1).setUpperOrRightValue(100);
    controllerPad(scene, 0);
    scene.common().setPianoKeyCh(0);
    const auto fit = [&scene](std::int32_t control, const MidiMessage& message) {
        return fitOf(controlOutput(scene, control).value(), message);
    };
    struct FitRow {
        std::int32_t control;
        MidiMessage message;
        Fit fit;
    };
    const std::vector<FitRow> rows{
        {kKnob1, {0xB0, 35, 100}, Fit::Whole},   {kKnob1, {0xB3, 35, 100}, Fit::Assumed},
        {kKnob1, {0xB0, 35, 101}, Fit::Assumed}, {kKnob1, {0xB0, 36, 100}, Fit::None},
        {kKnob1, {0x90, 35, 100}, Fit::None},    {kPad1, {0xB0, 43, 100}, Fit::Whole},
        {kPad1, {0xB0, 43, 50}, Fit::Assumed},   {kPad1, {0xB1, 43, 100}, Fit::None},
        {kKey1, {0x90, 51, 5}, Fit::Whole},      {kKey1, {0x90, 52, 5}, Fit::None},
        {kKey1, {0x91, 51, 5}, Fit::None},       {kKey1, {0xB0, 51, 5}, Fit::None},
    };
    for (const FitRow& row : rows)
        EXPECT_EQ(fit(row.control, row.message), row.fit) << messageText(row.message, nullptr);
    scene.common().setKeyTranspose(1);
    EXPECT_EQ(fit(kKey1, {0x90, 63, 5}), Fit::Whole);
    EXPECT_EQ(fit(kKey1, {0x90, 52, 5}), Fit::Assumed);
    EXPECT_EQ(fit(kKey1, {0x91, 63, 5}), Fit::None);
}

TEST(ControlOutput, ControlsThatSendAMessageAreFound) {
    const Played scene;
    controllerPad(scene, 0);
    scene.at(kPad1).setCCOrNoteNumber(36); // as knob 2
    scene.at(kKnob2).setLowerOrLeftValue(110);
    scene.at(kKnob2).setUpperOrRightValue(90);
    scene.common().setPianoKeyCh(0);
    scene.at(kKey25).setCCOrNoteNumber(51); // as key 1
    struct FoundRow {
        MidiMessage message;
        std::vector<std::int32_t> controls;
    };
    const std::vector<FoundRow> rows{
        {{0xB0, 36, 100}, {kKnob2, kPad1}},
        {{0xB0, 36, 20}, {kPad1}},
        {{0xB0, 36, 90}, {kKnob2}},
        {{0xB0, 36, 110}, {kKnob2}},
        {{0xB0, 36, 89}, {}},
        {{0xB1, 36, 100}, {}},
        {{0x90, 51, 5}, {kKey1, kKey25}},
        {{0x80, 51, 0}, {kKey1, kKey25}},
        {{0xA0, 51, 5}, {}},
        {{0xB0, 51, 5}, {}},
        {{0x90, 36, 5}, {}},
    };
    for (const FoundRow& row : rows)
        EXPECT_EQ(controlsSending(scene, row.message), row.controls)
            << messageText(row.message, nullptr);
    scene.at(kPad1).setPadBehavior(2); // a trigger is never off
    EXPECT_TRUE(controlsSending(scene, {0xB0, 36, 20}).empty());
}

} // namespace
} // namespace scenewright
