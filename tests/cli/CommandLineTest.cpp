#include "cli/CommandLine.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

namespace scenewright {
namespace {

CommandLine parsed(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "scenewright-cli");
    return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

std::string troubleOf(std::vector<const char*> arguments) {
    const CommandLine line = parsed(std::move(arguments));
    EXPECT_FALSE(line.answer.has_value());
    EXPECT_FALSE(line.choice.run);
    return line.trouble.value_or("none");
}

TEST(CommandLine, ACommandIsChosenAndNotCarriedOut) {
    const CommandLine line = parsed({"--virtual=pretend.bank", "send", "no-such-folder/a.bank"});
    EXPECT_TRUE(line.choice.run);
    EXPECT_TRUE(line.choice.usesController);
    EXPECT_TRUE(line.options.isVirtual);
    EXPECT_EQ(line.options.virtualBank, "pretend.bank");
    EXPECT_FALSE(line.answer.has_value());
    EXPECT_FALSE(line.trouble.has_value());
    EXPECT_FALSE(std::filesystem::exists("pretend.bank"));
}

TEST(CommandLine, VersionAndHelpAreAnswers) {
    EXPECT_EQ(parsed({"--version"}).answer, "scenewright-cli " SCENEWRIGHT_VERSION "\n");
    const CommandLine help = parsed({"convert", "--help"});
    EXPECT_TRUE(help.answer.value_or("").starts_with("Write a bank in the other form"));
    EXPECT_FALSE(help.choice.run);
    EXPECT_FALSE(help.trouble.has_value());
}

TEST(CommandLine, NoCommandIsTrouble) {
    EXPECT_EQ(troubleOf({}), "a command is required (--help lists them)");
    EXPECT_EQ(troubleOf({"--virtual"}), "a command is required (--help lists them)");
}

TEST(CommandLine, AnUnknownArgumentIsNamed) {
    EXPECT_EQ(troubleOf({"nonsense"}),
              "The following argument was not expected: nonsense (--help tells more)");
}

TEST(CommandLine, AnArgumentsControlCharactersDoNotReachTheTerminal) {
    EXPECT_EQ(troubleOf({"two\nlines\x1B[31m\xFF"}),
              "The following argument was not expected: "
              "two\uFFFDlines\uFFFD[31m\uFFFD (--help tells more)");
}

TEST(CommandLine, AnUnknownFormIsToldWithTheFormsThatAre) {
    EXPECT_EQ(troubleOf({"convert", "a", "b", "--to", "xml"}),
              "--to: xml not in {json,image} (--help tells more)");
}

} // namespace
} // namespace scenewright
