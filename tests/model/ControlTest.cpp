#include "model/Control.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

void expectRange(ControlKind kind, std::string_view name, std::int32_t start, std::int32_t end) {
    const ControlRange& range = controlRange(kind);
    EXPECT_EQ(range.kind, kind);
    EXPECT_EQ(range.name, name);
    EXPECT_EQ(range.start, start) << name;
    EXPECT_EQ(range.end(), end) << name;
}

TEST(Control, RangesFollowEachOtherFromTheCommonSettingsToTheKeys) {
    expectRange(ControlKind::Common, "common", 0, 1);
    expectRange(ControlKind::Group, "group", 1, 5);
    expectRange(ControlKind::Knob, "knob", 5, 9);
    expectRange(ControlKind::Slider, "slider", 9, 13);
    expectRange(ControlKind::Pad, "pad", 13, 21);
    expectRange(ControlKind::Key, "key", 21, 46);
}

TEST(Control, ThereAre45ControlsAndFourScenes) {
    EXPECT_EQ(kControlCount, 45);
    EXPECT_EQ(kControlIndexEnd, 46);
    EXPECT_EQ(kSceneCount, 4);
}

} // namespace
} // namespace scenewright
