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
    places.append(order.indexOf(window().picture().button(1)));
    EXPECT_EQ(std::ranges::count_if(order,
                                    [](const QWidget* at) {
                                        return qobject_cast<const ControlButton*>(at) != nullptr;
                                    }),
              1);
    for (const char* outlet : {"commonGlobalMIDICh", "commonPianoKeyCh", "commonPadConstVelocity"})
        places.append(order.indexOf(&window().panes().popUp(outlet)));
    EXPECT_FALSE(places.contains(-1)) << places.indexOf(-1);
    EXPECT_TRUE(std::ranges::is_sorted(places));
}

TEST_F(KeyboardUse, ThePictureIsOneStopThatFollowsTheKeyboardAndTheChoice) {
    open();
    // The control that has the keyboard, the one that Tab goes to, and the chosen one.
    const auto expect = [this](std::int32_t focus, std::int32_t stop, std::int32_t chosen) {
        for (std::int32_t tag = 1; tag <= kControlCount; ++tag) {
            const ControlButton& button = *window().picture().button(tag);
            EXPECT_EQ((button.focusPolicy() & Qt::TabFocus) != 0, tag == stop) << tag;
            EXPECT_EQ(button.hasFocus(), tag == focus) << tag;
        }
        EXPECT_EQ(window().view().selectControl(), chosen);
    };
    const auto key = [](Qt::Key pressed) { QTest::keyClick(QApplication::focusWidget(), pressed); };
    expect(0, 1, 0);
    window().showControl(0, 13);
    expect(0, 13, 13);
    window().picture().button(13)->setFocus();
    key(Qt::Key_Right);
    expect(14, 14, 13);
    key(Qt::Key_Space);
    expect(14, 14, 14);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    expect(18, 18, 18);
    window().showControl(0, 40); // not under the keyboard's feet
    expect(18, 18, 40);
}

TEST_F(KeyboardUse, ThePreviousAndTheNextControlAreReachedFromAnywhere) {
    open();
    window().showControl(0, 14);
    PopUpBox& red = window().panes().popUp("padCR");
    struct Row {
        QWidget* at;
        Qt::Key key;
        std::int32_t chosen;
    };
    const Row rows[] = {
        {&window().list(), Qt::Key_PageDown, 15},
        {&red, Qt::Key_PageDown, 16},
        {&window().sendButton(), Qt::Key_PageUp, 15},
        {window().picture().button(3), Qt::Key_PageUp, 14},
    };
    for (const Row& row : rows) {
        row.at->setFocus();
        QTest::keyClick(row.at, row.key, Qt::ControlModifier);
        EXPECT_EQ(window().view().selectControl(), row.chosen);
        EXPECT_TRUE(row.at->hasFocus());
    }
    for (int press = 0; press < 50; ++press)
        QTest::keyClick(&window(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(window().view().selectControl(), 0);
    EXPECT_TRUE(window().panes().pane(ControlKind::Common).isVisible());
    for (int press = 0; press < 50; ++press)
        QTest::keyClick(&window(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(window().view().selectControl(), kControlCount);
}

TEST_F(KeyboardUse, StaysInThePanesWhateverTheyShowNext) {
    open();
    struct Row {
        std::int32_t control;
        const char* at;
        Qt::Key key;
        const char* then;
    };
    const Row rows[] = {
        {14, "padCR", Qt::Key_PageDown, "padCR"},
        {20, "padOnValue", Qt::Key_PageDown, "keyAssignType"}, // keys have no such value now
        {20, "padCCOrNoteNumber", Qt::Key_PageDown, "keyCCOrNoteNumber"},
        {14, "padCR", Qt::Key_2, "commonGlobalMIDICh"},
        {14, "padCR", Qt::Key_R, "commonGlobalMIDICh"},
    };
    for (const Row& row : rows) {
        window().showControl(0, row.control);
        PopUpBox& box = window().panes().popUp(row.at);
        box.setEnabled(true);
        box.setFocus();
        QTest::keyClick(&box, row.key, Qt::ControlModifier);
        EXPECT_TRUE(window().panes().popUp(row.then).hasFocus()) << row.at << ' ' << row.then;
    }
}

TEST_F(KeyboardUse, StaysOnSendWhileItIsGreyUnlessItIsPutElsewhere) {
    open();
    for (const bool moves : {false, true}) {
        window().sendButton().setFocus();
        closeGate();
        window().sendButton().click();
        EXPECT_EQ(window().focusWidget(), nullptr);
        if (moves)
            window().list().setFocus();
        openGate();
        ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
        EXPECT_EQ(window().sendButton().hasFocus(), !moves);
    }
    closeGate();
    window().sendButton().click();
    EXPECT_TRUE(window().list().hasFocus()) << "it was not on what is greyed";
    openGate();
    ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
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

TEST_F(KeyboardUse, SettingCanBeChangedAndSentWithoutAMouse) {
    open();
    read();
    pressMnemonic(Qt::Key_W);
    EXPECT_TRUE(window().displayModes().hasFocus());
    window().picture().button(14)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    pressMnemonic(Qt::Key_B);
    pressMnemonic(Qt::Key_R);
    EXPECT_TRUE(window().panes().popUp("padCR").hasFocus());
    QTest::keyClicks(QApplication::focusWidget(), "17");
    send();
    SceneList expected = usableScenes();
    expected.at(0)->buttonValueArray().at(13)->setCR(17);
    EXPECT_EQ(held(), imageOf(expected));
}

} // namespace
} // namespace scenewright::testing
