#include "platform/Arguments.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using Kind = ArgumentRow::Kind;
using Words = std::vector<const char*>;

const Syntax kProgram{
    .name = "program",
    .help = "Does something.",
    .arguments =
        {{.name = "--memory", .help = "In memory", .kind = Kind::OptionalText, .value = "FILE"},
         {.name = "--version", .help = "Print the version", .kind = Kind::Flag},
         {.name = "--address",
          .help = "Where",
          .value = "ADDRESS",
          .byDefault = "here",
          .excludes = {"--port"}},
         {.name = "--port", .help = "Which", .value = "PORT", .excludes = {"--address"}}},
    .footer = "More.",
    .version = "1.2",
    .helpColumn = 20,
    .commands = {
        {.name = "draw",
         .help = "Draw it",
         .arguments =
             {{.name = "OUT", .help = "The picture"},
              {.name = "LINE", .help = "Of it", .isRepeated = true},
              {.name = "--colour",
               .help = "In this colour",
               .kind = Kind::Choice,
               .value = "red|blue",
               .choices = {"red", "blue"}},
              {.name = "--width",
               .help = "Of the pen",
               .kind = Kind::Number,
               .value = "N",
               .least = 1,
               .most = 9},
              {.name = "--thin", .help = "Or thin", .kind = Kind::Flag},
              {.name = "--note", .help = "Beside it", .value = "TEXT", .isRepeated = true}}},
        {.name = "clear", .help = "Clear it"}}};

Result<ParsedArguments> parsed(Words words) {
    words.insert(words.begin(), "program");
    return parseArguments(kProgram, static_cast<int>(words.size()), words.data());
}

TEST(Arguments, AreWhatTheLineGives) {
    const auto line = parsed({"--memory=a", "draw", "o", "1", "--width", "9", "--note", "x", "2",
                              "--note=y", "--colour", "red"})
                          .value();
    EXPECT_EQ(line.command, "draw");
    EXPECT_FALSE(line.answer.has_value());
    EXPECT_EQ(line.arguments.text("--memory"), "a");
    EXPECT_EQ(line.arguments.text("OUT"), "o");
    EXPECT_EQ(line.arguments.texts("LINE"), (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(line.arguments.texts("--note"), (std::vector<std::string>{"x", "y"}));
    EXPECT_EQ(line.arguments.number("--width"), 9);
    EXPECT_EQ(line.arguments.text("--colour"), "red");
}

TEST(Arguments, ThatAreNotGivenAreEmptyOrTheirDefault) {
    const auto line = parsed({"--port", "7", "clear"}).value();
    EXPECT_FALSE(line.arguments.has("--memory"));
    EXPECT_EQ(line.arguments.text("--memory"), "");
    EXPECT_EQ(line.arguments.text("--address"), "here");
    EXPECT_EQ(parsed({"draw", "o", "l"}).value().arguments.number("--width"), std::nullopt);
    EXPECT_TRUE(parsed({"--memory", "clear"}).value().arguments.has("--memory"));
}

TEST(Arguments, AValueThatMayBeLeftOutIsNeverTheWordBehindItsOption) {
    const Syntax syntax{
        .name = "viewer",
        .help = "Shows.",
        .arguments = {
            {.name = "--memory", .help = "In memory", .kind = Kind::OptionalText, .value = "FILE"},
            {.name = "FILE", .help = "This", .isOptional = true}}};
    struct Row {
        Words words;
        std::vector<std::string> memory;
        std::string file;
    };
    const Row rows[] = {
        {{"viewer", "--memory", "a"}, {""}, "a"},
        {{"viewer", "a", "--memory"}, {""}, "a"},
        {{"viewer", "--memory=m", "a"}, {"m"}, "a"},
        {{"viewer", "--memory=true"}, {"true"}, ""},
        {{"viewer", "--memory=false", "a"}, {"false"}, "a"},
        {{"viewer", "--memory="}, {""}, ""},
        {{"viewer", "a"}, {}, "a"},
    };
    for (const auto& [words, memory, file] : rows) {
        const auto line =
            parseArguments(syntax, static_cast<int>(words.size()), words.data()).value();
        EXPECT_EQ(line.arguments.texts("--memory"), memory) << words[1];
        EXPECT_EQ(line.arguments.text("FILE"), file) << words[1];
    }
}

TEST(Arguments, AnOptionalOneMayBeLeftOut) {
    const Syntax syntax{.name = "viewer",
                        .help = "Shows.",
                        .arguments = {{.name = "FILE", .help = "This", .isOptional = true}}};
    const auto parse = [&syntax](std::vector<const char*> words) {
        words.insert(words.begin(), "viewer");
        return parseArguments(syntax, static_cast<int>(words.size()), words.data());
    };
    EXPECT_EQ(parse({}).value().arguments.text("FILE"), "");
    EXPECT_EQ(parse({"a.bank"}).value().arguments.text("FILE"), "a.bank");
    EXPECT_EQ(parse({"a", "b"}).error(),
              "The following argument was not expected: b (--help tells more)");
    EXPECT_EQ(parse({"--help"}).value().answer, R"(Shows.
Usage: viewer [OPTIONS] [FILE]

Positionals:
  FILE TEXT                   This

Options:
  -h,--help                   Print this help message and exit

)");
}

TEST(Arguments, WithoutARowAreAProgrammingFault) {
    const Arguments arguments = parsed({"clear"}).value().arguments;
    EXPECT_THROW(static_cast<void>(arguments.has("--memroy")), std::out_of_range);
    EXPECT_THROW(static_cast<void>(arguments.text("OUT")), std::out_of_range) << "of draw";
}

TEST(Arguments, AfterTheMarkNothingIsAnOption) {
    const auto line = parsed({"draw", "--", "--help", "--note"}).value();
    EXPECT_EQ(line.arguments.text("OUT"), "--help");
    EXPECT_EQ(line.arguments.text("LINE"), "--note");
}

TEST(Arguments, HelpAndVersionAnswerWhateverElseIsGiven) {
    for (const Words& words : {Words{"--version"}, Words{"--help", "--version", "nonsense"}})
        EXPECT_EQ(parsed(words).value().answer, "program 1.2\n");
    for (const Words& words : {Words{"--help"}, Words{"-h", "--port", "1", "--address", "2"}})
        EXPECT_EQ(parsed(words).value().answer, R"(Does something.
Usage: program [OPTIONS] [SUBCOMMAND]

Options:
  -h,--help         Print this help message and exit
  --memory [=FILE]  In memory
  --version         Print the version
  --address ADDRESS=here Excludes: --port
                    Where
  --port PORT Excludes: --address
                    Which

Subcommands:
  draw              Draw it
  clear             Clear it

More.
)");
    for (const Words& words : {Words{"draw", "--help"}, Words{"-h", "draw"}})
        EXPECT_EQ(parsed(words).value().answer, R"(Draw it
Usage: program draw [OPTIONS] OUT LINE...

Positionals:
  OUT TEXT REQUIRED The picture
  LINE TEXT ... REQUIRED
                    Of it

Options:
  -h,--help         Print this help message and exit
  --colour red|blue In this colour
  --width N:INT in [1 - 9]
                    Of the pen
  --thin            Or thin
  --note TEXT ...   Beside it

)");
}

TEST(Arguments, WhatIsRefusedIsToldInOneSentence) {
    const std::vector<std::pair<Words, std::string>> cases{
        {{"dance"}, "The following argument was not expected: dance"},
        {{"clear", "--x", "draw", "y"}, "The following arguments were not expected: --x draw y"},
        {{"draw"}, "OUT is required"},
        {{"draw", "o"}, "LINE is required"},
        {{"--port", "1", "--address", "2", "clear"}, "--address excludes --port"},
        {{"--port", "1", "--port", "2", "clear"}, "--port: At Most 1 required but received 2"},
        {{"clear", "--port"}, "The following argument was not expected: --port"},
        {{"--port"}, "--port: 1 required PORT missing"},
        {{"draw", "o", "l", "--width"}, "--width: 1 required N:INT in [1 - 9] missing"},
        {{"draw", "o", "l", "--width=0"}, "--width: Value 0 not in range 1 to 9"},
        {{"draw", "o", "l", "--width=10"}, "--width: Value 10 not in range 1 to 9"},
        {{"draw", "o", "l", "--width", "1x"}, "--width: Value 1x not in range 1 to 9"},
        {{"draw", "o", "l", "--colour", "green"}, "--colour: green not in {red,blue}"},
        {{"draw", "o", "l", "--thin=x"}, "Could not convert: --thin = x"},
        {{"a\nb\x1B"}, "The following argument was not expected: a\uFFFDb\uFFFD"},
    };
    for (const auto& [words, sentence] : cases) {
        const auto line = parsed(words);
        ASSERT_FALSE(line.has_value()) << sentence;
        EXPECT_EQ(line.error(), sentence + " (--help tells more)");
    }
    EXPECT_EQ(parsed({}).error(), "a command is required (--help lists them)");
}

} // namespace
} // namespace scenewright
