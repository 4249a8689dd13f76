#include "app/ScenePlayer.h"

#include "bank/BankFile.h"
#include "tests/sequencer/ScriptedSequencer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace scenewright {
namespace {

using std::chrono::milliseconds;
using testing::ScriptedPorts;
using testing::ScriptedSequencer;
using Messages = std::vector<MidiMessage>;
using Names = std::vector<std::string>;

// Pad 1 of each scene sends a note, 40 and the scene's number; pad 2 toggles CC 22; knob 1 is
// CC 20.
SceneList playedScenes() {
    SceneList scenes;
    for (int number = 1; number <= 4; ++number) {
        auto scene = blankScene();
        scene->commonValue()->setPadVelocityCurve(1);
        const auto& controls = scene->buttonValueArray();
        controls[12]->setAssignType(2);
        controls[12]->setCCOrNoteNumber(40 + number);
        controls[13]->setAssignType(1);
        controls[13]->setPadBehavior(1);
        controls[13]->setCCOrNoteNumber(22);
        controls[13]->setOnValue(127);
        controls[4]->setEnable(1);
        controls[4]->setCCOrNoteNumber(20);
        controls[4]->setUpperOrRightValue(127);
        scenes.push_back(std::move(scene));
    }
    return scenes;
}

class ScenePlayerTest : public ::testing::Test {
protected:
    void play(const std::string& line) { player->play(parsePlayOrder(line).value().value(), now); }
    Messages taken() { return std::exchange(sent, {}); }

    const SceneList scenes = playedScenes();
    const PlayingTime now{};
    Messages sent;
    std::unique_ptr<ScenePlayer> player = std::make_unique<ScenePlayer>(
        [this] { return encodeBank(scenes); },
        [this](const MidiMessage& message) { sent.push_back(message); });
};

TEST_F(ScenePlayerTest, WhatIsEditedIsHeardAtTheNextGesture) {
    play("press pad1 100");
    scenes[0]->buttonValueArray()[12]->setCCOrNoteNumber(60);
    play("release pad1");
    play("press pad1 90");
    EXPECT_EQ(taken(), (Messages{{0x90, 41, 100}, {0x80, 41, 0}, {0x90, 60, 90}}));
}

TEST_F(ScenePlayerTest, AllEndsBeforeAnotherSceneAndWithThePlayer) {
    play("press pad1 100");
    play("press pad2 100");
    play("release pad2");
    taken();
    play("scene 2");
    EXPECT_EQ(taken(), (Messages{{0x80, 41, 0}, {0xB0, 22, 0}}));
    play("press pad2 1");
    play("press pad1 1");
    EXPECT_EQ(taken(), (Messages{{0xB0, 22, 127}, {0x90, 42, 1}}));
    player.reset();
    EXPECT_EQ(taken(), (Messages{{0x80, 42, 0}, {0xB0, 22, 0}}));
}

TEST_F(ScenePlayerTest, SlidesGoOnUntilAllIsReleased) {
    play("slide knob1 0 2 20ms");
    player->advance(now + milliseconds(10));
    EXPECT_EQ(taken(), (Messages{{0xB0, 20, 0}, {0xB0, 20, 1}}));
    EXPECT_EQ(player->next(), now + milliseconds(20));
    player->releaseAll();
    EXPECT_EQ(player->next(), std::nullopt);
    player->advance(now + milliseconds(20));
    EXPECT_EQ(taken(), Messages{});
}

class PlayPortTest : public ::testing::Test {
protected:
    static constexpr PortAddress kSynth{128, 0};
    static constexpr PortAddress kRecorder{129, 0};
    void SetUp() override {
        ports->add(kSynth, "Synth", "in");
        ports->add(kRecorder, "Recorder\x1B", "in");
        ports->add({130, 0}, "Bystander", "in");
        ports->link({.from = ScriptedSequencer::kOwnPort, .to = kSynth});
        ports->link({.from = ScriptedSequencer::kOwnPort, .to = kRecorder});
        ports->link({.from = kSynth, .to = kRecorder});
        ports->link({.from = kSynth, .to = ScriptedSequencer::kOwnPort});
    }

    std::shared_ptr<ScriptedPorts> ports = std::make_shared<ScriptedPorts>();
    PlayPort port{std::make_unique<ScriptedSequencer>(ports)};
};

TEST_F(PlayPortTest, ProgramsThatAreConnectedFromItAreNamed) {
    EXPECT_EQ(port.address(), "200:0");
    EXPECT_EQ(port.listeners(), Names{}) << "those came later";
    EXPECT_FALSE(port.process());
    EXPECT_EQ(port.listeners(), (Names{"Synth", "Recorder\uFFFD"}));
    ASSERT_TRUE(port.send({0x90, 41, 100}));
    EXPECT_EQ(ports->sent, (Messages{{0x90, 41, 100}}));
    ports->sendingFails = "no";
    EXPECT_EQ(port.send({0x90, 41, 100}).error(), "no");
}

TEST_F(PlayPortTest, OneThatGoesIsToldOnce) {
    port.process();
    ports->remove(kSynth);
    EXPECT_TRUE(port.process());
    EXPECT_FALSE(port.process());
    EXPECT_EQ(port.listeners(), Names{"Recorder\uFFFD"});
    ports->remove(kRecorder);
    ports->add(kRecorder, "Recorder", "in");
    ports->link({.from = ScriptedSequencer::kOwnPort, .to = kRecorder});
    EXPECT_TRUE(port.process()) << "another one has its address";
    EXPECT_EQ(port.listeners(), Names{"Recorder"});
    ports->remove(kRecorder);
    ports->input = {.isIncomplete = true};
    EXPECT_TRUE(port.process()) << "its announcement is lost";
}

} // namespace
} // namespace scenewright
