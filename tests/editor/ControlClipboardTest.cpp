#include "editor/ControlClipboard.h"

#include "tests/editor/EditorBench.h"

namespace scenewright::testing {

namespace {

constexpr std::int32_t kKnob = 5;
constexpr std::int32_t kSlider = 9;
constexpr std::int32_t kPad = 13;

class ControlClipboardTest : public EditorBench {
protected:
    ControlClipboardTest() { loaded(); }
    [[nodiscard]] const SceneValue& scene() const { return *view.sceneValue(); }

    ControlClipboard clipboard;
};

TEST_F(ControlClipboardTest, ACopyGoesToAnotherControlOfItsKind) {
    record(kPad).setCR(100);
    record(kPad).setAssignType(1);
    record(kPad).setPadBehavior(1);
    EXPECT_TRUE(clipboard.copy(scene(), kPad));
    EXPECT_TRUE(clipboard.paste(scene(), kPad + 7));
    EXPECT_EQ(record(kPad + 7).CR(), 100);
    EXPECT_EQ(record(kPad + 7).AssignType(), 1);
    EXPECT_EQ(record(kPad + 7).PadBehavior(), 1);
}

TEST_F(ControlClipboardTest, TheStoredRecordItselfIsWritten) {
    const auto stored = view.sceneValue()->buttonValueArray()[kPad];
    record(kPad).setCG(50);
    EXPECT_TRUE(clipboard.copy(scene(), kPad));
    EXPECT_TRUE(clipboard.paste(scene(), kPad + 1));
    EXPECT_EQ(view.sceneValue()->buttonValueArray()[kPad], stored);
    EXPECT_EQ(stored->CG(), 50);
}

TEST_F(ControlClipboardTest, WhichControlItIsStays) {
    const std::int32_t id = record(kPad + 1).ButtonID();
    record(kPad).setButtonID(id + 5);
    EXPECT_TRUE(clipboard.copy(scene(), kPad));
    EXPECT_TRUE(clipboard.paste(scene(), kPad + 1));
    EXPECT_EQ(record(kPad + 1).ButtonID(), id);
}

TEST_F(ControlClipboardTest, ACopyDoesNotFollowLaterEdits) {
    record(kKnob).setCCOrNoteNumber(70);
    EXPECT_TRUE(clipboard.copy(scene(), kKnob));
    record(kKnob).setCCOrNoteNumber(71);
    EXPECT_TRUE(clipboard.paste(scene(), kKnob + 1));
    EXPECT_EQ(record(kKnob + 1).CCOrNoteNumber(), 70);
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

TEST_F(ControlClipboardTest, ResetGivesTheDefaultsBack) {
    const std::int32_t number = record(kPad).CCOrNoteNumber();
    const std::int32_t type = record(kPad).AssignType();
    record(kPad).setCCOrNoteNumber(3);
    record(kPad).setAssignType(0);
    record(kPad + 1).setCCOrNoteNumber(4);
    EXPECT_TRUE(resetControl(scene(), kPad));
    EXPECT_EQ(record(kPad).CCOrNoteNumber(), number);
    EXPECT_EQ(record(kPad).AssignType(), type);
    EXPECT_EQ(record(kPad + 1).CCOrNoteNumber(), 4);
}

TEST_F(ControlClipboardTest, ResetOfTheSceneWideSettingsLeavesTheName) {
    const std::int32_t before = common().PianoKeyCh();
    common().setPianoKeyCh(before + 1);
    common().setSceneName("Mine");
    EXPECT_TRUE(resetControl(scene(), 0));
    EXPECT_EQ(common().PianoKeyCh(), before);
    EXPECT_EQ(common().SceneName(), "Mine");
}

TEST_F(ControlClipboardTest, WithoutADefaultNothingIsReset) {
    record(kPad).setCCOrNoteNumber(3);
    removeDefaultScene();
    EXPECT_FALSE(resetControl(scene(), kPad));
    EXPECT_EQ(record(kPad).CCOrNoteNumber(), 3);
}

} // namespace

} // namespace scenewright::testing
