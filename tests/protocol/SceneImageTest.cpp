#include "protocol/SceneImage.h"

#include "platform/Diagnostics.h"
#include "protocol/Connection.h"
#include "protocol/Transactions.h"
#include "tests/protocol/DeviceBench.h"
#include "tests/protocol/TestScenes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <random>
#include <set>
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

using PacketWriting = testing::DeviceBench;

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

std::shared_ptr<SceneValue> parsed(const Bytes& image) {
    const SceneList scenes = parseScenes(image);
    EXPECT_EQ(scenes.size(), 1U);
    return scenes.at(0);
}

// What every field is that some kind does not carry.
TEST(SceneImageParse, EachKindCarriesItsFieldsAndNoOthers) {
    const auto scene = parsed(Bytes(253, 0));
    ASSERT_EQ(scene->buttonValueArray().size(), 45U);
    EXPECT_TRUE(scene->displayValue().empty());
    std::set<std::pair<std::size_t, std::string_view>> carried;
    for (const auto& row : testing::controlBytes())
        for (std::size_t k = 0; k < row.count; ++k) {
            const std::string_view name(row.name);
            carried.emplace(row.first + k, name.substr(name.find(' ') + 1));
        }
    for (std::size_t control = 0; control < 45; ++control)
        for (const auto& field : kButtonOptionFields)
            EXPECT_EQ(field.of(*scene->buttonValueArray()[control]),
                      carried.contains({control, field.name}) ? 0 : -1)
                << control << ' ' << field.name;
}

// Of all values that a setting can have.
TEST(SceneImageParse, EachByteFillsItsField) {
    Bytes image;
    for (std::size_t i = 0; i < 253; ++i)
        image.push_back(static_cast<std::uint8_t>((i * 7 + 3) % 128));
    const auto scene = parsed(image);
    for (const auto& row : testing::controlBytes())
        for (std::size_t k = 0; k < row.count; ++k)
            EXPECT_EQ(((*scene->buttonValueArray()[row.first + k]).*row.read)(),
                      image[row.offset + k])
                << row.name << ' ' << k;
    for (const auto& row : testing::commonBytes())
        EXPECT_EQ(((*scene->commonValue()).*row.read)(), image[row.offset]) << row.name;
}

TEST(SceneImageParse, NameKeepsAllTwelveBytesOfAnyValue) {
    Bytes image(253, 0);
    std::ranges::copy(Bytes{0x41, 0xFF, 0x80, 0x00, 0x1B, 0xC3}, image.begin());
    EXPECT_EQ(parsed(image)->commonValue()->SceneName(),
              std::string("A\xFF\x80\0\x1B\xC3\0\0\0\0\0\0", 12));
}

TEST(SceneImageParse, EachSettingByteFrom0x80UpReadsAsZero) {
    for (const std::uint8_t byte : Bytes{0x80, 0x81, 0x8F, 0xC8, 0xFF}) {
        const auto scene = parsed(Bytes(253, byte));
        for (const auto& row : testing::controlBytes())
            for (std::size_t k = 0; k < row.count; ++k)
                EXPECT_EQ(((*scene->buttonValueArray()[row.first + k]).*row.read)(), 0) << row.name;
        for (const auto& row : testing::commonBytes())
            EXPECT_EQ(((*scene->commonValue()).*row.read)(), 0) << row.name;
        EXPECT_EQ(scene->commonValue()->SceneName(), std::string(12, static_cast<char>(byte)));
    }
}

TEST(SceneImageParse, ScenesLieEndToEnd) {
    Bytes images(1012, 0);
    for (std::size_t s = 0; s < 4; ++s) {
        images[s * 253] = static_cast<std::uint8_t>('A' + s);
        images[s * 253 + 252] = static_cast<std::uint8_t>(s + 1);
    }
    const SceneList scenes = parseScenes(images);
    ASSERT_EQ(scenes.size(), 4U);
    for (std::size_t s = 0; s < 4; ++s) {
        EXPECT_EQ(scenes[s]->commonValue()->SceneName()[0], static_cast<char>('A' + s));
        EXPECT_EQ(scenes[s]->buttonValueArray()[19]->CB(), static_cast<int>(s + 1));
    }
}

TEST(SceneImageParse, EncodedAgainOnlySettingBytesFrom0x80UpHaveChanged) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> any(0, 255);
    for (int i = 0; i < 300; ++i) {
        Bytes images;
        Bytes expected;
        for (std::size_t at = 0; at < 1012; ++at) {
            const auto byte = static_cast<std::uint8_t>(any(random));
            images.push_back(byte);
            expected.push_back(at % 253 >= 12 && byte >= 0x80 ? std::uint8_t{0} : byte);
        }
        Bytes encoded;
        for (const auto& scene : parseScenes(images))
            std::ranges::copy(encodeScene(*scene), std::back_inserter(encoded));
        ASSERT_EQ(encoded, expected) << i;
    }
}

TEST(SceneImageParse, ScenesShareNoRecord) {
    const SceneList scenes = parseScenes(Bytes(506, 0));
    scenes[0]->commonValue()->setKeyTranspose(3);
    scenes[0]->buttonValueArray()[0]->setMIDIChannel(3);
    EXPECT_EQ(scenes[1]->commonValue()->KeyTranspose(), 0);
    EXPECT_EQ(scenes[1]->buttonValueArray()[0]->MIDIChannel(), 0);
}

TEST(SceneImageParse, BytesCutAnywhereGiveTheScenesThatAreWhole) {
    const Bytes images(1300, 1);
    for (std::size_t size = 0; size <= images.size(); ++size)
        EXPECT_EQ(parseScenes(std::span(images).first(size)).size(), size / 253) << size;
}

TEST(SceneImageParse, EachGroupsChannelIsLoggedWithItsPlaceInTheWholeBuffer) {
    std::vector<std::string> log;
    Diagnostics::setLog([&](std::string_view line) { log.emplace_back(line); });
    Bytes images(506, 0x80);
    images[145] = 7;
    images[148] = 127;
    images[398] = 16;
    const SceneList scenes = parseScenes(images);
    Diagnostics::setLog({});
    EXPECT_EQ(log, (std::vector<std::string>{"index------>145:7", "index------>146:0",
                                             "index------>147:0", "index------>148:127",
                                             "index------>398:16", "index------>399:0",
                                             "index------>400:0", "index------>401:0"}));
}

} // namespace
} // namespace scenewright
