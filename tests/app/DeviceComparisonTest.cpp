#include "app/DeviceComparison.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <chrono>

namespace scenewright {

namespace {

class DeviceComparisonTest : public ::testing::Test {
protected:
    void SetUp() override { WindowAction::getSceneValue(); }
    void TearDown() override { Transport::instance().use(nullptr); }

    // The controller holds what the store holds now.
    static void plugIn(FaultPlan faults = {}) {
        auto controller = std::make_shared<VirtualController>(encodeBank(WindowAction::scenes()),
                                                              std::move(faults));
        Transport::instance().use(makeVirtualHost(controller), [](std::chrono::nanoseconds) {});
    }

    std::shared_ptr<PopUpValue> lists = WindowAction::InitializePopUp();
};

TEST_F(DeviceComparisonTest, TheSameIsSaid) {
    plugIn();
    const auto comparison = compareWithDevice(*lists);
    EXPECT_TRUE(comparison.isConnected);
    EXPECT_TRUE(comparison.isSame());
}

TEST_F(DeviceComparisonTest, DifferencesStandInWordsAndTheStoreStaysAsItIs) {
    plugIn();
    const SceneList before = WindowAction::scenes();
    before[0]->buttonValueArray()[14]->setCR(12);
    const auto comparison = compareWithDevice(*lists);
    EXPECT_FALSE(comparison.isSame());
    ASSERT_EQ(comparison.differences.size(), 1U);
    EXPECT_EQ(comparison.differences[0].rfind("Scene 1, Pad 3, Red: ", 0), 0U)
        << comparison.differences[0];
    EXPECT_TRUE(comparison.differences[0].ends_with(" -> 12")) << comparison.differences[0];
    EXPECT_EQ(WindowAction::scenes(), before);
    EXPECT_EQ(before[0]->buttonValueArray()[14]->CR(), 12);
}

TEST_F(DeviceComparisonTest, WithoutAControllerNothingIsCompared) {
    Transport::instance().use(nullptr);
    const auto comparison = compareWithDevice(*lists);
    EXPECT_FALSE(comparison.isConnected);
    EXPECT_FALSE(comparison.isSame());
    EXPECT_TRUE(comparison.differences.empty());
}

TEST(DoubtfulBytes, AreTheExchangesThatFailed) {
    EXPECT_EQ(doubtfulBytes({}), 0U);
    EXPECT_EQ(doubtfulBytes({.writes = 1015, .reads = 1014, .failedReads = 3, .first = {}}), 3U);
    EXPECT_EQ(
        doubtfulBytes(
            {.writes = 1015, .failedWrites = 500, .reads = 1014, .failedReads = 499, .first = {}}),
        500U);
    EXPECT_EQ(doubtfulBytes({.writes = 1015, .failedWrites = 1015, .reads = 1014, .first = {}}),
              1012U);
}

} // namespace

} // namespace scenewright
