#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "editor/qt/QtHelpers.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace scenewright::testing {

namespace {

class BankCommandsTest : public OpenWindow {
protected:
    QAction& action(const char* name) { return *window().findChild<QAction*>(name); }
    static QList<QAction*> entries(QMenu& menu) {
        emit menu.aboutToShow();
        return menu.actions();
    }
    // The file dialog that an action opens.
    std::unique_ptr<QFileDialog> dialogOf(const char* name) {
        action(name).trigger();
        return std::unique_ptr<QFileDialog>(window().findChild<QFileDialog*>());
    }
    static QString nameIn(const QFileDialog& dialog) {
        return QFileInfo(dialog.selectedFiles().value(0)).fileName();
    }
    // Whether the window takes what is dragged over it.
    bool drop(const QMimeData& data) {
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(&window(), &enter);
        if (enter.isAccepted()) {
            QDropEvent event({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&window(), &event);
        }
        return enter.isAccepted();
    }
    bool drop(const QStringList& files) {
        QMimeData data;
        QList<QUrl> places;
        for (const QString& each : files)
            places.append(QUrl::fromLocalFile(each));
        data.setUrls(places);
        return drop(data);
    }
};

TEST_F(BankCommandsTest, ABankIsOpenedWithEachCommandShownRememberedAndNotSent) {
    unplug(); // opening needs no controller
    struct Row {
        const char* name;
        std::function<void(const QString&)> open;
        bool isEarlierKept = true; // what was there before is
    };
    const Row rows[] = {
        {"start", [this](const QString& bank) { commands().banks().openAtStart(bank); }, false},
        {"command", [this](const QString& bank) { commands().banks().openBank(bank); }},
        {"drop", [this](const QString& bank) { EXPECT_TRUE(drop(QStringList{bank})); }},
        {"dialog",
         [this](const QString& bank) {
             press(Qt::Key_O);
             const std::unique_ptr<QFileDialog> dialog(window().findChild<QFileDialog*>());
             ASSERT_NE(dialog, nullptr);
             EXPECT_EQ(dialog->windowTitle(), "Open Bank");
             emit dialog->fileSelected(bank);
         }},
    };
    std::int32_t red = 100;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QString bank = bankWithRed(row.name, ++red);
        choose(kPad);
        row.open(bank);
        EXPECT_EQ(record(kPad).CR(), red);
        EXPECT_EQ(button(kPad).light().red, 2 * red);
        EXPECT_EQ(window().view().sceneValue(), WindowAction::getSceneWithIndex(0));
        EXPECT_EQ(window().view().selectControl(), 0);
        EXPECT_EQ(notice(), QString("Opened %1").arg(row.name));
        EXPECT_EQ(message(), "Ready");
        EXPECT_EQ(RecentFiles::list().front(), bank);
        EXPECT_EQ(entries(commands().earlier().menu()).front()->isEnabled(), row.isEarlierKept);
    }
    EXPECT_EQ(controller->blocksWritten(), 0U);
}

TEST_F(BankCommandsTest, WhatCannotBeOpenedOrSavedIsToldAndChangesNothing) {
    std::ofstream(folder.file("bad.json")) << "[]";
    const SceneList before = WindowAction::scenes();
    commands().banks().openBank(file("bad.json"));
    EXPECT_TRUE(notice().startsWith(file("bad.json") + ": ")) << notice().toStdString();
    notices().dismiss();
    commands().banks().openAtStart(file("bad.json"));
    EXPECT_TRUE(notice().startsWith(file("bad.json") + ": ")) << notice().toStdString();
    commands().banks().saveBank(file("no/such/mine.json"));
    EXPECT_TRUE(notice().contains("no/such/mine.json")) << notice().toStdString();
    EXPECT_TRUE(drop({bankWithRed("a.json", 1), bankWithRed("b.json", 2)}));
    EXPECT_EQ(notice(), "2 files were dropped, and one can be open at a time; drop one of them");
    QMimeData text;
    text.setText(QStringLiteral("a.json"));
    EXPECT_FALSE(drop(text));
    EXPECT_EQ(message(), "Ready");
    EXPECT_EQ(WindowAction::scenes(), before);
    EXPECT_TRUE(RecentFiles::list().isEmpty());
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

TEST_F(BankCommandsTest, ASceneThatTheProgramStartsWithIsNoRecentBank) {
    record(kPad).setCR(31);
    commands().banks().saveScene(file("one.scene.json"));
    record(kPad).setCR(32);
    commands().banks().openAtStart(file("one.scene.json"));
    EXPECT_EQ(notice(), "Opened one.scene.json as scene 1");
    EXPECT_EQ(record(kPad).CR(), 31);
    EXPECT_TRUE(RecentFiles::list().isEmpty());
    EXPECT_EQ(RecentFiles::folder(), QString::fromStdString(folder.path()));
    RecentFiles::setFolderOf(file("gone/one.bank"));
    EXPECT_EQ(RecentFiles::folder(), QDir::homePath());
}

TEST_F(BankCommandsTest, EightRecentBanksAreListedWhileTheyExist) {
    auto& menu = field<QMenu>(window(), "Recent banks");
    EXPECT_FALSE(entries(menu).front()->isEnabled());
    for (int number = 0; number < 10; ++number)
        commands().banks().openBank(bankWithRed(std::to_string(number).c_str(), number));
    EXPECT_EQ(RecentFiles::folder(), QString::fromStdString(folder.path()));
    ASSERT_EQ(entries(menu).size(), 8);
    EXPECT_EQ(menu.actions()[0]->text(), file("9"));
    menu.actions()[1]->trigger();
    EXPECT_EQ(record(kPad).CR(), 8);
    std::filesystem::remove(folder.file("8"));
    ASSERT_EQ(entries(menu).size(), 7);
    EXPECT_EQ(menu.actions()[0]->text(), file("9"));
    commands().banks().openBank(bankWithRed((std::string(200, 'x') + ".bank").c_str(), 1));
    ASSERT_EQ(entries(menu).size(), 8);
    EXPECT_LT(menu.sizeHint().width(), 700);
    EXPECT_TRUE(menu.actions()[0]->text().startsWith(file("xxx")));
    EXPECT_TRUE(menu.actions()[0]->text().endsWith("xxx.bank"));
    menu.actions()[0]->trigger();
    EXPECT_EQ(record(kPad).CR(), 1);
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
    EXPECT_EQ(dialog->size(), QSize(860, 520));
    emit dialog->fileSelected(file("mine.bank"));
    delete dialog;
    EXPECT_EQ(notice(), "Saved mine.bank");
    EXPECT_EQ(message(), "Ready");
    record(kPad).setCR(64);
    press(Qt::Key_S);
    EXPECT_EQ(window().findChild<QFileDialog*>(), nullptr);
    record(kPad).setCR(65);
    commands().banks().openBank(file("mine.bank"));
    EXPECT_EQ(record(kPad).CR(), 64);
}

TEST_F(BankCommandsTest, TheDialogSuggestsANameAndAFormWithItsUse) {
    EXPECT_TRUE(QRegularExpression("^Scenes \\d{4}-\\d\\d-\\d\\d\\.bank\\.json$")
                    .match(nameIn(*dialogOf("saveBankAs")))
                    .hasMatch())
        << "the day's date, without a file";
    struct Row {
        const char* action;
        QString name;
        QString suffix;
        QStringList filters;
    };
    commands().banks().saveBank(file("mine.bank"));
    WindowAction::getSceneWithIndex(0)->commonValue()->setSceneName("A/B");
    const Row rows[] = {
        {"saveBankAs",
         "mine.bank.json",
         "bank.json",
         {"JSON, a text to read, compare and edit (*.bank.json *.json)",
          "Image, the 1012 bytes as the keyboard holds them (*.bank)"}},
        {"saveScene",
         "A-B.scene.json",
         "scene.json",
         {"JSON, a text to read, compare and edit (*.scene.json *.json)"}},
    };
    for (const Row& row : rows) {
        const auto dialog = dialogOf(row.action);
        EXPECT_EQ(dialog->nameFilters(), row.filters);
        EXPECT_EQ(dialog->defaultSuffix(), row.suffix);
        EXPECT_EQ(nameIn(*dialog), row.name);
    }
    WindowAction::getSceneWithIndex(0)->commonValue()->setSceneName("");
    EXPECT_EQ(nameIn(*dialogOf("saveScene")), "Scene 1.scene.json");
    const auto dialog = dialogOf("saveBankAs");
    dialog->selectNameFilter(dialog->nameFilters().at(1));
    emit dialog->filterSelected(dialog->nameFilters().at(1));
    EXPECT_EQ(dialog->defaultSuffix(), "bank");
    EXPECT_EQ(nameIn(*dialog), "mine.bank");
}

TEST_F(BankCommandsTest, TheSheetOfTheFourScenesIsExportedAndPrintedToAFile) {
    commands().banks().saveBank(file("live.bank"));
    const auto textIn = [this](const char* name) {
        QFile bytes(file(name));
        return bytes.open(QIODevice::ReadOnly) ? QString::fromUtf8(bytes.readAll()) : QString();
    };
    const auto dialog = dialogOf("exportSheet");
    EXPECT_EQ(nameIn(*dialog), "live.pdf");
    emit dialog->fileSelected(file("sheet.svg"));
    EXPECT_EQ(notice(), "Exported the sheet to sheet.svg");
    for (const char* const shown : {"live.bank", "Scene 1: SCENE1", "Scene 4: SCENE4"})
        EXPECT_TRUE(textIn("sheet.svg").contains(shown)) << shown;
    action("print").trigger();
    auto* const printing = window().findChild<QPrintDialog*>();
    ASSERT_NE(printing, nullptr);
    EXPECT_TRUE(printing->testOption(QAbstractPrintDialog::PrintPageRange));
    EXPECT_EQ(std::pair(printing->fromPage(), printing->toPage()), std::pair(1, 4));
    EXPECT_EQ(std::pair(printing->minPage(), printing->maxPage()), std::pair(1, 4));
    EXPECT_EQ(printing->printer()->docName(), "live");
    printing->printer()->setOutputFileName(file("printed.pdf"));
    emit printing->accepted();
    EXPECT_EQ(notice(), "Printed the sheet to printed.pdf");
    EXPECT_TRUE(textIn("printed.pdf").startsWith("%PDF"));
}

TEST_F(BankCommandsTest, WhatAnotherProgramPutIntoTheFileIsNotReplacedUnasked) {
    BankCommands& banks = commands().banks();
    const auto redInFile = [this] {
        return readBank(folder.file("mine.bank"))->scenes[0]->buttonValueArray()[kPad - 1]->CR();
    };
    banks.openBank(bankWithRed("mine.bank", 5));
    const auto expectRefused = [&](std::int32_t others) {
        banks.save();
        EXPECT_EQ(notice(), "Not saved: another program changed mine.bank meanwhile");
        EXPECT_EQ(redInFile(), others);
        EXPECT_EQ(record(kPad).CR(), 5);
    };
    bankWithRed("mine.bank", 6);
    expectRefused(6);
    record(kPad).setCR(6); // the same here: nothing would be lost
    banks.save();
    EXPECT_EQ(notice(), "Saved mine.bank");
    record(kPad).setCR(5);
    bankWithRed("mine.bank", 4);
    expectRefused(4);
    clickNotice("Save Anyway");
    EXPECT_EQ(notice(), "Saved mine.bank");
    EXPECT_EQ(redInFile(), 5);
    std::filesystem::remove(folder.file("mine.bank")); // which leaves nothing to replace
    banks.save();
    EXPECT_EQ(notice(), "Saved mine.bank");
    EXPECT_EQ(redInFile(), 5);
    bankWithRed("mine.bank", 7);
    expectRefused(7);
    clickNotice("Open It");
    EXPECT_EQ(notice(), "Opened mine.bank");
    EXPECT_EQ(record(kPad).CR(), 7);
    banks.saveScene(file("mine.bank")); // from here, so that it is known
    banks.save();
    EXPECT_EQ(notice(), "Saved mine.bank");
}

TEST_F(BankCommandsTest, TheFileMenuOffersTheCommands) {
    EXPECT_EQ(action("openBank").shortcut(), QKeySequence("Ctrl+O"));
    EXPECT_EQ(action("saveBank").shortcut(), QKeySequence("Ctrl+S"));
    EXPECT_EQ(action("saveBankAs").shortcut(), QKeySequence("Ctrl+Shift+S"));
    EXPECT_EQ(window().menu().file().actions().back(), &window().menu().quit());
}

} // namespace

} // namespace scenewright::testing
