#include "editor/qt/Document.h"

#include "app/DeviceSession.h"
#include "app/WindowAction.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QTest>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace scenewright::testing {

namespace {

class DocumentTest : public OpenWindow {
protected:
    History& history() { return commands().history(); }
    [[nodiscard]] std::pair<std::int32_t, std::int32_t> shownControl() {
        return {window().view().sceneIndex(), window().view().selectControl()};
    }
};

TEST_F(DocumentTest, EveryCommandIsOneStepThatNamesItself) {
    const QString bank = bankWithRed("a.json", 111);
    commands().banks().saveScene(file("one.scene.json"));
    struct Row {
        std::string step;
        std::function<void()> prepare;
        std::function<void()> make;
    };
    const Row rows[] = {
        {"Pad 3 Note",
         [this] {
             choose(kPad + 2);
             pick("padAssignType", kAssignNote);
         },
         [this] { pick("padCCOrNoteNumber", 55); }},
        {"Paste Into Pad 2",
         [this] {
             choose(kPad);
             pick("padCB", 4);
             press(Qt::Key_C);
             choose(kPad + 1);
         },
         [this] { press(Qt::Key_V); }},
        {"Reset Pad 1", [this] { choose(kPad); }, [this] { press(Qt::Key_Backspace); }},
        {"Open a.json", [] {}, [this, bank] { commands().banks().openBank(bank); }},
        {"Open one.scene.json",
         [this] {
             press(Qt::Key_2);
             pick("commonPitchBendSpeed", 3);
         },
         [this] { commands().banks().openScene(file("one.scene.json")); }},
        {"Read", [] {}, [this] { press(Qt::Key_R); }},
        {"Bring Back Scenes", [] {}, [this] { commands().earlier().restoreLatest(); }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.step);
        row.prepare();
        history().forget();
        const BankImage before = storedImage();
        row.make();
        const BankImage after = storedImage();
        EXPECT_EQ(history().undoAction().text(), "&Undo " + QString::fromStdString(row.step));
        ASSERT_EQ(steps().count(), 1);
        undo();
        EXPECT_EQ(storedImage(), before);
        EXPECT_EQ(history().undoAction().text(), "&Undo");
        EXPECT_FALSE(history().undoAction().isEnabled());
        EXPECT_EQ(history().redoAction().text(), "Re&do " + QString::fromStdString(row.step));
        redo();
        EXPECT_EQ(storedImage(), after);
    }
}

TEST_F(DocumentTest, UndoAndRedoChooseTheControlAndItsScene) {
    press(Qt::Key_3);
    choose(kPad);
    pick("padCR", 77);
    press(Qt::Key_1);
    choose(5);
    const auto stored = WindowAction::getSceneWithIndex(2);
    const std::int32_t before = record(kPad).CR(); // as scene 3 was: all are default scenes
    undo();
    EXPECT_EQ(shownControl(), std::pair(2, kPad));
    EXPECT_TRUE(window().scenes().segment(2).isChecked());
    EXPECT_EQ(window().list().selectedRow(), kPad);
    EXPECT_TRUE(window().panes().pane(ControlKind::Pad).isVisible());
    EXPECT_EQ(window().panes().popUp("padCR").selectedItem(), before);
    EXPECT_EQ(WindowAction::getSceneWithIndex(2), stored); // written into its own record
    EXPECT_EQ(window().view().sceneValue(), stored);
    press(Qt::Key_2);
    redo();
    EXPECT_EQ(shownControl(), std::pair(2, kPad));
    EXPECT_EQ(window().panes().popUp("padCR").selectedItem(), 77);
    EXPECT_EQ(window().picture().button(kPad)->light().red, 154);
}

TEST_F(DocumentTest, ASceneWideSettingIsShownAmongTheCommonOnes) {
    pick("commonKeyVelocityCurve", 3);
    choose(kPad);
    undo();
    EXPECT_EQ(shownControl(), std::pair(0, 0));
    EXPECT_TRUE(window().panes().pane(ControlKind::Common).isVisible());
    EXPECT_FALSE(window().panes().popUp("commonKeyConstVelocity").isEnabled());
}

TEST_F(DocumentTest, ARunOfChoicesInOnePopUpIsOneStep) {
    choose(kPad);
    const std::int32_t before = record(kPad).CR();
    pick("padCR", before + 1);
    pick("padCR", before);
    EXPECT_FALSE(history().undoAction().isEnabled()) << "it ends where it began";
    for (const std::int32_t red : {1, 2, 3})
        pick("padCR", red);
    EXPECT_EQ(steps().count(), 1);
    pick("padCG", 1); // another popup
    pick("padCR", 4);
    EXPECT_EQ(steps().count(), 3);
    choose(kPad + 1); // another control, even when it comes back
    choose(kPad);
    pick("padCR", 5);
    EXPECT_EQ(steps().count(), 4);
    undo();
    redo();
    pick("padCR", 6); // after an undo or a redo
    EXPECT_EQ(steps().count(), 5);
    for (int step = 0; step < 5; ++step)
        undo();
    EXPECT_EQ(record(kPad).CR(), before);
}

TEST_F(DocumentTest, ATypeAndTheNumberThatFollowsItAreOneStep) {
    choose(kPad);
    pick("padAssignType", kAssignController);
    pick("padCCOrNoteNumber", 127);
    const BankImage before = storedImage();
    pick("padAssignType", kAssignNote);
    pick("padAssignType", kAssignOff);
    EXPECT_EQ(history().undoAction().text(), "&Undo Pad 1 Type");
    undo();
    EXPECT_EQ(storedImage(), before);
}

TEST_F(DocumentTest, TwoHundredStepsAreKept) {
    choose(kPad);
    for (std::int32_t step = 0; step < 210; ++step)
        pick(step % 2 == 0 ? "padCR" : "padCG", 1 + step / 2 % 100);
    EXPECT_EQ(steps().count(), 200);
}

TEST_F(DocumentTest, WhatTheProgramStartsWithIsNoStep) {
    commands().banks().openAtStart(bankWithRed("a.json", 111));
    EXPECT_FALSE(history().undoAction().isEnabled());
    choose(kPad);
    pick("padCR", 3);
    undo();
    EXPECT_EQ(record(kPad).CR(), 111);
}

TEST_F(DocumentTest, ANameIsNoLongerThereForTheNextStep) {
    press(Qt::Key_R); // reads what is shown already
    choose(kPad);
    pick("padCR", 3);
    EXPECT_EQ(history().undoAction().text(), "&Undo Pad 1 Red");
}

TEST_F(DocumentTest, TheTitleHasTheFileAndAMarkWhileItHoldsOtherScenes) {
    const QString program = "Scenewright – Virtual controller";
    const QString none = program + "[*]";
    const QString ofA = "a.json[*] – " + program;
    const QString ofB = "b[*][*].bank[*] – " + program;
    const QString bank = bankWithRed("a.json", 5);
    const auto back = [this] { undo(); };
    const auto again = [this] { redo(); };
    struct Row {
        const char* what;
        std::function<void()> make;
        QString title;
        bool isMarked;
    };
    const Row rows[] = {
        {"start", [] {}, none, false},
        {"edit", [this] { pickRed(77); }, none, true},
        {"undo", back, none, false},
        {"edit", [this] { pickRed(77); }, none, true},
        {"open", [this, bank] { commands().banks().openBank(bank); }, ofA, false},
        {"edit", [this] { pickRed(77); }, ofA, true},
        {"undo", back, ofA, false},
        {"undo of the open", back, none, true},
        {"redo of the open", again, ofA, false},
        {"redo", again, ofA, true},
        {"save", [this, bank] { commands().banks().saveBank(bank); }, ofA, false},
        {"save elsewhere", [this] { commands().banks().saveBank(file("b[*].bank")); }, ofB, false},
        {"save a scene over it", [this] { commands().banks().saveScene(file("b[*].bank")); }, ofB,
         true},
        {"save", [this] { commands().banks().saveBank(file("b[*].bank")); }, ofB, false},
        {"save a scene elsewhere", [this] { commands().banks().saveScene(file("c.json")); }, ofB,
         false},
        {"a failed open", [this] { commands().banks().openBank(file("none")); }, ofB, false},
        {"a read of other scenes", [this] { press(Qt::Key_R); }, none, false},
        {"undo of the read", back, ofB, false},
        {"undo before the save", back, ofB, true},
        {"redo", again, ofB, false},
        {"redo of the read", again, none, false},
        {"undo of the read", back, ofB, false},
        {"edit in place of the read", [this] { pickRed(78); }, ofB, true},
        {"open again", [this, bank] { commands().banks().openBank(bank); }, ofA, false},
        {"save over the other file", [this] { commands().banks().saveBank(file("b[*].bank")); },
         ofB, false},
        {"undo of the open", back, ofB, true},
        {"bring back",
         [this] {
             pickRed(3);
             commands().earlier().restoreLatest();
         },
         none, true},
        {"the keyboard holds them", [] { KnownKeyboard::set(storedImage(), ""); }, none, false},
        {"it may hold others", [] { KnownKeyboard::forget(); }, none, true},
    };
    for (const Row& row : rows) {
        row.make();
        EXPECT_EQ(window().windowTitle().toStdString(), row.title.toStdString()) << row.what;
        EXPECT_EQ(window().isWindowModified(), row.isMarked) << row.what;
    }
}

TEST_F(DocumentTest, AReadOfTheSameScenesKeepsTheFile) {
    commands().banks().saveBank(file("mine.bank"));
    press(Qt::Key_R);
    EXPECT_EQ(commands().document().file(), file("mine.bank"));
    EXPECT_FALSE(window().isWindowModified());
}

} // namespace

} // namespace scenewright::testing
