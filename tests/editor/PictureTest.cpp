// The display summary on the picture's buttons, and what a value outside its list does there.
#include "app/WindowAction.h"
#include "protocol/SceneImage.h"
#include "tests/editor/EditorBench.h"

#include <algorithm>

namespace scenewright::testing {

namespace {

using Picture = LoadedEditor;

} // namespace

TEST_F(Picture, SummarySetsEachTitleThenColoursThemAll) {
    view.showDisplayValueWithIndex(1);
    Lines titles;
    std::map<std::int32_t, std::string> byTag;
    for (std::int32_t tag = 1; tag <= 45; ++tag) {
        byTag[tag] = tag < 5 ? "button-MIDICh:2" : tag < 13 ? "button-enable:1" : "Note";
        titles.push_back("button" + std::to_string(tag) + ".setTitle(" + byTag[tag] + ")");
    }
    EXPECT_EQ(journal.lines(), joined({titles, greenTitles(byTag)}));
}

TEST_F(Picture, DisplayChoiceSetsTheModeAndRewritesTheTitles) {
    displaySelect.selected = 5;
    record(30).setAssignType(0);
    view.changeDispalyAction(displaySelect);
    EXPECT_EQ(view.dispaly_index(), 5);
    EXPECT_EQ(button(30).title.text, "---");
    EXPECT_EQ(button(31).title.text, "button-behavior:4");
    EXPECT_EQ(button(13).title.text, "button-behavior:3");
    EXPECT_EQ(journal.withoutPicture(), Lines{});
}

TEST_F(Picture, MoreOrFewerControlsThanButtonsAreNotShown) {
    auto records = view.sceneValue()->buttonValueArray();
    records.resize(60, records.back());
    view.sceneValue()->setButtonValueArray(records);
    view.showDisplayValueWithIndex(0);
    EXPECT_EQ(journal.of("button").size(), 45U + 90U);
    removeDefaultScene();
    loaded();
    view.showDisplayValueWithIndex(2);
    EXPECT_EQ(journal.of("button").size(), 90U); // the colours
}

TEST_F(Picture, ValueOutsideItsListShowsDashesAndLogsNothing) {
    for (const std::int32_t value : {17, 100, 127, -1, -2, INT32_MAX, INT32_MIN}) {
        record(15).setMIDIChannel(9);
        view.showDisplayValueWithIndex(0);
        ASSERT_EQ(button(15).title.text, "button-MIDICh:9");
        record(15).setMIDIChannel(value);
        journal.clear();
        view.showDisplayValueWithIndex(0);
        EXPECT_EQ(button(15).title.text, "---") << value;
        EXPECT_EQ(journal.of("log: "), Lines{}) << value;
    }
}

TEST_F(Picture, PopUpOfAValueOutsideItsListShowsNoSelectionAndTheValueStays) {
    record(15).setMIDIChannel(100);
    choose(14);
    ASSERT_EQ(popUp("padMIDIChannel").selected, 9);
    journal.clear();
    choose(15);
    EXPECT_EQ(popUp("padMIDIChannel").selected, -1);
    EXPECT_EQ(journal.of("log: "),
              (Lines{"log: 点击了按钮：15", "log: 表格选中:15", "log: CR---------->10"}));
    EXPECT_EQ(record(15).MIDIChannel(), 100);
    ASSERT_EQ(popUp("commonPianoKeyCh").selected, 4);
    common().setPianoKeyCh(100);
    journal.clear();
    view.showCommonValue();
    EXPECT_EQ(popUp("commonPianoKeyCh").selected, -1);
    EXPECT_EQ(journal.of("log: "), Lines{});
}

TEST_F(Picture, ControllerFullOf127ShowsWhatItsListsHaveAndIsSentBackUnchanged) {
    BankImage bank;
    bank.fill(0x7F);
    WindowAction::setScenes(parseScenes(bank));
    view.showSceneValue();
    EXPECT_EQ(button(1).title.text, "---");                // channel 127 of 17
    EXPECT_EQ(button(5).title.text, "CC#\nselect127:127"); // any Enable but 0 is on
    EXPECT_EQ(button(13).title.text, "---");               // assign type 127
    view.showDisplayValueWithIndex(1);
    EXPECT_EQ(button(5).title.text, "---"); // Enable 127 of 2
    for (std::int32_t mode = -1; mode < 9; ++mode)
        view.showDisplayValueWithIndex(mode);
    for (std::int32_t index = 0; index <= 46; ++index) {
        list.selected = -1;
        list.click(index);
    }
    for (std::int32_t scene = 0; scene < 4; ++scene) {
        const SceneImage image = encodeScene(*WindowAction::getSceneWithIndex(scene));
        EXPECT_TRUE(std::ranges::equal(image, std::span(bank).first(kSceneImageSize)));
    }
}

} // namespace scenewright::testing
