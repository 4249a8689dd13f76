// What twenty players want of their banks, each as the bytes of the whole bank in the end. How they
// come to it, by commands or in the window, is told beside each of the two.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace scenewright::testing {

using Bytes = std::vector<std::uint8_t>;

struct Story {
    std::string_view name;
    std::map<std::size_t, Bytes> patches; // to the bank of default scenes, by their offset
};

[[nodiscard]] const std::vector<Story>& stories();
// The bank in the end; `bank` is the one of default scenes.
[[nodiscard]] Bytes endOf(const Story& story, Bytes bank);

} // namespace scenewright::testing
