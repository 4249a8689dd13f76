#include "cli/Listening.h"
#include "protocol/SceneImage.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <vector>

namespace scenewright {
namespace {

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
