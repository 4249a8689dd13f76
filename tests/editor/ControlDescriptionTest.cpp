#include "editor/ControlDescription.h"

#include "tests/editor/EditorBench.h"

namespace scenewright::testing {

namespace {

using ControlDescription = EditorBench;

} // namespace

TEST(ControlName, CountsWithinItsKindFromOne) {
    EXPECT_EQ(controlName(0), "Common");
    EXPECT_EQ(controlName(1), "Group 1");
    EXPECT_EQ(controlName(8), "Knob 4");
    EXPECT_EQ(controlName(9), "Slider 1");
    EXPECT_EQ(controlName(15), "Pad 3");
    EXPECT_EQ(controlName(45), "Key 25");
}

TEST(ControlName, IndexThatNoControlHasIsNamedByItsNumber) {
    EXPECT_EQ(controlName(46), "Control 46");
    EXPECT_EQ(controlName(-1), "Control -1");
}

TEST_F(ControlDescription, SaysWhatEachKindDoes) {
    loaded();
    const auto say = [this](std::int32_t index) {
        return describeControl(*view.pu(), *view.sceneValue(), index);
    };
    EXPECT_EQ(say(0), "Common: global channel common-globalMIDICh:3, "
                      "keyboard channel common-pianoKeyCh:4, "
                      "pitch-bend speed common-PitchBendSpeed:50, "
                      "transposition common-keyTranspose:6, "
                      "key velocity curve common-velocityCurve:3, "
                      "pad velocity curve common-velocityCurve:1");
    EXPECT_EQ(say(2), "Group 2: channel button-MIDICh:2");
    EXPECT_EQ(say(5), "Knob 1: CC select127:20, left select127:10, right select127:100");
    EXPECT_EQ(say(9), "Slider 1: CC select127:30, lower select127:11, upper select127:101");
    EXPECT_EQ(say(15), "Pad 3: Note button-note:36, channel button-MIDICh:9, "
                       "behaviour button-behavior:3, red select127:10, green select127:20, "
                       "blue select127:30");
    EXPECT_EQ(say(45), "Key 25: Note button-note:60, behaviour button-behavior:4");
}

TEST_F(ControlDescription, SaysOnAndOffValuesOfAController) {
    loaded();
    record(15).setAssignType(1);
    record(21).setAssignType(1);
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 15),
              "Pad 3: CC select127:36, channel button-MIDICh:9, behaviour button-behavior:3, "
              "on select127:127, off select127:1, red select127:10, green select127:20, "
              "blue select127:30");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 21),
              "Key 1: CC select127:60, behaviour button-behavior:4, on select127:126, "
              "off select127:2");
}

// A group and the scene's own settings send nothing of their own, and nothing is said of it.
TEST_F(ControlDescription, SaysWhatIsSentByMidisNames) {
    loaded();
    ButtonValue& knob = record(5);
    knob.setEnable(1);
    knob.setMIDIChannel(2);
    record(1).setMIDIChannel(2);
    knob.setCCOrNoteNumber(74);
    record(13).setAssignType(0);
    const auto say = [&](std::int32_t index) {
        return describeOutput(*view.pu(), *view.sceneValue(), index);
    };
    EXPECT_EQ(say(5), "Sends CC 74 Brightness on channel 3");
    EXPECT_EQ(say(13), "Sends nothing");
    EXPECT_EQ(say(0), "");
    EXPECT_EQ(say(1), "");
    EXPECT_EQ(say(46), "");
}

TEST_F(ControlDescription, SaysThatAControlIsOff) {
    loaded();
    record(5).setEnable(0);
    record(15).setAssignType(0);
    record(21).setAssignType(0);
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 5), "Knob 1: button-enable:0");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 15),
              "Pad 3: button-assginType:0, red select127:10, green select127:20, "
              "blue select127:30");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 21), "Key 1: button-assginType:0");
}

TEST_F(ControlDescription, ValueOutsideItsListIsUnknown) {
    loaded();
    record(1).setMIDIChannel(127);
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 1), "Group 1: channel unknown");
}

TEST_F(ControlDescription, ControlWithoutARecordIsNamedOnly) {
    removeDefaultScene();
    loaded();
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 13), "Pad 1");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 46), "Control 46");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), -1), "Control -1");
    EXPECT_EQ(describeControl(*view.pu(), SceneValue{}, 0), "Common");
}

TEST(PadColour, ScalesItsLevelsToFull) {
    ButtonValue record;
    record.setCR(0);
    record.setCG(64);
    record.setCB(127);
    EXPECT_EQ(padColour(record), (Colour{0, 128, 255}));
}

TEST(PadColour, LevelOutsideIsTakenAsTheNearestEnd) {
    ButtonValue record;
    record.setCR(-1);
    record.setCG(200);
    record.setCB(INT32_MAX);
    EXPECT_EQ(padColour(record), (Colour{0, 255, 255}));
}

} // namespace scenewright::testing
