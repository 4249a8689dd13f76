#include "platform/ReadableText.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

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

TEST(ReadableText, BytesThatAreNoUtf8AreReplacedOneByOne) {
    EXPECT_EQ(readableText("\xFFz"), "\uFFFDz");
    EXPECT_EQ(readableText("\xC3"), "\uFFFD") << "cut short";
    EXPECT_EQ(readableText("\xC0\xAF"), "\uFFFD\uFFFD") << "longer than need be";
    EXPECT_EQ(readableText("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD") << "a surrogate";
    EXPECT_EQ(readableText("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD") << "beyond the last";
}

} // namespace
} // namespace scenewright
