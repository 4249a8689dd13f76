#include "app/KeyboardPorts.h"

#include "tests/sequencer/ScriptedSequencer.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace scenewright {

namespace {

using testing::ScriptedPorts;
using testing::ScriptedSequencer;
using testing::TempFolder;
using Asked = std::vector<std::string>;
using std::chrono::milliseconds;

constexpr PortAddress kKeyboard{20, 0};
constexpr PortAddress kSynth{128, 0};
constexpr PortAddress kMixer{129, 1};
constexpr int kCard = 1;

class KeyboardConnectionsTest : public ::testing::Test {
protected:
    void SetUp() override {
        plug();
        ports->add(kSynth, "Synth", "In");
        ports->add(kMixer, "Mixer", "Out");
    }
    void plug(PortAddress address = kKeyboard) {
        keyboards = {{.identity = "1209:0001#0", .card = kCard}};
        ports->add(address, "Keyboard", "MIDI 1", kCard);
    }
    // The kernel's driver leaves: the port goes, the device stays.
    void takePort() {
        ports->remove(kKeyboard);
        keyboards = {{.identity = "1209:0001#0"}};
    }
    void unplug() {
        ports->remove(kKeyboard);
        keyboards.clear();
    }
    void start() {
        connections.emplace(
            std::make_unique<ScriptedSequencer>(ports), [this] { return keyboards; }, file);
    }
    void startWithBoth() {
        ports->link({.from = kKeyboard, .to = kSynth});
        ports->link({.from = kMixer, .to = kKeyboard, .isExclusive = true});
        start();
    }
    Asked asked() { return std::exchange(ports->asked, {}); }

    const TempFolder folder;
    const std::filesystem::path file = folder.file("state/connections.json");
    std::shared_ptr<ScriptedPorts> ports = std::make_shared<ScriptedPorts>();
    std::vector<SoundKeyboard> keyboards;
    std::optional<KeyboardConnections> connections;
};

const Asked kBoth{"20:0 -> 128:0", "129:1 -> 20:0"};

TEST_F(KeyboardConnectionsTest, BothDirectionsComeBackAfterATransaction) {
    startWithBoth();
    const auto before = ports->connections;
    connections->beforeTransaction();
    EXPECT_TRUE(std::filesystem::exists(file));
    takePort();
    plug();
    connections->afterTransaction(); // both in one go
    EXPECT_EQ(asked(), kBoth);
    EXPECT_EQ(ports->connections, before) << "exclusive ones too";
    EXPECT_FALSE(connections->isPending());
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(KeyboardConnectionsTest, TheyComeBackAtAnotherAddressOfTheKeyboard) {
    startWithBoth();
    unplug();
    connections->process();
    EXPECT_TRUE(connections->isPending());
    EXPECT_EQ(asked(), Asked{});
    plug({24, 0});
    connections->process();
    EXPECT_EQ(asked(), (Asked{"24:0 -> 128:0", "129:1 -> 24:0"}));
}

TEST_F(KeyboardConnectionsTest, OnlyWhatWasThereBeforeItWentComesBack) {
    startWithBoth();
    std::erase_if(ports->connections, [](const auto& each) { return each.to == kSynth; });
    ports->input.hasChanged = true;
    connections->process(); // a person has disconnected it
    takePort();
    plug();
    connections->process();
    EXPECT_EQ(asked(), Asked{"129:1 -> 20:0"});
}

TEST_F(KeyboardConnectionsTest, RestoreWaitsForThePortWhileTheKeyboardIsPluggedIn) {
    startWithBoth();
    connections->beforeTransaction();
    takePort();
    ports->duringWait = [this] { plug(); };
    connections->restore(milliseconds(60'000));
    EXPECT_EQ(asked(), kBoth);
    EXPECT_EQ(ports->waits, 1);
    unplug();
    connections->restore(milliseconds(60'000));
    EXPECT_EQ(ports->waits, 1) << "nothing is coming";
    EXPECT_TRUE(connections->isPending());
    keyboards = {{.identity = "1209:0001#0"}};
    connections->restore(milliseconds(0));
    EXPECT_TRUE(connections->isPending()) << "the time is over";
}

TEST_F(KeyboardConnectionsTest, NextRunMakesAgainWhatAKilledOneHasLeft) {
    startWithBoth();
    connections->beforeTransaction();
    takePort();
    connections.reset(); // as if killed
    ASSERT_TRUE(std::filesystem::exists(file));
    start();
    EXPECT_EQ(asked(), Asked{});
    EXPECT_TRUE(std::filesystem::exists(file)) << "they are not made yet";
    connections->beforeTransaction();
    plug();
    connections->restore(milliseconds(0));
    EXPECT_EQ(asked(), kBoth);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(KeyboardConnectionsTest, NextRunFindsThePortBackAlready) {
    startWithBoth();
    connections->beforeTransaction();
    connections.reset();
    takePort();
    plug();
    start();
    EXPECT_EQ(asked(), kBoth);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(KeyboardConnectionsTest, NoteOfAnEarlierStartOfTheSystemIsNone) {
    startWithBoth();
    connections->beforeTransaction();
    connections.reset();
    std::string text;
    std::getline(std::ifstream(file), text, '\0');
    text.replace(text.find("\"systemStart\": \"") + 16, 1, "#");
    std::ofstream(file) << text;
    takePort();
    plug();
    start();
    EXPECT_EQ(asked(), Asked{});
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(KeyboardConnectionsTest, NoteThatIsNoneIsPassedOverAndGoes) {
    for (const char* text : {"", "[]", "{", "{\"connections\": 3}", "\xFF",
                             R"({"systemStart": 1, "connections": [{"client": "x"}]})"}) {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << text;
        start();
        EXPECT_FALSE(connections->isPending()) << text;
        EXPECT_FALSE(std::filesystem::exists(file)) << text;
    }
}

TEST_F(KeyboardConnectionsTest, OtherProgramIsFoundByItsNamesWhenItsAddressIsAnothers) {
    startWithBoth();
    takePort();
    ports->remove(kSynth);
    ports->add(kSynth, "Stranger", "In");
    ports->add({130, 2}, "Synth", "In");
    plug();
    connections->process();
    EXPECT_EQ(asked(), (Asked{"20:0 -> 130:2", "129:1 -> 20:0"}));
}

TEST_F(KeyboardConnectionsTest, ProgramThatHasGoneIsForgotten) {
    ports->remove(kSynth);
    ports->add(kSynth, "own", "own"); // as the port that makes the connections is called
    startWithBoth();
    takePort();
    ports->remove(kSynth);
    plug();
    connections->process();
    EXPECT_EQ(asked(), Asked{"129:1 -> 20:0"});
    EXPECT_FALSE(connections->isPending());
    EXPECT_EQ(connections->count(), 1U);
}

TEST_F(KeyboardConnectionsTest, OwnConnectionsAndTheSystemsAreNotNoted) {
    ports->add({0, 1}, "System", "Announce");
    ports->link({.from = kKeyboard, .to = ScriptedSequencer::kOwnPort});
    ports->link({.from = {0, 1}, .to = kKeyboard});
    start();
    connections->beforeTransaction();
    EXPECT_EQ(connections->count(), 0U);
    EXPECT_FALSE(std::filesystem::exists(file)) << "there is nothing to note";
}

TEST_F(KeyboardConnectionsTest, LostAnnouncementsCostNothing) {
    startWithBoth();
    takePort();
    plug();
    ports->input = {.isIncomplete = true};
    connections->process();
    EXPECT_EQ(asked(), kBoth);
}

TEST(NoSequencer, NothingHappens) {
    KeyboardConnections connections(
        nullptr, [] { return std::vector<SoundKeyboard>(); }, std::nullopt);
    EXPECT_EQ(connections.descriptor(), -1);
    connections.beforeTransaction();
    connections.restore(milliseconds(60'000));
    EXPECT_FALSE(connections.isPending());
}

} // namespace

} // namespace scenewright
