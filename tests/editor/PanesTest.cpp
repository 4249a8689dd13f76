#include "tests/editor/EditorBench.h"

#include <cstdint>

namespace scenewright::testing {

namespace {

using Panes = LoadedEditor;

Lines shown(const Lines& calls, const std::string& pane) {
    return joined({hiddenPanes(), calls, {pane + ".setHidden(no)"}});
}

} // namespace

TEST_F(Panes, CommonPaneIsShownFirstThenFilled) {
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
    for (const std::int32_t curve : {-1, 0, 1, 2, 3, 4, 127}) {
        common().setKeyVelocityCurve(curve);
        common().setPadVelocityCurve(3 - curve);
        view.showCommonValue();
        EXPECT_EQ(popUp("commonKeyConstVelocity").enabled, curve == 3) << curve;
        EXPECT_EQ(popUp("commonPadConstVelocity").enabled, curve == 0) << curve;
    }
}

TEST_F(Panes, SceneNameIsHandedOverAsItIsStored) {
    for (const std::string& name :
         {std::string("LIVE\0\0\0\0\0\0\0\0", 12), std::string("\xFF\x07")}) {
        common().setSceneName(name);
        view.showCommonValue();
        EXPECT_EQ(sceneName.text, name);
    }
}

TEST_F(Panes, GroupPaneShowsTheChannelAnewEachTime) {
    for (const std::int32_t channel : {11, 16}) {
        record(4).setMIDIChannel(channel);
        journal.clear();
        view.showGroupValue(4);
        EXPECT_EQ(
            journal.lines(),
            shown({"groupMIDIChannel.selectItem(" + std::to_string(channel) + ")"}, "groupView"));
        EXPECT_EQ(view.buttonValue().get(), &record(4));
    }
}

// Any enable but 0 is on; what is off is shown all the same.
TEST_F(Panes, KnobsAndSlidersShowTheirValuesThenWhatCanBeUsed) {
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

TEST_F(Panes, ControlWithoutARecordShowsNoPane) {
    removeDefaultScene();
    loaded();
    view.showPadValue(13);
    EXPECT_EQ(journal.lines(), hiddenPanes());
}

} // namespace scenewright::testing
