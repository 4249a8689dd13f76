#include "app/Earlier.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using testing::TempFolder;

using Time = EarlierScenes::Clock::time_point;
using Reason = EarlierScenes::Reason;

// 2026-01-31 23:59:58.007 UTC
const Time kTime = EarlierScenes::Clock::from_time_t(1769903998) + milliseconds(7);

BankImage imageWithSpeed(std::int32_t speed) {
    const SceneList scenes = WindowAction::defaultScenes();
    scenes[0]->commonValue()->setPitchBendSpeed(speed);
    return encodeBank(scenes);
}

std::vector<std::int32_t> speedsOf(const std::vector<EarlierScenes::Entry>& entries) {
    std::vector<std::int32_t> speeds;
    for (const auto& entry : entries)
        speeds.push_back(entry.scenes().front()->commonValue()->PitchBendSpeed());
    return speeds;
}

using Speeds = std::vector<std::int32_t>;

class EarlierScenesTest : public ::testing::Test {
protected:
    void keep(std::int32_t speed, Time time) const {
        EXPECT_EQ(earlier.keep(imageWithSpeed(speed), {}, time), Result<bool>(true));
    }
    [[nodiscard]] Speeds speeds() const { return speedsOf(earlier.list()); }

    TempFolder folder;
    std::filesystem::path place = folder.path() / "state" / "backups";
    EarlierScenes earlier{place};
};

TEST_F(EarlierScenesTest, AnEntryTellsItsTimeReasonKeyboardAndNames) {
    const EarlierScenes::Occasion occasion{Reason::Send, "l\xFFve.bank", "Keys 25"};
    EXPECT_TRUE(earlier.keep(imageWithSpeed(3), occasion, kTime));
    const auto entries = earlier.list();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].file, place / "scenes-20260131T235958.007Z.json");
    EXPECT_EQ(entries[0].kept, kTime);
    EXPECT_EQ(entries[0].occasion,
              (EarlierScenes::Occasion{Reason::Send, "l\uFFFDve.bank", "Keys 25"}));
    EXPECT_EQ(entries[0].image, imageWithSpeed(3));
    EXPECT_EQ(entries[0].names(),
              (std::vector<std::string>{"SCENE1", "SCENE2", "SCENE3", "SCENE4"}));
}

TEST_F(EarlierScenesTest, AnImageThatAFormerVersionKeptIsListed) {
    std::filesystem::create_directories(place);
    testing::writeBytes(place / "scenes-20260131T235958.007Z.bank", imageWithSpeed(3));
    const auto entries = earlier.list();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].kept, kTime);
    EXPECT_EQ(entries[0].occasion, EarlierScenes::Occasion{});
    EXPECT_EQ(entries[0].image, imageWithSpeed(3));
    keep(3, kTime + milliseconds(1));
    EXPECT_EQ(speeds(), Speeds{3}) << "it is the same";
    keep(4, kTime + milliseconds(1));
    EXPECT_EQ(speeds(), (Speeds{4, 3}));
}

TEST_F(EarlierScenesTest, TheFourDefaultScenesAreNotKept) {
    EXPECT_TRUE(earlier.list().empty());
    EXPECT_EQ(earlier.keep(encodeBank(WindowAction::defaultScenes()), {}, kTime),
              Result<bool>(false));
    EXPECT_TRUE(earlier.list().empty());
}

TEST_F(EarlierScenesTest, TheSameAsTheNewestIsNotKeptTwiceTheSameAsAnOlderOneIs) {
    for (const std::int32_t speed : {1, 1, 3, 1})
        keep(speed, kTime + milliseconds(speed));
    EXPECT_EQ(speeds(), (Speeds{1, 3, 1}));
}

TEST_F(EarlierScenesTest, AClockThatWasSetBackKeepsTheOrder) {
    keep(1, kTime);
    keep(3, kTime - hours(1));
    EXPECT_EQ(speeds(), (Speeds{3, 1}));
    EXPECT_EQ(earlier.list().front().kept, kTime + milliseconds(1));
}

// Ages in hours before a time that is the beginning of an hour, a day and a week.
TEST(EarlierScenesThinning, DropsByAge) {
    const Time now = Time(hours(24 * 7 * 3000));
    struct Row {
        const char* name;
        std::vector<double> ages;
        std::vector<double> kept;
    };
    for (const auto& [name, ages, kept] : {
             Row{"all of a day", {0, 0, 0.01, 0.02, 23.9}, {0, 0, 0.01, 0.02, 23.9}},
             Row{"then the newest of each hour", {24, 24.1, 24.5, 25, 25.1}, {24, 24.1, 25.1}},
             Row{"an hour that has one of the last day", {23.9, 23.95, 24}, {23.9, 23.95}},
             Row{"a week later of each day", {168, 168.1, 191, 192, 192.5}, {168, 168.1, 192.5}},
             Row{"after eight of each week",
                 {1344, 1345, 1345.5, 1500, 1512, 1513, 9000},
                 {1344, 1345, 1513, 9000}},
             Row{"of a clock that was set back", {-5, -5.1, -5.2}, {-5, -5.1, -5.2}},
         }) {
        std::vector<Time> times;
        for (const double age : ages)
            times.push_back(now - milliseconds(static_cast<std::int64_t>(age * 3'600'000)));
        const std::vector<bool> dropped = EarlierScenes::dropped(times, now);
        std::vector<double> left;
        for (std::size_t place = 0; place < ages.size(); ++place)
            if (!dropped[place])
                left.push_back(ages[place]);
        EXPECT_EQ(left, kept) << name;
    }
}

TEST_F(EarlierScenesTest, WhatIsBetweenTwoThatAreTheSameGoesWithOneOfThem) {
    const Time old = std::chrono::floor<hours>(kTime);
    keep(1, old - hours(1));
    keep(3, old);
    keep(4, old + milliseconds(1));
    keep(1, old + hours(30)); // 3 goes for 4
    EXPECT_EQ(speeds(), (Speeds{1, 4, 1}));
    std::filesystem::remove(earlier.list()[1].file);
    keep(5, old + hours(31));
    EXPECT_EQ(speeds(), (Speeds{5, 1}));
}

TEST_F(EarlierScenesTest, OtherAndDamagedFilesAreNeitherListedNorDropped) {
    std::filesystem::create_directories(place);
    const std::vector<std::string> names{"notes.txt",
                                         "scenes-2026.bank",
                                         "scenes-20250131T235958x007Z.bank",
                                         "scenes-20251331T235958.007Z.bank",
                                         "scenes-20250131T235958.007Z.bank",
                                         "scenes-20250131T235958.008Z.json",
                                         "scenes-20250131T235958.009Z.json",
                                         "scenes-20250131T235958.010Z.json"};
    for (const std::string& name : names)
        testing::writeBytes(place / name, std::vector<std::uint8_t>(1012, 200));
    const std::string text = R"({"format": "scenewright-earlier", "image": "0g"})";
    testing::writeBytes(place / names.back(), std::vector<std::uint8_t>(text.begin(), text.end()));
    keep(3, kTime);
    EXPECT_EQ(speeds(), Speeds{3});
    for (const std::string& name : names)
        EXPECT_TRUE(std::filesystem::exists(place / name)) << name;
}

TEST_F(EarlierScenesTest, AnEntryThatIsCutShortIsNone) {
    keep(3, kTime);
    const auto file = earlier.list().front().file;
    const auto whole = testing::readBytes(file);
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, whole.size() / 2, whole.size() - 10, whole.size() - 2}) {
        testing::writeBytes(file, std::span(whole).first(size));
        EXPECT_TRUE(earlier.list().empty()) << size;
    }
}

TEST_F(EarlierScenesTest, AFolderThatCannotBeMadeIsTold) {
    testing::writeBytes(folder.file("state"), {});
    EXPECT_EQ(earlier.keep(imageWithSpeed(1), {}, kTime).error(),
              folder.file("state") + "/backups: Not a directory");
}

TEST(EarlierScenesReason, IsToldInWords) {
    struct Row {
        EarlierScenes::Occasion occasion;
        const char* text;
    };
    for (const auto& [occasion, text] :
         {Row{{}, ""}, Row{{Reason::Read, {}, {}}, "before a read"},
          Row{{Reason::Send, {}, {}}, "on the keyboard before a send"},
          Row{{Reason::Send, "a.bank", {}}, "on the keyboard before the send of a.bank"},
          Row{{Reason::Opening, "a\n.bank", {}}, "before opening a\uFFFD.bank"},
          Row{{Reason::BringingBack, {}, {}}, "before earlier scenes were brought back"}})
        EXPECT_EQ(reasonText(occasion), text);
}

TEST(EarlierScenesFolder, IsInTheStateFolderAndWithoutAHomeNothingIsKept) {
    setenv("XDG_STATE_HOME", "/somewhere/state", 1);
    EXPECT_EQ(EarlierScenes::stateFolder(), "/somewhere/state/scenewright/backups");
    unsetenv("XDG_STATE_HOME");
    unsetenv("HOME");
    const EarlierScenes earlier;
    EXPECT_EQ(earlier.keep(imageWithSpeed(1), {}).error(),
              "there is no home folder to keep them in");
    EXPECT_TRUE(earlier.list().empty());
    EXPECT_FALSE(std::filesystem::exists("scenewright"));
}

} // namespace

} // namespace scenewright
