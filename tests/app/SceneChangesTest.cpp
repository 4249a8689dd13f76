#include "app/SceneChanges.h"

#include "bank/Edit.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "protocol/SceneImage.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace scenewright::testing {

namespace {

using Side = SceneChanges::Side;

class SceneChangesTest : public ::testing::Test {
protected:
    SceneChangesTest() {
        for (int scene = 0; scene < kSceneCount; ++scene)
            before_.push_back(FileAction::GetSceneFromDefault());
    }

    // The default scenes with assignments carried out, as the command line has them.
    [[nodiscard]] SceneList with(const std::vector<std::string>& assignments) const {
        const auto scenes = setValues(*lists_, before_, assignments);
        EXPECT_TRUE(scenes) << scenes.error();
        return *scenes;
    }
    [[nodiscard]] SceneChanges to(const SceneList& after) const {
        return SceneChanges::between(*lists_, before_, after);
    }

    std::shared_ptr<PopUpValue> lists_ = loadPopUpValue();
    SceneList before_;
};

TEST_F(SceneChangesTest, AStepIsCalledAfterWhatItChanged) {
    struct Row {
        std::vector<std::string> assignments;
        const char* title;
        const char* chosen; // the path of the setting that was; empty for none
    };
    const Row rows[] = {
        {{"scene1.pad3.AssignType=2", "scene1.pad3.CCOrNoteNumber=99"},
         "Pad 3 Type",
         "scene1.pad3.AssignType"},
        {{"scene1.pad3.CR=99"}, "Pad 3 Red", "scene1.pad3.CR"},
        {{"scene3.knob2.CCOrNoteNumber=99"}, "Knob 2 CC number", "scene3.knob2.CCOrNoteNumber"},
        {{"scene2.common.SceneName=Live"}, "Scene 2 Name", "scene2.common.SceneName"},
        {{"scene2.common.PitchBendSpeed=9"},
         "Scene 2 Pitch-bend speed",
         "scene2.common.PitchBendSpeed"},
        {{"scene1.pad3.CR=99", "scene1.pad3.CG=98"}, "Pad 3", ""},
        {{"scene1.pad3.CR=99", "scene1.pad4.CR=99"}, "2 Pads Red", "scene1.pad3.CR"},
        {{"scene1.pad3.CR=99", "scene1.pad4.CG=99"}, "Scene 1", ""},
        {{"scene2.common.SceneName=Live", "scene2.common.PitchBendSpeed=9"}, "Scene 2", ""},
        {{"scene1.pad3.CR=99", "scene2.pad3.CR=99"}, "Scenes", ""},
    };
    // What a pad sends first is a controller here, so that a type is a change.
    before_ = with({"scene*.pad*.AssignType=1", "scene*.pad*.CCOrNoteNumber=3"});
    for (const Row& row : rows) {
        const SceneChanges changes = to(with(row.assignments));
        EXPECT_EQ(changes.title(), row.title);
        EXPECT_EQ(changes.chosen() == nullptr ? "" : pathOf(*changes.chosen()), row.chosen)
            << row.title;
    }
}

TEST_F(SceneChangesTest, ANumberIsCalledWhatItsControlSends) {
    const std::pair<int, const char*> rows[] = {{kAssignOff, "Key 2 CC or note number"},
                                                {kAssignController, "Key 2 CC"},
                                                {kAssignNote, "Key 2 Note"}};
    for (const auto& [type, title] : rows) {
        before_ = with(
            {"scene1.key2.AssignType=" + std::to_string(type), "scene1.key2.CCOrNoteNumber=3"});
        EXPECT_EQ(to(with({"scene1.key2.CCOrNoteNumber=4"})).title(), title);
    }
}

TEST_F(SceneChangesTest, EitherSideIsWrittenIntoTheRecordsOfTheScenes) {
    const SceneList after = with({"scene1.pad3.CR=99", "scene4.common.SceneName=Live",
                                  "scene2.common.PitchBendSpeed=9", "scene3.key25.OnValue=7"});
    const SceneChanges changes = to(after);
    EXPECT_EQ(changes.places().size(), 4U);
    const SceneList stored = copyOf(before_);
    const auto record = stored[0]->buttonValueArray()[14];
    changes.write(Side::After, stored);
    EXPECT_TRUE(to(stored).places() == changes.places());
    EXPECT_TRUE(SceneChanges::between(*lists_, after, stored).isEmpty());
    EXPECT_EQ(record->CR(), 99);
    EXPECT_EQ(stored[3]->commonValue()->SceneName(), after[3]->commonValue()->SceneName());
    changes.write(Side::Before, stored);
    EXPECT_TRUE(to(stored).isEmpty());
    EXPECT_EQ(stored[3]->commonValue()->SceneName(), before_[3]->commonValue()->SceneName());
}

TEST_F(SceneChangesTest, WhatIsAppendedKeepsTheFirstValueAndTakesTheLast) {
    const SceneList second = with({"scene1.pad3.CR=1", "scene1.pad3.CG=1"});
    const SceneList third = with({"scene1.pad3.CR=2"});
    SceneChanges changes = to(second);
    changes.append(SceneChanges::between(*lists_, second, third));
    EXPECT_EQ(changes.title(), "Pad 3 Red"); // green is what it was
    const SceneList stored = copyOf(third);
    changes.write(Side::Before, stored);
    EXPECT_TRUE(to(stored).isEmpty());
    changes.write(Side::After, stored);
    EXPECT_EQ(stored[0]->buttonValueArray()[14]->CR(), 2);
    changes.append(SceneChanges::between(*lists_, third, before_));
    EXPECT_TRUE(changes.isEmpty());
}

} // namespace

} // namespace scenewright::testing
