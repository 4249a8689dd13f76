// The strips that show what is played on the keyboard.
#include "editor/qt/MonitorStrip.h"

#include "editor/qt/NoticeBar.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/TryStrip.h"
#include "tests/editor-qt-files/CommandsBench.h"
#include "tests/sequencer/ScriptedSequencer.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include <cstdint>
#include <optional>
#include <sys/eventfd.h>
#include <vector>

namespace scenewright::testing {

namespace {

constexpr PortAddress kKeyboard{20, 0};
constexpr MidiMessage kPadOn{0x99, 38, 100}; // what the third pad of the default scenes sends
constexpr MidiMessage kPadOff{0x89, 38, 0};
constexpr std::int32_t kThirdPad = kPad + 2;

// Another program has the keyboard's first port for itself.
class TakenSequencer final : public ScriptedSequencer {
public:
    using ScriptedSequencer::ScriptedSequencer;
    Result<void> listenTo(PortAddress port) override {
        return port == kKeyboard ? failure("it is taken") : ScriptedSequencer::listenTo(port);
    }
};

// A keyboard that is played.
class PlayedKeyboard : public OpenWindow {
protected:
    PlayedKeyboard() {
        ports->add(kKeyboard, "Keyboard", "MIDI 1", 1);
        input_.use(
            [this]() -> Result<std::unique_ptr<Sequencer>> {
                if (!error.empty())
                    return failure(error);
                ++opened;
                if (isTaken)
                    return std::make_unique<TakenSequencer>(ports);
                return std::make_unique<ScriptedSequencer>(ports);
            },
            [] {
                return std::vector<SoundKeyboard>{{"1209:0001#0", 1}};
            });
    }

    KeyboardInput& input() { return input_; }
    // Of the strip that was made last.
    QAction& chooseByTouching() { return *window().menu().view().actions().back(); }
    void play(std::initializer_list<MidiMessage> messages) {
        for (const MidiMessage& message : messages)
            ports->send(kKeyboard, message);
        input_.take();
    }
    [[nodiscard]] std::int32_t chosen() { return window().view().selectControl(); }

    std::shared_ptr<ScriptedPorts> ports = std::make_shared<ScriptedPorts>();
    std::string error;
    bool isTaken = false;
    int opened = 0; // how often the sequencer was

private:
    KeyboardInput input_{window()};
};

class MonitorStripTest : public PlayedKeyboard {
protected:
    void play(std::initializer_list<MidiMessage> messages) {
        PlayedKeyboard::play(messages);
        strip.show(); // the lines that came
    }
    // Words and senders of each line.
    QStringList told() {
        QStringList lines;
        MonitorLines& model = strip.lines();
        for (int row = 0; row < model.rowCount(); ++row)
            lines.append(model.index(row, MonitorLines::Words).data().toString() + " | " +
                         model.index(row, MonitorLines::Senders).data().toString());
        return lines;
    }
    QToolButton& toolButton(const char* name) { return field<QToolButton>(strip, name); }

    MonitorStrip& strip = makeChild<MonitorStrip>(window(), input());
};

TEST_F(MonitorStripTest, SaysWhatCameAndWhichControlOrSceneSendsIt) {
    for (const std::size_t scene : {0U, 2U})
        WindowAction::scenes()[scene]->buttonValueArray()[kThirdPad - 1]->setCCOrNoteNumber(99);
    window().showControl(1, 0);
    strip.action().setChecked(true);
    EXPECT_TRUE(strip.isVisible());
    EXPECT_EQ(strip.findChild<QLabel*>()->text(), "Listening to MIDI 1");
    play({kPadOn, kPadOff, {0x99, 99, 1}, {0x99, 5, 1}});
    EXPECT_EQ(told(),
              (QStringList{"Note on D2, ch 10, velocity 100 | Pad 3", "Note off D2, ch 10 | Pad 3",
                           "Note on Eb7, ch 10, velocity 1 | scene 1?, scene 3?",
                           "Note on F-1, ch 10, velocity 1 | no control of the scenes"}));
}

TEST_F(MonitorStripTest, ItsFieldsStandInALineAboveTheListAsWideAsWhatTheyHold) {
    strip.action().setChecked(true);
    QApplication::processEvents();
    QWidget& filter = *strip.findChild<QLineEdit*>();
    int right = strip.findChild<QLabel*>()->geometry().right();
    EXPECT_GT(right, strip.width() / 4) << "what is listened to has the room that is left";
    QList<QWidget*> fields{&filter};
    for (const char* const text : {"Pause", "Clock Too", "Clear", "Copy"})
        fields.append(&toolButton(text));
    for (const QWidget* field : fields) {
        EXPECT_GT(field->x(), right) << field->accessibleName().toStdString();
        right = field->geometry().right();
    }
    EXPECT_EQ(right, strip.rect().right());
    EXPECT_TRUE(toolButton("Pause").isCheckable() && toolButton("Clock Too").isCheckable());
    EXPECT_FALSE(toolButton("Clear").isCheckable() || toolButton("Copy").isCheckable());
    const QTreeView& list = *strip.findChild<QTreeView*>();
    EXPECT_EQ(list.geometry().topLeft(), QPoint(0, filter.parentWidget()->height() + 4));
    EXPECT_EQ(list.geometry().bottomRight(), strip.rect().bottomRight());
    EXPECT_EQ(list.columnWidth(MonitorLines::Time), 96);
    EXPECT_EQ(list.columnWidth(MonitorLines::Words), 300);
    EXPECT_FALSE(list.rootIsDecorated());
    EXPECT_EQ(list.selectionMode(), QAbstractItemView::ExtendedSelection);
    QStringList titles;
    for (int column = 0; column < list.model()->columnCount(); ++column)
        titles.append(list.model()->headerData(column, Qt::Horizontal).toString());
    EXPECT_EQ(titles, (QStringList{"Time", "Message", "Sent by"}));
}

TEST_F(MonitorStripTest, WhatIsPlayedShowsOnThePicture) {
    strip.action().setChecked(true);
    play({kPadOn});
    EXPECT_TRUE(button(kThirdPad).isPlayed());
    EXPECT_FALSE(button(kThirdPad + 1).isPlayed());
    play({{0x99, 38, 0}}); // which is an end, too
    EXPECT_FALSE(button(kThirdPad).isPlayed());
    play({kPadOn});
    EXPECT_TRUE(button(kThirdPad).isPlayed());
    play({kPadOff, {0xB0, 74, 127}});
    EXPECT_FALSE(button(kThirdPad).isPlayed());
    EXPECT_TRUE(button(kKnob).isPlayed());
    EXPECT_EQ(button(kKnob).travel(), 1.0);
    record(kPad).setAssignType(kAssignController);
    record(kPad).setCCOrNoteNumber(20);
    play({{0xB9, 20, 127}});
    EXPECT_TRUE(button(kPad).isPlayed());
    EXPECT_EQ(button(kPad).travel(), std::nullopt) << "it goes on and off";
    EXPECT_TRUE(waitUntil([&] { return !button(kKnob).isPlayed(); }));
}

TEST_F(MonitorStripTest, PauseKeepsWhatCameClearTakesItAwayAndClockIsHiddenUnlessAskedFor) {
    strip.action().setChecked(true);
    toolButton("Pause").setChecked(true);
    play({kPadOn});
    EXPECT_EQ(told(), QStringList());
    toolButton("Pause").setChecked(false);
    EXPECT_EQ(told().size(), 1);
    toolButton("Clear").click();
    play({{kClock}, {kActiveSensing}});
    EXPECT_EQ(told(), QStringList());
    toolButton("Clock Too").setChecked(true);
    play({{kClock}, {kActiveSensing}});
    EXPECT_EQ(told().size(), 2);
}

TEST_F(MonitorStripTest, OnlyWhatTheFilterLeavesIsCopied) {
    strip.action().setChecked(true);
    play({kPadOn, {0xB0, 74, 3}});
    strip.findChild<QLineEdit*>()->setText("knob");
    toolButton("Copy").click();
    const QString copied = QApplication::clipboard()->text();
    const QRegularExpression line(R"(^\d\d:\d\d:\d\d\.\d{3}\tCC 74, ch 1, value 3\tKnob 1$)");
    EXPECT_TRUE(line.match(copied).hasMatch()) << copied.toStdString();
}

// Ten seconds of a burst; nothing of it is lost, and only the latest lines are kept.
TEST_F(MonitorStripTest, ABurstIsKeptToTheLastTenThousandLines) {
    strip.action().setChecked(true);
    const auto burst = [this](int begin, int end) {
        for (int tick = begin; tick < end; ++tick) {
            for (int message = 0; message < 100; ++message)
                ports->send(kKeyboard, {0xB0, 74, static_cast<std::uint8_t>(tick % 128)});
            play({});
        }
    };
    const auto words = [this](int row) {
        return strip.lines().index(row, MonitorLines::Words).data().toString();
    };
    toolButton("Pause").setChecked(true);
    burst(0, 101);
    toolButton("Pause").setChecked(false);
    EXPECT_TRUE(words(0).endsWith(" 1"));
    EXPECT_TRUE(words(9999).endsWith(" 100"));
    burst(101, 299);
    const QAbstractItemModelTester tester(&strip.lines(), // of what it tells its views
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    burst(299, 300);
    EXPECT_EQ(strip.lines().rowCount(), MonitorLines::kMost);
    EXPECT_EQ(words(0), words(99));
    EXPECT_TRUE(words(9999).endsWith(" 43"));
}

TEST(MonitorLines, OfMoreAtOnceThanItKeepsTheLatestStay) {
    MonitorLines lines;
    lines.append(std::vector<MonitorLines::Line>(1));
    std::vector<MonitorLines::Line> many(MonitorLines::kMost + 1);
    many[1].texts[MonitorLines::Words] = "the first that stays";
    many.back().texts[MonitorLines::Words] = "the last";
    lines.append(many);
    EXPECT_EQ(lines.index(0, MonitorLines::Words).data(), "the first that stays");
    EXPECT_EQ(lines.index(MonitorLines::kMost - 1, MonitorLines::Words).data(), "the last");
}

TEST_F(MonitorStripTest, WhatTheSequencerTellsOfComesByItselfWhileItIsListenedTo) {
    ports->makeBell();
    strip.action().setChecked(true);
    ports->send(kKeyboard, kPadOn);
    ports->ring();
    EXPECT_TRUE(waitUntil([this] { return strip.lines().rowCount() == 1; }));
    strip.action().setChecked(false);
    ports->ring();
    QApplication::processEvents();
    eventfd_t rung = 0;
    EXPECT_EQ(::eventfd_read(ports->bell.get(), &rung), 0) << "nobody has answered";
}

TEST_F(MonitorStripTest, WhatIsTouchedIsChosenInTurn) {
    record(kPad).setCCOrNoteNumber(38); // as the third
    chooseByTouching().setChecked(true);
    EXPECT_FALSE(strip.isVisible());
    play({kPadOn});
    EXPECT_EQ(chosen(), kPad);
    play({kPadOff, kPadOn});
    EXPECT_EQ(chosen(), kThirdPad);
    play({kPadOff, kPadOn});
    EXPECT_EQ(chosen(), kPad);
    for (const MidiMessage& off : {kPadOff, MidiMessage{0x89, 38, 64}, MidiMessage{0x99, 38, 0}}) {
        play({off});
        EXPECT_EQ(chosen(), kPad) << "it is let go";
    }
    play({{0xB0, 74, 1}, {0xB0, 74, 2}});
    EXPECT_EQ(chosen(), kKnob);
}

// Knob 1 and two pads send the controller 74; a pad also when it is let go.
TEST_F(MonitorStripTest, ControlsOfOneControllerAreChosenInTurnTouchByTouch) {
    for (const std::int32_t pad : {kPad, kThirdPad}) {
        record(pad).setAssignType(1);
        record(pad).setMIDIChannel(0);
        record(pad).setCCOrNoteNumber(74);
        record(pad).setOnValue(127);
        record(pad).setPadBehavior(0);
    }
    chooseByTouching().setChecked(true);
    constexpr int kPause = 1050; // milliseconds, longer than a touch may have in it
    for (const std::int32_t next : {kKnob, kPad, kThirdPad, kKnob}) {
        play({{0xB0, 74, 127}, {0xB0, 74, 0}});
        EXPECT_EQ(chosen(), next);
        QTest::qWait(kPause);
    }
    play({{0xB0, 74, 127}});
    EXPECT_EQ(chosen(), kPad);
    QTest::qWait(kPause);
    record(kKnob).setEnable(0);
    play({{0xB0, 74, 0}});
    EXPECT_EQ(chosen(), kPad) << "let go of late";
}

TEST_F(MonitorStripTest, NothingIsChosenWhileAPopupOrADialogIsOpen) {
    chooseByTouching().setChecked(true);
    choose(kKnob);
    QMenu menu(&window());
    menu.addAction("Entry"); // not every version of Qt opens one without
    menu.popup({});
    play({kPadOn});
    EXPECT_EQ(chosen(), kKnob);
    menu.close();
    QDialog dialog(&window());
    dialog.open();
    play({kPadOn});
    EXPECT_EQ(chosen(), kKnob);
    dialog.close();
    play({kPadOn});
    EXPECT_EQ(chosen(), kThirdPad);
}

TEST_F(MonitorStripTest, ListensAsLongAsEitherWantsItAndDarkensThePictureThen) {
    strip.action().setChecked(true);
    chooseByTouching().setChecked(true);
    strip.action().setChecked(false);
    play({kPadOn});
    EXPECT_TRUE(button(kThirdPad).isPlayed());
    chooseByTouching().setChecked(false);
    EXPECT_FALSE(button(kThirdPad).isPlayed());
    play({kPadOn});
    EXPECT_FALSE(button(kThirdPad).isPlayed());
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(input().sentence(), "");
    strip.action().setChecked(true);
    EXPECT_EQ(opened, 2);
    ASSERT_TRUE(input().listenFor(window()));
    strip.action().setChecked(false);
    strip.action().setChecked(true);
    EXPECT_EQ(opened, 2) << "another one has listened on";
    strip.action().setChecked(false);
    play({kPadOn});
    EXPECT_FALSE(button(kThirdPad).isPlayed()) << "what comes is for the other one";
    strip.action().setChecked(true);
    EXPECT_EQ(input().sentence(), "Listening to MIDI 1");
}

TEST_F(MonitorStripTest, AfterAnotherChoiceOfTheKeyboardItListensAnew) {
    input().listenAnew();
    EXPECT_EQ(opened, 0) << "nothing listens";
    strip.action().setChecked(true);
    input().listenAnew();
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(input().sentence(), "Listening to MIDI 1");
    error = "there is no sequencer";
    input().listenAnew();
    EXPECT_EQ(notice(), "The keyboard's port cannot be listened to: there is no sequencer");
    EXPECT_EQ(input().sentence(), "");
}

TEST_F(MonitorStripTest, WithoutASequencerOneSentenceIsToldAndNothingShown) {
    error = "there is no sequencer";
    strip.action().setChecked(true);
    EXPECT_EQ(notice(), "The keyboard's port cannot be listened to: there is no sequencer");
    EXPECT_FALSE(strip.isVisible());
    EXPECT_FALSE(strip.action().isChecked());
    chooseByTouching().setChecked(true);
    EXPECT_FALSE(chooseByTouching().isChecked());
}

TEST_F(MonitorStripTest, APortThatIsTakenIsToldInOneSentenceBesideOneThatIsListenedTo) {
    isTaken = true;
    for (const std::size_t others : {0U, 1U}) {
        if (others > 0)
            ports->add({20, 1}, "Keyboard", "MIDI 2", 1);
        chooseByTouching().setChecked(true);
        EXPECT_EQ(notice(), "The keyboard's port cannot be listened to: it is taken");
        EXPECT_EQ(ports->connections.size(), others);
        chooseByTouching().setChecked(false);
        notices().dismiss();
    }
}

class TryStripTest : public PlayedKeyboard {
protected:
    void begin() {
        window().commands().read();
        strip.action().trigger();
    }
    [[nodiscard]] QString told() const { return strip.findChild<SpokenText*>()->text(); }
    void click(const char* title) {
        for (auto* each : strip.findChildren<QPushButton*>())
            if (each->text() == title)
                return each->click();
        FAIL() << title;
    }
    [[nodiscard]] QString result(int row) const {
        return strip.findChild<QTreeWidget*>()->topLevelItem(row)->text(2);
    }

    TryStrip strip{window(), input()};
};

TEST_F(TryStripTest, NothingIsTriedBeforeItIsKnownWhatTheKeyboardHolds) {
    strip.action().trigger();
    EXPECT_TRUE(notice().startsWith("It is not known yet what the keyboard holds."));
    EXPECT_FALSE(strip.isVisible());
}

TEST_F(TryStripTest, NothingIsTriedWithoutASequencer) {
    error = "there is no sequencer";
    begin();
    EXPECT_EQ(notice(), "The keyboard's port cannot be listened to: there is no sequencer");
    EXPECT_FALSE(strip.isVisible());
}

TEST_F(TryStripTest, EachControlIsNamedAndShownAndItsResultStandsBesideIt) {
    begin();
    EXPECT_EQ(told(), "Touch Knob 1. Choose scene 1 on the keyboard.");
    EXPECT_EQ(chosen(), kKnob);
    play({{0xB0, 74, 5}});
    EXPECT_EQ(result(0), "✓ sent CC 74, ch 1, value 5");
    EXPECT_EQ(told(), "Touch Knob 2. Knob 1: ✓ sent CC 74, ch 1, value 5.");
    EXPECT_EQ(chosen(), kKnob + 1);
    play({{0xB0, 7, 5}});
    EXPECT_TRUE(result(1).startsWith("✗ sent CC 7, expected CC ")) << result(1).toStdString();
    click("Skip");
    EXPECT_EQ(result(2), "skipped");
    click("Back");
    EXPECT_EQ(told(), "Touch Knob 3.");
    EXPECT_EQ(result(2), "");
}

TEST_F(TryStripTest, ItsButtonsStandBesideTheLineThatTellsAndTheTable) {
    window().show();
    begin();
    QApplication::processEvents();
    const QTreeWidget& table = *strip.findChild<QTreeWidget*>();
    const QRect line = strip.findChild<SpokenText*>()->geometry();
    EXPECT_EQ(line.topLeft(), QPoint(0, 0));
    EXPECT_EQ(table.geometry().topLeft(), QPoint(0, line.bottom() + 1 + 4));
    EXPECT_EQ(table.geometry().right(), line.right());
    EXPECT_EQ(table.geometry().bottom(), strip.rect().bottom());
    EXPECT_EQ(table.columnWidth(0), 110);
    EXPECT_EQ(table.columnWidth(1), 170);
    int top = 0;
    QStringList titles;
    for (const auto* button : strip.findChildren<QPushButton*>()) {
        const QRect place(button->mapTo(&strip, QPoint(0, 0)), button->size());
        EXPECT_EQ(place.top(), top);
        EXPECT_EQ(place.left(), line.right() + 1 + 4);
        EXPECT_EQ(place.right(), strip.rect().right());
        top = place.bottom() + 1 + 4;
        titles.append(button->text());
        EXPECT_EQ(button->accessibleName(), button->text());
    }
    EXPECT_EQ(titles, (QStringList{"Skip", "Back", "Copy Report", "End"}));
    EXPECT_GT(table.width(), strip.width() / 2) << "the wide column is the table's";
}

TEST_F(TryStripTest, TheEndTellsWhatWasFoundAndTheReportIsCopied) {
    begin();
    play({{0xB0, 74, 5}});
    click("Skip");
    click("End");
    EXPECT_EQ(told(), "Scene 1: 1 right, 1 skipped, 39 not tried");
    click("Copy Report");
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    EXPECT_EQ(lines.size(), 1 + 41);
    EXPECT_EQ(lines[0], told());
    EXPECT_EQ(lines[1], "Knob 1\tCC 74, ch 1\t✓ sent CC 74, ch 1, value 5");
    EXPECT_EQ(field<QPushButton>(strip, "Close").text(), "Close");
    click("Close");
    EXPECT_FALSE(strip.isVisible());
    play({{0xB0, 74, 5}}); // nobody is there to take it
}

TEST_F(TryStripTest, ThePictureStaysWhileAMenuIsOpenAndAReadEndsIt) {
    begin();
    QMenu menu(&window());
    menu.addAction("Entry"); // not every version of Qt opens one without
    menu.popup({});
    play({{0xB0, 74, 5}});
    EXPECT_EQ(chosen(), kKnob);
    EXPECT_TRUE(told().startsWith("Touch Knob 2."));
    menu.close();
    window().commands().read();
    EXPECT_FALSE(strip.isVisible());
}

TEST_F(TryStripTest, KeysAloneSkipEndAndCloseIt) {
    begin();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QTest::keyClick(&strip, Qt::Key_X); // means nothing
    EXPECT_TRUE(told().startsWith("Touch Knob 2."));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(told().startsWith("Scene 1:"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(strip.isVisible());
}

TEST_F(TryStripTest, AScreenReaderIsToldWhatIsNextAsAnAlert) {
    begin();
    QAccessibleInterface* face =
        QAccessible::queryAccessibleInterface(strip.findChild<SpokenText*>());
    EXPECT_EQ(face->role(), QAccessible::AlertMessage);
    play({{0xB0, 74, 5}});
    EXPECT_EQ(face->text(QAccessible::Name), told());
    const auto buttons = strip.findChildren<QPushButton*>();
    for (const char* const next : {"End", "Copy Report"}) {
        for (const auto* button : buttons)
            EXPECT_EQ(button->accessibleName(), button->text());
        click(next);
    }
}

} // namespace

} // namespace scenewright::testing
