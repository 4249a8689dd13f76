#include "platform/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace scenewright {

namespace {

constexpr SourceText kPair = sourceText("Test", "{0} before {1}");

std::string turnedRound(SourceText text) {
    return std::string(text.context) + ": {1} after {0}";
}
std::string withOnePlaceTooMany(SourceText) {
    return "{0} {1} {2}";
}
std::string withABrokenPlace(SourceText) {
    return "{0";
}

class TranslatorTest : public ::testing::Test {
protected:
    ~TranslatorTest() override { setTranslator(nullptr); }
};

TEST_F(TranslatorTest, WithoutATranslatorTextsStandAsWritten) {
    EXPECT_EQ(translated(kPair), "{0} before {1}");
    EXPECT_EQ(translated(kPair, "one", 2), "one before 2");
    EXPECT_EQ(translated(sourceText("Test", "nothing to fill")), "nothing to fill");
}

TEST_F(TranslatorTest, ATranslationMayTurnThePlacesRound) {
    setTranslator(&turnedRound);
    EXPECT_EQ(translated(kPair, "one", 2), "Test: 2 after one");
}

TEST_F(TranslatorTest, ATranslationWithOtherPlacesIsPassedOver) {
    for (const Translator translator : {&withOnePlaceTooMany, &withABrokenPlace}) {
        setTranslator(translator);
        EXPECT_EQ(translated(kPair, "one", 2), "one before 2");
    }
}

TEST_F(TranslatorTest, ATextPutIntoAPlaceIsNotFilledItself) {
    EXPECT_EQ(translated(kPair, "{1}", "{0}"), "{1} before {0}");
}

TEST(ReadableText, TextStaysAsItIs) {
    EXPECT_EQ(readableText(""), "");
    EXPECT_EQ(readableText("Tasten gr\u00F6\u00DFer, 25\u20AC \U0001F3B9"),
              "Tasten gr\u00F6\u00DFer, 25\u20AC \U0001F3B9");
}

TEST(ReadableText, ControlCharactersAreReplacedOneByOne) {
    EXPECT_EQ(readableText("a\nb\tc\x7F"), "a\uFFFDb\uFFFDc\uFFFD");
    EXPECT_EQ(readableText("\x1B[31m"), "\uFFFD[31m");
    EXPECT_EQ(readableText(std::string_view("a\0", 2)), "a\uFFFD");
    EXPECT_EQ(readableText("\xC2\x9B"), "\uFFFD\uFFFD") << "U+009B begins a terminal's command";
}

// One replacement for each byte.
std::string replaced(std::string_view text) {
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i)
        shown += "\uFFFD";
    return shown;
}

TEST(ReadableText, EndsOfLinesAndTurnsOfDirectionAreReplaced) {
    for (const char* text :
         {"\u061C", "\u200E", "\u200F", "\u2028", "\u2029", "\u202A", "\u202E", "\u2066", "\u2069"})
        EXPECT_EQ(readableText(std::string("a") + text + "b"), "a" + replaced(text) + "b");
    for (const char* text : {"\u061B", "\u200D", "\u2010", "\u2027", "\u202F", "\u2065", "\u206A"})
        EXPECT_EQ(readableText(text), text);
}

TEST(ReadableText, BytesThatAreNoUtf8AreReplacedOneByOne) {
    EXPECT_EQ(readableText("\xFFz"), "\uFFFDz");
    EXPECT_EQ(readableText("\xC3"), "\uFFFD") << "cut short";
    EXPECT_EQ(readableText("\xC0\xAF"), "\uFFFD\uFFFD") << "longer than need be";
    EXPECT_EQ(readableText("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD") << "a surrogate";
    EXPECT_EQ(readableText("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD") << "beyond the last";
}

} // namespace
} // namespace scenewright
