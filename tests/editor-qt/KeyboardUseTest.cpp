// The window without a mouse.
#include "editor/qt/EditorCommands.h"
#include "tests/editor-qt/WindowBench.h"

#include <QLabel>
#include <QSet>
#include <QTest>

#include <cstdint>

namespace scenewright::testing {
namespace {

class KeyboardUse : public WindowBench {
protected:
    // Where Tab leads from one widget, once around.
    QList<QWidget*> tabOrder() {
        QList<QWidget*> order;
        window().scenes().segment(0).setFocus();
        QWidget* at = QApplication::focusWidget();
        while (at != nullptr && !order.contains(at)) {
            order.append(at);
            QTest::keyClick(at, Qt::Key_Tab);
            at = QApplication::focusWidget();
        }
        return order;
    }

    void pressMnemonic(Qt::Key letter) {
        QTest::keyClick(QApplication::focusWidget(), letter, Qt::AltModifier);
    }
};

TEST_F(KeyboardUse, TabReachesEveryControlFromTheTopToThePanes) {
    open();
    read();
    const QList<QWidget*> order = tabOrder();
    QList<qsizetype> places{order.indexOf(&window().scenes().segment(0)),
                            order.indexOf(&window().displayModes()),
                            order.indexOf(&window().readButton()),
                            order.indexOf(&window().sendButton()), order.indexOf(&window().list())};
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag)
        places.append(order.indexOf(window().picture().button(tag)));
    for (const char* outlet : {"commonGlobalMIDICh", "commonPianoKeyCh", "commonPadConstVelocity"})
        places.append(order.indexOf(&window().panes().popUp(outlet)));
    EXPECT_FALSE(places.contains(-1)) << places.indexOf(-1);
    EXPECT_TRUE(std::ranges::is_sorted(places));
}

TEST_F(KeyboardUse, ArrowsMoveOnThePictureAndSpaceChooses) {
    open();
    window().picture().button(13)->setFocus();
    QTest::keyClick(window().picture().button(13), Qt::Key_Right);
    EXPECT_TRUE(window().picture().button(14)->hasFocus());
    EXPECT_EQ(window().view().selectControl(), 0);
    QTest::keyClick(window().picture().button(14), Qt::Key_Space);
    EXPECT_EQ(window().view().selectControl(), 14);
    QTest::keyClick(window().picture().button(14), Qt::Key_Down);
    QTest::keyClick(window().picture().button(18), Qt::Key_Return);
    EXPECT_EQ(window().view().selectControl(), 18);
}

TEST_F(KeyboardUse, EveryFieldOfAPaneHasAMnemonicOfItsOwn) {
    const EditorCommands commands(open(), nullptr);
    QSet<QChar> everywhere{'w'};
    for (const QAction* menu : window().menuBar()->actions())
        everywhere.insert(menu->text()[menu->text().indexOf('&') + 1].toLower());
    for (const ControlRange& range : kControlRanges) {
        QSet<QChar> letters = everywhere;
        for (const QLabel* label : window().panes().pane(range.kind).findChildren<QLabel*>()) {
            if (label->buddy() == nullptr)
                continue;
            const qsizetype mark = label->text().indexOf('&');
            ASSERT_GE(mark, 0) << label->text().toStdString();
            const QChar letter = label->text()[mark + 1].toLower();
            EXPECT_FALSE(letters.contains(letter)) << label->text().toStdString();
            letters.insert(letter);
        }
    }
}

TEST_F(KeyboardUse, MnemonicBringsTheKeyboardToItsField) {
    open();
    pressMnemonic(Qt::Key_W);
    EXPECT_TRUE(window().displayModes().hasFocus());
    QTest::mouseClick(window().picture().button(14), Qt::LeftButton);
    pressMnemonic(Qt::Key_R);
    EXPECT_TRUE(window().panes().popUp("padCR").hasFocus());
}

TEST_F(KeyboardUse, SettingCanBeChangedAndSentWithoutAMouse) {
    open();
    read();
    window().picture().button(14)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    pressMnemonic(Qt::Key_B);
    pressMnemonic(Qt::Key_R);
    QTest::keyClicks(QApplication::focusWidget(), "17");
    send();
    SceneList expected = usableScenes();
    expected.at(0)->buttonValueArray().at(13)->setCR(17);
    EXPECT_EQ(held(), imageOf(expected));
}

} // namespace
} // namespace scenewright::testing
