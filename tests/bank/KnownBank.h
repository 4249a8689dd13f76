// A bank whose every byte is known: the same one as image, as scenes and as the JSON text of
// data/known.json.
#pragma once

#include "model/SceneValue.h"
#include "protocol/SceneImage.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <stdexcept>
#include <string>

namespace scenewright::testing {

// Names: LIVE; Café in UTF-8; bytes that are no text; empty. Setting bytes: see below.
inline BankImage knownImage() {
    using namespace std::string_literals;
    const std::array<std::string, 4> names{"LIVE", "Caf\xC3\xA9", "\xFF\0A\n\0\0\0\0\0\0\0B"s, ""};
    BankImage image{};
    for (std::size_t scene = 0; scene < names.size(); ++scene) {
        for (std::size_t offset = 12; offset < 253; ++offset)
            image.at(scene * 253 + offset) =
                static_cast<std::uint8_t>((offset * 7 + scene * 3) % 19);
        std::ranges::copy(names.at(scene),
                          std::next(image.begin(), static_cast<long>(scene * 253)));
    }
    return image;
}

inline SceneList knownScenes() {
    return parseScenes(knownImage());
}

inline std::string knownJson() {
    const auto bytes = readBytes(SCENEWRIGHT_SOURCE_DIR "/tests/bank/data/known.json");
    return {bytes.begin(), bytes.end()};
}

// The text with one occurrence of `from`, the first behind `anchor`, replaced.
inline std::string replaced(std::string text, const std::string& anchor, const std::string& from,
                            const std::string& to) {
    const std::size_t start = text.find(anchor);
    const std::size_t at = start == std::string::npos ? start : text.find(from, start);
    if (at == std::string::npos)
        throw std::invalid_argument("nothing to replace: " + anchor + " ... " + from);
    return text.replace(at, from.size(), to);
}

} // namespace scenewright::testing
