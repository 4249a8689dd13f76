#include "editor/qt/MidiPorts.h"

#include "tests/editor-qt-files/CommandsBench.h"
#include "tests/sequencer/ScriptedSequencer.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace scenewright::testing {

namespace {

using MidiPortsTest = OpenWindow;

TEST_F(MidiPortsTest, TheInterruptionOfAConnectionIsToldOnceWhereThereIsOne) {
    constexpr PortAddress kKeyboard{20, 0};
    constexpr PortAddress kSynth{128, 0};
    const auto ports = std::make_shared<ScriptedPorts>();
    ports->add(kKeyboard, "Keyboard", "MIDI 1", 1);
    ports->add(kSynth, "Synth", "In");
    for (const bool isConnected : {false, true}) {
        if (isConnected)
            ports->link({.from = kKeyboard, .to = kSynth});
        const ConnectionKeeper keeper(window(),
                                      KeyboardConnections(
                                          std::make_unique<ScriptedSequencer>(ports),
                                          [] {
                                              return std::vector<SoundKeyboard>{{"1209:0001#0", 1}};
                                          },
                                          folder.path() / "connections.json"));
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
