#include "tests/editor/EditorBench.h"

#include <cstdint>

namespace scenewright::testing {

namespace {

using Panes = EditorBench;

Lines shown(const Lines& calls, const std::string& pane) {
    return joined({hiddenPanes(), calls, {pane + ".setHidden(no)"}});
}

// What the pad pane does after its assign type.
Lines padRest(std::int32_t number) {
    return {"padCCOrNoteNumber.selectItem(" + std::to_string(number) + ")",
            "padOnValue.selectItem(127)",
            "padOffValue.selectItem(1)",
            "padPadBehavior.selectItem(3)",
            "padMIDIChannel.selectItem(9)",
            "log: CR---------->10",
            "padCR.selectItem(10)",
            "padCG.selectItem(20)",
            "padCB.selectItem(30)"};
}

Lines keyRest(std::int32_t number) {
    return {"keyCCOrNoteNumber.selectItem(" + std::to_string(number) + ")",
            "keyOnValue.selectItem(126)", "keyOffValue.selectItem(2)",
            "keyKeyBehavior.selectItem(4)"};
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

TEST_F(Panes, KnobPaneShowsItsValuesThenWhatCanBeUsed) {
    loaded();
    view.showKnobValue(6);
    EXPECT_EQ(journal.lines(),
              shown({"knobEnable.selectItem(1)", "knobCCNumber.selectItem(20)",
                     "knobLowerOrLeftValue.selectItem(10)", "knobUpperOrRightValue.selectItem(100)",
                     "knobCCNumber.setEnabled(yes)", "knobUpperOrRightValue.setEnabled(yes)",
                     "knobLowerOrLeftValue.setEnabled(yes)"},
                    "knobView"));
}

TEST_F(Panes, KnobThatIsOffShowsItsNumberAndValuesDisabled) {
    loaded();
    record(6).setEnable(0);
    view.showKnobValue(6);
    EXPECT_EQ(enabledPopUps("knob"), Lines{"knobEnable"});
    EXPECT_EQ(popUp("knobCCNumber").selected, 20);
    EXPECT_EQ(popUp("knobUpperOrRightValue").selected, 100);
    EXPECT_EQ(popUp("knobLowerOrLeftValue").selected, 10);
}

TEST_F(Panes, AnyEnableButZeroEnablesTheKnob) {
    loaded();
    for (const std::int32_t enable : {-1, 1, 2, 127}) {
        record(6).setEnable(enable);
        view.showKnobValue(6);
        EXPECT_EQ(enabledPopUps("knob").size(), 4U) << enable;
    }
}

TEST_F(Panes, SliderPaneShowsItsValuesThenWhatCanBeUsed) {
    loaded();
    record(12).setEnable(0);
    view.showSliderValue(12);
    EXPECT_EQ(
        journal.lines(),
        shown({"sliderEnable.selectItem(0)", "sliderCCNumber.selectItem(30)",
               "sliderLowerOrLeftValue.selectItem(11)", "sliderUpperOrRightValue.selectItem(101)",
               "sliderCCNumber.setEnabled(no)", "sliderUpperOrRightValue.setEnabled(no)",
               "sliderLowerOrLeftValue.setEnabled(no)"},
              "sliderView"));
}

TEST_F(Panes, PadThatIsOffHasAnEmptyNumberListAndFiveDisabledPopUps) {
    loaded();
    record(13).setAssignType(0);
    view.showPadValue(13);
    EXPECT_EQ(journal.lines(),
              shown(joined({{"padAssignType.selectItem(0)", "padCCOrNoteNumber.removeAllItems()",
                             "padCCOrNoteNumber.setEnabled(no)", "padOnValue.setEnabled(no)",
                             "padOffValue.setEnabled(no)", "padPadBehavior.setEnabled(no)",
                             "padMIDIChannel.setEnabled(no)"},
                            padRest(36)}),
                    "padView"));
    EXPECT_TRUE(popUp("padCCOrNoteNumber").titles.empty());
}

TEST_F(Panes, PadThatSendsAControllerOffersControllersAndEnablesAllFive) {
    loaded();
    record(13).setAssignType(1);
    view.showPadValue(13);
    EXPECT_EQ(journal.lines(),
              shown(joined({{"padAssignType.selectItem(1)", "padCCOrNoteNumber.removeAllItems()",
                             "padCCOrNoteNumber.setEnabled(yes)", "padOnValue.setEnabled(yes)",
                             "padOffValue.setEnabled(yes)", "padPadBehavior.setEnabled(yes)",
                             "padMIDIChannel.setEnabled(yes)",
                             "padCCOrNoteNumber.addItems(select127:0 x128)"},
                            padRest(36)}),
                    "padView"));
}

TEST_F(Panes, PadThatSendsANoteOffersNotesAndDisablesOnAndOff) {
    loaded();
    record(13).setCCOrNoteNumber(60);
    view.showPadValue(13);
    EXPECT_EQ(journal.lines(),
              shown(joined({{"padAssignType.selectItem(2)", "padCCOrNoteNumber.removeAllItems()",
                             "padCCOrNoteNumber.setEnabled(yes)", "padOnValue.setEnabled(no)",
                             "padOffValue.setEnabled(no)", "padPadBehavior.setEnabled(yes)",
                             "padMIDIChannel.setEnabled(yes)",
                             "padCCOrNoteNumber.addItems(button-note:0 x128)"},
                            padRest(60)}),
                    "padView"));
}

TEST_F(Panes, PadOfAnotherAssignTypeKeepsWhatCanBeUsedAndAnEmptyNumberList) {
    loaded();
    for (const std::int32_t type : {-1, 3, 127}) {
        record(13).setAssignType(type);
        popUp("padOnValue").enabled = false;
        view.showPadValue(13);
        EXPECT_EQ(journal.of("padOffValue.setEnabled"), Lines{});
        EXPECT_TRUE(popUp("padCCOrNoteNumber").titles.empty());
        EXPECT_FALSE(popUp("padOnValue").enabled);
        EXPECT_TRUE(popUp("padOffValue").enabled);
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

TEST_F(Panes, KeyThatIsOffHasAnEmptyNumberListAndFourDisabledPopUps) {
    loaded();
    record(21).setAssignType(0);
    view.showKeyValue(21);
    EXPECT_EQ(journal.lines(),
              shown(joined({{"keyAssignType.selectItem(0)", "keyCCOrNoteNumber.removeAllItems()",
                             "keyCCOrNoteNumber.setEnabled(no)", "keyOnValue.setEnabled(no)",
                             "keyOffValue.setEnabled(no)", "keyKeyBehavior.setEnabled(no)"},
                            keyRest(60)}),
                    "keyView"));
}

TEST_F(Panes, KeyThatSendsAControllerOffersControllersAndEnablesAllFour) {
    loaded();
    record(45).setAssignType(1);
    view.showKeyValue(45);
    EXPECT_EQ(journal.lines(),
              shown(joined({{"keyAssignType.selectItem(1)", "keyCCOrNoteNumber.removeAllItems()",
                             "keyCCOrNoteNumber.setEnabled(yes)", "keyOnValue.setEnabled(yes)",
                             "keyOffValue.setEnabled(yes)", "keyKeyBehavior.setEnabled(yes)",
                             "keyCCOrNoteNumber.addItems(select127:0 x128)"},
                            keyRest(60)}),
                    "keyView"));
}

TEST_F(Panes, KeyThatSendsANoteOffersNotesAndDisablesOnAndOff) {
    loaded();
    view.showKeyValue(45);
    EXPECT_EQ(journal.lines(),
              shown(joined({{"keyAssignType.selectItem(2)", "keyCCOrNoteNumber.removeAllItems()",
                             "keyCCOrNoteNumber.setEnabled(yes)", "keyOnValue.setEnabled(no)",
                             "keyOffValue.setEnabled(no)", "keyKeyBehavior.setEnabled(yes)",
                             "keyCCOrNoteNumber.addItems(button-note:0 x128)"},
                            keyRest(60)}),
                    "keyView"));
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
