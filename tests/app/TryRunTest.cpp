#include "app/TryRun.h"

#include "protocol/SceneImage.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace scenewright {
namespace {

using std::chrono::milliseconds;
using Verdict = TryRun::Verdict;

constexpr std::int32_t kKnob1 = 5;
constexpr std::int32_t kSlider1 = 9;
constexpr std::int32_t kPad1 = 13;
constexpr std::int32_t kPad2 = 14;
constexpr std::int32_t kKey1 = 21;

// Knob 1 and slider 1 send the controllers 20 and 21 on channel 1, pad 1 the controller 74 and pad
// 2 the note 54 on channel 10, key 1 the note 60 on channel 1; the others are off.
std::shared_ptr<SceneValue> triedScene() {
    auto scene = sceneFrom(encodeScene(*blankScene())); // zeros in place of absent fields
    const auto record = [&scene](std::int32_t control) -> ButtonValue& {
        return *scene->buttonValueArray()[static_cast<std::size_t>(control - 1)];
    };
    for (const std::int32_t control : {kKnob1, kSlider1}) {
        record(control).setEnable(1);
        record(control).setCCOrNoteNumber(control == kKnob1 ? 20 : 21);
        record(control).setUpperOrRightValue(127);
    }
    record(kPad1).setAssignType(1);
    record(kPad1).setMIDIChannel(9);
    record(kPad1).setCCOrNoteNumber(74);
    record(kPad1).setOnValue(127);
    record(kPad2).setAssignType(2);
    record(kPad2).setMIDIChannel(9);
    record(kPad2).setCCOrNoteNumber(54);
    record(kKey1).setAssignType(2);
    record(kKey1).setCCOrNoteNumber(60);
    return scene;
}

class TryRunTest : public ::testing::Test {
protected:
    // "Slider 1" by its index; 0 at the end.
    std::int32_t next() { return run.next() == nullptr ? 0 : run.next()->control; }
    // What is said of the control that this has decided; empty when it has decided none.
    std::string take(MidiMessage message, int after = 2000) {
        now += milliseconds(after);
        const TryRun::Row* const row = run.take(message, now);
        return row == nullptr ? std::string() : verdictText(*row, names);
    }
    std::string textOf(std::int32_t control) {
        return verdictText(run.rows().at(static_cast<std::size_t>(control - kKnob1)), names);
    }

    const Titles names = [] {
        std::vector<std::string> titles(128, "D2");
        titles[54] = "F#2";
        return std::make_shared<const std::vector<std::string>>(titles);
    }();
    TryRun run{*triedScene()};
    TryRun::Time now{};
};

TEST_F(TryRunTest, EachControlThatSendsIsAskedForInTurn) {
    EXPECT_EQ(run.rows().size(), 41U);
    EXPECT_EQ(next(), kKnob1);
    EXPECT_EQ(expectedText(*run.next(), names), "CC 20, ch 1");
    EXPECT_EQ(take({0xB0, 20, 64}), "sent CC 20, ch 1, value 64");
    EXPECT_EQ(next(), kSlider1);
    EXPECT_EQ(take({0xB0, 21, 1}), "sent CC 21, ch 1, value 1");
    EXPECT_EQ(take({0xB9, 74, 127}), "sent CC 74, ch 10, value 127");
    EXPECT_EQ(next(), kPad2);
    EXPECT_EQ(expectedText(*run.next(), names), "note F#2, ch 10");
    EXPECT_EQ(take({0x99, 54, 100}), "sent Note on F#2, ch 10, velocity 100");
    EXPECT_EQ(take({0x90, 60, 1}), "sent Note on D2, ch 1, velocity 1");
    EXPECT_EQ(next(), 0);
    EXPECT_EQ(take({0x90, 60, 1}), "") << "after the end";
    EXPECT_EQ(reportText(run), "5 right, 36 passed over");
    EXPECT_EQ(textOf(kKnob1 + 1), "sends nothing: it is off");
}

TEST_F(TryRunTest, WhatIsWrongIsToldWithWhatWasExpected) {
    EXPECT_EQ(take({0xB0, 7, 64}), "sent CC 7, expected CC 20");
    EXPECT_EQ(take({0xB3, 21, 64}), "sent CC 21, ch 4, value 64, not quite as is assumed")
        << "which group a slider follows is an assumption";
    EXPECT_EQ(take({0xB0, 74, 127}), "sent CC 74, ch 1, expected CC 74, ch 10");
    EXPECT_EQ(take({0xB9, 54, 127}), "sent CC 54, expected note F#2");
    EXPECT_EQ(take({0x99, 61, 127}), "sent note D2, ch 10, expected note D2, ch 1");
    EXPECT_EQ(reportText(run), "1 not as assumed, 4 wrong, 36 passed over");
}

TEST_F(TryRunTest, RestOfATouchIsNoTouch) {
    take({0xB0, 20, 64});
    for (int step = 0; step < 5; ++step)
        EXPECT_EQ(take({0xB0, 20, 65}, 900), "") << "it is still turned";
    EXPECT_EQ(take({0xB0, 20, 66}, 1000), "sent CC 20, expected CC 21") << "after a pause";
    take({0xB9, 74, 127});
    EXPECT_EQ(take({0xB9, 74, 0}, 5000), "") << "let go";
    EXPECT_EQ(take({0xB9, 74, 127}, 5000), "sent CC 74, expected note F#2");
    take({0x90, 60, 100});
    EXPECT_EQ(next(), 0);
}

TEST_F(TryRunTest, WhatIsNotLetGoOfIsTouchedAgainAfterAPause) {
    take({0xB0, 20, 64});
    EXPECT_EQ(take({0xB0, 20, 65}), "sent CC 20, expected CC 21") << "a knob";
    const auto scene = triedScene();
    scene->buttonValueArray()[kPad1 - 1]->setPadBehavior(2);
    run = TryRun(*scene);
    run.skip();
    run.skip();
    take({0xB9, 74, 127});
    EXPECT_EQ(take({0xB9, 74, 127}), "sent CC 74, expected note F#2") << "a trigger";
}

TEST_F(TryRunTest, WhatIsNoTouchDecidesNothing) {
    for (const MidiMessage message :
         {MidiMessage{0x80, 60, 0}, MidiMessage{0x90, 60, 0}, MidiMessage{0xA0, 60, 9},
          MidiMessage{0xE0, 1, 2}, MidiMessage{0xD0, 9, 0}, MidiMessage{0xF8, 0, 0}})
        EXPECT_EQ(take(message), "") << messageText(message, names);
    EXPECT_EQ(next(), kKnob1);
}

TEST(TryRun, ToggleThatWasOnIsTouchedByTheEndOfItsNote) {
    const auto scene = triedScene();
    scene->buttonValueArray()[kPad1 - 1]->setAssignType(0);
    scene->buttonValueArray()[kPad2 - 1]->setPadBehavior(1);
    TryRun run(*scene);
    run.skip();
    run.skip();
    EXPECT_EQ(run.take({0x89, 55, 0}, {}), nullptr) << "another one let go";
    const TryRun::Row* const row = run.take({0x89, 54, 0}, {});
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(verdictText(*row, nullptr), "sent Note off 54, ch 10");
    EXPECT_EQ(run.take({0x80, 60, 0}, {}), nullptr) << "a momentary one let go";
}

TEST_F(TryRunTest, ControlsAreSkippedAndTriedAgain) {
    run.again();
    EXPECT_EQ(next(), kKnob1) << "there is none before";
    run.skip();
    EXPECT_EQ(textOf(kKnob1), "skipped");
    EXPECT_EQ(take({0xB0, 7, 1}), "sent CC 7, expected CC 21");
    run.again();
    EXPECT_EQ(take({0xB0, 7, 1}, 100), "sent CC 7, expected CC 21") << "a touch of its own";
    run.again();
    EXPECT_EQ(next(), kSlider1);
    EXPECT_EQ(textOf(kSlider1), "");
    EXPECT_EQ(take({0xB0, 21, 1}), "sent CC 21, ch 1, value 1");
    EXPECT_EQ(next(), kPad1);
    run.again();
    run.again();
    EXPECT_EQ(next(), kKnob1);
    run.skip();
    run.end();
    EXPECT_EQ(next(), 0);
    run.skip();
    EXPECT_EQ(reportText(run), "1 skipped, 36 passed over, 4 not tried");
    run.again();
    EXPECT_EQ(next(), kKey1);
}

TEST(TryRun, ControlsThatSendNothingSayWhy) {
    const auto scene = triedScene();
    scene->commonValue()->setKeyTranspose(4);
    scene->buttonValueArray()[kKey1 - 1]->setCCOrNoteNumber(120);
    scene->buttonValueArray()[kPad2 - 1]->setMIDIChannel(90);
    const TryRun run(*scene);
    const auto textOf = [&run](std::int32_t control) {
        return verdictText(run.rows().at(static_cast<std::size_t>(control - kKnob1)), nullptr);
    };
    EXPECT_EQ(textOf(kKey1), "may send nothing: the transposition moves its note out of range");
    EXPECT_EQ(textOf(kPad2), "sends nothing: it has a value that its list has not");
    EXPECT_EQ(expectedText(run.rows().back(), nullptr), "");
    EXPECT_EQ(run.count(Verdict::Silent), 38U);
    EXPECT_EQ(TryRun(SceneValue()).next(), nullptr);
}

} // namespace
} // namespace scenewright
