// Scene images as a controller sends them: whatever the bytes, they parse, encode to what was kept
// of them, and print as a table of 80 columns.
#include "cli/Reports.h"
#include "platform/Text.h"
#include "tests/fuzz/Checks.h"

#include <algorithm>

namespace scenewright::fuzz {

namespace {

constexpr std::size_t kColumns = 80;

// The image without what a setting cannot hold.
SceneImage keptOf(std::span<const std::uint8_t> image) {
    SceneImage kept{};
    std::ranges::copy(image, kept.begin());
    for (std::uint8_t& byte : std::span(kept).subspan(kNameSize))
        if (byte >= 0x80)
            byte = 0;
    return kept;
}

std::size_t columnsOf(std::string_view line) {
    return static_cast<std::size_t>(std::ranges::count_if(
        line, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

void checkTable(const std::string& table) {
    check(table.ends_with("\n\n"), "the table does not end with a blank line");
    for (const std::string& line : split(table, '\n')) {
        check(readableText(line) == line, "the table has unreadable bytes");
        check(columnsOf(line) <= kColumns, "the table is wider than 80 columns");
    }
}

void checkScene(const SceneValue& scene, std::span<const std::uint8_t> bytes) {
    SceneImage image = encodeScene(scene);
    if (faultIsPlanted())
        image.back() ^= 1U;
    check(image == keptOf(bytes), "a scene does not encode to what it was parsed from");
    check(encodeScene(*parseScenes(image).front()) == image, "an image changes the second time");
    checkTable(sceneTable(optionLists(), scene, 1));
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright;
    const std::span input(data, size);
    const SceneList scenes = parseScenes(input);
    fuzz::check(scenes.size() == size / kSceneImageSize, "not a scene for every whole image");
    for (std::size_t i = 0; i < scenes.size(); ++i)
        fuzz::checkScene(*scenes[i], input.subspan(i * kSceneImageSize, kSceneImageSize));
    return 0;
}
