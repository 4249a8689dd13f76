// A bank whose every byte is known: the same one as image, as scenes and as the JSON text of
// data/known.json, which has each common part, group and control on one line.
#pragma once

#include "model/SceneValue.h"
#include "protocol/SceneImage.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <array>
#include <fstream>
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

// The lines of a bank file that stand on one line in data/known.json: one a setting, with its
// title.
inline std::string inLines(std::string object) {
    const std::size_t open = object.find("{\"");
    if (open == std::string::npos)
        return object;
    const std::string end = '\n' + std::string(object.find_first_not_of(' '), ' ');
    object.insert(object.rfind('}'), end);
    for (std::size_t at = open; (at = object.find(", \"", at + 1)) != std::string::npos;)
        if (!object.substr(at).starts_with(", \"//"))
            object.replace(at + 1, 1, end + "  ");
    return object.insert(open + 1, end + "  ");
}

inline std::string knownJson() {
    std::ifstream file(SCENEWRIGHT_SOURCE_DIR "/tests/bank/data/known.json");
    std::string text;
    for (std::string line; std::getline(file, line);)
        text += inLines(line) + '\n';
    return text;
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
