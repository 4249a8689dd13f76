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

class MidiPortsTest : public OpenWindow {
protected:
    MidiPortsTest() {
        plug();
        ports->add(kSynth, "Synth", "In");
    }
    void plug() { ports->add(kKeyboard, "Keyboard", "MIDI 1", 1); }
    KeyboardConnections connections() {
        return KeyboardConnections(
            std::make_unique<ScriptedSequencer>(ports),
            [] {
                return std::vector<SoundKeyboard>{{"1209:0001#0", 1}};
            },
            folder.path() / "connections.json");
    }

    std::shared_ptr<ScriptedPorts> ports = std::make_shared<ScriptedPorts>();
};

TEST_F(MidiPortsTest, AConnectionIsMadeAgainOnceTheSequencerTellsOfItsPort) {
    ports->makeBell();
    ports->link({.from = kKeyboard, .to = kSynth});
    const ConnectionKeeper keeper(window(), connections());
    ports->remove(kKeyboard);
    plug();
    ASSERT_TRUE(ports->connections.empty());
    ports->ring();
    EXPECT_TRUE(waitUntil([this] { return ports->connections.size() == 1; }));
}

TEST_F(MidiPortsTest, TheInterruptionOfAConnectionIsToldOnceWhereThereIsOne) {
    for (const bool isConnected : {false, true}) {
        if (isConnected)
            ports->link({.from = kKeyboard, .to = kSynth});
        const ConnectionKeeper keeper(window(), connections());
        for (const bool isFirst : {true, false}) {
            window().commands().read();
            waitForSend();
            EXPECT_EQ(notice().contains("MIDI port"), isConnected && isFirst);
            notices().dismiss();
        }
    }
}

} // namespace

} // namespace scenewright::testing
