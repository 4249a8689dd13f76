// Making scenes out of byte images.
#include "platform/Diagnostics.h"
#include "protocol/SceneImage.h"
#include "tests/protocol/TestScenes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <set>
#include <vector>

namespace scenewright {
namespace {

using testing::Bytes;

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
