#include "editor/ControlDescription.h"

#include "tests/editor/EditorBench.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>

namespace scenewright::testing {

namespace {

using ControlDescription = LoadedEditor;

} // namespace

TEST(ControlName, CountsWithinItsKindFromOne) {
    for (const auto& [index, name] : {std::pair{0, "Common"},
                                      {1, "Group 1"},
                                      {8, "Knob 4"},
                                      {9, "Slider 1"},
                                      {15, "Pad 3"},
                                      {45, "Key 25"},
                                      {46, "Control 46"},
                                      {-1, "Control -1"}})
        EXPECT_EQ(controlName(index), name);
}

// What each kind does by default, as a controller, and off.
TEST_F(ControlDescription, SaysWhatAControlDoes) {
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
    const std::string colour = "red select127:10, green select127:20, blue select127:30";
    EXPECT_EQ(say(15), "Pad 3: Note button-note:36, channel button-MIDICh:9, "
                       "behaviour button-behavior:3, " +
                           colour);
    EXPECT_EQ(say(21), "Key 1: Note button-note:60, behaviour button-behavior:4");
    for (const std::int32_t index : {15, 21})
        record(index).setAssignType(1);
    EXPECT_EQ(say(15), "Pad 3: CC select127:36, channel button-MIDICh:9, behaviour "
                       "button-behavior:3, on select127:127, off select127:1, " +
                           colour);
    EXPECT_EQ(say(21), "Key 1: CC select127:60, behaviour button-behavior:4, on select127:126, "
                       "off select127:2");
    record(5).setEnable(0);
    for (const std::int32_t index : {15, 21})
        record(index).setAssignType(0);
    record(1).setMIDIChannel(127);
    EXPECT_EQ(say(5), "Knob 1: button-enable:0");
    EXPECT_EQ(say(15), "Pad 3: button-assginType:0, " + colour);
    EXPECT_EQ(say(21), "Key 1: button-assginType:0");
    EXPECT_EQ(say(1), "Group 1: channel unknown") << "outside its list";
}

// A group and the scene's own settings send nothing of their own, and nothing is said of it.
TEST_F(ControlDescription, SaysWhatIsSentByMidisNames) {
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

TEST_F(ControlDescription, ControlWithoutARecordIsNamedOnly) {
    removeDefaultScene();
    loaded();
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 13), "Pad 1");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 46), "Control 46");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), -1), "Control -1");
    EXPECT_EQ(describeControl(*view.pu(), SceneValue{}, 0), "Common");
}

TEST(PadColour, ScalesItsLevelsToFullFromTheNearestEnds) {
    ButtonValue record;
    for (const auto& [levels, colour] : {std::pair{std::array{0, 64, 127}, Colour{0, 128, 255}},
                                         {std::array{-1, 200, INT32_MAX}, Colour{0, 255, 255}}}) {
        record.setCR(levels[0]);
        record.setCG(levels[1]);
        record.setCB(levels[2]);
        EXPECT_EQ(padColour(record), colour);
    }
}

} // namespace scenewright::testing
