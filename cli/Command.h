// What the arguments of scenewright-cli ask for: one of its commands, or an answer.
//
// Each command is a row of command-line.json, which names the function that says what is to be done
// for the row's arguments. This function touches nothing; the `run` that it chooses returns the
// program's exit code and has told its error, in one sentence on standard error, when that is not
// 0. So bad usage is told before the first file is opened.
#pragma once

#include "app/Launch.h"
#include "platform/Arguments.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/Text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// Exit codes of the command line.
inline constexpr int kExitDone = 0;
inline constexpr int kExitController = 1; // not reached, or its transfers failed
inline constexpr int kExitOutput = 1;     // standard output or a stream's file could not be written
inline constexpr int kExitUsage = 2;      // bad usage or a bad file; nothing was sent or written

struct CommandChoice {
    int (*run)(const Arguments& arguments) = nullptr;
    bool usesController = false;
    std::vector<NamedFile> files{}; // what `run` reads and writes
    int failed = kExitOutput;       // the exit code when a stream fails; lower ones are no failure
};

struct CommandLine {
    LaunchOptions options;
    CommandChoice choice;
    Arguments arguments; // for its `run`
    // For standard output, and the program is done: help or version. Then nothing is chosen.
    std::optional<std::string> answer;
};

// Both are made from command-line.json.
[[nodiscard]] Syntax commandLineSyntax();
[[nodiscard]] CommandChoice chooseCommand(std::string_view name, const Arguments& arguments);

// Touches nothing: no file, no device. `argv[0]` is the program's name, which is not looked at.
[[nodiscard]] inline Result<CommandLine> parseCommandLine(int argc, const char* const* argv) {
    return parseArguments(commandLineSyntax(), argc, argv).map([](const ParsedArguments& line) {
        return CommandLine{.options = launchOptions(line.arguments),
                           .choice = chooseCommand(line.command, line.arguments),
                           .arguments = line.arguments,
                           .answer = line.answer};
    });
}

// One sentence on standard error, after the program's name; returns `exitCode`.
inline int reportError(std::string_view sentence, int exitCode) {
    reportError("scenewright-cli", sentence);
    return exitCode;
}

} // namespace scenewright
