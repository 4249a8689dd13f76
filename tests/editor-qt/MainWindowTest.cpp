#include "editor/qt/MainWindow.h"

#include "app/WindowAction.h"
#include "tests/editor-qt/WindowBench.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include <string>
#include <string_view>
#include <vector>

namespace scenewright::testing {
namespace {

class MainWindowTest : public WindowBench {
protected:
    void clickRow(int row) {
        ControlList& list = window().list();
        const QModelIndex index = list.model()->index(row, 0);
        list.scrollTo(index);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
    }

    // The pane that is seen, or nothing.
    std::optional<ControlKind> pane() {
        for (const ControlRange& range : kControlRanges)
            if (window().panes().pane(range.kind).isVisible())
                return range.kind;
        return std::nullopt;
    }

    // The tags of the buttons that carry the mark of the chosen control.
    std::vector<std::int32_t> marked() {
        std::vector<std::int32_t> tags;
        for (std::int32_t tag = 1; tag <= kControlCount; ++tag)
            if (window().picture().button(tag)->image() == "selected")
                tags.push_back(tag);
        return tags;
    }
};

using Tags = std::vector<std::int32_t>;

TEST_F(MainWindowTest, OpensAt1180By720WithTheCommonSettingsOfTheFirstScene) {
    open();
    EXPECT_EQ(window().size(), QSize(1180, 720));
    EXPECT_EQ(window().list().selectedRow(), 0);
    EXPECT_EQ(pane(), ControlKind::Common);
    EXPECT_EQ(marked(), Tags{});
    EXPECT_EQ(window().displayModes().currentIndex(), 2);
    EXPECT_EQ(window().list().model()->rowCount(), 46);
}

TEST_F(MainWindowTest, TitleSaysWhenTheControllerIsVirtual) {
    open();
    EXPECT_EQ(window().windowTitle(), QString::fromUtf8("Scenewright – Virtual controller"));
    QuitController quit;
    Appearance appearance;
    EXPECT_EQ(MainWindow(quit, appearance, false).windowTitle(), "Scenewright");
}

TEST_F(MainWindowTest, ClickedRowOrButtonShowsItsPaneAndIsMarkedInBoth) {
    open();
    for (const ControlRange& range : kControlRanges)
        for (std::int32_t tag = std::max(1, range.start); tag < range.end(); ++tag) {
            ControlButton* button = window().picture().button(tag);
            // Near the lower end, where no black key lies on a white one.
            QTest::mouseClick(button, Qt::LeftButton, {},
                              {button->width() / 2, button->height() - 6});
            EXPECT_EQ(window().list().selectedRow(), tag);
            EXPECT_EQ(pane(), range.kind) << tag;
            EXPECT_EQ(marked(), Tags{tag});
            clickRow(0);
            EXPECT_EQ(pane(), ControlKind::Common);
            EXPECT_EQ(marked(), Tags{});
            clickRow(tag);
            EXPECT_EQ(pane(), range.kind) << tag;
            EXPECT_EQ(marked(), Tags{tag});
        }
}

TEST_F(MainWindowTest, BlackKeyTakesTheClickWhereItLiesOnAWhiteOne) {
    open();
    DevicePicture& picture = window().picture();
    const QRect black = picture.button(22)->geometry();
    const QRect white = picture.button(21)->geometry();
    const QPoint onBoth = black.intersected(white).center();
    EXPECT_EQ(picture.childAt(onBoth), picture.button(22));
}

TEST_F(MainWindowTest, MovingInTheListWithTheKeysShowsNoPaneAndMarksNoButton) {
    open();
    clickRow(13);
    QTest::keyClick(&window().list(), Qt::Key_Down);
    EXPECT_EQ(window().list().selectedRow(), 14);
    EXPECT_EQ(window().view().selectControl(), -1);
    EXPECT_EQ(pane(), std::nullopt);
    EXPECT_EQ(marked(), Tags{});
    QTest::keyClick(&window().list(), Qt::Key_Return);
    EXPECT_EQ(pane(), ControlKind::Pad);
    EXPECT_EQ(marked(), Tags{14});
}

TEST_F(MainWindowTest, SegmentsAndCtrlDigitsChooseTheSceneWithItsCommonSettings) {
    open();
    QTest::mouseClick(&window().scenes().segment(2), Qt::LeftButton);
    EXPECT_EQ(window().view().sceneIndex(), 2);
    for (int scene = 0; scene < 4; ++scene) {
        clickRow(13);
        QTest::keyClick(&window(), static_cast<Qt::Key>(Qt::Key_1 + scene), Qt::ControlModifier);
        EXPECT_EQ(window().view().sceneIndex(), scene);
        EXPECT_TRUE(window().scenes().segment(scene).isChecked());
        EXPECT_EQ(window().list().selectedRow(), 0);
        EXPECT_EQ(pane(), ControlKind::Common);
        EXPECT_EQ(marked(), Tags{});
    }
}

TEST_F(MainWindowTest, ReadShowsWhatTheControllerHoldsWhileThePointerWaits) {
    open();
    WindowAction::setScenes({});
    clickRow(13);
    Qt::CursorShape during = Qt::ArrowCursor;
    const auto observed = WindowAction::getMessageValue()->addObserver(
        "Message", [&during](std::string_view, const MessageValue::Text&) {
            if (const QCursor* cursor = QGuiApplication::overrideCursor())
                during = cursor->shape();
        });
    read();
    EXPECT_EQ(during, Qt::WaitCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(message(), "Read Scene Data Finish");
    EXPECT_EQ(window().view().selectControl(), 0);
    EXPECT_EQ(pane(), ControlKind::Common);
    EXPECT_EQ(window().panes().popUp("commonKeyVelocityCurve").currentIndex(), 3);
}

TEST_F(MainWindowTest, SceneNamesStandInTheSegments) {
    open();
    WindowAction::scenes().at(1)->commonValue()->setSceneName(
        std::string("R&B\0\0\0\0\0\0\0\0\0", 12));
    QTest::keyClick(&window(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(window().scenes().segment(1).text(), "2  R&&B");
    EXPECT_EQ(window().scenes().segment(1).accessibleName(), "Scene 2, R&B");
}

TEST_F(MainWindowTest, DisplayModeIsChosenInThePopUpAndInTheMenu) {
    open();
    read();
    type(window().displayModes(), "Type");
    EXPECT_EQ(window().view().dispaly_index(), 1);
    EXPECT_EQ(window().picture().button(13)->attributedTitle().text, "CC");
    const QList<QAction*> entries = window().menu().view().actions();
    EXPECT_TRUE(entries.at(1)->isChecked());
    entries.at(7)->trigger();
    EXPECT_EQ(window().view().dispaly_index(), 7);
    EXPECT_EQ(window().displayModes().currentIndex(), 7);
    EXPECT_TRUE(window().picture().button(13)->attributedTitle().text.starts_with("ON\n"));
}

TEST_F(MainWindowTest, PadsShineThePaneMixesTheirColourAndTheDescriptionFollows) {
    open();
    read();
    const ControlRange& pads = controlRange(ControlKind::Pad);
    for (const std::int32_t pad : {pads.start, pads.end() - 1}) {
        clickRow(pad);
        type(window().panes().popUp("padCR"), "127");
        type(window().panes().popUp("padCG"), "64");
        type(window().panes().popUp("padCB"), "0");
        EXPECT_EQ(window().picture().button(pad)->light(), (Colour{255, 128, 0}));
        type(window().panes().popUp("padCCOrNoteNumber"), "99");
        EXPECT_TRUE(window().picture().button(pad)->accessibleDescription().contains("CC 99"));
        QPushButton& swatch = window().panes().swatch();
        const QImage seen = swatch.grab().toImage();
        EXPECT_EQ(QColor(seen.pixel(seen.width() / 2, seen.height() / 2)), QColor(255, 128, 0));
        EXPECT_EQ(swatch.accessibleDescription(), "Red 255, green 128, blue 0 of 255");
        type(window().panes().popUp("padCR"), "0");
        EXPECT_EQ(swatch.accessibleDescription(), "Red 0, green 128, blue 0 of 255");
    }
}

TEST_F(MainWindowTest, GainPanelIsAWindowOfItsOwn) {
    open();
    window().menu().gainPanel().trigger();
    EXPECT_TRUE(window().subWindow<GainWindow>().isVisible());
    EXPECT_TRUE(window().subWindow<GainWindow>().isWindow());
    EXPECT_EQ(window().subWindow<GainWindow>().windowTitle(), "Gain Panel");
}

TEST_F(MainWindowTest, ControlsThatASceneDoesNotHoldAreNamedAndNoMore) {
    open();
    auto records = WindowAction::getSceneWithIndex(0)->buttonValueArray();
    records.resize(12); // all before the pads
    SceneValue few;
    few.setCommonValue(std::make_shared<CommonValue>());
    few.setButtonValueArray(records);
    window().picture().showScene(*window().view().pu(), few);
    EXPECT_EQ(window().picture().button(13)->toolTip(), "Pad 1");
    EXPECT_NE(window().picture().button(12)->toolTip(), "Slider 4");
}

TEST_F(MainWindowTest, ScenesWithoutSomeOrAllControlsCanBeUsed) {
    open();
    for (const std::size_t count : {44, 0}) {
        for (const auto& scene : WindowAction::scenes()) {
            auto records = scene->buttonValueArray();
            records.resize(count);
            scene->setButtonValueArray(records);
        }
        QTest::keyClick(&window(), Qt::Key_2, Qt::ControlModifier);
        for (int row = 0; row <= kControlCount; ++row) {
            clickRow(row);
            EXPECT_EQ(pane().has_value(), row <= static_cast<int>(count)) << row;
        }
        for (std::int32_t tag = 1; tag <= kControlCount; ++tag)
            window().picture().button(tag)->click();
    }
}

TEST_F(MainWindowTest, EachChangeOfTheViewIsFollowedOnce) {
    open();
    int refreshed = 0;
    QObject::connect(&window(), &MainWindow::refreshed, &window(), [&] { ++refreshed; });
    const auto countOf = [&](const auto& act) {
        refreshed = 0;
        act();
        return refreshed;
    };
    EXPECT_EQ(countOf([this] { clickRow(13); }), 1);
    EXPECT_EQ(countOf([this] { QTest::keyClick(&window().list(), Qt::Key_Down); }), 1);
    EXPECT_EQ(countOf([this] { window().picture().button(14)->click(); }), 1);
    EXPECT_EQ(countOf([this] { type(window().panes().popUp("padCR"), "99"); }), 1);
    EXPECT_EQ(countOf([this] { type(window().displayModes(), "Type"); }), 1);
    EXPECT_EQ(countOf([this] { window().menu().view().actions().at(7)->trigger(); }), 1);
    EXPECT_EQ(countOf([this] { window().scenes().segment(2).click(); }), 1);
    EXPECT_EQ(countOf([this] { read(); }), 1);
    EXPECT_EQ(countOf([this] { window().view().showChosenControl(); }), 1);
}

TEST_F(MainWindowTest, ValueThatIsBeingTypedIsTakenWhenTheWindowEnds) {
    open();
    clickRow(13);
    PopUpBox& box = window().panes().popUp("padCR");
    box.setFocus();
    ASSERT_TRUE(waitUntil([&box] { return box.hasFocus(); }));
    QTest::keyClicks(&box, "99");
    const auto record = WindowAction::getSceneWithIndex(0)->buttonValueArray().at(12);
    EXPECT_NE(record->CR(), 99);
    end();
    EXPECT_EQ(record->CR(), 99);
}

TEST_F(MainWindowTest, HelpOpensTheAboutBoxAndComesBackFromIt) {
    open();
    QString title;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        title = dialog->windowTitle();
        dialog->accept();
    });
    window().menu().about().trigger();
    EXPECT_EQ(title, "About Scenewright");
}

TEST_F(MainWindowTest, MenusHoldTheirCommandsAndKeys) {
    open();
    QStringList menus;
    for (const QAction* menu : window().menuBar()->actions())
        menus.append(menu->text());
    EXPECT_EQ(menus, (QStringList{"&File", "&Device", "&View", "&Help"}));
    EXPECT_EQ(window().menu().quit().shortcut(), QKeySequence("Ctrl+Q"));
    EXPECT_EQ(window().menu().read().shortcut(), QKeySequence("Ctrl+R"));
    EXPECT_EQ(window().menu().send().shortcut(), QKeySequence("Ctrl+Return"));
}

TEST_F(MainWindowTest, MenusHaveTheirColoursWhenTheyOpen) {
    open();
    QMenuBar& bar = *window().menuBar();
    for (QAction* entry : bar.actions()) {
        QMenu& menu = *entry->menu();
        EXPECT_EQ(menu.styleSheet(), "");
        bar.setActiveAction(entry);
        EXPECT_EQ(bar.activeAction(), entry);
        const QImage seen = menu.grab().toImage();
        EXPECT_EQ(menu.size(), menu.sizeHint());
        EXPECT_EQ(seen.pixelColor(0, seen.height() / 2), themeOf(false).line);
        EXPECT_EQ(seen.pixelColor(4, 4), themeOf(false).panel);
        menu.close();
    }
}

// A controller that holds 0x7F everywhere: most of it lies outside the lists.
class OutsideTheLists : public WindowBench {
protected:
    OutsideTheLists() : WindowBench(allSevenF()) {}

    static SceneList allSevenF() {
        BankImage image;
        image.fill(0x7F);
        return parseScenes(image);
    }
};

TEST_F(OutsideTheLists, ValuesShowNoSelectionAndAreSentBackAsTheyWere) {
    open();
    read();
    const BankImage before = held();
    for (const ControlRange& range : kControlRanges)
        for (std::int32_t tag = std::max(1, range.start); tag < range.end(); ++tag)
            QTest::mouseClick(window().picture().button(tag), Qt::LeftButton);
    QTest::mouseClick(window().picture().button(13), Qt::LeftButton);
    EXPECT_EQ(window().panes().popUp("padMIDIChannel").currentIndex(), -1);
    EXPECT_EQ(window().panes().popUp("padAssignType").currentIndex(), -1);
    EXPECT_EQ(window().panes().popUp("padCR").currentIndex(), 127);
    EXPECT_EQ(window().picture().button(13)->light(), (Colour{255, 255, 255}));
    const std::vector<std::string> knob{"---",      "---", "CC#\n127", "L/L\n127",
                                        "U/R\n127", "---", "---",      "---"};
    for (std::int32_t mode = 0; mode < 8; ++mode) {
        window().displayModes().selectItem(mode);
        window().view().changeDispalyAction(window().displayModes());
        EXPECT_EQ(window().picture().button(1)->attributedTitle().text, "---") << mode;
        EXPECT_EQ(window().picture().button(5)->attributedTitle().text,
                  knob.at(static_cast<std::size_t>(mode)))
            << mode;
        EXPECT_EQ(window().picture().button(13)->attributedTitle().text, "---") << mode;
    }
    send();
    EXPECT_EQ(held(), before);
    EXPECT_EQ(before[12], 0x7F);
}

} // namespace
} // namespace scenewright::testing
