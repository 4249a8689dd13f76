// What players want of their banks, each told with what they would do in the window, and the bytes
// of the whole bank compared.
#include "tests/support/Stories.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "editor/qt/FillDialog.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QToolButton>

#include <cstdint>
#include <functional>
#include <map>
#include <string_view>

namespace scenewright::testing {

namespace {

class WindowStories : public CommandsBench {
protected:
    using Told = std::map<std::string_view, std::function<void()>>; // by the story's name

    static Bytes image() {
        const BankImage image = encodeBank(WindowAction::scenes());
        return {image.begin(), image.end()};
    }

    void chooseAll(std::int32_t control) {
        choose(control);
        press(Qt::Key_A);
    }
    void scene(int number) { press(static_cast<Qt::Key>(Qt::Key_0 + number)); }
    void fill(const char* with, const std::function<void(FillDialog&)>& act) {
        inDialog<FillDialog>([this] { entry("Fill...").trigger(); },
                             [&](FillDialog& dialog) {
                                 auto& what = field<PopUpBox>(dialog, "Fill with");
                                 what.selectItem(what.findText(with));
                                 act(dialog);
                                 dialog.accept();
                             });
    }
    void fillNotes(const char* first, const char* scale) {
        fill("Notes", [&](FillDialog& dialog) {
            field<QLineEdit>(dialog, "First note").setText(first);
            field<QComboBox>(dialog, "Scale or steps").setCurrentText(scale);
        });
    }
    void fillControllers(const char* first) {
        fill("Controllers", [&](FillDialog& dialog) {
            field<QLineEdit>(dialog, "First controller").setText(first);
        });
    }
    void fillPalette(const char* palette) {
        fill("Colours", [&](FillDialog& dialog) {
            auto& colours = field<PopUpBox>(dialog, "Colours");
            colours.selectItem(colours.findText(palette, Qt::MatchContains));
        });
    }
    void transpose(int semitones) {
        inDialog<FillDialog>([this] { entry("Transpose...").trigger(); },
                             [&](FillDialog& dialog) {
                                 field<QSpinBox>(dialog, "Semitones").setValue(semitones);
                                 dialog.accept();
                             });
    }
    void colour(const QString& wanted) {
        window().panes().swatch().click();
        field<QToolButton>(commands().colours().menu(), wanted).click();
    }
    void rename(const QString& name) {
        inDialog<RenameDialog>([this] { press(Qt::Key_F2, Qt::NoModifier); },
                               [&](RenameDialog& dialog) {
                                   field<QLineEdit>(dialog, "Name").setText(name);
                                   dialog.accept();
                               });
    }
    void copyHere(int fromScene, std::int32_t from, std::int32_t to) {
        scene(fromScene);
        choose(from);
        press(Qt::Key_C);
        scene(1);
        choose(to);
        press(Qt::Key_V);
    }
    void expectFindings(bool areThere) {
        EXPECT_TRUE(waitUntil([&] { return badge().isVisible() == areThere; }));
    }

    void mendAConflict() {
        choose(kSlider);
        type("sliderCCNumber", "brightness");
        choose(kPad + 1);
        type("padCCOrNoteNumber", "C2");
        expectFindings(true);
        choose(kSlider);
        type("sliderCCNumber", "11");
        choose(kSlider + 1);
        type("sliderCCNumber", "volume");
        choose(kPad + 1);
        type("padCCOrNoteNumber", "Eb2");
        choose(kPad + 3);
        type("padCCOrNoteNumber", "C#2");
        expectFindings(false);
    }
    void mendATransposition() {
        type("commonKeyTranspose", "+4");
        choose(kKey + 24);
        type("keyCCOrNoteNumber", "F5");
        expectFindings(false);
        transpose(3);
        expectFindings(true);
        window().showControl(0, 0);
        type("commonKeyTranspose", "+3");
        expectFindings(false);
    }
    void editTheText() {
        const QString text = file("a.json");
        commands().banks().saveBank(text);
        QFile bank(text);
        ASSERT_TRUE(bank.open(QIODevice::ReadWrite));
        QString json = QString::fromUtf8(bank.readAll());
        const QRegularExpression levels(R"("CR": .*?"//CB": "\d+")",
                                        QRegularExpression::DotMatchesEverythingOption);
        const QString first = levels.match(json).captured();
        ASSERT_FALSE(first.isEmpty());
        json.replace(json.indexOf(first), first.size(), R"("colour": "#8000ff")");
        bank.resize(0);
        bank.write(json.toUtf8());
        bank.close();
        commands().banks().openBank(text);
    }

    Told toldOfControls() {
        return {
            {"drums, chromatic from C1, red to yellow",
             [this] {
                 chooseAll(kPad);
                 fillNotes("C1", "chromatic");
                 fill("Colours", [](FillDialog&) {}); // from red to yellow, as it stands
             }},
            {"25 keys in D dorian",
             [this] {
                 chooseAll(kKey);
                 fillNotes("D3", "dorian");
             }},
            {"one knob is the sustain pedal",
             [this] {
                 choose(kKnob);
                 type("knobCCNumber", "sustain");
             }},
            {"a conflict is found and mended", [this] { mendAConflict(); }},
            {"a blues on the keys, an octave lower",
             [this] {
                 chooseAll(kKey);
                 fillNotes("A2", "blues");
                 transpose(-12);
             }},
            {"the last pad is for panic",
             [this] {
                 choose(kPad + 7);
                 type("padAssignType", "cc");
                 type("padCCOrNoteNumber", "123");
                 type("padOnValue", "0");
                 type("padPadBehavior", "trigger");
                 colour("#ffffff");
             }},
            {"pads that stay on",
             [this] {
                 chooseAll(kPad);
                 type("padPadBehavior", "tog");
             }},
            {"notes are typed with flats",
             [this] {
                 choose(kPad + 2);
                 type("padCCOrNoteNumber", "Db2");
                 choose(kPad + 3);
                 type("padCCOrNoteNumber", "bb2");
                 choose(kKey);
                 type("keyCCOrNoteNumber", "D#3");
             }},
            {"drawbars are pulled down",
             [this] {
                 chooseAll(kSlider);
                 type("sliderUpperOrRightValue", "0");
                 type("sliderLowerOrLeftValue", "127");
             }},
            {"a transposition too far is found", [this] { mendATransposition(); }},
        };
    }

    Told toldOfScenes() {
        return {
            {"scenes 2 and 4 change places before the gig",
             [this] {
                 scene(2);
                 rename("Synth&Bass");
                 scene(4);
                 choose(kPad);
                 type("padCR", "5");
                 commands().scenes().swap(1, 3);
             }},
            {"the pads go to channel 1 in every scene",
             [this] {
                 for (const int number : {1, 2, 3, 4}) {
                     scene(number);
                     chooseAll(kPad);
                     type("padMIDIChannel", "1");
                 }
             }},
            {"a minor pentatonic for the solo",
             [this] {
                 scene(2);
                 chooseAll(kPad);
                 fillNotes("C3", "minor-pentatonic");
             }},
            {"knobs and sliders send a row of controllers in every scene",
             [this] {
                 for (const int number : {1, 2, 3, 4}) {
                     scene(number);
                     chooseAll(kKnob);
                     fillControllers("20");
                     chooseAll(kSlider);
                     fillControllers("24");
                 }
             }},
            {"one scene's pads are good enough for all",
             [this] {
                 choose(kPad);
                 type("padCCOrNoteNumber", "45");
                 type("padCR", "1");
                 press(Qt::Key_C);
                 for (const int number : {2, 3, 4}) {
                     scene(number);
                     choose(kPad);
                     press(Qt::Key_V);
                 }
             }},
            {"pad 1 and pad 8 change places for the left hand",
             [this] {
                 copyHere(2, kPad + 7, kPad);
                 copyHere(2, kPad, kPad + 7);
             }},
            {"a scene that has been played with is as new",
             [this] {
                 scene(3);
                 chooseAll(kKey);
                 fillNotes("C-1", "chromatic");
                 chooseAll(kPad);
                 fillPalette("safe");
                 rename("Mess");
                 commands().scenes().reset(2);
             }},
            {"the pads are as loud as they can be",
             [this] {
                 type("commonPadVelocityCurve", "constant");
                 type("commonPadConstVelocity", "127");
             }},
            {"a colour is written into the text of a bank", [this] { editTheText(); }},
            {"four scenes for four songs",
             [this] {
                 const QStringList names{"Intro", "Verse", "Chorus", QString::fromUtf8("Fin é")};
                 for (const QString& name : names) {
                     scene(static_cast<int>(names.indexOf(name)) + 1);
                     rename(name);
                     chooseAll(kPad);
                     fillPalette("bright");
                 }
             }},
        };
    }
};

TEST_F(WindowStories, EndWithTheBytesThatThePlayerWanted) {
    Told told = toldOfControls();
    told.merge(toldOfScenes());
    const Bytes defaults = image();
    for (const Story& story : stories()) {
        SCOPED_TRACE(story.name);
        WindowAction::getSceneValue();
        open();
        told.at(story.name)();
        EXPECT_EQ(image(), endOf(story, defaults));
        close();
    }
}

} // namespace

} // namespace scenewright::testing
