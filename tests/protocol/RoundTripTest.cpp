#include "protocol/SceneImage.h"
#include "tests/protocol/TestScenes.h"

namespace scenewright {
namespace {

using testing::Bytes;

Bytes encoded(const SceneList& scenes) {
    Bytes images;
    for (const auto& scene : scenes) {
        const SceneImage image = encodeScene(*scene);
        images.insert(images.end(), image.begin(), image.end());
    }
    return images;
}

TEST(RoundTrip, ImagesOfAnyIndicesAndNamesComeBackByteForByte) {
    std::mt19937 random(20240501);
    for (int i = 0; i < 300; ++i) {
        const Bytes images = testing::randomImages(random, 4);
        ASSERT_EQ(encoded(parseScenes(images)), images) << i;
    }
}

TEST(RoundTrip, SettingBytesFrom0x80UpComeBackAsZeroAndNothingElseChanges) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> any(0, 255);
    for (int i = 0; i < 100; ++i) {
        Bytes images;
        Bytes expected;
        for (std::size_t at = 0; at < 1012; ++at) {
            const auto byte = static_cast<std::uint8_t>(any(random));
            images.push_back(byte);
            expected.push_back(at % 253 >= 12 && byte >= 0x80 ? std::uint8_t{0} : byte);
        }
        ASSERT_EQ(encoded(parseScenes(images)), expected) << i;
    }
}

} // namespace
} // namespace scenewright
