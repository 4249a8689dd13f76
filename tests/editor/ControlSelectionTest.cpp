#include "editor/ControlSelection.h"

#include "tests/editor/EditorBench.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace scenewright::testing {

namespace {

using Controls = std::vector<std::int32_t>;

constexpr std::int32_t kKnob = 5;
constexpr std::int32_t kSlider = 9;
constexpr std::int32_t kPad = 13;

// From the scene-wide settings on, by the given changes.
struct Row {
    const char* name;
    std::function<void(ControlSelection&)> change;
    Controls after;
};

TEST(ControlSelection, TheLastOneTakenInIsTheChosenOne) {
    const auto pads = [](ControlSelection& chosen) {
        chosen.choose(kPad);
        chosen.toggle(kPad + 4);
    };
    for (const Row& row : {
             Row{"nothing done", [](ControlSelection&) {}, {0}},
             Row{"one alone", [](ControlSelection& chosen) { chosen.choose(kPad); }, {kPad}},
             Row{"none", [](ControlSelection& chosen) { chosen.choose(-1); }, {}},
             Row{"taken in", pads, {kPad, kPad + 4}},
             Row{"taken out",
                 [&](ControlSelection& chosen) {
                     pads(chosen);
                     chosen.toggle(kPad + 4);
                 },
                 {kPad}},
             Row{"the last one stays",
                 [](ControlSelection& chosen) {
                     chosen.choose(kPad);
                     chosen.toggle(kPad);
                 },
                 {kPad}},
             Row{"nothing stands beside the scene-wide settings",
                 [&](ControlSelection& chosen) {
                     chosen.toggle(kKnob);
                     chosen.toggle(0);
                 },
                 {0}},
             Row{"nor beside what is taken in",
                 [](ControlSelection& chosen) { chosen.toggle(kKnob); },
                 {kKnob}},
             Row{"nor do they stand beside what is added",
                 [](ControlSelection& chosen) {
                     chosen.add(Controls{kPad, kPad + 1});
                 },
                 {kPad, kPad + 1}},
             Row{"nor is extended from them",
                 [](ControlSelection& chosen) { chosen.extendTo(kKnob); },
                 {kKnob}},
             Row{"extended downwards",
                 [&](ControlSelection& chosen) {
                     pads(chosen);
                     chosen.extendTo(kPad + 6);
                 },
                 {kPad + 4, kPad + 5, kPad + 6}},
             Row{"and upwards again, from where it started",
                 [&](ControlSelection& chosen) {
                     pads(chosen);
                     chosen.extendTo(kPad + 6);
                     chosen.extendTo(kPad + 3);
                 },
                 {kPad + 4, kPad + 3}},
             Row{"all, the last one chosen",
                 [](ControlSelection& chosen) {
                     chosen.choose(kKnob);
                     chosen.chooseAll(Controls{kPad, kPad + 1});
                 },
                 {kPad, kPad + 1}},
             Row{"all, the chosen one still chosen",
                 [](ControlSelection& chosen) {
                     chosen.choose(kPad);
                     chosen.chooseAll(Controls{kPad, kPad + 1});
                 },
                 {kPad + 1, kPad}},
             Row{"added",
                 [&](ControlSelection& chosen) {
                     pads(chosen);
                     chosen.add(Controls{kKnob, kPad});
                 },
                 {kPad, kPad + 4, kKnob}},
         }) {
        ControlSelection chosen;
        row.change(chosen);
        EXPECT_EQ(chosen.controls(), row.after) << row.name;
        EXPECT_EQ(chosen.chosen(), row.after.empty() ? -1 : row.after.back()) << row.name;
    }
}

TEST(ControlSelection, ThoseOfTheChosenOnesKindAreToldInTheirOrder) {
    ControlSelection chosen;
    chosen.choose(kPad + 3);
    EXPECT_EQ(paneTitle(chosen), "Pad 4");
    EXPECT_EQ(alikeTitle(chosen), "Pad 4");
    chosen.toggle(kKnob);
    chosen.toggle(kPad);
    EXPECT_EQ(chosen.alike(), (Controls{kPad, kPad + 3}));
    EXPECT_EQ(paneTitle(chosen), "Pad 1 and 1 more pad");
    EXPECT_EQ(alikeTitle(chosen), "2 Pads");
    chosen.toggle(kPad + 7);
    EXPECT_EQ(paneTitle(chosen), "Pad 8 and 2 more pads");
    EXPECT_EQ(alikeTitle(chosen), "3 Pads");
    chosen.choose(-1);
    EXPECT_EQ(chosen.alike(), Controls{});
    EXPECT_EQ(paneTitle(chosen), "Common");
}

TEST(ControlSelection, SeveralOfAKindAreCountedInItsWord) {
    struct Words {
        std::int32_t control;
        const char* two;
        const char* three;
    };
    for (const Words& row :
         {Words{1, "Group 2 and 1 more group", "Group 3 and 2 more groups"},
          Words{kKnob, "Knob 2 and 1 more knob", "Knob 3 and 2 more knobs"},
          Words{kSlider, "Slider 2 and 1 more slider", "Slider 3 and 2 more sliders"},
          Words{kPad, "Pad 2 and 1 more pad", "Pad 3 and 2 more pads"},
          Words{21, "Key 2 and 1 more key", "Key 3 and 2 more keys"}}) {
        ControlSelection chosen;
        chosen.add(Controls{row.control, row.control + 1});
        EXPECT_EQ(paneTitle(chosen), row.two);
        chosen.add(Controls{row.control + 2});
        EXPECT_EQ(paneTitle(chosen), row.three);
    }
}

class ControlClipboardTest : public LoadedEditor {
protected:
    [[nodiscard]] const SceneValue& scene() const { return *view.sceneValue(); }

    ControlClipboard clipboard;
};

TEST_F(ControlClipboardTest, ACopyGoesIntoTheRecordOfAnotherControlOfItsKind) {
    const auto stored = view.sceneValue()->buttonValueArray()[kPad];
    const std::int32_t id = stored->ButtonID();
    record(kPad).setCR(100);
    record(kPad).setAssignType(1);
    record(kPad).setPadBehavior(1);
    record(kPad).setButtonID(id + 5);
    EXPECT_TRUE(clipboard.copy(scene(), kPad));
    record(kPad).setCR(101); // a later edit
    EXPECT_TRUE(clipboard.paste(scene(), kPad + 1));
    EXPECT_EQ(view.sceneValue()->buttonValueArray()[kPad], stored);
    EXPECT_EQ(stored->CR(), 100);
    EXPECT_EQ(stored->AssignType(), 1);
    EXPECT_EQ(stored->PadBehavior(), 1);
    EXPECT_EQ(stored->ButtonID(), id) << "which control it is stays";
}

TEST_F(ControlClipboardTest, AnotherKindTakesNothing) {
    record(kKnob).setCCOrNoteNumber(70);
    const std::int32_t before = record(kSlider).CCOrNoteNumber();
    EXPECT_TRUE(clipboard.copy(scene(), kKnob));
    EXPECT_FALSE(clipboard.canPaste(kSlider));
    EXPECT_FALSE(clipboard.paste(scene(), kSlider));
    EXPECT_EQ(record(kSlider).CCOrNoteNumber(), before);
}

TEST_F(ControlClipboardTest, NothingIsPastedBeforeACopy) {
    for (std::int32_t control = -1; control <= kControlIndexEnd; ++control) {
        EXPECT_FALSE(clipboard.canPaste(control)) << control;
        EXPECT_FALSE(clipboard.paste(scene(), control)) << control;
    }
}

TEST_F(ControlClipboardTest, NoControlIsNotCopiedAndKeepsTheFormerCopy) {
    EXPECT_TRUE(clipboard.copy(scene(), kKnob));
    EXPECT_FALSE(clipboard.copy(scene(), -1));
    EXPECT_FALSE(clipboard.copy(scene(), kControlIndexEnd));
    EXPECT_FALSE(clipboard.copy(SceneValue(), kPad));
    EXPECT_TRUE(clipboard.canPaste(kKnob + 3));
    EXPECT_FALSE(clipboard.canPaste(kSlider));
}

TEST_F(ControlClipboardTest, TheSceneWideSettingsGoToAnotherSceneWithoutTheName) {
    common().setKeyTranspose(9);
    common().setSceneName("From");
    EXPECT_TRUE(clipboard.copy(scene(), 0));
    scenes.selected = 1;
    view.changeSceneAction(scenes);
    common().setSceneName("To");
    EXPECT_TRUE(clipboard.paste(scene(), 0));
    EXPECT_EQ(common().KeyTranspose(), 9);
    EXPECT_EQ(common().SceneName(), "To");
}

TEST_F(ControlClipboardTest, ResetGivesTheDefaultsBackButForTheScenesName) {
    const std::int32_t number = record(kPad).CCOrNoteNumber();
    const std::int32_t type = record(kPad).AssignType();
    const std::int32_t channel = common().PianoKeyCh();
    record(kPad).setCCOrNoteNumber(3);
    record(kPad).setAssignType(0);
    record(kPad + 1).setCCOrNoteNumber(4);
    common().setPianoKeyCh(channel + 1);
    common().setSceneName("Mine");
    EXPECT_TRUE(resetControl(scene(), kPad));
    EXPECT_EQ(record(kPad).CCOrNoteNumber(), number);
    EXPECT_EQ(record(kPad).AssignType(), type);
    EXPECT_EQ(record(kPad + 1).CCOrNoteNumber(), 4);
    EXPECT_EQ(common().PianoKeyCh(), channel + 1);
    EXPECT_TRUE(resetControl(scene(), 0));
    EXPECT_EQ(common().PianoKeyCh(), channel);
    EXPECT_EQ(common().SceneName(), "Mine");
    removeDefaultScene();
    EXPECT_FALSE(resetControl(scene(), kPad + 1));
    EXPECT_EQ(record(kPad + 1).CCOrNoteNumber(), 4) << "without a default";
}

} // namespace

} // namespace scenewright::testing
