#include "model/SceneValue.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

std::string shown(const char* bytes, std::size_t size) {
    return displayName(std::string_view(bytes, size));
}

TEST(SceneName, ZeroBytesAtTheEndAreNotShown) {
    EXPECT_EQ(shown("ABC\0\0\0\0\0\0\0\0\0", 12), "ABC");
    EXPECT_EQ(shown("\0\0\0\0\0\0\0\0\0\0\0\0", 12), "");
    EXPECT_EQ(displayName(""), "");
}

TEST(SceneName, TwelvePlainCharactersAreShownAsTheyAre) {
    EXPECT_EQ(displayName("Main stage 1"), "Main stage 1");
}

TEST(SceneName, BlanksAtTheEndStay) {
    EXPECT_EQ(shown("AB  \0", 5), "AB  ");
}

TEST(SceneName, CharactersOfEveryLengthAreShown) {
    EXPECT_EQ(displayName("Bühne"), "Bühne");
    EXPECT_EQ(displayName("舞台"), "舞台");
    EXPECT_EQ(displayName("\xF0\x9F\x8E\xB9"), "\xF0\x9F\x8E\xB9");
}

TEST(SceneName, FirstAndLastCharacterOfEachLengthAreShown) {
    for (const std::string_view text :
         {"\x20", "\x7E", "\xC2\xA0", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_EQ(displayName(text), text);
}

TEST(SceneName, ZeroByteWithinTheNameShowsAsReplacement) {
    EXPECT_EQ(shown("A\0B\0", 4), "A\uFFFDB");
}

TEST(SceneName, ControlCharactersShowAsReplacement) {
    EXPECT_EQ(displayName("A\x1B[2J"), "A\uFFFD[2J");
    EXPECT_EQ(displayName("A\nB\tC\x7F"), "A\uFFFDB\uFFFDC\uFFFD");
    EXPECT_EQ(displayName("\x1F\x20"), "\uFFFD ");
}

TEST(SceneName, ControlCharactersOfTwoBytesAreNotShown) {
    EXPECT_EQ(displayName("\xC2\x80"), "\uFFFD\uFFFD");
    EXPECT_EQ(displayName("\xC2\x9F"), "\uFFFD\uFFFD");
}

TEST(SceneName, EachByteThatIsNoTextShowsAsReplacement) {
    EXPECT_EQ(displayName("\xFF\xFE"
                          "A"),
              "\uFFFD\uFFFDA");
    EXPECT_EQ(displayName("\x80"), "\uFFFD");
    EXPECT_EQ(displayName("\xF8\x88\x80\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(SceneName, CharacterCutInTwoShowsAsReplacement) {
    EXPECT_EQ(displayName("Eleven char\xC3"), "Eleven char\uFFFD");
    EXPECT_EQ(displayName("A\xE8\x88"), "A\uFFFD\uFFFD");
    EXPECT_EQ(displayName("\xE8"
                          "A\x9E"),
              "\uFFFDA\uFFFD");
}

TEST(SceneName, LongerFormsOfACharacterAreNoText) {
    EXPECT_EQ(displayName("\xC1\x81"), "\uFFFD\uFFFD");
    EXPECT_EQ(displayName("\xE0\x9F\xBF"), "\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(displayName("\xF0\x8F\xBF\xBF"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(SceneName, SurrogatesAndPointsPastTheLastAreNoText) {
    EXPECT_EQ(displayName("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(displayName("\xED\xBF\xBF"), "\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(displayName("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

} // namespace
} // namespace scenewright
