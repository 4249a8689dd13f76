#include "editor/qt/QtHelpers.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QAction>
#include <QApplication>
#include <QScreen>
#include <QStyle>

namespace scenewright::testing {

namespace {

class EditorCommandsTest : public CommandsBench {};

TEST_F(EditorCommandsTest, SizeComesBackAndTheDisplayModeIsAlwaysTheThird) {
    programSettings().setValue("displayMode", 5); // as an earlier version kept it
    open();
    EXPECT_EQ(window().displayModes().selectedItem(), 2);
    EXPECT_EQ(window().view().dispaly_index(), 2);
    const QSize size = window().size() + QSize(20, 10);
    window().resize(size);
    window().menu().view().actions().at(4)->trigger();
    ASSERT_EQ(window().view().dispaly_index(), 4);
    close();
    EXPECT_EQ(programSettings().value("displayMode").toInt(), 5); // not written either
    open();
    EXPECT_EQ(window().displayModes().selectedItem(), 2);
    EXPECT_EQ(window().view().dispaly_index(), 2);
    EXPECT_TRUE(window().menu().view().actions().at(2)->isChecked());
    EXPECT_EQ(window().size(), size);
}

TEST_F(EditorCommandsTest, ANewWindowAndItsTitleBarAreNoLargerThanTheScreen) {
    Appearance appearance;
    QuitController quit;
    for (const QSize size : {QSize(1180, 720), QSize(9999, 9999)}) {
        MainWindow window(quit, appearance, true);
        EXPECT_EQ(window.size(), QSize(1180, 720));
        window.resize(size);
        programSettings().remove("geometry");
        const EditorCommands commands(window, nullptr, StoreFiles(earlier()), journal(), nullptr);
        const int bar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
        const QSize room = window.screen()->availableSize() - QSize(0, bar);
        EXPECT_EQ(window.size(), size.boundedTo(room).expandedTo(window.minimumSizeHint()));
    }
}

TEST_F(EditorCommandsTest, ListsThatCannotBeReadAreToldInOneNotice) {
    open();
    commands().reportLists({});
    EXPECT_EQ(notice(), "");
    commands().reportLists({"basic.plist: gone", "default.plist: gone"});
    EXPECT_EQ(notice(), "basic.plist: gone\ndefault.plist: gone");
}

// The action of the View menu's list of appearances.
QAction* appearance(MainWindow& window, const QString& title) {
    for (QAction* action : window.findChildren<QAction*>())
        if (action->text() == title)
            return action;
    return nullptr;
}

bool isDarkNow() {
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

TEST_F(EditorCommandsTest, ChosenAppearanceIsShownAtOnceAndComesBack) {
    open();
    appearance(window(), "&Dark")->trigger();
    EXPECT_TRUE(isDarkNow());
    appearance(window(), "&Light")->trigger();
    EXPECT_FALSE(isDarkNow());
    appearance(window(), "&Dark")->trigger();
    close();
    open();
    EXPECT_TRUE(isDarkNow());
    EXPECT_TRUE(appearance(window(), "&Dark")->isChecked());
    appearance(window(), "&Light")->trigger();
    EXPECT_FALSE(isDarkNow());
}

TEST_F(EditorCommandsTest, AppearanceThatIsNoneOfTheThreeIsTheSystems) {
    programSettings().setValue("appearance", 3);
    open();
    EXPECT_TRUE(appearance(window(), "As the &System")->isChecked());
    EXPECT_FALSE(isDarkNow());
}

} // namespace

} // namespace scenewright::testing
