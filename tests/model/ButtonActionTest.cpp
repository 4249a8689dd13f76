#include "model/FileAction.h"
#include "tests/model/PropertyValues.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

using Dictionary = PropertyValue::Dictionary;
using Node = PropertyValue::Node;
using testing::number;

std::shared_ptr<ButtonValue> buttonOf(Dictionary dictionary) {
    return ButtonAction::GetButtonValueFromDic(PropertyValue(Node(std::move(dictionary))));
}

TEST(ButtonAction, EachKeyFillsItsField) {
    const auto button = buttonOf({{"BtnID", number(48)},
                                  {"MIDIChannel", number(2)},
                                  {"AssignType", number(3)},
                                  {"CCOrNoteNumber", number(4)},
                                  {"UpperOrRightValue", number(5)},
                                  {"LowerOrLeftValue", number(6)},
                                  {"PadBehavior", number(7)},
                                  {"KeyBehavior", number(8)},
                                  {"OnValue", number(9)},
                                  {"OffValue", number(10)},
                                  {"Enable", number(11)},
                                  {"CR", number(12)},
                                  {"CG", number(13)},
                                  {"CB", number(14)}});
    EXPECT_EQ(button->ButtonID(), 48);
    EXPECT_EQ(button->MIDIChannel(), 2);
    EXPECT_EQ(button->AssignType(), 3);
    EXPECT_EQ(button->CCOrNoteNumber(), 4);
    EXPECT_EQ(button->UpperOrRightValue(), 5);
    EXPECT_EQ(button->LowerOrLeftValue(), 6);
    EXPECT_EQ(button->PadBehavior(), 7);
    EXPECT_EQ(button->KeyBehavior(), 8);
    EXPECT_EQ(button->OnValue(), 9);
    EXPECT_EQ(button->OffValue(), 10);
    EXPECT_EQ(button->Enable(), 11);
    EXPECT_EQ(button->CR(), 12);
    EXPECT_EQ(button->CG(), 13);
    EXPECT_EQ(button->CB(), 14);
}

TEST(ButtonAction, MissingKeyGivesZeroNotAbsent) {
    const auto button = buttonOf({{"CR", number(127)}});
    EXPECT_EQ(button->CR(), 127);
    EXPECT_EQ(button->CG(), 0);
    EXPECT_EQ(button->Enable(), 0);
    EXPECT_EQ(button->ButtonID(), 0);
}

TEST(ButtonAction, NumbersAndTheirTextsReadAlike) {
    EXPECT_EQ(buttonOf({{"OnValue", PropertyValue(Node(std::string("12")))}})->OnValue(), 12);
    EXPECT_EQ(buttonOf({{"OnValue", number(12)}})->OnValue(), 12);
}

TEST(ButtonAction, IdentifierIsReadUnderItsShortKeyOnly) {
    EXPECT_EQ(buttonOf({{"ButtonID", number(9)}})->ButtonID(), 0);
}

TEST(ButtonAction, ElementThatIsNoDictionaryGivesZeros) {
    const auto button = ButtonAction::GetButtonValueFromDic(number(5));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->MIDIChannel(), 0);
}

} // namespace
} // namespace scenewright
