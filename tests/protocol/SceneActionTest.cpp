#include "protocol/Transactions.h"
#include "tests/protocol/TestScenes.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

TEST(SceneAction, SceneBecomesExactly253Bytes) {
    const auto scene = testing::zeroScene();
    scene->commonValue()->setSceneName("AB");
    scene->buttonValueArray()[19]->setCB(3);
    const testing::Bytes bytes = SceneAction::sceneToBytes(*scene);
    ASSERT_EQ(bytes.size(), 253U);
    EXPECT_EQ(bytes[0], 0x41);
    EXPECT_EQ(bytes[1], 0x42);
    EXPECT_EQ(bytes[252], 3);
}

TEST(SceneAction, FourScenesMakeAnImageOf1012Bytes) {
    std::size_t size = 0;
    for (int i = 0; i < 4; ++i)
        size += SceneAction::sceneToBytes(*testing::zeroScene()).size();
    EXPECT_EQ(size, 1012U);
}

TEST(SceneAction, InitialisedButtonIsAbsentInAllButItsIdentifier) {
    const auto button = std::make_shared<ButtonValue>();
    button->setEnable(1);
    EXPECT_EQ(SceneAction::initButton(button), button);
    EXPECT_EQ(button->ButtonID(), 0);
    EXPECT_EQ(button->MIDIChannel(), -1);
    EXPECT_EQ(button->AssignType(), -1);
    EXPECT_EQ(button->CCOrNoteNumber(), -1);
    EXPECT_EQ(button->UpperOrRightValue(), -1);
    EXPECT_EQ(button->LowerOrLeftValue(), -1);
    EXPECT_EQ(button->PadBehavior(), -1);
    EXPECT_EQ(button->KeyBehavior(), -1);
    EXPECT_EQ(button->OnValue(), -1);
    EXPECT_EQ(button->OffValue(), -1);
    EXPECT_EQ(button->Enable(), -1);
    EXPECT_EQ(button->CR(), -1);
    EXPECT_EQ(button->CG(), -1);
    EXPECT_EQ(button->CB(), -1);
}

TEST(SceneAction, InitialisingKeepsTheIdentifier) {
    const auto button = std::make_shared<ButtonValue>();
    button->setButtonID(48);
    EXPECT_EQ(SceneAction::initButton(button)->ButtonID(), 48);
}

} // namespace
} // namespace scenewright
