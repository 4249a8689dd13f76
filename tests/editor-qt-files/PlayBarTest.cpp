#include "editor/qt/PlayBar.h"

#include "app/DeviceSession.h"
#include "editor/qt/MidiPorts.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/StripPlace.h"
#include "tests/editor-qt-files/CommandsBench.h"
#include "tests/sequencer/ScriptedSequencer.h"

#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright::testing {

void PrintTo(const MidiMessage& message, std::ostream* stream) {
    *stream << messageText(message, nullptr);
}

namespace {

using Messages = std::vector<MidiMessage>;

constexpr PortAddress kSynth{128, 0};
// What the first pads, the first keys and the first knob of the default scenes send.
constexpr std::uint8_t kPadNote = 36;
constexpr std::uint8_t kKeyNote = 48;
constexpr std::uint8_t kKnobController = 74;

class PlayBarTest : public OpenWindow {
protected:
    PlayBarTest() {
        ports->add(kSynth, "Synth", "In");
        bar_ = std::make_unique<PlayBar>(window());
        action_ = &bar_->add("Play", [this] {
            return openPlayPort([this]() -> Result<std::unique_ptr<Sequencer>> {
                if (!error.empty())
                    return failure(error);
                return std::make_unique<ScriptedSequencer>(ports);
            });
        });
        window().show();
    }

    QAction& action() { return *action_; }
    PlayBar& bar() { return *bar_; }
    QWidget* keyboard() { return QApplication::focusWidget(); }
    Messages sent() { return std::exchange(ports->sent, {}); }

    std::shared_ptr<ScriptedPorts> ports = std::make_shared<ScriptedPorts>();
    std::string error;

private:
    std::unique_ptr<PlayBar> bar_;
    QAction* action_ = nullptr; // child of the bar
};

TEST_F(PlayBarTest, AClickPlaysInsteadOfChoosing) {
    choose(kKnob);
    const BankImage before = storedImage();
    action().setChecked(true);
    EXPECT_TRUE(bar().isVisible());
    QTest::mousePress(&button(kPad), Qt::LeftButton);
    EXPECT_TRUE(button(kPad).isPlayed());
    EXPECT_EQ(sent(), (Messages{{0x99, kPadNote, 100}}));
    const auto& last = *bar().findChildren<NoticeText*>().last();
    EXPECT_EQ(last.text(), "Note on C2, ch 10, velocity 100");
    EXPECT_EQ(last.toolTip(), last.text());
    QTest::mouseRelease(&button(kPad), Qt::LeftButton);
    EXPECT_FALSE(button(kPad).isPlayed());
    EXPECT_EQ(sent(), (Messages{{0x89, kPadNote, 0}}));
    EXPECT_EQ(window().view().selectControl(), kKnob);
    EXPECT_EQ(storedImage(), before);
    action().setChecked(false);
    EXPECT_FALSE(bar().isVisible());
    choose(kPad);
    EXPECT_EQ(window().view().selectControl(), kPad);
    EXPECT_EQ(sent(), Messages());
}

struct Played {
    int key;
    std::uint32_t place; // 0 where the system tells none
    MidiMessage message;
    int times = 1; // alike, before it is looked at what was sent
};

// A key by its letter, and by its place where the layout has another letter there.
void append(std::vector<Played>& all, char letter, std::uint32_t place,
            const MidiMessage& message) {
    all.push_back({letter, 0, message});
    all.push_back({Qt::Key_Q, place, message});
}

// What the keys of the two rows and the digits play, from the left.
std::vector<Played> wholeRows() {
    constexpr std::string_view kLetters = "AWSEDFTGYHUJKOLP;'";
    constexpr std::array<std::uint32_t, kLetters.size()> kPlaces{
        38, 25, 39, 26, 40, 41, 28, 42, 29, 43, 30, 44, 45, 32, 46, 33, 47, 48};
    constexpr std::uint32_t kPlaceOfOne = 10;
    std::vector<Played> all;
    for (std::uint8_t key = 0; key < kLetters.size(); ++key)
        append(all, kLetters.at(key), kPlaces.at(key),
               {0x90, static_cast<std::uint8_t>(kKeyNote + key), 100});
    for (std::uint8_t pad = 0; pad < 8; ++pad)
        append(all, static_cast<char>('1' + pad), kPlaceOfOne + pad,
               {0x99, static_cast<std::uint8_t>(kPadNote + pad), 100});
    return all;
}

TEST_F(PlayBarTest, RowsOfTheComputersKeysPlay) {
    action().setChecked(true);
    std::vector<Played> played = wholeRows();
    std::ranges::copy(
        std::initializer_list<Played>{
            {Qt::Key_X, 0, {}}, // an octave up
            {Qt::Key_A, 0, {0x90, kKeyNote + 12, 100}},
            {Qt::Key_K, 0, {0x90, kKeyNote + 24, 100}},
            {Qt::Key_O, 0, {}}, // above the last key
            {Qt::Key_Z, 0, {}},
            {Qt::Key_A, 0, {0x90, kKeyNote, 100}},
            {Qt::Key_Y, 53, {}}, // by their places
            {Qt::Key_A, 0, {0x90, kKeyNote + 12, 100}},
            {Qt::Key_Y, 52, {}},
            {Qt::Key_A, 0, {0x90, kKeyNote, 100}},
            {Qt::Key_C, 0, {}},
            {Qt::Key_1, 0, {0x99, kPadNote, 80}},
            {Qt::Key_Q, 55, {}},
            {Qt::Key_1, 0, {0x99, kPadNote, 100}},
            {Qt::Key_V, 0, {}, 2},
            {Qt::Key_1, 0, {0x99, kPadNote, 127}},
            {Qt::Key_Q, 54, {}},
            {Qt::Key_1, 0, {0x99, kPadNote, 107}},
            {Qt::Key_C, 0, {}, 6},
            {Qt::Key_1, 0, {0x99, kPadNote, 1}},
        },
        std::back_inserter(played));
    for (const Played& row : played) {
        QKeyEvent press(QEvent::KeyPress, row.key, Qt::NoModifier, row.place, 0, 0);
        QKeyEvent again(QEvent::KeyPress, row.key, Qt::NoModifier, row.place, 0, 0, {}, true);
        QKeyEvent release(QEvent::KeyRelease, row.key, Qt::NoModifier, row.place, 0, 0);
        QKeyEvent shortcut(QEvent::ShortcutOverride, row.key, Qt::NoModifier, row.place, 0, 0);
        shortcut.ignore();
        QApplication::sendEvent(keyboard(), &shortcut);
        EXPECT_TRUE(shortcut.isAccepted()) << row.key << " is no shortcut of the window's";
        for (int time = 0; time < row.times; ++time)
            QApplication::sendEvent(keyboard(), &press);
        if (row.message != MidiMessage{})
            QApplication::sendEvent(keyboard(), &again);
        QApplication::sendEvent(keyboard(), &release);
        const MidiMessage& on = row.message;
        const Messages expected =
            on == MidiMessage{}
                ? Messages{}
                : Messages{on, {static_cast<std::uint8_t>(on.status - 0x10), on.first, 0}};
        EXPECT_EQ(sent(), expected) << row.key << " " << row.place;
    }
}

TEST_F(PlayBarTest, KnobsTurnByTheWheelByDraggingAndByKeys) {
    action().setChecked(true);
    const QPoint middle = button(kKnob).rect().center();
    QTest::mousePress(&button(kKnob), Qt::LeftButton, {}, middle);
    QTest::mouseMove(&button(kKnob), middle - QPoint(0, 80)); // half of the whole drag
    QTest::mouseRelease(&button(kKnob), Qt::LeftButton, {}, middle - QPoint(0, 80));
    EXPECT_EQ(sent(), (Messages{{0xB0, kKnobController, 64}}));
    EXPECT_EQ(button(kKnob).travel(), 0.5);
    QWheelEvent wheel(middle, button(kKnob).mapToGlobal(QPointF(middle)), {}, {0, -120 * 32}, {},
                      {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&button(kKnob), &wheel);
    EXPECT_EQ(sent(), (Messages{{0xB0, kKnobController, 0}}));
    QApplication::sendEvent(&button(kKnob), &wheel);
    EXPECT_EQ(sent(), Messages()) << "it is at its end";
    for (const auto& [key, place] : {std::pair{Qt::Key_Equal, 0},
                                     {Qt::Key_Equal, 0},
                                     {Qt::Key_Minus, 0},
                                     {Qt::Key_Q, 21},
                                     {Qt::Key_Q, 20}}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, static_cast<quint32>(place), 0, 0);
        QApplication::sendEvent(keyboard(), &press);
    }
    EXPECT_EQ(sent(), (Messages{{0xB0, kKnobController, 4},
                                {0xB0, kKnobController, 8},
                                {0xB0, kKnobController, 4},
                                {0xB0, kKnobController, 8},
                                {0xB0, kKnobController, 4}}));
    EXPECT_EQ(window().view().selectControl(), 0);
}

TEST_F(PlayBarTest, WhatSoundsEndsWithEverythingThatEndsOrInterruptsThePlaying) {
    ports->link({.from = ScriptedSequencer::kOwnPort, .to = kSynth});
    const std::array<std::pair<const char*, std::function<void()>>, 7> endings{{
        {"another scene", [this] { window().scenes().segment(1).click(); }},
        {"a list of values", [this] { window().displayModes().setFocus(); }},
        {"another window",
         [this] {
             QEvent event(QEvent::WindowDeactivate);
             QApplication::sendEvent(&window(), &event);
         }},
        {"a read", [this] { window().commands().read(); }},
        {"Escape", [this] { QTest::keyClick(keyboard(), Qt::Key_Escape); }},
        {"the action", [this] { action().setChecked(false); }},
        {"its button", [this] { bar().findChild<QPushButton*>()->click(); }},
    }};
    for (const auto& [name, ending] : endings) {
        action().setChecked(true);
        window().picture().takeKeyboard();
        QTest::keyPress(keyboard(), Qt::Key_A);
        EXPECT_EQ(sent(), (Messages{{0x90, kKeyNote, 100}})) << name;
        ending();
        EXPECT_EQ(sent(), (Messages{{0x80, kKeyNote, 0}})) << name;
        QTest::keyRelease(&window(), Qt::Key_A);
        EXPECT_EQ(sent(), Messages()) << name;
    }
    EXPECT_FALSE(action().isChecked());
    EXPECT_FALSE(bar().isVisible());
}

TEST_F(PlayBarTest, AKeyThatIsLetGoOfOverAMenuEndsItsNote) {
    action().setChecked(true);
    QTest::keyPress(keyboard(), Qt::Key_A);
    QMenu menu(&window());
    menu.addAction("an entry"); // without one some releases of the toolkit do not open it
    menu.popup({});
    QTest::keyRelease(&menu, Qt::Key_A);
    EXPECT_EQ(sent(), (Messages{{0x90, kKeyNote, 100}, {0x80, kKeyNote, 0}}));
    QTest::keyClick(&menu, Qt::Key_1);
    QTest::keyClick(&button(kPad), Qt::Key_1); // as some systems tell it
    EXPECT_EQ(sent(), Messages());
}

TEST_F(PlayBarTest, AKeyThatTheSystemRepeatsByLettingGoOfItSoundsOn) {
    action().setChecked(true);
    const auto tell = [this](QEvent::Type type, std::uint64_t time) {
        QKeyEvent event(type, Qt::Key_A, Qt::NoModifier, 38, 0, 0);
        event.setTimestamp(time);
        QApplication::sendEvent(keyboard(), &event);
    };
    tell(QEvent::KeyPress, 1);
    tell(QEvent::KeyRelease, 500);
    tell(QEvent::KeyPress, 500);
    QTest::qWait(40); // longer than a release waits
    EXPECT_EQ(sent(), (Messages{{0x90, kKeyNote, 100}}));
    tell(QEvent::KeyRelease, 600);
    tell(QEvent::KeyPress, 601); // quickly again
    EXPECT_EQ(sent(), (Messages{{0x80, kKeyNote, 0}, {0x90, kKeyNote, 100}}));
    tell(QEvent::KeyRelease, 700);
    EXPECT_TRUE(waitUntil([this] { return sent() == Messages{{0x80, kKeyNote, 0}}; }));
}

TEST_F(PlayBarTest, WhatIsTypedIntoAFieldAndShortcutsAreNotPlayed) {
    action().setChecked(true);
    QLineEdit field(&window());
    field.show();
    field.setFocus();
    QTest::keyClicks(&field, "as1");
    EXPECT_EQ(field.text(), "as1");
    EXPECT_EQ(sent(), Messages());
    window().picture().takeKeyboard();
    for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        QTest::keyClick(keyboard(), Qt::Key_J, modifier);
    EXPECT_EQ(sent(), Messages()) << "a shortcut";
}

TEST_F(PlayBarTest, TheBarSaysWhoHearsIt) {
    action().setChecked(true);
    const auto* told = bar().findChild<SpokenText*>();
    EXPECT_EQ(told->text(), "Playing scene 1: connect a program to the port Scenewright (200:0)");
    action().setChecked(false);
    ports->link({.from = ScriptedSequencer::kOwnPort, .to = kSynth});
    action().setChecked(true);
    EXPECT_EQ(told->text(), "Playing scene 1 into Synth, through the port Scenewright (200:0)");
    window().scenes().segment(2).click();
    EXPECT_EQ(told->accessibleName(),
              "Playing scene 3 into Synth, through the port Scenewright (200:0)");
    const auto* keys = bar().findChildren<SpokenText*>().last();
    EXPECT_TRUE(keys->text().contains("octave 1 (Z, X)")) << keys->text().toStdString();
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_C})
        QTest::keyClick(keyboard(), key);
    EXPECT_TRUE(keys->text().contains("octave 2 (Z, X)")) << keys->text().toStdString();
    EXPECT_TRUE(keys->text().contains("velocity 80 (C, V)")) << keys->text().toStdString();
}

TEST_F(PlayBarTest, AProgramThatComesIsToldOfAndOneThatGoesEndsWhatSounds) {
    ports->makeBell();
    action().setChecked(true);
    const auto* told = bar().findChild<SpokenText*>();
    ports->link({.from = ScriptedSequencer::kOwnPort, .to = kSynth});
    ports->ring();
    EXPECT_TRUE(waitUntil([&] { return told->text().startsWith("Playing scene 1 into Synth"); }));
    QTest::keyPress(keyboard(), Qt::Key_A);
    EXPECT_EQ(sent(), (Messages{{0x90, kKeyNote, 100}}));
    ports->remove(kSynth);
    ports->ring();
    EXPECT_TRUE(waitUntil([this] { return sent() == Messages{{0x80, kKeyNote, 0}}; }));
    EXPECT_EQ(told->text(), "Playing scene 1: connect a program to the port Scenewright (200:0)");
}

TEST_F(PlayBarTest, ItsLinesStandBelowOneAnotherBesideTheButtonThatEndsIt) {
    action().setChecked(true);
    QApplication::processEvents();
    const auto lines = bar().findChildren<NoticeText*>();
    ASSERT_EQ(lines.size(), 3);
    const QRect end = bar().findChild<QPushButton*>()->geometry();
    EXPECT_EQ(lines[0]->pos(), QPoint(15, 5));
    EXPECT_EQ(end.right() + 1 + 7, bar().width());
    EXPECT_LE(end.width(), bar().findChild<QPushButton*>()->sizeHint().width());
    EXPECT_GT(end.bottom(), lines[0]->geometry().bottom());
    EXPECT_LE(end.bottom(), lines[1]->geometry().bottom() + 4);
    for (int line = 0; line < 3; ++line) {
        EXPECT_EQ(lines[line]->x(), lines[0]->x());
        EXPECT_LT(lines[line]->geometry().right(), end.left());
        EXPECT_TRUE(line == 0 || lines[line]->y() > lines[line - 1]->geometry().bottom());
    }
}

TEST_F(PlayBarTest, WithoutASequencerOneSentenceIsTold) {
    error = "there is no sequencer";
    action().setChecked(true);
    EXPECT_EQ(notice(), "The scene cannot be played: there is no sequencer");
    EXPECT_FALSE(action().isChecked());
    EXPECT_FALSE(bar().isVisible());
}

TEST_F(PlayBarTest, TheVirtualControllerPlaysWhatItHoldsAndTheMonitorHearsIt) {
    commands().useVirtual();
    part<MonitorStrip>().action().setChecked(true);
    record(kPad).setCCOrNoteNumber(99); // in the window alone
    window().menu().view().actions().back()->setChecked(true);
    EXPECT_EQ(window().strips().findChild<PlayBar*>()->findChild<SpokenText*>()->text(),
              "Playing scene 1 as the virtual controller holds it");
    QTest::mouseClick(&button(kPad), Qt::LeftButton);
    MonitorLines& lines = part<MonitorStrip>().lines();
    ASSERT_TRUE(waitUntil([&] { return lines.rowCount() == 2; }));
    EXPECT_EQ(lines.index(0, MonitorLines::Words).data().toString(),
              "Note on C2, ch 10, velocity 100");
    const auto output = makeVirtualOutput();
    EXPECT_EQ(output->descriptor(), -1) << "nobody comes or goes";
    EXPECT_FALSE(output->process());
}

} // namespace

} // namespace scenewright::testing
