// What each window has in it: its fields and buttons where they stand, with their names, what they
// say when asked, and how they can be used.
#include "tests/editor-qt-files/Contents.h"

#include "editor/qt/DeviceVerification.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/FillDialog.h"
#include "editor/qt/KeyboardsDialog.h"
#include "editor/qt/MonitorStrip.h"
#include "editor/qt/PlayBar.h"
#include "editor/qt/SceneCommands.h"
#include "editor/qt/SceneMarks.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QTest>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace scenewright::testing {

namespace {

class ContentsTest : public OpenWindow {
protected:
    void expectFill(std::int32_t control, const QString& with, const char* contents) {
        choose(control);
        inDialog<FillDialog>(
            [this] { entry("Fill...").trigger(); },
            [&](FillDialog& dialog) {
                auto& box = field<PopUpBox>(dialog, "Fill with");
                box.setCurrentIndex(static_cast<int>(box.titles().indexOf(with)));
                const QString all = QString::fromStdString(contentsOf(dialog));
                EXPECT_EQ(dialog.minimumWidth(), 380);
                EXPECT_EQ(all.section(QStringLiteral("\nhidden"), 0, 0).toStdString(), contents)
                    << with.toStdString();
                dialog.reject();
            });
    }
};

TEST_F(ContentsTest, Menus) {
    EXPECT_EQ(menusOf(*window().menuBar()), R"(&File called File
  &Open Bank... keys "Ctrl+O"
  &Save Bank keys "Ctrl+S"
  Save Bank &As... keys "Ctrl+Shift+S"
  &Recent called Recent banks
  --
  Open S&cene Into This One...
  Save &This Scene...
  --
  Export S&heet...
  Pr&int... keys "Ctrl+P"
  --
  &Earlier Scenes called Earlier scenes
  --
  &Play This Scene Here checkable
  --
  &Quit keys "Ctrl+Q" once
&Edit called Edit
  &Undo keys "Ctrl+Z" disabled
  Re&do keys "Ctrl+Shift+Z" disabled
  --
  &Copy Scene Settings keys "Ctrl+C"
  &Paste Scene Settings keys "Ctrl+V" disabled
  Select &All of This Kind keys "Ctrl+A" disabled
  --
  &Fill... disabled
  &Transpose... disabled
  --
  &Reset Scene Settings keys "Ctrl+Backspace"
&Scene called Scene
  &Rename... keys "F2"
  &Copy To called Copy To
  S&wap With called Swap With
  &Duplicate From File...
  --
  R&eset Scene
&Device called Device
  &Read Scenes keys "Ctrl+R" once
  &Send Scenes keys "Ctrl+Return" once
  --
  &Compare With Device keys "Ctrl+D"
  Send And &Verify keys "Ctrl+Shift+Return"
  --
  Read the Keyboard &Before a Send checked
  Try &It
  &Keyboards... disabled
&View called View
  M&IDI Channel checkable
  T&ype checkable
  &CC/Note Number checked
  &Lower/Left Value checkable
  &Upper/Right Value checkable
  &Behaviour checkable
  &Off Value checkable
  O&n Value checkable
  --
  &Previous Control keys "Ctrl+PgUp"
  N&ext Control keys "Ctrl+PgDown"
  --
  &Gain Panel once
  &Appearance called Appearance
    As the &System checked
    &Light checkable
    &Dark checkable
  &Monitor keys "Ctrl+M" checkable
  Choose by &Touching checkable
  Mark What Is Not Sent checkable
&Help called Help
  &Guide keys "F1" once
  &What's This?	Shift+F1 once
  &About Scenewright once)");
}

TEST_F(ContentsTest, PanesOfAPadAndOfTheScene) {
    const auto expectPane = [this](std::int32_t control, const char* contents) {
        window().showControl(0, control);
        QString all = QString::fromStdString(contentsOf(window().panes()));
        all.remove(QLatin1Char('&')); // marks a letter
        EXPECT_EQ(all.section(QStringLiteral("\nhidden"), 0, 0).toStdString(), contents);
    };
    record(kPad).setCR(3);
    expectPane(kPad, R"(label "Pad 1" role "heading"
label "Type" role "field" for "Type"
| label "CC or note number" role "field" for "CC or note number"
| label "On value" role "field" for "On value"
| label "Off value" role "field" for "Off value"
| label "Behaviour" role "field" for "Behaviour"
box = "Note" called "Type" described "What it sends: nothing (Off), a controller (CC) or a note (Note)."
| box = "C2" called "CC or note number" described "The controller or the note that it sends. A note may be typed by its name or its number: Db2, C#2 or 37."
| box = "127" called "On value" described "The controller's value when it is switched on." disabled
| box = "0" called "Off value" described "The controller's value when it is switched off." disabled
| box = "Momentary" called "Behaviour" described "Momentary: on while it is held. Toggle: on at a press, off at the next one. Trigger: at the press alone. Release: when it is let go."
label "Sends MIDI 36 C2, Bass Drum 1 on channel 10" by-mouse role "field"
label "MIDI channel" role "field" for "MIDI channel"
| label "Red" role "field" for "Red"
| label "Green" role "field" for "Green"
| label "Blue" role "field" for "Blue"
| label "Mixed colour" role "field" for "Mixed colour"
box = "10" called "MIDI channel" described "The channel that it sends on. Global stands for the global MIDI channel."
| box = "3" called "Red" described "How much red is in the light, from 0 to 127."
| box = "0" called "Green" described "How much green is in the light, from 0 to 127."
| box = "0" called "Blue" described "How much blue is in the light, from 0 to 127."
| button "" called "Mixed colour" described "Red 6, green 0, blue 0 of 255" tip "Red 6, green 0, blue 0 of 255")");
    expectPane(0, R"-(label "Common" role "heading"
label "Scene name" role "field" for "Scene name"
| label "Global MIDI channel" role "field" for "Global MIDI channel"
| label "Keyboard MIDI channel" role "field" for "Keyboard MIDI channel"
| label "Pitch-bend speed" role "field" for "Pitch-bend speed"
| label "Octave transposition" role "field" for "Octave transposition"
line fixed = "SCENE1" called "Scene name" described "The name that the keyboard holds of the scene. Scene > Rename changes it."
| box = "1" called "Global MIDI channel" described "The channel of everything in this scene whose own channel is Global."
| box = "Global" called "Keyboard MIDI channel" described "The channel that the keys send on. Global stands for the global MIDI channel."
| box = "64" called "Pitch-bend speed" described "How fast pitch bend follows, as a number from 0 to 127."
| box = "0" called "Octave transposition" described "Moves the notes of the keys up or down by whole octaves."
label "Key velocity curve" role "field" for "Key velocity curve"
| label "Key constant velocity" role "field" for "Key constant velocity"
| label "Pad velocity curve" role "field" for "Pad velocity curve"
| label "Pad constant velocity" role "field" for "Pad constant velocity"
box = "Normal" called "Key velocity curve" described "How the strength of a stroke becomes a velocity: Soft gives more for a light stroke, Hard asks for a strong one, and with Constant every stroke gives the constant velocity."
| box = "100" called "Key constant velocity" described "The velocity of every stroke while the velocity curve is Constant." disabled
| box = "Normal" called "Pad velocity curve" described "How the strength of a stroke becomes a velocity: Soft gives more for a light stroke, Hard asks for a strong one, and with Constant every stroke gives the constant velocity."
| box = "100" called "Pad constant velocity" described "The velocity of every stroke while the velocity curve is Constant." disabled)-");
}

TEST_F(ContentsTest, DialogOfKeyboards) {
    KeyboardsDialog dialog(true, nullptr);
    EXPECT_EQ(contentsOf(dialog),
              R"(table "Device" "Port" "Serial number" "State" whole-rows called "Keyboards"
label "No USB MIDI device is plugged in." wraps plain by-mouse by-keys top role "hint"
button "&Use This One" tip "Reads from and sends to this keyboard from now on"
| button "&Allow" tip "Installs the rules that let you use the keyboards of the list, with an administrator's password"
| button "Cop&y Command" tip "Copies the command that lets you use the keyboards of the list, for a terminal"
| button "Add To My &List" tip "Adds the device to your own list of keyboards"
| button "&Close" default
holders: Actions)");
    KeyboardsDialog other(false, nullptr);
    EXPECT_NE(contentsOf(other).find("\nhidden button \"&Allow\""), std::string::npos);
}

TEST_F(ContentsTest, DialogOfDifferences) {
    DifferenceDialog dialog({}, nullptr);
    EXPECT_EQ(contentsOf(dialog),
              R"(label "0 settings of the controller are not what you see." role "notice"
table "Control" "Setting" "Keyboard" "Window" whole-rows several called "Differences"
label "Taking changes the window alone. A send transmits the four scenes whole." role "hint"
button "&Take the Keyboard's" tip "Puts what the keyboard holds into the window: of the selected rows, or of all when none is selected" disabled
| button "&Send These" tip "Sends the four scenes of the window, whole"
| button "Cop&y as Text" tip "Copies the selected rows, or all"
| button "&Close" default
holders: Actions)");
}

TEST_F(ContentsTest, DialogsThatFill) {
    expectFill(kPad, "Notes", R"(label "Fill &with" for "Fill with"
box = "Notes" called "Fill with"
label "First &note" for "First note"
| line = "C2" called "First note"
label "&Scale or steps" for "Scale or steps"
| box editable = "chromatic" called "Scale or steps" tip "A scale, or semitones from each note to the next: 2,2,1"
label "The picture shows what comes of it." wraps plain top
button "Cance&l" auto-default
| button "F&ill" default)");
    expectFill(kPad, "Controllers", R"(label "Fill &with" for "Fill with"
box = "Controllers" called "Fill with"
label "First &controller" for "First controller"
| line = "20" called "First controller"
label "&Steps" for "Steps"
| line = "1" called "Steps"
label "The picture shows what comes of it." wraps plain top
button "Cance&l" auto-default
| button "F&ill" default)");
    expectFill(kPad, "MIDI channel", R"(label "Fill &with" for "Fill with"
box = "MIDI channel" called "Fill with"
label "&Channel" for "Channel"
| number 1 of 1 to 16 called "Channel"
label "The picture shows what comes of it." wraps plain top
button "Cance&l" auto-default
| button "F&ill" default)");
    expectFill(kPad, "Colours", R"(label "Fill &with" for "Fill with"
box = "Colours" called "Fill with"
label "&Colours" for "Colours"
| box = "From one to another" called "Colours"
label "&From" for "From"
| button "#ff0000" auto-default called "From"
label "&To" for "To"
| button "#ffff00" auto-default called "To"
label "The picture shows what comes of it." wraps plain top
button "Cance&l" auto-default
| button "F&ill" default)");
    expectFill(kPad, "Their notes, moved", R"(label "Fill &with" for "Fill with"
box = "Their notes, moved" called "Fill with"
label "&Semitones" for "Semitones"
| number 12 of -127 to 127 called "Semitones"
label "The picture shows what comes of it." wraps plain top
button "Cance&l" auto-default
| button "F&ill" default)");
}

TEST_F(ContentsTest, DialogThatRenames) {
    RenameDialog dialog(QStringLiteral("LEAD"), nullptr);
    EXPECT_EQ(dialog.findChildren<QLabel*>().front()->minimumWidth(), 340);
    EXPECT_EQ(contentsOf(dialog), R"(label "&Name" for "Name"
line = "LEAD" selected "LEAD" called "Name"
label "4 of 12 bytes" wraps plain
button "&Cancel" auto-default
| button "&Rename" default)");
}

TEST_F(ContentsTest, AboutGuideAndDetails) {
    About about;
    const std::string all = contentsOf(about);
    EXPECT_EQ(all.substr(std::min(all.find("table"), all.size())),
              R"(table "Library" "Built with" "Licence" whole-rows called "Libraries"
label "Scenewright's own licence:"
text fixed tab-leaves called "Licence"
button "&Close" default)");
    NoticeDetails details(QStringLiteral("what\nhappened"), nullptr);
    EXPECT_EQ(contentsOf(details), R"(text fixed tab-leaves called "Notice"
button "&Close" default)");
    GuideWindow guide;
    EXPECT_EQ(contentsOf(guide), R"-(button "&Back" disabled
| button "&Forward" disabled
| button "&Contents"
| button "&Open in Browser"
| label "" called "Search this page"
| line hint "Search (Ctrl+F)" called "Search this page"
pages frameless margin 18 called "Guide")-");
}

TEST_F(ContentsTest, WhatIsToCheck) {
    record(kKnob).setCCOrNoteNumber(7);
    window().view().showChosenControl();
    QTest::qWait(0);
    badge().click();
    EXPECT_EQ(contentsOf(*field<QListWidget>(window(), "To Check").window()),
              R"(list called "To Check")");
}

TEST_F(ContentsTest, Strips) {
    commands().useVirtual();
    window().commands().read();
    part<MonitorStrip>().action().setChecked(true);
    EXPECT_EQ(contentsOf(part<MonitorStrip>()),
              R"(label "Listening to Virtual controller" plain called "What is listened to"
| line clear-button hint "Filter" called "Filter"
| button "Pause" checkable
| button "Clock Too" checkable
| button "Clear"
| button "Copy"
table "Time" "Message" "Sent by" several called "What the keyboard sends"
holders: Monitor)");
    window().menu().view().actions().back()->setChecked(true);
    EXPECT_EQ(
        contentsOf(part<PlayBar>()),
        R"(label "Playing scene 1 as the virtual controller holds it" plain role "heading" tip "Playing scene 1 as the virtual controller holds it"
| button "Stop Playing" main
label "Rows from A and W: keys, octave 1 (Z, X)   1–8: pads   velocity 100 (C, V)   −, =: knob or slider" plain role "hint" tip "Rows from A and W: keys, octave 1 (Z, X)   1–8: pads   velocity 100 (C, V)   −, =: knob or slider"
label "" plain)");
}

// What tells the style how a frame or a bar is drawn.
TEST_F(ContentsTest, KindsOfFrames) {
    window().notices().post({.text = "The notice"});
    std::map<std::string, int> kinds;
    for (const auto* widget : window().findChildren<QWidget*>())
        for (const char* const kind : {"panel", "segments", "list", "slim"})
            if (widget->property(kind).toBool()) {
                const auto* const frame = qobject_cast<const QFrame*>(widget);
                EXPECT_EQ(frame == nullptr, std::string_view(kind) == "slim");
                EXPECT_TRUE(frame == nullptr || frame->frameShape() == QFrame::StyledPanel);
                ++kinds[kind + (": " + widget->accessibleName()).toStdString()];
            }
    EXPECT_EQ(kinds, (std::map<std::string, int>{{"list: Controls", 1},
                                                 {"panel: Playing", 1},
                                                 {"panel: Settings of the chosen control", 6},
                                                 {"panel: Status line", 1},
                                                 {"panel: The notice", 1},
                                                 {"segments: Below the picture", 1},
                                                 {"segments: Scenes", 1},
                                                 {"slim: ", 1}}));
}

TEST_F(ContentsTest, NoticeAndStatus) {
    window().notices().post({.text = "first\nsecond", .actions = {{"Send Again", [] {}}}});
    EXPECT_EQ(contentsOf(window().notices()), R"(label "first
second" plain role "trouble" tip "first
second"
| button "Send Again"
| button "Details..." called "Details of the notice"
| button "Dismiss" called "Dismiss the notice")");
    EXPECT_EQ(contentsOf(window().status()), R"(label "Ready" plain by-mouse described "Status"
| label "Virtual controller" plain role "field" described "Keyboard"
hidden progress of 0 to 0 called "Transfer in progress" tip "Transfer in progress"
hidden button "0 to check" flat tip "What may not be meant in these scenes"
hidden button "" flat menu called "Which keyboard to use" described "Which keyboard to use")");
    EXPECT_EQ(contentsOf(window().scenes()),
              R"(button "1  SCENE1" checked segment called "Scene 1, SCENE1" tip "Scene 1, SCENE1"
| button "2  SCENE2" checkable segment called "Scene 2, SCENE2" tip "Scene 2, SCENE2"
| button "3  SCENE3" checkable segment called "Scene 3, SCENE3" tip "Scene 3, SCENE3"
| button "4  SCENE4" checkable segment called "Scene 4, SCENE4" tip "Scene 4, SCENE4")");
}

} // namespace

} // namespace scenewright::testing
