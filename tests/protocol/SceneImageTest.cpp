#include "protocol/SceneImage.h"

#include "protocol/Connection.h"
#include "protocol/Transactions.h"
#include "tests/protocol/DeviceTest.h"
#include "tests/protocol/TestScenes.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

TEST(Packet, CommandsAreNoteOnsOfCableZeroOnChannelThirteen) {
    EXPECT_EQ(packets::kHandshakeRequest, (Packet{0x09, 0x9C, 0x01, 0x02}));
    EXPECT_EQ(packets::kHandshakeConfirm, (Packet{0x09, 0x9C, 0x7E, 0x7D}));
    EXPECT_EQ(packets::kHandshakeReply, (Packet{0x09, 0x9C, 0x01, 0x38}));
    EXPECT_EQ(packets::kSendStart, (Packet{0x09, 0x9C, 0x01, 0x03}));
    EXPECT_EQ(packets::kReadStart, (Packet{0x09, 0x9C, 0x01, 0x04}));
    EXPECT_EQ(packets::kReadEnd, (Packet{0x09, 0x9C, 0x01, 0x05}));
    EXPECT_EQ(packets::kReadNext, (Packet{0x09, 0x9C, 0x01, 0x06}));
    EXPECT_EQ(packets::kFill, (Packet{0x09, 0x90, 0x0F, 0x0F}));
}

TEST(Packet, DataByteTravelsAsTwoNibbles) {
    EXPECT_EQ(packets::data(0xA7), (Packet{0x09, 0x90, 0x0A, 0x07}));
    EXPECT_EQ(packets::data(0x7F), (Packet{0x09, 0x90, 0x07, 0x0F}));
    EXPECT_EQ(packets::data(0x00), (Packet{0x09, 0x90, 0x00, 0x00}));
}

using PacketWriting = testing::DeviceTest;

TEST_F(PacketWriting, PacketIsOneTransferOfFourBytesOnPipeTwo) {
    connect();
    writePacket(packets::data(0xA7));
    EXPECT_EQ(script->calls, (testing::Lines{"write one/1 2 09 90 0a 07"}));
}

using testing::Bytes;
using testing::zeroScene;

Bytes nameOf(const SceneImage& image) {
    return {image.begin(), image.begin() + 12};
}

Bytes encodedName(const std::string& name) {
    const auto scene = zeroScene();
    scene->commonValue()->setSceneName(name);
    return nameOf(encodeScene(*scene));
}

TEST(SceneImage, NameIsItsBytesFilledWithZeros) {
    using namespace std::string_literals;
    for (const auto& [name, bytes] : std::vector<std::pair<std::string, Bytes>>{
             {"", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
             {"ABC", {0x41, 0x42, 0x43, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
             {"ABCDEFGHIJKL",
              {0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0x4A, 0x4B, 0x4C}},
             {"B\u00fchne", {0x42, 0xC3, 0xBC, 0x68, 0x6E, 0x65, 0, 0, 0, 0, 0, 0}},
             {"\0\xFF\x80\x41\0"s, {0x00, 0xFF, 0x80, 0x41, 0, 0, 0, 0, 0, 0, 0, 0}}})
        EXPECT_EQ(encodedName(name), bytes) << name;
}

TEST(SceneImage, NameLongerThanTwelveBytesKeepsItsFirstTwelve) {
    const auto scene = zeroScene();
    scene->commonValue()->setSceneName("ABCDEFGHIJKLMNO");
    scene->commonValue()->setGlobalMIDICh(9);
    const SceneImage image = encodeScene(*scene);
    EXPECT_EQ(nameOf(image), encodedName("ABCDEFGHIJKL"));
    EXPECT_EQ(image[12], 9);
    EXPECT_EQ(image[13], 0);
}

// 127 is the highest value that is written as it is.
TEST(SceneImage, EachFieldHasOneByteAndNoOther) {
    for (const auto& row : testing::controlBytes())
        for (std::size_t k = 0; k < row.count; ++k) {
            const auto scene = zeroScene();
            ((*scene->buttonValueArray()[row.first + k]).*row.write)(127);
            SceneImage expected{};
            expected.at(row.offset + k) = 127;
            EXPECT_EQ(encodeScene(*scene), expected) << row.name << ' ' << k;
        }
    for (const auto& row : testing::commonBytes()) {
        const auto scene = zeroScene();
        ((*scene->commonValue()).*row.write)(127);
        SceneImage expected{};
        expected.at(row.offset) = 127;
        EXPECT_EQ(encodeScene(*scene), expected) << row.name;
    }
    EXPECT_EQ(SceneImage().size(), 253U);
}

TEST(SceneImage, FieldsThatAKindDoesNotCarryAreNotWritten) {
    const auto scene = zeroScene();
    const auto& buttons = scene->buttonValueArray();
    for (const auto& button : buttons)
        button->setButtonID(0x55);
    for (std::size_t knobOrSlider = 4; knobOrSlider < 12; ++knobOrSlider) {
        buttons[knobOrSlider]->setAssignType(0x55);
        buttons[knobOrSlider]->setMIDIChannel(0x55);
    }
    buttons[0]->setEnable(0x55);
    buttons[12]->setEnable(0x55);
    buttons[20]->setPadBehavior(0x55);
    scene->setDisplayValue({buttons[0]});
    EXPECT_EQ(encodeScene(*scene), SceneImage{});
}

TEST(SceneImage, ValueOutsideZeroTo127IsWrittenAsZero) {
    for (const std::int32_t value : {-1, -128, 128, 255, 256, 383, 0x10000}) {
        const auto scene = zeroScene();
        for (const auto& row : testing::controlBytes())
            for (std::size_t k = 0; k < row.count; ++k)
                ((*scene->buttonValueArray()[row.first + k]).*row.write)(value);
        for (const auto& row : testing::commonBytes())
            ((*scene->commonValue()).*row.write)(value);
        EXPECT_EQ(encodeScene(*scene), SceneImage{}) << value;
    }
}

TEST(SceneImage, RecordsThatTheSceneLacksAreWrittenAsZero) {
    EXPECT_EQ(encodeScene(SceneValue()), SceneImage{});
    SceneValue scene;
    const auto group = std::make_shared<ButtonValue>();
    group->setMIDIChannel(5);
    scene.setButtonValueArray({group});
    SceneImage expected{};
    expected[145] = 5;
    EXPECT_EQ(encodeScene(scene), expected);
}

TEST(SceneAction, GivesTheImageOfAScene) {
    const auto scene = zeroScene();
    scene->buttonValueArray()[19]->setCB(3);
    const SceneImage image = encodeScene(*scene);
    EXPECT_EQ(SceneAction::sceneToBytes(*scene), Bytes(image.begin(), image.end()));
}

TEST(SceneAction, InitialisedButtonIsAbsentInAllButItsIdentifier) {
    const auto button = std::make_shared<ButtonValue>();
    button->setButtonID(48);
    for (const auto& field : kButtonOptionFields)
        EXPECT_EQ(field.of(*button), 0) << field.name;
    EXPECT_EQ(SceneAction::initButton(button), button);
    EXPECT_EQ(button->ButtonID(), 48);
    for (const auto& field : kButtonOptionFields)
        EXPECT_EQ(field.of(*button), -1) << field.name;
}

} // namespace

} // namespace scenewright
