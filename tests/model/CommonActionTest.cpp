#include "model/FileAction.h"
#include "tests/model/PropertyValues.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

using Dictionary = PropertyValue::Dictionary;
using Node = PropertyValue::Node;
using testing::number;
using testing::text;

Dictionary wholeDictionary() {
    return {{"globalMIDICh", number(1)},     {"pianoKeyCh", number(2)},
            {"pitchBendSpeed", number(3)},   {"keyTranspose", number(4)},
            {"keyVelocityCurve", number(5)}, {"keyConstVelocity", number(6)},
            {"padVelocityCurve", number(7)}, {"padConstVelocity", number(8)}};
}

std::shared_ptr<CommonValue> commonOf(Dictionary dictionary) {
    return CommonAction::GetCommonValueFromDic(PropertyValue(Node(std::move(dictionary))));
}

TEST(CommonAction, EachKeyFillsItsField) {
    const auto common = commonOf(wholeDictionary());
    EXPECT_EQ(common->GlobalMIDICh(), 1);
    EXPECT_EQ(common->PianoKeyCh(), 2);
    EXPECT_EQ(common->PitchBendSpeed(), 3);
    EXPECT_EQ(common->KeyTranspose(), 4);
    EXPECT_EQ(common->KeyVelocityCurve(), 5);
    EXPECT_EQ(common->KeyConstVelocity(), 6);
    EXPECT_EQ(common->PadVelocityCurve(), 7);
    EXPECT_EQ(common->PadConstVelocity(), 8);
}

TEST(CommonAction, MissingKeyGivesZeroAndSparesTheOthers) {
    Dictionary dictionary = wholeDictionary();
    dictionary.erase("pitchBendSpeed");
    const auto common = commonOf(dictionary);
    EXPECT_EQ(common->PitchBendSpeed(), 0);
    EXPECT_EQ(common->PianoKeyCh(), 2);
    EXPECT_EQ(common->KeyTranspose(), 4);
}

TEST(CommonAction, NumbersAndTheirTextsReadAlike) {
    EXPECT_EQ(commonOf({{"keyTranspose", text("12")}})->KeyTranspose(), 12);
    EXPECT_EQ(commonOf({{"keyTranspose", number(12)}})->KeyTranspose(), 12);
}

TEST(CommonAction, ValuesAreNotChecked) {
    EXPECT_EQ(commonOf({{"keyTranspose", number(-300)}})->KeyTranspose(), -300);
}

TEST(CommonAction, KeysWithACapitalInitialAreNotKnown) {
    EXPECT_EQ(commonOf({{"KeyTranspose", number(3)}})->KeyTranspose(), 0);
}

TEST(CommonAction, NameIsEmptyWhateverTheFileHolds) {
    EXPECT_EQ(commonOf({{"SceneName", text("X")}, {"sceneName", text("Y")}})->SceneName(), "");
}

TEST(CommonAction, AbsentDictionaryGivesZeros) {
    const auto common = CommonAction::GetCommonValueFromDic(PropertyValue());
    ASSERT_NE(common, nullptr);
    EXPECT_EQ(common->GlobalMIDICh(), 0);
    EXPECT_EQ(common->SceneName(), "");
}

} // namespace
} // namespace scenewright
