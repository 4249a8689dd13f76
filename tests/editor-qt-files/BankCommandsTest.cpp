#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "editor/qt/QtHelpers.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMimeData>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>

namespace scenewright::testing {

namespace {

class BankCommandsTest : public CommandsBench {
protected:
    BankCommandsTest() { open(); }

    QAction& action(const char* name) { return *window().findChild<QAction*>(name); }
    static QList<QAction*> entries(QMenu& menu) {
        emit menu.aboutToShow();
        return menu.actions();
    }
    QString badBank() {
        std::ofstream(folder.file("bad.json")) << "[]";
        return file("bad.json");
    }
};

TEST_F(BankCommandsTest, AnOpenedBankIsShownAndNothingIsSent) {
    const QString bank = bankWithRed("a.json", 111);
    choose(kPad);
    commands().banks().openBank(bank);
    EXPECT_EQ(record(kPad).CR(), 111);
    EXPECT_EQ(window().view().sceneValue(), WindowAction::getSceneWithIndex(0));
    EXPECT_EQ(window().view().selectControl(), 0);
    EXPECT_EQ(notice(), "Opened a.json");
    EXPECT_EQ(message(), "Ready");
    EXPECT_EQ(window().picture().button(kPad)->light().red, 222);
    EXPECT_EQ(controller->blocksWritten(), 0U);
}

TEST_F(BankCommandsTest, OpeningNeedsNoController) {
    unplug();
    commands().banks().openBank(bankWithRed("a.bank", 3));
    EXPECT_EQ(record(kPad).CR(), 3);
}

TEST_F(BankCommandsTest, ABadBankIsToldAndChangesNothing) {
    const SceneList before = WindowAction::scenes();
    commands().banks().openBank(badBank());
    EXPECT_TRUE(notice().contains(file("bad.json"))) << notice().toStdString();
    EXPECT_EQ(message(), "Ready");
    EXPECT_EQ(WindowAction::scenes(), before);
    EXPECT_TRUE(RecentFiles::list().isEmpty());
}

TEST_F(BankCommandsTest, TheDialogOpensTheChosenBank) {
    const QString bank = bankWithRed("a.json", 42);
    press(Qt::Key_O);
    auto* dialog = window().findChild<QFileDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), "Open Bank");
    emit dialog->fileSelected(bank);
    dialog->close();
    EXPECT_EQ(record(kPad).CR(), 42);
}

TEST_F(BankCommandsTest, ASavedBankOpensAgain) {
    record(kPad).setCR(64);
    commands().banks().saveBank(file("mine.json"));
    EXPECT_EQ(notice(), "Saved mine.json");
    EXPECT_EQ(message(), "Ready");
    record(kPad).setCR(65);
    commands().banks().openBank(file("mine.json"));
    EXPECT_EQ(record(kPad).CR(), 64);
}

TEST_F(BankCommandsTest, WhatCannotBeSavedIsTold) {
    commands().banks().saveBank(file("no/such/mine.json"));
    EXPECT_TRUE(notice().contains("no/such/mine.json")) << notice().toStdString();
    EXPECT_EQ(message(), "Ready");
}

TEST_F(BankCommandsTest, ASceneIsOpenedIntoTheOneThatIsShown) {
    record(kPad).setCR(31);
    commands().banks().saveScene(file("one.json"));
    press(Qt::Key_3);
    const auto stored = WindowAction::getSceneWithIndex(2);
    commands().banks().openScene(file("one.json"));
    EXPECT_EQ(notice(), "Opened one.json as scene 3");
    EXPECT_EQ(WindowAction::getSceneWithIndex(2), stored);
    EXPECT_EQ(stored->buttonValueArray()[kPad - 1]->CR(), 31);
    EXPECT_EQ(stored->commonValue()->SceneName(), std::string("SCENE1\0\0\0\0\0\0", 12));
    EXPECT_EQ(window().scenes().segment(2).accessibleName(), "Scene 3, SCENE1");
}

TEST_F(BankCommandsTest, ABankThatTheProgramStartsWithIsShownAndRemembered) {
    const QString bank = bankWithRed("a.bank", 111);
    commands().banks().openAtStart(bank);
    EXPECT_EQ(notice(), "Opened a.bank");
    EXPECT_EQ(record(kPad).CR(), 111);
    EXPECT_EQ(window().view().sceneValue(), WindowAction::getSceneWithIndex(0));
    EXPECT_EQ(RecentFiles::list(), QStringList{bank});
    EXPECT_FALSE(entries(commands().earlier().menu()).front()->isEnabled());
}

TEST_F(BankCommandsTest, ASceneThatTheProgramStartsWithIsNoRecentBank) {
    record(kPad).setCR(31);
    commands().banks().saveScene(file("one.scene.json"));
    record(kPad).setCR(32);
    commands().banks().openAtStart(file("one.scene.json"));
    EXPECT_EQ(notice(), "Opened one.scene.json as scene 1");
    EXPECT_EQ(record(kPad).CR(), 31);
    EXPECT_TRUE(RecentFiles::list().isEmpty());
    EXPECT_EQ(RecentFiles::folder(), QString::fromStdString(folder.path()));
}

TEST_F(BankCommandsTest, ABadFileThatTheProgramStartsWithIsTold) {
    commands().banks().openAtStart(badBank());
    EXPECT_TRUE(notice().startsWith(file("bad.json") + ": ")) << notice().toStdString();
    EXPECT_TRUE(RecentFiles::list().isEmpty());
}

TEST_F(BankCommandsTest, ANameWithoutSuffixGetsThatOfItsKind) {
    const std::pair<const char*, QString> rows[] = {{"saveBankAs", "bank.json"},
                                                    {"saveScene", "scene.json"}};
    for (const auto& [name, suffix] : rows) {
        action(name).trigger();
        const std::unique_ptr<QFileDialog> dialog(window().findChild<QFileDialog*>());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->defaultSuffix(), suffix) << name;
    }
}

TEST_F(BankCommandsTest, RecentBanksAreListedWhileTheyExist) {
    EXPECT_FALSE(entries(commands().banks().recentMenu()).front()->isEnabled());
    commands().banks().openBank(bankWithRed("a.json", 1));
    commands().banks().openBank(bankWithRed("b.json", 2));
    ASSERT_EQ(entries(commands().banks().recentMenu()).size(), 2);
    EXPECT_EQ(commands().banks().recentMenu().actions()[0]->text(), file("b.json"));
    commands().banks().recentMenu().actions()[1]->trigger();
    EXPECT_EQ(record(kPad).CR(), 1);
    std::filesystem::remove(folder.file("b.json"));
    ASSERT_EQ(entries(commands().banks().recentMenu()).size(), 1);
    EXPECT_EQ(commands().banks().recentMenu().actions()[0]->text(), file("a.json"));
}

TEST_F(BankCommandsTest, EightRecentBanksAreRemembered) {
    for (int number = 0; number < 10; ++number)
        RecentFiles::add(bankWithRed(std::to_string(number).c_str(), number));
    EXPECT_EQ(RecentFiles::list().size(), 8);
    EXPECT_EQ(RecentFiles::list().front(), file("9"));
    EXPECT_EQ(RecentFiles::folder(), QString::fromStdString(folder.path()));
}

TEST_F(BankCommandsTest, ADroppedBankIsOpened) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(bankWithRed("a.json", 55))});
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &drop);
    EXPECT_EQ(record(kPad).CR(), 55);
}

TEST_F(BankCommandsTest, WhatIsNoFileIsNotTaken) {
    QMimeData text;
    text.setText(QStringLiteral("a.json"));
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&window(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(BankCommandsTest, TwoDroppedFilesAreTold) {
    const SceneList before = WindowAction::scenes();
    QMimeData two;
    two.setUrls({QUrl::fromLocalFile(bankWithRed("a.json", 1)),
                 QUrl::fromLocalFile(bankWithRed("b.json", 2))});
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &two, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({9, 9}, Qt::CopyAction, &two, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &drop);
    EXPECT_EQ(notice(), "2 files were dropped, and one can be open at a time; drop one of them");
    EXPECT_EQ(WindowAction::scenes(), before);
}

TEST_F(BankCommandsTest, ASceneFileIsOpenedAsTheSceneThatIsChosen) {
    record(kPad).setCR(31);
    commands().banks().saveScene(file("one.scene.json"));
    commands().banks().openBank(file("one.scene.json"));
    auto* dialog = window().findChild<QInputDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->labelText(), "one.scene.json holds one scene, SCENE1. It replaces:");
    EXPECT_EQ(dialog->comboBoxItems(), (QStringList{"Scene 1, SCENE1", "Scene 2, SCENE2",
                                                    "Scene 3, SCENE3", "Scene 4, SCENE4"}));
    EXPECT_EQ(dialog->textValue(), "Scene 1, SCENE1");
    dialog->setTextValue("Scene 3, SCENE3");
    dialog->accept();
    EXPECT_EQ(notice(), "Opened one.scene.json as scene 3");
    EXPECT_EQ(WindowAction::getSceneWithIndex(2)->buttonValueArray()[kPad - 1]->CR(), 31);
    EXPECT_EQ(window().view().sceneIndex(), 2);
    EXPECT_TRUE(commands().document().file().isEmpty());
    EXPECT_TRUE(RecentFiles::list().isEmpty());
}

TEST_F(BankCommandsTest, OneOfABanksScenesIsOpenedAsTheOneThatIsShown) {
    const auto named = WindowAction::getSceneWithIndex(3)->commonValue();
    named->setSceneName("Live");
    const QString bank = bankWithRed("a.bank", 5);
    named->setSceneName("SCENE4");
    press(Qt::Key_2);
    commands().banks().openScene(bank);
    auto* dialog = window().findChild<QInputDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->labelText(), "a.bank holds four scenes. Open as scene 2:");
    dialog->setTextValue("Scene 4, Live");
    dialog->accept();
    EXPECT_EQ(notice(), "Opened a.bank as scene 2");
    EXPECT_EQ(window().scenes().segment(1).accessibleName(), "Scene 2, Live");
}

TEST_F(BankCommandsTest, SavingWritesTheFileThatTheTitleNames) {
    press(Qt::Key_S);
    auto* dialog = window().findChild<QFileDialog*>();
    ASSERT_NE(dialog, nullptr); // there is none yet
    EXPECT_EQ(dialog->windowTitle(), "Save Bank As");
    emit dialog->fileSelected(file("mine.bank"));
    delete dialog;
    record(kPad).setCR(64);
    press(Qt::Key_S);
    EXPECT_EQ(window().findChild<QFileDialog*>(), nullptr);
    record(kPad).setCR(65);
    commands().banks().openBank(file("mine.bank"));
    EXPECT_EQ(record(kPad).CR(), 64);
}

TEST_F(BankCommandsTest, TheDialogSuggestsANameAndAFormWithItsUse) {
    struct Row {
        const char* action;
        QString name;
        QStringList filters;
    };
    commands().banks().saveBank(file("mine.bank"));
    WindowAction::getSceneWithIndex(0)->commonValue()->setSceneName("A/B");
    const Row rows[] = {
        {"saveBankAs",
         "mine.bank.json",
         {"JSON, a text to read, compare and edit (*.bank.json *.json)",
          "Image, the 1012 bytes as the keyboard holds them (*.bank)"}},
        {"saveScene",
         "A-B.scene.json",
         {"JSON, a text to read, compare and edit (*.scene.json *.json)"}},
    };
    for (const Row& row : rows) {
        action(row.action).trigger();
        const std::unique_ptr<QFileDialog> dialog(window().findChild<QFileDialog*>());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->nameFilters(), row.filters);
        EXPECT_EQ(QFileInfo(dialog->selectedFiles().value(0)).fileName(), row.name);
    }
    action("saveBankAs").trigger();
    const std::unique_ptr<QFileDialog> dialog(window().findChild<QFileDialog*>());
    dialog->selectNameFilter(dialog->nameFilters().at(1));
    emit dialog->filterSelected(dialog->nameFilters().at(1));
    EXPECT_EQ(dialog->defaultSuffix(), "bank");
    EXPECT_EQ(QFileInfo(dialog->selectedFiles().value(0)).fileName(), "mine.bank");
}

TEST_F(BankCommandsTest, WithoutAFileTheDaysDateIsSuggested) {
    action("saveBankAs").trigger();
    const std::unique_ptr<QFileDialog> dialog(window().findChild<QFileDialog*>());
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(QRegularExpression("^Scenes \\d{4}-\\d\\d-\\d\\d\\.bank\\.json$")
                    .match(QFileInfo(dialog->selectedFiles().value(0)).fileName())
                    .hasMatch());
}

TEST_F(BankCommandsTest, TheFileMenuOffersTheCommands) {
    EXPECT_EQ(action("openBank").shortcut(), QKeySequence("Ctrl+O"));
    EXPECT_EQ(action("saveBank").shortcut(), QKeySequence("Ctrl+S"));
    EXPECT_EQ(action("saveBankAs").shortcut(), QKeySequence("Ctrl+Shift+S"));
    EXPECT_EQ(window().menu().file().actions().back(), &window().menu().quit());
}

} // namespace

} // namespace scenewright::testing
