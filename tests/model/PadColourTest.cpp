#include "model/PadColour.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <utility>

namespace scenewright {

TEST(Colour, DigitsAreTheNearestStoredLevels) {
    for (const auto& [text, levels] :
         std::initializer_list<std::pair<const char*, PadColour>>{{"#000000", {0, 0, 0}},
                                                                  {"#ff8000", {127, 64, 0}},
                                                                  {"#FFFFFF", {127, 127, 127}},
                                                                  {"#010203", {0, 1, 1}},
                                                                  {"#7f80fe", {63, 64, 127}}})
        EXPECT_EQ(colourOf(text), levels) << text;
    for (const char* text : {"", "#", "ff8000", "0ff8000", "#ff800", "#ff80000", "#gg0000",
                             "#-10000", "#+10000", "#f f000", "#0x1234"})
        EXPECT_EQ(colourOf(text), std::nullopt) << text;
}

TEST(Colour, TextOfEveryLevelGivesThatLevel) {
    EXPECT_EQ(colourText({127, 64, 0}), "#ff8000");
    for (std::int32_t level = 0; level < 128; ++level)
        EXPECT_EQ(colourOf(colourText({level, 127 - level, level / 2})),
                  (PadColour{level, 127 - level, level / 2}));
}

// What is left of a colour where red and green look alike: how yellow and how blue it is.
TEST(Colour, SafePaletteIsToldApartWithRedAndGreenAlike) {
    const Palette& safe = *findPalette("safe");
    for (std::size_t i = 0; i < safe.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            const auto yellow = [&](std::size_t at) {
                return (2 * safe[at][0] + 5 * safe[at][1]) / 7;
            };
            EXPECT_GE(std::max(std::abs(yellow(i) - yellow(j)), std::abs(safe[i][2] - safe[j][2])),
                      32)
                << i << ' ' << j;
        }
}

TEST(Colour, PalettesHoldDifferentColours) {
    EXPECT_EQ(paletteNames(), "bright, safe");
    EXPECT_EQ(findPalette("bright")->size(), 16U);
    EXPECT_EQ(findPalette("Bright"), nullptr);
    for (const NamedPalette& palette : palettes())
        EXPECT_EQ(std::set(palette.colours.begin(), palette.colours.end()).size(),
                  palette.colours.size())
            << palette.name;
}

} // namespace scenewright
