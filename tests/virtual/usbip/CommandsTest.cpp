#include "virtual/usbip/Commands.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <unistd.h>

namespace scenewright::usbip {
namespace {

using Kind = ServerCommand::Kind;
using Lines = std::vector<std::string>;

std::string errorOf(std::string_view line) {
    const auto command = parseCommand(line);
    EXPECT_FALSE(command) << line;
    return command ? std::string() : command.error();
}

TEST(Commands, FaultsAreNamedAsInTheCommandLine) {
    EXPECT_EQ(
        parseCommand("faults stall:9 handshake:3"),
        (ServerCommand{.faults = {{Fault::Kind::Stall, 9}, {Fault::Kind::WrongHandshake, 3}}}));
    EXPECT_EQ(parseCommand("faults"), ServerCommand{});
}

TEST(Commands, PlugAndUnplugAreWordsOfTheirOwn) {
    EXPECT_EQ(parseCommand("unplug"), (ServerCommand{.kind = Kind::Unplug}));
    EXPECT_EQ(parseCommand("  plug "), (ServerCommand{.kind = Kind::Plug}));
}

TEST(Commands, OrdersToPlayAreTaken) {
    EXPECT_EQ(
        parseCommand("press pad3 100"),
        (ServerCommand{.kind = Kind::Play,
                       .play = {.kind = PlayOrder::Kind::Press, .number = 15, .value = 100}}));
    EXPECT_EQ(errorOf("scene 5"),
              "'scene 5' is no order: it must be scene and a number from 1 to 4, as in scene 2");
}

TEST(Commands, ControlCharactersAreNotRepeatedInTheSentence) {
    EXPECT_EQ(errorOf("stop\x1B[31m"), "'stop\uFFFD[31m' is no order: those are faults, unplug, "
                                       "plug, scene, press, release, turn and slide");
}

TEST(Commands, AnythingElseIsNone) {
    for (const char* line : {"unplug 3", "", "Plug", "faultsstall:9"})
        EXPECT_EQ(errorOf(line), "'" + std::string(line) +
                                     "' is no order: those are faults, unplug, plug, scene, press, "
                                     "release, turn and slide");
    EXPECT_NE(errorOf("faults stall:9 stall:x"), "");
}

class CommandReaderTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(::pipe(ends_.data()), 0); }
    void TearDown() override {
        ::close(ends_[0]);
        endWriting();
    }
    void write(const std::string& text) const {
        ASSERT_EQ(::write(ends_[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void endWriting() {
        if (ends_[1] >= 0)
            ::close(ends_[1]);
        ends_[1] = -1;
    }
    [[nodiscard]] int reading() const { return ends_[0]; }

    // One read: each command by its name, and what is wrong with a line that is none.
    static Lines take(CommandReader& reader) {
        Lines lines;
        for (const auto& command : reader.take())
            lines.push_back(command ? std::to_string(static_cast<int>(command->kind))
                                    : command.error());
        return lines;
    }
    static constexpr const char* kFaults = "0";
    static constexpr const char* kUnplug = "1";
    static constexpr const char* kPlug = "2";

private:
    std::array<int, 2> ends_{-1, -1};
};

TEST_F(CommandReaderTest, LineIsGivenOnceItsEndHasCome) {
    CommandReader reader(reading());
    write("unplug\nfau");
    EXPECT_EQ(take(reader), (Lines{kUnplug}));
    write("lts\nplug\n");
    EXPECT_EQ(take(reader), (Lines{kFaults, kPlug}));
}

TEST_F(CommandReaderTest, EndOfTheInputEndsItsLastLine) {
    CommandReader reader(reading());
    EXPECT_EQ(reader.descriptor(), reading());
    write("unplug\nplug");
    EXPECT_EQ(take(reader), (Lines{kUnplug}));
    endWriting();
    EXPECT_EQ(take(reader), (Lines{kPlug}));
    EXPECT_EQ(reader.descriptor(), -1);
}

TEST_F(CommandReaderTest, EndOfTheInputAfterALineIsNoLine) {
    CommandReader reader(reading());
    write("unplug\n");
    EXPECT_EQ(take(reader), (Lines{kUnplug}));
    endWriting();
    EXPECT_EQ(take(reader), Lines{});
    EXPECT_EQ(reader.descriptor(), -1);
}

// The words before the 4096th byte would be a command, and so would those behind it.
TEST_F(CommandReaderTest, LineThatIsTooLongIsRefusedAsAWhole) {
    CommandReader reader(reading());
    write("unplug");
    EXPECT_EQ(take(reader), Lines{});
    for (int piece = 0; piece < 20; ++piece) {
        write(std::string(1000, ' '));
        EXPECT_EQ(take(reader), Lines{});
    }
    write("\nplug\n");
    EXPECT_EQ(take(reader), (Lines{"a line of more than 4096 bytes is no order: those are faults, "
                                   "unplug, plug, scene, press, release, turn and slide",
                                   kPlug}));
}

TEST_F(CommandReaderTest, LongestLineIsTaken) {
    CommandReader reader(reading());
    write("plug" + std::string(4092, ' '));
    EXPECT_EQ(take(reader), Lines{});
    write("\n");
    EXPECT_EQ(take(reader), (Lines{kPlug}));
}

} // namespace
} // namespace scenewright::usbip
