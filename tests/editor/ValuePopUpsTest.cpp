#include "editor/ValuePopUps.h"

#include <gtest/gtest.h>

#include <array>

namespace scenewright {
namespace {

TEST(ValuePopUps, WhatIsAlwaysEnabledAsksForNoValue) {
    EXPECT_EQ(isEnabled(EnableWhen::Always, 0), true);
    EXPECT_EQ(isEnabled(EnableWhen::Always, 127), true);
}

TEST(ValuePopUps, VelocityIsEnabledByTheConstantCurveAlone) {
    for (std::int32_t curve = 0; curve < 6; ++curve)
        EXPECT_EQ(isEnabled(EnableWhen::ConstantCurve, curve), curve == 3) << curve;
}

TEST(ValuePopUps, AssignTypesOfPadsAndKeysAloneHaveANumber) {
    for (const ValuePopUp& row : valuePopUps()) {
        const ValuePopUp* const number = numberPopUpOf(row);
        ASSERT_EQ(number != nullptr, row.setting->name() == "AssignType") << row.name;
        if (number != nullptr) {
            EXPECT_EQ(number->setting->name(), "CCOrNoteNumber");
            EXPECT_EQ(number->pane(), row.pane());
        }
    }
}

} // namespace
} // namespace scenewright
