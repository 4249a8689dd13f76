#include "model/Control.h"
#include "model/SceneValue.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace scenewright {
namespace {

using ButtonList = std::vector<std::shared_ptr<ButtonValue>>;

TEST(SceneRecords, FreshButtonReadsZeroInAllFourteenFields) {
    const ButtonValue button;
    EXPECT_EQ(button.ButtonID(), 0);
    EXPECT_EQ(button.MIDIChannel(), 0);
    EXPECT_EQ(button.AssignType(), 0);
    EXPECT_EQ(button.CCOrNoteNumber(), 0);
    EXPECT_EQ(button.UpperOrRightValue(), 0);
    EXPECT_EQ(button.LowerOrLeftValue(), 0);
    EXPECT_EQ(button.PadBehavior(), 0);
    EXPECT_EQ(button.KeyBehavior(), 0);
    EXPECT_EQ(button.OnValue(), 0);
    EXPECT_EQ(button.OffValue(), 0);
    EXPECT_EQ(button.Enable(), 0);
    EXPECT_EQ(button.CR(), 0);
    EXPECT_EQ(button.CG(), 0);
    EXPECT_EQ(button.CB(), 0);
}

TEST(SceneRecords, ButtonKeepsEachFieldApart) {
    ButtonValue button;
    button.setButtonID(1);
    button.setMIDIChannel(2);
    button.setAssignType(3);
    button.setCCOrNoteNumber(4);
    button.setUpperOrRightValue(5);
    button.setLowerOrLeftValue(6);
    button.setPadBehavior(7);
    button.setKeyBehavior(8);
    button.setOnValue(9);
    button.setOffValue(10);
    button.setEnable(11);
    button.setCR(12);
    button.setCG(13);
    button.setCB(14);
    EXPECT_EQ(button.ButtonID(), 1);
    EXPECT_EQ(button.MIDIChannel(), 2);
    EXPECT_EQ(button.AssignType(), 3);
    EXPECT_EQ(button.CCOrNoteNumber(), 4);
    EXPECT_EQ(button.UpperOrRightValue(), 5);
    EXPECT_EQ(button.LowerOrLeftValue(), 6);
    EXPECT_EQ(button.PadBehavior(), 7);
    EXPECT_EQ(button.KeyBehavior(), 8);
    EXPECT_EQ(button.OnValue(), 9);
    EXPECT_EQ(button.OffValue(), 10);
    EXPECT_EQ(button.Enable(), 11);
    EXPECT_EQ(button.CR(), 12);
    EXPECT_EQ(button.CG(), 13);
    EXPECT_EQ(button.CB(), 14);
}

TEST(SceneRecords, FreshCommonSettingsAreZeroWithAnEmptyName) {
    const CommonValue common;
    EXPECT_EQ(common.SceneName(), "");
    EXPECT_EQ(common.GlobalMIDICh(), 0);
    EXPECT_EQ(common.PianoKeyCh(), 0);
    EXPECT_EQ(common.PitchBendSpeed(), 0);
    EXPECT_EQ(common.KeyTranspose(), 0);
    EXPECT_EQ(common.KeyVelocityCurve(), 0);
    EXPECT_EQ(common.KeyConstVelocity(), 0);
    EXPECT_EQ(common.PadVelocityCurve(), 0);
    EXPECT_EQ(common.PadConstVelocity(), 0);
}

TEST(SceneRecords, CommonSettingsKeepEachFieldApart) {
    CommonValue common;
    common.setSceneName("LIVE");
    common.setGlobalMIDICh(1);
    common.setPianoKeyCh(2);
    common.setPitchBendSpeed(3);
    common.setKeyTranspose(4);
    common.setKeyVelocityCurve(5);
    common.setKeyConstVelocity(6);
    common.setPadVelocityCurve(7);
    common.setPadConstVelocity(8);
    EXPECT_EQ(common.SceneName(), "LIVE");
    EXPECT_EQ(common.GlobalMIDICh(), 1);
    EXPECT_EQ(common.PianoKeyCh(), 2);
    EXPECT_EQ(common.PitchBendSpeed(), 3);
    EXPECT_EQ(common.KeyTranspose(), 4);
    EXPECT_EQ(common.KeyVelocityCurve(), 5);
    EXPECT_EQ(common.KeyConstVelocity(), 6);
    EXPECT_EQ(common.PadVelocityCurve(), 7);
    EXPECT_EQ(common.PadConstVelocity(), 8);
}

TEST(SceneRecords, FreshSceneHasNoRecords) {
    const SceneValue scene;
    EXPECT_EQ(scene.commonValue(), nullptr);
    EXPECT_TRUE(scene.displayValue().empty());
    EXPECT_TRUE(scene.buttonValueArray().empty());
}

TEST(SceneRecords, ButtonArrayIsCopiedAndItsElementsAreShared) {
    ButtonList source{std::make_shared<ButtonValue>()};
    SceneValue scene;
    scene.setButtonValueArray(source);
    source.push_back(std::make_shared<ButtonValue>());
    EXPECT_EQ(scene.buttonValueArray().size(), 1U);
    source[0]->setCR(99);
    EXPECT_EQ(scene.buttonValueArray()[0]->CR(), 99);
}

TEST(SceneRecords, DisplayArrayIsCopiedAndItsElementsAreShared) {
    ButtonList source{std::make_shared<ButtonValue>()};
    SceneValue scene;
    scene.setDisplayValue(source);
    source.clear();
    ASSERT_EQ(scene.displayValue().size(), 1U);
    EXPECT_EQ(scene.displayValue()[0]->CR(), 0);
}

TEST(SceneRecords, CommonSettingsAreShared) {
    const auto common = std::make_shared<CommonValue>();
    SceneValue scene;
    scene.setCommonValue(common);
    common->setKeyTranspose(4);
    EXPECT_EQ(scene.commonValue(), common);
    EXPECT_EQ(scene.commonValue()->KeyTranspose(), 4);
}

TEST(SceneRecords, ReassigningASourceTextLeavesTheNameUnchanged) {
    CommonValue common;
    std::string name = "ONE";
    common.setSceneName(name);
    name = "TWO";
    EXPECT_EQ(common.SceneName(), "ONE");
}

TEST(SceneRecords, NamesKeepZeroBytes) {
    CommonValue common;
    common.setSceneName(std::string("A\0B\0", 4));
    EXPECT_EQ(common.SceneName().size(), 4U);
}

TEST(SceneRecords, WritersAcceptAnyValue) {
    ButtonValue button;
    button.setEnable(200);
    button.setCCOrNoteNumber(-5);
    EXPECT_EQ(button.Enable(), 200);
    EXPECT_EQ(button.CCOrNoteNumber(), -5);
    CommonValue common;
    common.setPitchBendSpeed(200);
    common.setGlobalMIDICh(-5);
    EXPECT_EQ(common.PitchBendSpeed(), 200);
    EXPECT_EQ(common.GlobalMIDICh(), -5);
}

TEST(SceneRecords, RangeKeepsItsSevenNumbers) {
    ButtonRange range;
    EXPECT_EQ(range.all(), 0);
    range.setCommon_start(0);
    range.setGroup_start(1);
    range.setKnob_start(5);
    range.setSlider_start(9);
    range.setPad_start(13);
    range.setKey_start(21);
    range.setAll(46);
    EXPECT_EQ(range.common_start(), 0);
    EXPECT_EQ(range.group_start(), 1);
    EXPECT_EQ(range.knob_start(), 5);
    EXPECT_EQ(range.slider_start(), 9);
    EXPECT_EQ(range.pad_start(), 13);
    EXPECT_EQ(range.key_start(), 21);
    EXPECT_EQ(range.all(), 46);
}

TEST(SceneRecords, OptionFieldsAreAllButTheIdentifierInTheirOrder) {
    std::vector<std::string_view> names;
    for (const auto& field : kButtonOptionFields)
        names.push_back(field.name);
    EXPECT_EQ(names, (std::vector<std::string_view>{"MIDIChannel", "AssignType", "CCOrNoteNumber",
                                                    "UpperOrRightValue", "LowerOrLeftValue",
                                                    "PadBehavior", "KeyBehavior", "OnValue",
                                                    "OffValue", "Enable", "CR", "CG", "CB"}));
}

} // namespace
} // namespace scenewright
