#include "editor/qt/EarlierCommands.h"

#include "app/DeviceSession.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QTest>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace scenewright::testing {

namespace {

class EarlierCommandsTest : public OpenWindow {
protected:
    QList<QAction*> entries() {
        emit commands().earlier().menu().aboutToShow();
        return commands().earlier().menu().actions();
    }
};

TEST_F(EarlierCommandsTest, AReadKeepsWhatWasThereAmongTheEarlierScenes) {
    EXPECT_FALSE(entries().front()->isEnabled());
    record(kPad).setCR(101);
    press(Qt::Key_R);
    EXPECT_NE(record(kPad).CR(), 101);
    const auto earlierEntries = entries();
    ASSERT_EQ(earlierEntries.size(), 1);
    EXPECT_TRUE(
        earlierEntries[0]->text().endsWith(" – before a read – SCENE1, SCENE2, SCENE3, SCENE4"))
        << earlierEntries[0]->text().toStdString();
    earlierEntries[0]->trigger();
    EXPECT_EQ(record(kPad).CR(), 101);
    EXPECT_TRUE(notice().startsWith("Brought back the scenes of "));
    EXPECT_EQ(message(), "Read Scene Data Finish");
}

TEST_F(EarlierCommandsTest, ManyEarlierScenesStandInMenusOfTwenty) {
    for (std::int32_t red = 1; red <= 45; ++red) {
        record(kPad).setCR(red);
        EXPECT_TRUE(earlier().keep(encodeBank(WindowAction::scenes()), {}));
    }
    for (int times = 0; times < 2; ++times) {
        const auto first = entries();
        ASSERT_EQ(first.size(), 21);
        ASSERT_NE(first[20]->menu(), nullptr);
        const auto second = first[20]->menu()->actions();
        ASSERT_EQ(second.size(), 21);
        EXPECT_EQ(second[20]->menu()->actions().size(), 5);
        second[0]->trigger();
        EXPECT_EQ(record(kPad).CR(), 25);
    }
}

class ScenesKeeperTest : public CommandsBench {
protected:
    void start() {
        close(); // a window's end comes before the next one looks
        recovery.reset();
        recovery = std::make_shared<Recovery>(folder.path() / "unsent");
        open();
    }
    // As a program that starts now finds it.
    [[nodiscard]] std::vector<EditedScenes> found() const {
        std::vector<EditedScenes> scenes;
        const Recovery next(folder.path() / "unsent");
        for (const Recovery::Left& left : next.left())
            scenes.push_back(left.scenes);
        return scenes;
    }
    // What the running window has on the disk.
    [[nodiscard]] bool isKept() const {
        return std::filesystem::exists(folder.path() / "unsent" / "1.scenes");
    }
    void end() {
        close();
        recovery.reset();
    }
};

TEST_F(ScenesKeeperTest, AnEditIsOnTheDiskWithinTwoSecondsAndAtTheEnd) {
    start();
    pickRed(77);
    EXPECT_FALSE(isKept());
    EXPECT_LE(ScenesKeeper::kDelay, std::chrono::milliseconds(2000));
    EXPECT_TRUE(waitUntil([this] { return isKept(); }));
    pickRed(78); // and at once the end
    const BankImage image = storedImage();
    end();
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(found()[0].image, image);
}

TEST_F(ScenesKeeperTest, WhatIsElsewhereTooIsNotKept) {
    struct Row {
        const char* name;
        std::function<void()> make;
        bool isKept;
    };
    const Row rows[] = {
        {"nothing done", [] {}, false},
        {"edited", [this] { pickRed(77); }, true},
        {"undone",
         [this] {
             pickRed(77);
             press(Qt::Key_Z);
         },
         false},
        {"saved",
         [this] {
             pickRed(77);
             commands().banks().saveBank(file("mine.bank"));
         },
         false},
        {"edited after it was saved",
         [this] {
             pickRed(77);
             commands().banks().saveBank(file("mine.bank"));
             pickRed(78);
         },
         true},
        {"opened", [this] { commands().banks().openBank(bankWithRed("a.json", 5)); }, false},
        {"opened at the start",
         [this] { commands().banks().openAtStart(bankWithRed("a.json", 5)); }, false},
        {"one scene saved",
         [this] {
             pickRed(77);
             commands().banks().saveScene(file("one.json"));
         },
         true},
        {"known to be on the keyboard",
         [this] {
             pickRed(77);
             KnownKeyboard::set(storedImage(), "Stage");
         },
         false},
        {"known to have been on the keyboard",
         [this] {
             pickRed(77);
             KnownKeyboard::set(storedImage(), "Stage");
             pickRed(78);
         },
         true},
    };
    for (const Row& row : rows) {
        std::filesystem::remove_all(folder.path() / "unsent");
        KnownKeyboard::forget();
        start();
        row.make();
        end();
        EXPECT_EQ(found().size(), row.isKept ? 1U : 0U) << row.name;
    }
}

TEST_F(ScenesKeeperTest, FileAndKeyboardAreKeptWithTheScenes) {
    start();
    commands().banks().openBank(bankWithRed("a.json", 5));
    KnownKeyboard::set(storedImage(), "Stage");
    pickRed(77);
    end();
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(found()[0].file, folder.file("a.json"));
    EXPECT_EQ(found()[0].keyboard, "Stage");
}

TEST_F(ScenesKeeperTest, TheNextStartOffersThemAndShowsItsDefaultScenes) {
    start();
    const BankImage defaults = storedImage();
    commands().banks().openBank(bankWithRed("a.json", 5));
    pickRed(77);
    const BankImage edited = storedImage();
    end();
    for (int time = 0; time < 2; ++time) { // until it is decided
        start();
        EXPECT_TRUE(notice().startsWith("The scenes of a.json, edited on "))
            << notice().toStdString();
        EXPECT_TRUE(notice().endsWith(", were neither sent nor saved")) << notice().toStdString();
        EXPECT_EQ(storedImage(), defaults);
    }
    ASSERT_NE(notices().action(1), nullptr);
    EXPECT_EQ(notices().action(0)->text(), "Bring Back");
    notices().action(0)->click();
    EXPECT_EQ(storedImage(), edited);
    EXPECT_EQ(notice(), "Brought back the edited scenes");
    EXPECT_EQ(commands().document().file(), file("a.json"));
    EXPECT_TRUE(window().isWindowModified());
    EXPECT_EQ(commands().history().undoAction().text(), "&Undo Bring Back Scenes");
    end(); // they are this window's now, and not sent either
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(found()[0].image, edited);
}

TEST_F(ScenesKeeperTest, ForgottenScenesAreGoneAndTheNextAreOffered) {
    {
        Recovery first(folder.path() / "unsent");
        Recovery second(folder.path() / "unsent");
        for (Recovery* other : {&first, &second}) {
            other->keep({.image = {}, .file = "live.bank", .keyboard = {}});
            ASSERT_TRUE(other->flush());
        }
    }
    start();
    EXPECT_EQ(recovery->left().size(), 2U);
    for (std::size_t rest : {1U, 0U}) {
        ASSERT_NE(notices().action(1), nullptr);
        EXPECT_EQ(notices().action(1)->text(), "Forget");
        notices().action(1)->click();
        EXPECT_EQ(recovery->left().size(), rest);
    }
    EXPECT_EQ(notice(), "");
    end();
    EXPECT_TRUE(found().empty());
}

TEST_F(ScenesKeeperTest, WhatCannotBeKeptIsToldOnce) {
    std::ofstream(folder.file("unsent")) << "in the way";
    start();
    pickRed(77);
    EXPECT_TRUE(waitUntil([this] { return !notice().isEmpty(); }));
    EXPECT_TRUE(notice().startsWith("The edited scenes could not be kept: "))
        << notice().toStdString();
    notices().dismiss();
    pickRed(78);
    press(Qt::Key_R); // looks at the disk first
    EXPECT_EQ(notice(), "");
}

} // namespace

} // namespace scenewright::testing
