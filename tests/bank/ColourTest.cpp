#include "bank/Colour.h"

#include <gtest/gtest.h>

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
    for (const char* text : {"", "#", "ff8000", "#ff800", "#ff80000", "#gg0000", "#-10000",
                             "#+10000", "#f f000", "#0x1234"})
        EXPECT_EQ(colourOf(text), std::nullopt) << text;
}

TEST(Colour, TextOfEveryLevelGivesThatLevel) {
    EXPECT_EQ(colourText({127, 64, 0}), "#ff8000");
    for (std::int32_t level = 0; level < 128; ++level)
        EXPECT_EQ(colourOf(colourText({level, 127 - level, level / 2})),
                  (PadColour{level, 127 - level, level / 2}));
}

} // namespace scenewright
