#include "editor/qt/TryStrip.h"

#include "editor/qt/NoticeBar.h"
#include "tests/editor-qt-files/CommandsBench.h"
#include "tests/sequencer/ScriptedSequencer.h"

#include <QAccessible>
#include <QClipboard>
#include <QMenu>
#include <QTest>

#include <cstdint>

namespace scenewright::testing {

namespace {

constexpr PortAddress kKeyboard{20, 0};
constexpr std::int32_t kKnob = 5;

class TryStripTest : public CommandsBench {
protected:
    TryStripTest() {
        open();
        ports->add(kKeyboard, "Keyboard", "MIDI 1", 1);
        input_ = std::make_unique<KeyboardInput>(window());
        input_->use([this] { return std::make_unique<ScriptedSequencer>(ports); },
                    [] {
                        return std::vector<SoundKeyboard>{{"1209:0001#0", 1}};
                    });
        strip_ = std::make_unique<TryStrip>(window(), *input_);
    }

    TryStrip& strip() { return *strip_; }
    void begin() {
        window().commands().read();
        strip().action().trigger();
    }
    void touch(const MidiMessage& message) {
        ports->send(kKeyboard, message);
        input_->take();
    }
    [[nodiscard]] QString told() const { return strip_->findChild<SpokenText*>()->text(); }
    void click(const char* title) {
        for (auto* each : strip_->findChildren<QPushButton*>())
            if (each->text() == title)
                return each->click();
        FAIL() << title;
    }
    [[nodiscard]] QString result(int row) const {
        return strip_->findChild<QTreeWidget*>()->topLevelItem(row)->text(2);
    }

    std::shared_ptr<ScriptedPorts> ports = std::make_shared<ScriptedPorts>();

private:
    std::unique_ptr<KeyboardInput> input_;
    std::unique_ptr<TryStrip> strip_;
};

TEST_F(TryStripTest, NothingIsTriedBeforeItIsKnownWhatTheKeyboardHolds) {
    strip().action().trigger();
    EXPECT_TRUE(notice().startsWith("It is not known yet what the keyboard holds."));
    EXPECT_FALSE(strip().isVisible());
}

TEST_F(TryStripTest, EachControlIsNamedAndShownAndItsResultStandsBesideIt) {
    begin();
    EXPECT_EQ(told(), "Touch Knob 1. Choose scene 1 on the keyboard.");
    EXPECT_EQ(window().view().selectControl(), kKnob);
    touch({0xB0, 74, 5});
    EXPECT_EQ(result(0), "✓ sent CC 74, ch 1, value 5");
    EXPECT_EQ(told(), "Touch Knob 2. Knob 1: ✓ sent CC 74, ch 1, value 5.");
    EXPECT_EQ(window().view().selectControl(), kKnob + 1);
    touch({0xB0, 7, 5});
    EXPECT_TRUE(result(1).startsWith("✗ sent CC 7, expected CC ")) << result(1).toStdString();
    click("Skip");
    EXPECT_EQ(result(2), "skipped");
    click("Back");
    EXPECT_EQ(told(), "Touch Knob 3.");
    EXPECT_EQ(result(2), "");
}

TEST_F(TryStripTest, TheEndTellsWhatWasFoundAndTheReportIsCopied) {
    begin();
    touch({0xB0, 74, 5});
    click("Skip");
    click("End");
    EXPECT_EQ(told(), "Scene 1: 1 right, 1 skipped, 39 not tried");
    click("Copy Report");
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    EXPECT_EQ(lines.size(), 1 + 41);
    EXPECT_EQ(lines[0], told());
    EXPECT_EQ(lines[1], "Knob 1\tCC 74, ch 1\t✓ sent CC 74, ch 1, value 5");
    click("Close");
    EXPECT_FALSE(strip().isVisible());
    touch({0xB0, 74, 5}); // nobody is there to take it
}

TEST_F(TryStripTest, ThePictureStaysWhileAMenuIsOpen) {
    begin();
    QMenu menu(&window());
    menu.addAction("Entry"); // not every version of Qt opens one without
    menu.popup({});
    touch({0xB0, 74, 5});
    EXPECT_EQ(window().view().selectControl(), kKnob);
    EXPECT_TRUE(told().startsWith("Touch Knob 2."));
}

TEST_F(TryStripTest, KeysAloneSkipEndAndCloseIt) {
    begin();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(told().startsWith("Touch Knob 2."));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(told().startsWith("Scene 1:"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(strip().isVisible());
}

TEST_F(TryStripTest, AReadEndsIt) {
    begin();
    window().commands().read();
    EXPECT_FALSE(strip().isVisible());
}

TEST_F(TryStripTest, AScreenReaderIsToldWhatIsNextAsAnAlert) {
    begin();
    QAccessibleInterface* face =
        QAccessible::queryAccessibleInterface(strip().findChild<SpokenText*>());
    EXPECT_EQ(face->role(), QAccessible::AlertMessage);
    touch({0xB0, 74, 5});
    EXPECT_EQ(face->text(QAccessible::Name), told());
    const auto buttons = strip().findChildren<QPushButton*>();
    for (const char* const next : {"End", "Copy Report"}) {
        for (const auto* button : buttons)
            EXPECT_EQ(button->accessibleName(), button->text());
        click(next);
    }
}

} // namespace

} // namespace scenewright::testing
