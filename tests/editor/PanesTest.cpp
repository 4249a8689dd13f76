#include "tests/editor/EditorBench.h"

#include <cstdint>

namespace scenewright::testing {

namespace {

using Panes = EditorBench;

Lines shown(const Lines& calls, const std::string& pane) {
    return joined({hiddenPanes(), calls, {pane + ".setHidden(no)"}});
}

} // namespace

TEST_F(Panes, CommonPaneIsShownFirstThenFilled) {
    loaded();
    common().setKeyVelocityCurve(2);
    common().setPadVelocityCurve(3);
    view.showCommonValue();
    EXPECT_EQ(
        journal.lines(),
        joined(
            {hiddenPanes(),
             {"commonView.setHidden(no)", "commonSceneName.setText(SCENE1)",
              "commonGlobalMIDICh.selectItem(3)", "commonPianoKeyCh.selectItem(4)",
              "commonPitchBendSpeed.selectItem(50)", "commonKeyTranspose.selectItem(6)",
              "commonKeyVelocityCurve.selectItem(2)", "commonKeyConstVelocity.selectItem(70)",
              "commonPadVelocityCurve.selectItem(3)", "commonPadConstVelocity.selectItem(80)",
              "commonKeyConstVelocity.setEnabled(no)", "commonPadConstVelocity.setEnabled(yes)"}}));
}

TEST_F(Panes, OnlyCurveThreeEnablesItsConstantVelocity) {
    loaded();
    for (const std::int32_t curve : {-1, 0, 1, 2, 3, 4, 127}) {
        common().setKeyVelocityCurve(curve);
        common().setPadVelocityCurve(3 - curve);
        view.showCommonValue();
        EXPECT_EQ(popUp("commonKeyConstVelocity").enabled, curve == 3) << curve;
        EXPECT_EQ(popUp("commonPadConstVelocity").enabled, curve == 0) << curve;
    }
}

TEST_F(Panes, SceneNameIsHandedOverAsItIsStored) {
    loaded();
    for (const std::string& name :
         {std::string("LIVE\0\0\0\0\0\0\0\0", 12), std::string("\xFF\x07")}) {
        common().setSceneName(name);
        view.showCommonValue();
        EXPECT_EQ(sceneName.text, name);
    }
}

TEST_F(Panes, GroupPaneShowsTheChannel) {
    loaded();
    record(4).setMIDIChannel(11);
    view.showGroupValue(4);
    EXPECT_EQ(journal.lines(), shown({"groupMIDIChannel.selectItem(11)"}, "groupView"));
    EXPECT_EQ(view.buttonValue().get(), &record(4));
}

// Any enable but 0 is on; what is off is shown all the same.
TEST_F(Panes, KnobsAndSlidersShowTheirValuesThenWhatCanBeUsed) {
    loaded();
    for (const std::int32_t enable : {-1, 0, 1, 2, 127}) {
        const std::string value = std::to_string(enable);
        const std::string usable = enable != 0 ? ".setEnabled(yes)" : ".setEnabled(no)";
        for (const std::int32_t index : {6, 12}) {
            const bool isKnob = index == 6;
            const std::string kind = isKnob ? "knob" : "slider";
            record(index).setEnable(enable);
            journal.clear();
            if (isKnob)
                view.showKnobValue(index);
            else
                view.showSliderValue(index);
            EXPECT_EQ(journal.lines(),
                      shown({kind + "Enable.selectItem(" + value + ")",
                             kind + "CCNumber.selectItem(" + (isKnob ? "20)" : "30)"),
                             kind + "LowerOrLeftValue.selectItem(" + (isKnob ? "10)" : "11)"),
                             kind + "UpperOrRightValue.selectItem(" + (isKnob ? "100)" : "101)"),
                             kind + "CCNumber" + usable, kind + "UpperOrRightValue" + usable,
                             kind + "LowerOrLeftValue" + usable},
                            kind + "View"))
                << kind << " " << enable;
        }
    }
}

TEST_F(Panes, ColourPopUpsAreNeverDisabled) {
    loaded();
    for (const std::int32_t type : {0, 1, 2, 3}) {
        record(13).setAssignType(type);
        view.showPadValue(13);
    }
    for (const char* name : {"padCR", "padCG", "padCB"})
        EXPECT_EQ(journal.of(std::string(name) + ".setEnabled"), Lines{});
}

TEST_F(Panes, EachShowReadsTheRecordAnew) {
    loaded();
    view.showGroupValue(1);
    record(1).setMIDIChannel(16);
    view.showGroupValue(1);
    EXPECT_EQ(popUp("groupMIDIChannel").selected, 16);
}

TEST_F(Panes, ExactlyOnePaneIsVisibleAfterEach) {
    loaded();
    const std::pair<void (ViewController::*)(std::int32_t), std::pair<std::int32_t, Lines>>
        kShows[] = {{&ViewController::showGroupValue, {1, {"groupView"}}},
                    {&ViewController::showKnobValue, {5, {"knobView"}}},
                    {&ViewController::showSliderValue, {9, {"sliderView"}}},
                    {&ViewController::showPadValue, {13, {"padView"}}},
                    {&ViewController::showKeyValue, {21, {"keyView"}}}};
    for (const auto& [show, expected] : kShows) {
        (view.*show)(expected.first);
        EXPECT_EQ(visiblePanes(), expected.second);
    }
    view.showCommonValue();
    EXPECT_EQ(visiblePanes(), Lines{"commonView"});
}

TEST_F(Panes, ControlWithoutARecordShowsNoPane) {
    removeDefaultScene();
    loaded();
    view.showPadValue(13);
    EXPECT_EQ(journal.lines(), hiddenPanes());
}

} // namespace scenewright::testing
