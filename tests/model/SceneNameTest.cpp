#include "model/SceneValue.h"

#include <gtest/gtest.h>

#include <string_view>

namespace scenewright {
namespace {

using namespace std::string_view_literals;

struct Row {
    const char* rule;
    std::string_view stored;
    std::string_view shown;
};

constexpr Row kRows[] = {
    {"zero bytes at the end are not shown", "ABC\0\0\0\0\0\0\0\0\0"sv, "ABC"},
    {"nor twelve of them", "\0\0\0\0\0\0\0\0\0\0\0\0"sv, ""},
    {"nothing is nothing", "", ""},
    {"plain characters are as they are", "Main stage 1", "Main stage 1"},
    {"blanks at the end stay", "AB  \0"sv, "AB  "},
    {"two bytes a character", "Bühne", "Bühne"},
    {"three", "舞台", "舞台"},
    {"four", "\xF0\x9F\x8E\xB9", "\xF0\x9F\x8E\xB9"},
    {"first of one byte", "\x20", "\x20"},
    {"last of one byte", "\x7E", "\x7E"},
    {"first of two that is no control", "\xC2\xA0", "\xC2\xA0"},
    {"last of two", "\xDF\xBF", "\xDF\xBF"},
    {"first of three", "\xE0\xA0\x80", "\xE0\xA0\x80"},
    {"last before the surrogates", "\xED\x9F\xBF", "\xED\x9F\xBF"},
    {"first after them", "\xEE\x80\x80", "\xEE\x80\x80"},
    {"last of three", "\xEF\xBF\xBF", "\xEF\xBF\xBF"},
    {"first of four", "\xF0\x90\x80\x80", "\xF0\x90\x80\x80"},
    {"last of all", "\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
    {"a zero byte within", "A\0B\0"sv, "A\uFFFDB"},
    {"an escape", "A\x1B[2J", "A\uFFFD[2J"},
    {"line feed, tab and delete", "A\nB\tC\x7F", "A\uFFFDB\uFFFDC\uFFFD"},
    {"the last control character", "\x1F\x20", "\uFFFD "},
    {"first control character of two bytes", "\xC2\x80", "\uFFFD\uFFFD"},
    {"last control character of two bytes", "\xC2\x9F", "\uFFFD\uFFFD"},
    {"bytes of no character", "\xFF\xFE\x41", "\uFFFD\uFFFDA"},
    {"a byte that only goes on", "\x80", "\uFFFD"},
    {"five bytes", "\xF8\x88\x80\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"a character cut at the end", "Eleven char\xC3", "Eleven char\uFFFD"},
    {"one of three bytes cut", "A\xE8\x88", "A\uFFFD\uFFFD"},
    {"one that another interrupts", "\xE8\x41\x9E", "\uFFFDA\uFFFD"},
    {"a longer form, of two bytes", "\xC1\x81", "\uFFFD\uFFFD"},
    {"of three", "\xE0\x9F\xBF", "\uFFFD\uFFFD\uFFFD"},
    {"of four", "\xF0\x8F\xBF\xBF", "\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"the first surrogate", "\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
    {"the last", "\xED\xBF\xBF", "\uFFFD\uFFFD\uFFFD"},
    {"a point past the last", "\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
};

TEST(SceneName, WhatIsNoTextShowsAsReplacementAndTheRestAsItIs) {
    for (const Row& row : kRows)
        EXPECT_EQ(displayName(row.stored), row.shown) << row.rule;
}

} // namespace
} // namespace scenewright
