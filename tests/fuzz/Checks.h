// What a fuzzer says of what it found, and the invariants that several of them check.
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "protocol/SceneImage.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright::fuzz {

// Ends the process with `what` on standard error, as a crash that is to be looked into, unless it
// holds.
void check(bool holds, std::string_view what);

// One sentence or phrase for a person: not empty, valid UTF-8, without control characters (a line
// feed is one), and complete at its end.
void checkSentence(std::string_view text);
// The same for something that was refused: there is trouble, and it is a sentence.
void checkTrouble(const std::optional<std::string>& trouble);

// Whether the fuzzer is to spoil one result of what it tests, so that its own checks are seen to
// find that. Set by the environment variable SCENEWRIGHT_FUZZ_PLANT.
[[nodiscard]] bool faultIsPlanted();

// Reads the bytes as a bank: refused whole and in one sentence, or taken, and then the same bank in
// either form that it is written in.
void checkBank(std::span<const std::uint8_t> bytes);

// The option lists and the default scene of the tree's own resources, read once.
[[nodiscard]] const PopUpValue& optionLists();
// Four default scenes with names, made anew.
[[nodiscard]] SceneList defaultScenes();

// The parts between the separators, one more than there are of them.
[[nodiscard]] std::vector<std::string> split(std::string_view text, char separator);

[[nodiscard]] inline std::string_view textOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}
[[nodiscard]] inline std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace scenewright::fuzz
