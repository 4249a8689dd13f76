#include "virtual/usbip/Server.h"

#include <gtest/gtest.h>

#include <string>

namespace scenewright::usbip {
namespace {

using Kind = ServerCommand::Kind;

std::string errorOf(std::string_view line) {
    const auto command = parseCommand(line);
    EXPECT_FALSE(command) << line;
    return command ? std::string() : command.error();
}

TEST(Commands, FaultsAreNamedAsInTheCommandLineTheRestAreWords) {
    EXPECT_EQ(
        parseCommand("faults stall:9 handshake:3"),
        (ServerCommand{.faults = {{Fault::Kind::Stall, 9}, {Fault::Kind::WrongHandshake, 3}}}));
    EXPECT_EQ(parseCommand("faults"), ServerCommand{});
    EXPECT_EQ(parseCommand("unplug"), (ServerCommand{.kind = Kind::Unplug}));
    EXPECT_EQ(parseCommand("  plug "), (ServerCommand{.kind = Kind::Plug}));
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

} // namespace
} // namespace scenewright::usbip
