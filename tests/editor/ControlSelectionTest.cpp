#include "editor/ControlSelection.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace scenewright::testing {

namespace {

using Controls = std::vector<std::int32_t>;

constexpr std::int32_t kKnob = 5;
constexpr std::int32_t kPad = 13;

// From the scene-wide settings on, by the given changes.
struct Row {
    const char* name;
    std::function<void(ControlSelection&)> change;
    Controls after;
};

TEST(ControlSelection, TheLastOneTakenInIsTheChosenOne) {
    const auto pads = [](ControlSelection& chosen) {
        chosen.choose(kPad);
        chosen.toggle(kPad + 4);
    };
    for (const Row& row : {
             Row{"nothing done", [](ControlSelection&) {}, {0}},
             Row{"one alone", [](ControlSelection& chosen) { chosen.choose(kPad); }, {kPad}},
             Row{"none", [](ControlSelection& chosen) { chosen.choose(-1); }, {}},
             Row{"taken in", pads, {kPad, kPad + 4}},
             Row{"taken out",
                 [&](ControlSelection& chosen) {
                     pads(chosen);
                     chosen.toggle(kPad + 4);
                 },
                 {kPad}},
             Row{"the last one stays",
                 [](ControlSelection& chosen) {
                     chosen.choose(kPad);
                     chosen.toggle(kPad);
                 },
                 {kPad}},
             Row{"nothing stands beside the scene-wide settings",
                 [&](ControlSelection& chosen) {
                     chosen.toggle(kKnob);
                     chosen.toggle(0);
                 },
                 {0}},
             Row{"nor beside what is taken in",
                 [](ControlSelection& chosen) { chosen.toggle(kKnob); },
                 {kKnob}},
             Row{"nor do they stand beside what is added",
                 [](ControlSelection& chosen) {
                     chosen.add(Controls{kPad, kPad + 1});
                 },
                 {kPad, kPad + 1}},
             Row{"nor is extended from them",
                 [](ControlSelection& chosen) { chosen.extendTo(kKnob); },
                 {kKnob}},
             Row{"extended downwards",
                 [&](ControlSelection& chosen) {
                     pads(chosen);
                     chosen.extendTo(kPad + 6);
                 },
                 {kPad + 4, kPad + 5, kPad + 6}},
             Row{"and upwards again, from where it started",
                 [&](ControlSelection& chosen) {
                     pads(chosen);
                     chosen.extendTo(kPad + 6);
                     chosen.extendTo(kPad + 3);
                 },
                 {kPad + 4, kPad + 3}},
             Row{"all, the last one chosen",
                 [](ControlSelection& chosen) {
                     chosen.choose(kKnob);
                     chosen.chooseAll(Controls{kPad, kPad + 1});
                 },
                 {kPad, kPad + 1}},
             Row{"all, the chosen one still chosen",
                 [](ControlSelection& chosen) {
                     chosen.choose(kPad);
                     chosen.chooseAll(Controls{kPad, kPad + 1});
                 },
                 {kPad + 1, kPad}},
             Row{"added",
                 [&](ControlSelection& chosen) {
                     pads(chosen);
                     chosen.add(Controls{kKnob, kPad});
                 },
                 {kPad, kPad + 4, kKnob}},
         }) {
        ControlSelection chosen;
        row.change(chosen);
        EXPECT_EQ(chosen.controls(), row.after) << row.name;
        EXPECT_EQ(chosen.chosen(), row.after.empty() ? -1 : row.after.back()) << row.name;
    }
}

TEST(ControlSelection, ThoseOfTheChosenOnesKindAreToldInTheirOrder) {
    ControlSelection chosen;
    chosen.choose(kPad + 3);
    EXPECT_EQ(paneTitle(chosen), "Pad 4");
    EXPECT_EQ(alikeTitle(chosen), "Pad 4");
    chosen.toggle(kKnob);
    chosen.toggle(kPad);
    EXPECT_EQ(chosen.alike(), (Controls{kPad, kPad + 3}));
    EXPECT_EQ(paneTitle(chosen), "Pad 1 and 1 more pad");
    EXPECT_EQ(alikeTitle(chosen), "2 Pads");
    chosen.toggle(kPad + 7);
    EXPECT_EQ(paneTitle(chosen), "Pad 8 and 2 more pads");
    EXPECT_EQ(alikeTitle(chosen), "3 Pads");
    chosen.choose(-1);
    EXPECT_EQ(chosen.alike(), Controls{});
    EXPECT_EQ(paneTitle(chosen), "Common");
}

} // namespace

} // namespace scenewright::testing
