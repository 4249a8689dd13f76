// Scenes that hold fewer than 45 controls, as a default scene's file that is missing or cut short
// leaves them, and option lists that are not there.
#include "app/WindowAction.h"
#include "editor/ControlDescription.h"
#include "editor/ControlSelection.h"
#include "model/Setting.h"
#include "tests/editor/EditorBench.h"

#include <algorithm>
#include <string>
#include <utility>

namespace scenewright::testing {

namespace {

class FewControls : public LoadedEditor, public ::testing::WithParamInterface<std::size_t> {
protected:
    FewControls() {
        for (const auto& scene : WindowAction::scenes()) {
            auto records = scene->buttonValueArray();
            records.resize(GetParam());
            scene->setButtonValueArray(records);
        }
        view.showSceneValue();
    }
    [[nodiscard]] static bool isThere(std::int32_t index) {
        return index >= 1 && std::cmp_less_equal(index, GetParam());
    }
};

} // namespace

TEST_P(FewControls, PaneIsShownForTheControlsThatAreThere) {
    const std::pair<std::int32_t, const char*> kLasts[] = {
        {4, "groupView"}, {8, "knobView"}, {12, "sliderView"}, {20, "padView"}, {45, "keyView"}};
    for (const auto& [index, pane] : kLasts) {
        choose(index);
        EXPECT_EQ(visiblePanes(), isThere(index) ? Lines{pane} : Lines{}) << index;
        view.showChosenControl();
        EXPECT_EQ(visiblePanes(), isThere(index) ? Lines{pane} : Lines{}) << index;
    }
    list.click(0);
    EXPECT_EQ(visiblePanes(), Lines{"commonView"});
}

TEST_P(FewControls, ChoiceForAControlThatIsMissingChangesNothing) {
    for (const PopUpRow& row : kPopUpRows) {
        const std::int32_t last = controlRangeOf(row.control)->end() - 1;
        if (last == 0)
            continue; // the common settings are always there
        choose(last);
        pick(row.name, 1);
        if (isThere(last)) {
            EXPECT_EQ((record(last).*row.field.readButton)(), 1) << row.name;
        }
    }
    EXPECT_EQ(view.sceneValue()->buttonValueArray().size(), GetParam());
}

TEST_P(FewControls, SummarySetsTheTitlesOfThoseThatAreThere) {
    journal.clear();
    view.showDisplayValueWithIndex(2);
    for (std::int32_t tag = 1; tag <= 45; ++tag)
        EXPECT_EQ(journal.of("button" + std::to_string(tag) + ".setTitle").size(), isThere(tag))
            << tag;
}

TEST_P(FewControls, DescriptionsAndTitlesDoWithout) {
    for (std::int32_t index = 0; index <= 46; ++index) {
        const std::string text = describeControl(*view.pu(), *view.sceneValue(), index);
        EXPECT_EQ(text != controlName(index), index == 0 || isThere(index)) << text;
    }
    for (const Setting& setting : settings()) {
        const ControlRange& range = controlRange(setting.kind());
        const bool isNone = range.kind != ControlKind::Common && !isThere(range.end() - 1);
        if (isNone) {
            EXPECT_EQ(optionTitle(*view.pu(), setting, *view.sceneValue(), range.count - 1), "---")
                << setting.name();
        }
    }
}

TEST_P(FewControls, ClipboardTakesAndGivesWhatIsThere) {
    for (std::int32_t index = 0; index <= 46; ++index) {
        ControlClipboard clipboard;
        const bool isHeld = index == 0 || isThere(index);
        EXPECT_EQ(clipboard.copy(*view.sceneValue(), index), isHeld) << index;
        EXPECT_EQ(clipboard.paste(*view.sceneValue(), index), isHeld) << index;
        EXPECT_EQ(resetControl(*view.sceneValue(), index), isHeld) << index;
    }
}

INSTANTIATE_TEST_SUITE_P(Counts, FewControls, ::testing::Values(0U, 44U));

using NoLists = EditorBench;

TEST_F(NoLists, WindowLogicWorksWithoutAnyTitle) {
    for (const char* key : {"displaySelect", "control", "button-MIDICh", "button-assginType",
                            "select127", "button-note", "button-behavior", "button-enable",
                            "common-sceneName", "common-globalMIDICh", "common-pianoKeyCh",
                            "common-PitchBendSpeed", "common-keyTranspose", "common-velocityCurve"})
        setEntries(key, 0);
    load();
    EXPECT_EQ(list.source->rowCount(), 0);
    for (std::int32_t index = 0; index <= 46; ++index)
        list.click(index);
    for (std::int32_t mode = -1; mode < 9; ++mode)
        view.showDisplayValueWithIndex(mode);
    view.showSceneValue();
    for (const PopUpRow& row : kPopUpRows) {
        choose(std::max(1, row.control));
        pick(row.name, -1);
        EXPECT_TRUE(popUp(row.name).titles.empty()) << row.name;
    }
    EXPECT_EQ(button(1).title.text, "---");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 1), "Group 1: channel unknown");
}

} // namespace scenewright::testing
