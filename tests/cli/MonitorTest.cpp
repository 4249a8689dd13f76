#include "cli/Listening.h"
#include "model/FileAction.h"
#include "protocol/SceneImage.h"
#include "tests/sequencer/ScriptedSequencer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <memory>
#include <optional>
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

} // namespace
} // namespace scenewright
