#include "editor/qt/PopUpBox.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string_view>

namespace scenewright {
namespace {

using std::chrono::milliseconds;

const QStringList kNumbers{"0", "1", "2", "10", "12", "100", "120", "127"};
const QStringList kNotes{"C-1", "C#-1", "D-1", "C0", "C4", "C#4", "Bb4"};

TEST(FindTyped, EntryItselfComesBeforeOnesThatBeginWithIt) {
    EXPECT_EQ(findTyped(kNumbers, "1"), 1);
    EXPECT_EQ(findTyped(kNumbers, "12"), 4);
}

TEST(FindTyped, TheOneEntryThatBeginsWithIt) {
    EXPECT_EQ(findTyped(kNotes, "D"), 2);
    EXPECT_EQ(findTyped(kNotes, "C#"), -1);
}

TEST(FindTyped, LettersOfEitherCase) {
    EXPECT_EQ(findTyped(kNotes, "bb4"), 6);
    EXPECT_EQ(findTyped(kNotes, "c#4"), 5);
}

TEST(FindTyped, WordInsideOneEntryAlone) {
    const QStringList entries{"Lower Value", "Upper Value", "Upper Limit"};
    EXPECT_EQ(findTyped(entries, "limit"), 2);
    EXPECT_EQ(findTyped(entries, "value"), -1);
}

TEST(FindTyped, NothingForTextThatNoEntryHas) {
    EXPECT_EQ(findTyped(kNumbers, "9"), -1);
    EXPECT_EQ(findTyped({}, "9"), -1);
}

TEST(FindTyped, NameOfAnEntryFindsItToo) {
    constexpr std::array<std::string_view, 2> kNames{"Off", "On"};
    EXPECT_EQ(findTyped({"Aus", "Ein"}, "on", kNames), 1);
    EXPECT_EQ(findTyped({"Aus", "Ein"}, "ein", kNames), 1);
}

TEST(TypedSearch, KeystrokesCloseTogetherMakeOneText) {
    TypedSearch search;
    const TypedSearch::Clock::time_point start{std::chrono::hours(1)};
    EXPECT_EQ(search.type("1", kNumbers, {}, start), 1);
    EXPECT_EQ(search.type("2", kNumbers, {}, start + TypedSearch::pause()), 4);
    EXPECT_EQ(search.type("7", kNumbers, {}, start + 2 * TypedSearch::pause()), 7);
}

TEST(TypedSearch, PauseBeginsAnew) {
    TypedSearch search;
    const TypedSearch::Clock::time_point start{std::chrono::hours(1)};
    EXPECT_EQ(search.type("1", kNumbers, {}, start), 1);
    EXPECT_EQ(search.type("2", kNumbers, {}, start + TypedSearch::pause() + milliseconds(1)), 2);
}

TEST(TypedSearch, PauseIsTheToolkits) {
    EXPECT_EQ(TypedSearch::pause(), milliseconds(QApplication::keyboardInputInterval()));
}

TEST(TypedSearch, ClearingBeginsAnew) {
    TypedSearch search;
    const TypedSearch::Clock::time_point start{std::chrono::hours(1)};
    EXPECT_EQ(search.type("1", kNumbers, {}, start), 1);
    search.clear();
    EXPECT_EQ(search.type("2", kNumbers, {}, start), 2);
}

TEST(TypedSearch, KeystrokeThatLeadsNowhereYetIsKept) {
    TypedSearch search;
    const TypedSearch::Clock::time_point start{std::chrono::hours(1)};
    EXPECT_EQ(search.type("D", kNotes, {}, start), 2);
    EXPECT_EQ(search.type("b", kNotes, {}, start + milliseconds(1)), -1);
    EXPECT_EQ(search.type("4", kNotes, {}, start + milliseconds(2)), 5);
    EXPECT_EQ(search.type("0", kNotes, {}, start + milliseconds(3)), -1);
}

} // namespace
} // namespace scenewright
