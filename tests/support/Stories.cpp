#include "tests/support/Stories.h"

#include <algorithm>
#include <string>

namespace scenewright::testing {

namespace {

using Patches = std::map<std::size_t, Bytes>;

constexpr std::size_t kScene = 253; // bytes of a scene

Bytes letters(std::string text) {
    text.resize(12);
    return {text.begin(), text.end()};
}

// The same patch in all four scenes.
Patches inAll(const Patches& patches) {
    Patches all;
    for (std::size_t scene = 0; scene < 4; ++scene)
        for (const auto& [offset, bytes] : patches)
            all[scene * kScene + offset] = bytes;
    return all;
}

Patches with(Patches patches, const Patches& more) {
    patches.insert(more.begin(), more.end());
    return patches;
}

std::vector<Story> allStories() {
    return {
        {"drums, chromatic from C1, red to yellow",
         {{189, {24, 25, 26, 27, 28, 29, 30, 31}},
          {229, Bytes(8, 127)},
          {237, {0, 18, 36, 54, 73, 91, 109, 127}},
          {245, Bytes(8, 0)}}},
        {"scenes 2 and 4 change places before the gig",
         {{kScene, letters("SCENE4")}, {kScene + 229, {5}}, {3 * kScene, letters("Synth&Bass")}}},
        {"25 keys in D dorian", {{70, {50, 52, 53, 55, 57, 59, 60, 62, 64, 65, 67, 69, 71,
                                       72, 74, 76, 77, 79, 81, 83, 84, 86, 88, 89, 91}}}},
        {"one knob is the sustain pedal", {{153, {64}}}},
        {"a conflict is found and mended", {{169, {11, 7}}, {190, {39}}, {192, {37}}}},
        {"the pads go to channel 1 in every scene", inAll({{197, Bytes(8, 0)}})},
        {"a minor pentatonic for the solo", {{kScene + 189, {48, 51, 53, 55, 58, 60, 63, 65}}}},
        {"a blues on the keys, an octave lower",
         {{70, {33, 36, 38, 39, 40, 43, 45, 48, 50, 51, 52, 55, 57,
                60, 62, 63, 64, 67, 69, 72, 74, 75, 76, 79, 81}}}},
        {"knobs and sliders send a row of controllers in every scene",
         inAll({{153, {20, 21, 22, 23}}, {169, {24, 25, 26, 27}}})},
        {"the last pad is for panic",
         {{188, {1}},
          {196, {123}},
          {212, {2}},
          {220, {0}},
          {236, {127}},
          {244, {127}},
          {252, {127}}}},
        {"pads that stay on", {{205, Bytes(8, 1)}}},
        {"notes are typed with flats", {{191, {37, 46}}, {70, {51}}}},
        {"one scene's pads are good enough for all", inAll({{189, {45}}, {229, {1}}})},
        {"pad 1 and pad 8 change places for the left hand",
         {{189, {43}}, {196, {36}}, {237, {127}}, {244, {0}}, {245, {127}}, {252, {0}}}},
        {"a scene that has been played with is as new", {}},
        {"drawbars are pulled down", {{173, Bytes(4, 0)}, {177, Bytes(4, 127)}}},
        {"the pads are as loud as they can be", {{18, {3, 127}}}},
        {"a transposition too far is found", {{15, {3}}, {94, {80}}}},
        {"a colour is written into the text of a bank", {{229, {64}}, {237, {0}}, {245, {127}}}},
        {"four scenes for four songs", with(inAll({{229, {127, 127, 127, 127, 127, 64, 0, 0}},
                                                   {237, {0, 32, 64, 96, 127, 127, 127, 127}},
                                                   {245, {0, 0, 0, 0, 0, 0, 0, 64}}}),
                                            {{0, letters("Intro")},
                                             {kScene, letters("Verse")},
                                             {2 * kScene, letters("Chorus")},
                                             {3 * kScene, letters("Fin \xC3\xA9")}})},
    };
}

} // namespace

const std::vector<Story>& stories() {
    static const std::vector<Story> kStories = allStories();
    return kStories;
}

Bytes endOf(const Story& story, Bytes bank) {
    for (const auto& [offset, patch] : story.patches)
        std::ranges::copy(patch, bank.begin() + static_cast<std::ptrdiff_t>(offset));
    return bank;
}

} // namespace scenewright::testing
