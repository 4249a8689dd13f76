#include "editor/qt/Document.h"

#include "tests/editor-qt-files/CommandsBench.h"

#include <cstdint>
#include <functional>
#include <string>

namespace scenewright::testing {

namespace {

class DocumentTest : public CommandsBench {
protected:
    DocumentTest() { open(); }

    void edit(std::int32_t red) {
        choose(kPad);
        PopUpBox& box = window().panes().popUp("padCR");
        box.selectItem(red);
        emit box.activated(red);
    }
};

TEST_F(DocumentTest, TheTitleHasTheFileAndAMarkWhileItHoldsOtherScenes) {
    const QString program = "Scenewright – Virtual controller";
    const QString none = program + "[*]";
    const QString ofA = "a.json[*] – " + program;
    const QString ofB = "b[*][*].bank[*] – " + program;
    const QString bank = bankWithRed("a.json", 5);
    const auto undo = [this] { press(Qt::Key_Z); };
    const auto redo = [this] { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); };
    struct Row {
        const char* what;
        std::function<void()> make;
        QString title;
        bool isMarked;
    };
    const Row rows[] = {
        {"start", [] {}, none, false},
        {"edit", [this] { edit(77); }, none, true},
        {"undo", undo, none, false},
        {"edit", [this] { edit(77); }, none, true},
        {"open", [this, bank] { commands().banks().openBank(bank); }, ofA, false},
        {"edit", [this] { edit(77); }, ofA, true},
        {"undo", undo, ofA, false},
        {"undo of the open", undo, none, true},
        {"redo of the open", redo, ofA, false},
        {"redo", redo, ofA, true},
        {"save", [this, bank] { commands().banks().saveBank(bank); }, ofA, false},
        {"save elsewhere", [this] { commands().banks().saveBank(file("b[*].bank")); }, ofB, false},
        {"a failed open", [this] { commands().banks().openBank(file("none")); }, ofB, false},
        {"a read of other scenes", [this] { press(Qt::Key_R); }, none, false},
        {"undo of the read", undo, ofB, false},
        {"undo before the save", undo, ofB, true},
        {"redo", redo, ofB, false},
        {"redo of the read", redo, none, false},
        {"undo of the read", undo, ofB, false},
        {"edit in place of the read", [this] { edit(78); }, ofB, true},
        {"open again", [this, bank] { commands().banks().openBank(bank); }, ofA, false},
        {"save over the other file", [this] { commands().banks().saveBank(file("b[*].bank")); },
         ofB, false},
        {"undo of the open", undo, ofB, true},
        {"bring back",
         [this] {
             edit(3);
             commands().earlier().restoreLatest();
         },
         none, true},
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
