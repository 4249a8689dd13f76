#include "editor/ValuePopUps.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace scenewright {
namespace {

TEST(ValuePopUps, OutletThatIsNoValueHasNoRow) {
    constexpr ValueOutlet kOther{"other", nullptr, nullptr, nullptr};
    EXPECT_THROW((void)valuePopUp(kOther), std::out_of_range);
}

TEST(ValuePopUps, WhatIsAlwaysEnabledAsksForNoValue) {
    EXPECT_EQ(isEnabled(EnableWhen::Always, 0), true);
    EXPECT_EQ(isEnabled(EnableWhen::Always, 127), true);
}

TEST(ValuePopUps, VelocityIsEnabledByTheConstantCurveAlone) {
    for (std::int32_t curve = 0; curve < 6; ++curve)
        EXPECT_EQ(isEnabled(EnableWhen::ConstantCurve, curve), curve == 3) << curve;
}

TEST(ValuePopUps, EveryOutletHasItsOwnRow) {
    for (const ValuePopUp& row : valuePopUps())
        EXPECT_EQ(&valuePopUp(*row.outlet), &row) << row.outlet->name;
}

} // namespace
} // namespace scenewright
