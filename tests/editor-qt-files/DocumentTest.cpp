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
    const QString ofA = "a.json[*] – " + program;
    const QString bank = bankWithRed("a.json", 5);
    struct Row {
        const char* what;
        std::function<void()> make;
        QString title;
        bool isMarked;
    };
    const Row rows[] = {
        {"start", [] {}, program, false},
        {"edit", [this] { edit(77); }, program, false},
        {"open", [this, bank] { commands().banks().openBank(bank); }, ofA, false},
        {"edit", [this] { edit(77); }, ofA, true},
        {"undo", [this] { press(Qt::Key_Z); }, ofA, false},
        {"redo", [this] { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }, ofA, true},
        {"save", [this, bank] { commands().banks().saveBank(bank); }, ofA, false},
        {"save elsewhere", [this] { commands().banks().saveBank(file("b[*].bank")); },
         "b[*][*].bank[*] – " + program, false},
        {"a failed open", [this] { commands().banks().openBank(file("none")); },
         "b[*][*].bank[*] – " + program, false},
        {"a read of other scenes", [this] { press(Qt::Key_R); }, program, false},
        {"open again", [this, bank] { commands().banks().openBank(bank); }, ofA, false},
        {"bring back",
         [this] {
             edit(3);
             commands().earlier().restoreLatest();
         },
         program, false},
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
