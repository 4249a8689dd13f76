#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <cstdint>
#include <fstream>

namespace scenewright::testing {

namespace {

class EarlierCommandsTest : public CommandsBench {
protected:
    EarlierCommandsTest() { open(); }

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

TEST_F(EarlierCommandsTest, WhatAReadCouldNotKeepIsTold) {
    std::ofstream(folder.file("backups")) << "in the way";
    record(kPad).setCR(101);
    press(Qt::Key_R);
    EXPECT_EQ(message(), "Read Scene Data Finish");
    EXPECT_TRUE(notice().startsWith("The former scenes could not be kept: "))
        << notice().toStdString();
}

} // namespace

} // namespace scenewright::testing
