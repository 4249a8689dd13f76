#include "cli/Listening.h"

#include "model/SceneValue.h"
#include "protocol/SceneImage.h"
#include "tests/sequencer/ScriptedSequencer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using testing::ScriptedPorts;
using testing::ScriptedSequencer;

constexpr PortAddress kKeyboard{20, 0};
const std::string kListening = "listening to MIDI 1";
const std::string kWaiting = "no MIDI port of a keyboard of the list is there; waiting for one";

// Pad 3 of scenes 1 and 3 sends the note 38 on channel 10.
SceneList bankOfTwo() {
    SceneList bank;
    for (int number = 0; number < 4; ++number) {
        auto scene = blankScene();
        ButtonValue& pad = *scene->buttonValueArray()[14];
        pad.setAssignType(number % 2 == 0 ? 2 : 0);
        pad.setCCOrNoteNumber(38);
        pad.setPadBehavior(0);
        pad.setMIDIChannel(9);
        bank.push_back(std::move(scene));
    }
    return bank;
}

class MonitorTest : public ::testing::Test {
protected:
    void SetUp() override {
        ports->add(kKeyboard, "Keyboard", "MIDI 1", 1);
        ports->add({21, 0}, "Stranger", "MIDI 1", 2);
        ports->add({20, 1}, "Keyboard", "only receives", 1);
        ports->ports.back().sends = false;
    }
    Monitor& start(MonitorOptions options) {
        options.noteNames = names;
        monitor.emplace(
            sequencer,
            [] {
                return std::vector<SoundKeyboard>{{"1209:0001#0", 1}};
            },
            std::move(options), [this](const auto& text) { told.push_back(text); });
        monitor->start();
        return *monitor;
    }
    // Of the hour 12:03:04.123 of the machine's time zone.
    std::string take() {
        std::tm local{};
        local.tm_year = 126;
        local.tm_mon = 10;
        local.tm_mday = 22;
        local.tm_hour = 12;
        local.tm_min = 3;
        local.tm_sec = 4;
        local.tm_isdst = -1;
        return monitor->take(Monitor::Clock::from_time_t(std::mktime(&local)) +
                             std::chrono::milliseconds(123));
    }

    std::shared_ptr<ScriptedPorts> ports = std::make_shared<ScriptedPorts>();
    ScriptedSequencer sequencer{ports};
    std::shared_ptr<const std::vector<std::string>> names =
        std::make_shared<const std::vector<std::string>>(std::vector<std::string>(128, "D2"));
    std::vector<std::string> told;
    std::optional<Monitor> monitor;
};

TEST_F(MonitorTest, EachMessageIsALine) {
    start({});
    EXPECT_EQ(ports->asked, std::vector<std::string>{"20:0 -> 200:0"}) << "and not to the stranger";
    ports->send(kKeyboard, {0x99, 38, 100});
    ports->send(kKeyboard, {0xB0, 74, 93});
    EXPECT_EQ(take(), "12:03:04.123  Note on D2, ch 10, velocity 100\n"
                      "12:03:04.123  CC 74, ch 1, value 93\n");
    EXPECT_EQ(take(), "");
}

TEST_F(MonitorTest, ControlsOfTheBankThatSendItAreNamed) {
    start({.hasBank = true, .bank = bankOfTwo()});
    ports->send(kKeyboard, {0x99, 38, 100});
    ports->send(kKeyboard, {0x98, 38, 100});
    EXPECT_EQ(take(), "12:03:04.123  Note on D2, ch 10, velocity 100  scene1.pad3 scene3.pad3\n"
                      "12:03:04.123  Note on D2, ch 9, velocity 100  -\n");
}

TEST_F(MonitorTest, JsonIsAnObjectALine) {
    start({.asJson = true, .hasBank = true, .bank = bankOfTwo()});
    ports->send(kKeyboard, {0x89, 38, 0});
    EXPECT_EQ(take(), R"({"time":"2026-11-22T12:03:04.123","text":"Note off D2, ch 10",)"
                      R"("status":137,"data":[38,0],"controls":["scene1.pad3","scene3.pad3"]})"
                      "\n");
    start({.asJson = true});
    ports->send(kKeyboard, {0xB0, 7, 1});
    EXPECT_EQ(take(), R"({"time":"2026-11-22T12:03:04.123","text":"CC 7, ch 1, value 1",)"
                      R"("status":176,"data":[7,1]})"
                      "\n");
}

TEST_F(MonitorTest, ClockAndActiveSensingAreHiddenUnlessAskedFor) {
    for (const bool showsAll : {false, true}) {
        start({.showsAll = showsAll});
        ports->send(kKeyboard, {0xF8, 0, 0});
        ports->send(kKeyboard, {0xFE, 0, 0});
        EXPECT_EQ(take(), showsAll ? "12:03:04.123  Clock\n12:03:04.123  Active sensing\n" : "");
    }
}

TEST_F(MonitorTest, PortThatComesBackIsListenedToAgain) {
    start({});
    ports->remove(kKeyboard);
    EXPECT_EQ(take(), "");
    ports->asked.clear();
    ports->add(kKeyboard, "Keyboard", "MIDI 1", 1);
    EXPECT_EQ(take(), "");
    EXPECT_EQ(ports->asked, std::vector<std::string>{"20:0 -> 200:0"});
    EXPECT_EQ(told, (std::vector<std::string>{kListening, kWaiting, kListening}));
}

TEST_F(MonitorTest, PortThatIsRefusedIsToldAndNotWaitedFor) {
    ports->connectingFails = "it is taken";
    start({});
    EXPECT_EQ(told, std::vector<std::string>{"it is taken"});
    EXPECT_FALSE(monitor->start());
    ports->connectingFails = "";
    EXPECT_TRUE(monitor->start());
    EXPECT_EQ(told.back(), kListening);
}

TEST_F(MonitorTest, WhatIsLostIsTold) {
    start({});
    ports->asked.clear();
    ports->input = {.isIncomplete = true};
    EXPECT_EQ(take(), "");
    EXPECT_EQ(told,
              (std::vector<std::string>{
                  kListening, "more came than could be taken at once, and some of it is lost"}));
    EXPECT_EQ(ports->asked, std::vector<std::string>{"20:0 -> 200:0"}) << "it may have come back";
}

using Words = std::vector<std::string>;

// Pad 1 of each scene sends CC 70 and the scene's number, pad 3 the note 38 on channel 10; the
// others are off.
SceneList triedBank() {
    SceneList bank;
    for (int number = 1; number <= 4; ++number) {
        auto scene = sceneFrom(encodeScene(*blankScene())); // zeros in place of absent fields
        const auto& controls = scene->buttonValueArray();
        controls[12]->setAssignType(1);
        controls[12]->setCCOrNoteNumber(70 + number);
        controls[12]->setOnValue(127);
        controls[14]->setAssignType(2);
        controls[14]->setCCOrNoteNumber(38);
        controls[14]->setMIDIChannel(9);
        bank.push_back(std::move(scene));
    }
    return bank;
}

class TrialTest : public ::testing::Test {
protected:
    void take(Trial& trial, MidiMessage message) {
        now += std::chrono::seconds(2);
        trial.take(message, now);
    }
    // Without those that are passed over.
    static std::string results(Trial& trial) {
        std::string kept;
        std::istringstream lines(trial.results());
        for (std::string line; std::getline(lines, line);)
            if (line.find("silent") == std::string::npos)
                kept += line + "\n";
        return kept;
    }
    Trial::Time now{};
};

TEST_F(TrialTest, EachSceneIsGoneThrough) {
    Trial trial(triedBank(), {1, 3}, {});
    EXPECT_EQ(trial.words(), (Words{"choose scene 1 on the keyboard",
                                    "touch scene1.pad1, which should send CC 71, ch 1"}));
    take(trial, {0xB0, 71, 127});
    take(trial, {0x99, 38, 100});
    EXPECT_EQ(results(trial), "right    scene1.pad1     sent CC 71, ch 1, value 127\n"
                              "right    scene1.pad3     sent Note on 38, ch 10, velocity 100\n");
    EXPECT_EQ(trial.words(),
              (Words{"touch scene1.pad3, which should send note 38, ch 10",
                     "scene 1: 2 right, 39 passed over", "choose scene 3 on the keyboard",
                     "touch scene3.pad1, which should send CC 73, ch 1"}));
    take(trial, {0xB0, 7, 127});
    ASSERT_TRUE(trial.order("skip"));
    EXPECT_EQ(results(trial), "wrong    scene3.pad1     sent CC 7, expected CC 73\n"
                              "skipped  scene3.pad3     skipped\n");
    EXPECT_EQ(trial.words().back(), "scene 3: 1 wrong, 1 skipped, 39 passed over");
    EXPECT_TRUE(trial.isDone());
    EXPECT_TRUE(trial.hasWrong());
    ASSERT_TRUE(trial.order("skip"));
    take(trial, {0xB0, 7, 127});
    EXPECT_EQ(results(trial), "");
}

TEST_F(TrialTest, ControlsThatArePassedOverAreTold) {
    Trial trial(triedBank(), {4}, {});
    EXPECT_TRUE(trial.results().starts_with("silent   scene4.knob1    sends nothing: it is off\n"
                                            "silent   scene4.knob2    sends nothing: it is off\n"));
}

TEST_F(TrialTest, ControlTouchedAgainIsToldAgain) {
    Trial trial(triedBank(), {1}, {});
    take(trial, {0xB0, 7, 127});
    ASSERT_TRUE(trial.order("again"));
    take(trial, {0xB0, 71, 127});
    EXPECT_EQ(results(trial), "wrong    scene1.pad1     sent CC 7, expected CC 71\n"
                              "right    scene1.pad1     sent CC 71, ch 1, value 127\n");
    ASSERT_TRUE(trial.order("end"));
    EXPECT_TRUE(trial.isDone());
    EXPECT_FALSE(trial.hasWrong());
    EXPECT_EQ(results(trial), "");
    EXPECT_EQ(trial.words().back(), "scene 1: 1 right, 39 passed over, 1 not tried");
}

TEST_F(TrialTest, EndEndsTheScenesThatAreLeft) {
    Trial trial(triedBank(), {1, 2, 3, 4}, {});
    const auto other = trial.order("stop\x1B");
    ASSERT_FALSE(other);
    EXPECT_EQ(other.error(), "'stop\uFFFD' is no order: those are skip, again and end");
    EXPECT_FALSE(trial.isDone());
    ASSERT_TRUE(trial.order("end"));
    EXPECT_TRUE(trial.isDone());
}

TEST_F(TrialTest, JsonIsAnObjectALine) {
    Trial trial(triedBank(), {1}, {.asJson = true});
    EXPECT_TRUE(trial.results().starts_with(R"({"control":"scene1.knob1","verdict":"silent",)"
                                            R"("text":"sends nothing: it is off"})"
                                            "\n"));
    take(trial, {0xB0, 7, 127});
    EXPECT_EQ(results(trial),
              R"({"control":"scene1.pad1","verdict":"wrong","expected":"CC 71, ch 1",)"
              R"("text":"sent CC 7, expected CC 71","status":176,"data":[7,127]})"
              "\n");
}

} // namespace

} // namespace scenewright
