// Banks that are saved, and the earlier scenes, when the power goes or a system call fails.
#include "tests/support/PowerCut.h"

#include "app/EarlierScenes.h"
#include "app/StoreFiles.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "editor/options/PopUpValue.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

namespace fs = std::filesystem;
using testing::Blow;
using testing::FileCall;
using testing::TracedRun;
using Calls = std::vector<FileCall>;
using Bytes = std::vector<std::uint8_t>;

const EarlierScenes::Clock::time_point kTime = EarlierScenes::Clock::from_time_t(1769903998);

const SceneList& scenesWithSpeed(std::int32_t speed) {
    WindowAction::getSceneValue();
    WindowAction::getSceneWithIndex(0)->commonValue()->setPitchBendSpeed(speed);
    return WindowAction::scenes();
}

Bytes imageOf(std::int32_t speed) {
    const BankImage image = encodeBank(scenesWithSpeed(speed));
    return {image.begin(), image.end()};
}

class StorePowerCut : public ::testing::Test {
protected:
    void SetUp() override {
        for (std::int32_t speed = 0; speed <= kNewest; ++speed)
            images_.push_back(imageOf(speed));
        for (std::int32_t speed = 0; speed < kNewest; ++speed)
            ASSERT_EQ(EarlierScenes(full_.path())
                          .keep(scenesWithSpeed(speed), kTime + std::chrono::hours(speed)),
                      std::nullopt);
    }
    void TearDown() override { WindowAction::getSceneValue(); }

    // As many earlier scenes as are kept, the oldest with speed 0, and the store with others.
    void prepareEarlier() const {
        for (const auto& entry : fs::directory_iterator(folder_.path()))
            fs::remove_all(entry);
        fs::copy(full_.path(), folder_.path());
        scenesWithSpeed(kNewest);
    }
    [[nodiscard]] testing::Writing keeping() const {
        const auto keep = [this] {
            return earlier_
                .keep(WindowAction::scenes(), kTime + std::chrono::hours(std::int32_t{kNewest}))
                .value_or("");
        };
        return {[this] { prepareEarlier(); },
                [this, keep](const Blow& blow) {
                    return testing::runTraced(folder_.path(), keep, blow);
                }};
    }
    // The speeds of what is kept, oldest first; -1 for a file that is not a whole bank.
    [[nodiscard]] std::vector<std::int32_t> speeds() const {
        std::vector<std::int32_t> found;
        for (const EarlierScenes::Bank& bank : earlier_.list()) {
            const auto image = std::ranges::find(images_, testing::readBytes(bank.file));
            found.insert(found.begin(), image == images_.end()
                                            ? -1
                                            : static_cast<std::int32_t>(image - images_.begin()));
        }
        return found;
    }
    static std::vector<std::int32_t> fromTo(std::int32_t first, std::int32_t last) {
        std::vector<std::int32_t> list;
        for (std::int32_t speed = first; speed <= last; ++speed)
            list.push_back(speed);
        return list;
    }

    static constexpr auto kNewest = static_cast<std::int32_t>(EarlierScenes::kMost);
    testing::TempFolder full_; // what the folder is filled from
    testing::TempFolder folder_;
    EarlierScenes earlier_{folder_.path()};
    std::vector<Bytes> images_; // by their speeds
};

TEST_F(StorePowerCut, EarlierScenesAreTheFormerOnesOrThoseWithTheNewBank) {
    testing::strikeEachCall(
        keeping(), testing::kPowerCuts,
        [&](const TracedRun& run, const Blow& blow, const Calls& whole) {
            EXPECT_TRUE(run.isKilled);
            const auto rename = std::ranges::find(whole, "rename", &FileCall::name);
            ASSERT_NE(rename, whole.end());
            const auto found = speeds();
            if (testing::isBeforeRename(whole, rename->target, blow))
                EXPECT_EQ(found, fromTo(0, kNewest - 1));
            else
                EXPECT_TRUE(found == fromTo(0, kNewest) || found == fromTo(1, kNewest));
            EXPECT_EQ(earlier_.keep(scenesWithSpeed(1), kTime + std::chrono::hours(99)),
                      std::nullopt)
                << "the next bank";
            EXPECT_EQ(speeds().size(), EarlierScenes::kMost);
        });
}

TEST_F(StorePowerCut, NoEarlierBankIsDroppedUnlessTheNewOneIsKept) {
    testing::strikeEachCall(
        keeping(), testing::kFailures, [&](const TracedRun& run, const Blow&, const Calls&) {
            testing::expectOneSentenceOrNone(run);
            const auto found = speeds();
            if (!run.errors.empty())
                EXPECT_EQ(found, fromTo(0, kNewest - 1)) << run.errors;
            else
                EXPECT_TRUE(found == fromTo(0, kNewest) || found == fromTo(1, kNewest));
        });
}

TEST_F(StorePowerCut, ASavedBankIsTheFormerOneOrTheNewOne) {
    const std::string file = folder_.file("a.json");
    const auto lists = WindowAction::InitializePopUp();
    const auto former = [&] {
        scenesWithSpeed(1);
        ASSERT_EQ(StoreFiles::saveBank(file, *lists), std::nullopt);
        scenesWithSpeed(2);
    };
    const auto save = [&] { return StoreFiles::saveBank(file, *lists).value_or(""); };
    former();
    const Bytes before = testing::readBytes(file);
    ASSERT_EQ(save(), "");
    const Bytes after = testing::readBytes(file);
    ASSERT_NE(before, after);
    testing::strikeEachCall(
        {former, [&](const Blow& blow) { return testing::runTraced(folder_.path(), save, blow); }},
        testing::kPowerCuts, [&](const TracedRun&, const Blow& blow, const Calls& whole) {
            EXPECT_EQ(testing::readBytes(file),
                      testing::isBeforeRename(whole, "a.json", blow) ? before : after);
        });
}

} // namespace
} // namespace scenewright
