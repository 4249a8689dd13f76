#include "cli/Command.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using Words = std::vector<const char*>;

Result<CommandLine> parsed(Words arguments) {
    arguments.insert(arguments.begin(), "scenewright-cli");
    return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLine, ACommandIsChosenAndNotCarriedOut) {
    const auto line = parsed({"--virtual=pretend.bank", "send", "no-such-folder/a.bank"});
    ASSERT_TRUE(line.has_value());
    EXPECT_TRUE(line->choice.run);
    EXPECT_TRUE(line->choice.usesController);
    EXPECT_TRUE(line->options.isVirtual);
    EXPECT_EQ(line->options.virtualBank, "pretend.bank");
    EXPECT_FALSE(line->answer.has_value());
    EXPECT_FALSE(std::filesystem::exists("pretend.bank"));
}

TEST(CommandLine, VersionAndHelpAreAnswers) {
    EXPECT_EQ(parsed({"--version"}).value().answer, "scenewright-cli " SCENEWRIGHT_VERSION "\n");
    const CommandLine help = parsed({"convert", "--help"}).value();
    EXPECT_TRUE(help.answer.value_or("").starts_with("Write a bank in the other form"));
    EXPECT_FALSE(help.choice.run);
}

TEST(CommandLine, WhatIsRefusedIsToldInOneSentence) {
    const std::vector<std::pair<Words, std::string>> cases{
        {{}, "a command is required (--help lists them)"},
        {{"--virtual"}, "a command is required (--help lists them)"},
        {{"nonsense"}, "The following argument was not expected: nonsense (--help tells more)"},
        {{"read", "a", "b", "c"},
         "The following arguments were not expected: b c (--help tells more)"},
        {{"two\nlines\x1B[31m\xFF"},
         "The following argument was not expected: two\uFFFDlines\uFFFD[31m\uFFFD "
         "(--help tells more)"},
        {{"copy", "a", "b"}, "TO is required (--help tells more)"},
        {{"convert", "a", "b", "--to", "xml"}, "--to: xml not in {json,image} (--help tells more)"},
        {{"show", "a", "--scene", "5"}, "--scene: Value 5 not in range 1 to 4 (--help tells more)"},
        {{"send", "a", "--no-backup", "--backup", "b"},
         "--backup excludes --no-backup (--help tells more)"},
        {{"send", "a", "--dry-run", "--backup", "b"},
         "--backup excludes --dry-run (--help tells more)"},
        {{"send", "a", "--backup"}, "--backup: 1 required FILE missing (--help tells more)"},
        {{"--log", "a", "--log", "b", "devices"},
         "--log: At Most 1 required but received 2 (--help tells more)"},
        {{"devices", "--json=x"}, "Could not convert: --json = x (--help tells more)"},
    };
    for (const auto& [arguments, sentence] : cases) {
        const auto line = parsed(arguments);
        ASSERT_FALSE(line.has_value()) << sentence;
        EXPECT_EQ(line.error(), sentence);
    }
}

} // namespace
} // namespace scenewright
