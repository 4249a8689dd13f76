#include "app/StoreFiles.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace scenewright {

namespace {

using std::chrono::milliseconds;
using testing::TempFolder;

// 2026-01-31 23:59:58.007 UTC
const BackupStore::Clock::time_point kTime =
    BackupStore::Clock::from_time_t(1769903998) + milliseconds(7);

SceneList scenesWithSpeed(std::int32_t speed) {
    WindowAction::getSceneValue();
    WindowAction::getSceneWithIndex(0)->commonValue()->setPitchBendSpeed(speed);
    return WindowAction::scenes();
}

std::int32_t speedIn(const std::filesystem::path& file) {
    const auto bank = readBank(file);
    return bank ? bank->scenes.front()->commonValue()->PitchBendSpeed() : -1;
}

class BackupStoreTest : public ::testing::Test {
protected:
    TempFolder folder;
    BackupStore earlier{folder.path() / "state" / "backups"};
};

TEST_F(BackupStoreTest, NothingIsKeptAtFirst) {
    EXPECT_TRUE(earlier.list().empty());
}

TEST_F(BackupStoreTest, ABankIsKeptWholeUnderItsTime) {
    EXPECT_TRUE(earlier.keep(scenesWithSpeed(3), kTime));
    const auto banks = earlier.list();
    ASSERT_EQ(banks.size(), 1U);
    EXPECT_EQ(banks[0].file, folder.path() / "state/backups/scenes-20260131T235958.007Z.bank");
    EXPECT_EQ(banks[0].kept, kTime);
    EXPECT_EQ(testing::readBytes(banks[0].file).size(), 1012U);
    EXPECT_EQ(speedIn(banks[0].file), 3);
}

TEST_F(BackupStoreTest, TheNewestComesFirst) {
    EXPECT_TRUE(earlier.keep(scenesWithSpeed(1), kTime));
    EXPECT_TRUE(earlier.keep(scenesWithSpeed(2), kTime + milliseconds(1)));
    const auto banks = earlier.list();
    ASSERT_EQ(banks.size(), 2U);
    EXPECT_EQ(speedIn(banks[0].file), 2);
    EXPECT_EQ(speedIn(banks[1].file), 1);
}

TEST_F(BackupStoreTest, TheSameAsTheNewestIsNotKeptTwice) {
    EXPECT_TRUE(earlier.keep(scenesWithSpeed(1), kTime));
    EXPECT_TRUE(earlier.keep(scenesWithSpeed(1), kTime + milliseconds(5)));
    EXPECT_EQ(earlier.list().size(), 1U);
}

TEST_F(BackupStoreTest, TheSameAsAnOlderOneIsKeptAgain) {
    for (const std::int32_t speed : {1, 2, 1})
        EXPECT_TRUE(earlier.keep(scenesWithSpeed(speed), kTime + milliseconds(speed)));
    EXPECT_EQ(earlier.list().size(), 3U);
    EXPECT_EQ(speedIn(earlier.list().front().file), 1);
}

TEST_F(BackupStoreTest, AClockThatWasSetBackKeepsTheOrder) {
    EXPECT_TRUE(earlier.keep(scenesWithSpeed(1), kTime));
    EXPECT_TRUE(earlier.keep(scenesWithSpeed(2), kTime - std::chrono::hours(1)));
    EXPECT_EQ(speedIn(earlier.list().front().file), 2);
    EXPECT_EQ(earlier.list().front().kept, kTime + milliseconds(1));
}

TEST_F(BackupStoreTest, TheOldestBeyondTwentyAreDropped) {
    for (std::int32_t speed = 0; speed < 23; ++speed)
        EXPECT_TRUE(earlier.keep(scenesWithSpeed(speed), kTime + milliseconds(speed)));
    const auto banks = earlier.list();
    ASSERT_EQ(banks.size(), 20U);
    EXPECT_EQ(speedIn(banks.front().file), 22);
    EXPECT_EQ(speedIn(banks.back().file), 3);
}

TEST_F(BackupStoreTest, OtherFilesAreNeitherListedNorDropped) {
    const auto place = folder.path() / "state" / "backups";
    std::filesystem::create_directories(place);
    for (const char* name : {"notes.txt", "scenes-2026.bank", "scenes-20261331T235958.007Z.bank",
                             "scenes-20260131T235958x007Z.bank"})
        testing::writeBytes(place / name, {});
    for (std::int32_t speed = 0; speed < 21; ++speed)
        EXPECT_TRUE(earlier.keep(scenesWithSpeed(speed), kTime + milliseconds(speed)));
    EXPECT_EQ(earlier.list().size(), 20U);
    EXPECT_TRUE(std::filesystem::exists(place / "notes.txt"));
    EXPECT_TRUE(std::filesystem::exists(place / "scenes-2026.bank"));
}

TEST_F(BackupStoreTest, ADamagedNewestOneDoesNotStandForTheScenes) {
    EXPECT_TRUE(earlier.keep(scenesWithSpeed(1), kTime));
    testing::writeBytes(earlier.list().front().file, std::vector<std::uint8_t>(1012, 200));
    EXPECT_TRUE(earlier.keep(scenesWithSpeed(1), kTime + milliseconds(1)));
    EXPECT_EQ(earlier.list().size(), 2U);
}

TEST_F(BackupStoreTest, AFolderThatCannotBeMadeIsTold) {
    testing::writeBytes(folder.file("state"), {});
    EXPECT_EQ(earlier.keep(scenesWithSpeed(1), kTime).error(),
              folder.file("state") + "/backups: Not a directory");
}

TEST_F(BackupStoreTest, FewerThanFourScenesAreNothingToKeep) {
    EXPECT_TRUE(earlier.keep({}, kTime));
    EXPECT_TRUE(earlier.list().empty());
}

TEST(BackupFolder, FollowsTheStateFolder) {
    setenv("XDG_STATE_HOME", "/somewhere/state", 1);
    EXPECT_EQ(BackupStore::stateFolder(), "/somewhere/state/scenewright/backups");
    // The base directories ask for an absolute path.
    setenv("XDG_STATE_HOME", "state", 1);
    setenv("HOME", "/home/player", 1);
    EXPECT_EQ(BackupStore::stateFolder(), "/home/player/.local/state/scenewright/backups");
    unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(BackupStore::stateFolder(), "/home/player/.local/state/scenewright/backups");
}

TEST(BackupFolder, WithoutAHomeNothingIsKeptAndThatIsTold) {
    unsetenv("XDG_STATE_HOME");
    for (const char* home : {"", "home/player"}) {
        setenv("HOME", home, 1);
        EXPECT_EQ(BackupStore::stateFolder(), std::nullopt);
    }
    unsetenv("HOME");
    const BackupStore earlier;
    EXPECT_EQ(earlier.keep(scenesWithSpeed(1)).error(), "there is no home folder to keep them in");
    EXPECT_TRUE(earlier.keep({}));
    EXPECT_TRUE(earlier.list().empty());
    EXPECT_FALSE(std::filesystem::exists("scenewright"));
}

} // namespace

} // namespace scenewright
