#include "editor/qt/MidiPorts.h"

#include "tests/editor-qt-files/CommandsBench.h"
#include "tests/sequencer/ScriptedSequencer.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace scenewright::testing {

namespace {

constexpr PortAddress kKeyboard{20, 0};
constexpr PortAddress kSynth{128, 0};

class ConnectionKeeperTest : public CommandsBench {
protected:
    ConnectionKeeperTest() {
        open();
        ports->add(kKeyboard, "Keyboard", "MIDI 1", 1);
        ports->add(kSynth, "Synth", "In");
    }

    KeyboardConnections connections() {
        return KeyboardConnections(
            std::make_unique<ScriptedSequencer>(ports),
            [] {
                return std::vector<SoundKeyboard>{{"1209:0001#0", 1}};
            },
            folder.path() / "connections.json");
    }
    void read() {
        window().commands().read();
        ASSERT_TRUE(waitUntil([this] { return !window().commands().isBusy(); }));
    }
    static bool isOfThePort(const QString& text) { return text.contains("MIDI port"); }

    std::shared_ptr<ScriptedPorts> ports = std::make_shared<ScriptedPorts>();
};

TEST_F(ConnectionKeeperTest, TheInterruptionOfAConnectionIsToldOnce) {
    ports->link({.from = kKeyboard, .to = kSynth});
    const ConnectionKeeper keeper(window(), connections());
    read();
    EXPECT_TRUE(isOfThePort(notice()));
    notices().dismiss();
    read();
    EXPECT_FALSE(isOfThePort(notice()));
}

TEST_F(ConnectionKeeperTest, NothingIsToldWhereNothingIsConnected) {
    const ConnectionKeeper keeper(window(), connections());
    read();
    EXPECT_FALSE(isOfThePort(notice()));
}

} // namespace

} // namespace scenewright::testing
