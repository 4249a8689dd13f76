#include "model/MessageValue.h"

#include <gtest/gtest.h>

#include <optional>

namespace scenewright {
namespace {

class ProgressTest : public ::testing::Test {
protected:
    ProgressTest() { Progress::forget(); }
    ~ProgressTest() override { Progress::forget(); }
};

TEST_F(ProgressTest, ThereIsNoRecordBeforeTheFirstRequest) {
    EXPECT_EQ(Progress::recordIfAny(), nullptr);
}

TEST_F(ProgressTest, EveryRequestGivesTheSameRecord) {
    const auto record = Progress::record();
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(Progress::record(), record);
    EXPECT_EQ(Progress::recordIfAny(), record);
}

TEST_F(ProgressTest, FreshRecordHasNoTexts) {
    EXPECT_EQ(Progress::record()->Message(), std::nullopt);
}

TEST_F(ProgressTest, ForgettingMakesANewRecord) {
    const auto former = Progress::record();
    Progress::forget();
    EXPECT_NE(Progress::record(), former);
}

} // namespace
} // namespace scenewright
