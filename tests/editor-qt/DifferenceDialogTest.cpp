#include "editor/qt/DifferenceDialog.h"

#include "editor/qt/QtHelpers.h"
#include "model/Setting.h"
#include "tests/support/Limits.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

Difference red(std::int32_t pad, const std::string& keyboard, const std::string& window) {
    return {{.scene = 1,
             .kind = ControlKind::Pad,
             .control = pad,
             .setting = findSetting(ControlKind::Pad, "CR")},
            {keyboard, keyboard},
            {window, window}};
}

const Difference kName{{.scene = 0}, {"LEAD", ""}, {"SCENE1", ""}};

class DifferenceDialogTest : public ::testing::Test {
protected:
    DifferenceDialogTest() {
        QObject::connect(&dialog_, &DifferenceDialog::chosen,
                         [this](std::int32_t scene, std::int32_t control) {
                             chosen_.emplace_back(scene, control);
                         });
        QObject::connect(&dialog_, &DifferenceDialog::takeWanted,
                         [this](const std::vector<Difference>& taken) { taken_ = taken; });
        dialog_.show();
    }

    void press(const QString& title) {
        for (auto* button : dialog_.findChildren<QPushButton*>())
            if (button->accessibleName() == title)
                return button->click();
        FAIL() << title.toStdString();
    }

    [[nodiscard]] QString heading() const { return dialog_.findChild<QLabel*>()->text(); }

    DifferenceDialog dialog_{{kName, red(0, "12", "99"), red(2, "1", "2")}, nullptr};
    QTreeWidget& table_ = dialog_.table();
    std::vector<std::pair<std::int32_t, std::int32_t>> chosen_;
    std::vector<Difference> taken_;
};

TEST_F(DifferenceDialogTest, ListsControlSettingAndBothValues) {
    const QStringList rows[] = {{"Scene 1", "Scene name", "\"LEAD\"", "\"SCENE1\""},
                                {"Scene 2, Pad 1", "Red", "12", "99"},
                                {"Scene 2, Pad 3", "Red", "1", "2"}};
    ASSERT_EQ(table_.topLevelItemCount(), 3);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(table_.topLevelItem(row)->text(column), rows[row][column]);
    EXPECT_EQ(heading(), "3 settings of the controller are not what you see.");
    EXPECT_EQ(dialog_.lines()[1], "Scene 2, Pad 1, Red: 12 -> 99");
}

TEST_F(DifferenceDialogTest, AClickAndTheArrowsTellTheControl) {
    const QRect row = table_.visualItemRect(table_.topLevelItem(2));
    QTest::mouseClick(table_.viewport(), Qt::LeftButton, {}, row.center());
    QTest::keyClick(&table_, Qt::Key_Up);
    QTest::keyClick(&table_, Qt::Key_Up);
    EXPECT_EQ(chosen_,
              (std::vector<std::pair<std::int32_t, std::int32_t>>{{1, 15}, {1, 13}, {0, 0}}));
    EXPECT_TRUE(dialog_.isVisible());
}

TEST_F(DifferenceDialogTest, TakesTheSelectedRowsThenAll) {
    table_.topLevelItem(1)->setSelected(true);
    press("Take the Keyboard's");
    ASSERT_EQ(taken_.size(), 1U);
    EXPECT_EQ(taken_[0].first.value, "12");
    EXPECT_EQ(table_.topLevelItemCount(), 2);
    EXPECT_EQ(heading(), "2 settings of the controller are not what you see.");
    press("Take the Keyboard's");
    EXPECT_EQ(taken_.size(), 2U);
    EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(DifferenceDialogTest, CopiesTheSelectedRowsOrAllAsText) {
    press("Copy as Text");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), dialog_.lines().join('\n'));
    table_.setFocus();
    table_.topLevelItem(2)->setSelected(true);
    QTest::keyClick(&table_, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Scene 2, Pad 3, Red: 1 -> 2");
}

TEST_F(DifferenceDialogTest, ASendClosesIt) {
    int sends = 0;
    QObject::connect(&dialog_, &DifferenceDialog::sendWanted, [&] { ++sends; });
    press("Send These");
    EXPECT_EQ(sends, 1);
    EXPECT_FALSE(dialog_.isVisible());
}

TEST(DifferenceDialog, CountsOneInWords) {
    const DifferenceDialog dialog({kName}, nullptr);
    EXPECT_EQ(dialog.findChild<QLabel*>()->text(),
              "One setting of the controller is not what you see.");
}

} // namespace
} // namespace scenewright
