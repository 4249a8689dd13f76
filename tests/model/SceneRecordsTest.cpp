#include "model/Control.h"
#include "model/SceneValue.h"
#include "tests/model/RecordFields.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace scenewright {
namespace {

using ButtonList = std::vector<std::shared_ptr<ButtonValue>>;

// What is written into each field is another number, and none changes another's.
template <typename Record, std::size_t Count>
Record filled(const std::array<testing::RecordField<Record>, Count>& fields) {
    Record record;
    std::int32_t place = 0;
    for (const auto& field : fields)
        (record.*field.write)(++place);
    return record;
}

TEST(SceneRecords, FreshRecordsReadZeroWithAnEmptyName) {
    testing::expectZeros(ButtonValue{}, testing::kButtonFields);
    testing::expectZeros(CommonValue{}, testing::kCommonFields);
    EXPECT_EQ(CommonValue{}.SceneName(), "");
}

TEST(SceneRecords, EachFieldIsKeptApart) {
    testing::expectPlaces(filled(testing::kButtonFields), testing::kButtonFields);
    CommonValue common = filled(testing::kCommonFields);
    common.setSceneName("LIVE");
    testing::expectPlaces(common, testing::kCommonFields);
    EXPECT_EQ(common.SceneName(), "LIVE");
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
