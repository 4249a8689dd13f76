// What a command of the command line is: words for the parser, and work for afterwards.
//
// Parsing touches nothing; it only notes which command runs, so that bad usage is told before the
// first file is opened. A command returns the program's exit code and has told its trouble, in one
// sentence on standard error, when that is not 0.
#pragma once

#include "platform/NamedFiles.h"

#include <functional>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace scenewright {

// Exit codes of the command line.
inline constexpr int kExitDone = 0;
inline constexpr int kExitController = 1; // not reached, or its transfers failed
inline constexpr int kExitOutput = 1;     // standard output or a stream's file could not be written
inline constexpr int kExitUsage = 2;      // bad usage or a bad file; nothing was sent or written

struct CommandChoice {
    std::function<int()> run;
    bool usesController = false;
    std::vector<NamedFile> files{}; // what `run` reads and writes
    int failed = kExitOutput;       // the exit code when a stream fails; lower ones are no failure
};

// What the help says of arguments that several commands take.
inline constexpr const char* kBankHelp = "The bank, an image or JSON; - is standard input";
inline constexpr const char* kBankOrSceneHelp =
    "The bank, an image or JSON, or a file of one scene; - is standard input";
inline constexpr const char* kNewBankHelp =
    "The bank to write, as JSON if it ends in .json; - is standard output";
inline constexpr const char* kChangedBankHelp =
    "The bank to change; - is standard input and then standard output";
inline constexpr const char* kPathHelp =
    "Such as scene1.pad3.CR, scene2.common.KeyTranspose, scene*.knob*.Enable";

inline constexpr const char* kAssignmentHelp =
    "PATH=VALUE, such as scene1.pad3.CR=127, scene*.knob*.Enable=On";

// Each adds its subcommand to `app`; parsing it fills in `choice`, which must outlive `app`.
void addConvertCommand(CLI::App& app, CommandChoice& choice);
void addCopyCommand(CLI::App& app, CommandChoice& choice);
void addDefaultCommand(CLI::App& app, CommandChoice& choice);
void addDevicesCommand(CLI::App& app, CommandChoice& choice);
void addDiffCommand(CLI::App& app, CommandChoice& choice);
void addGetCommand(CLI::App& app, CommandChoice& choice);
void addReadCommand(CLI::App& app, CommandChoice& choice);
void addSendCommand(CLI::App& app, CommandChoice& choice);
void addSetCommand(CLI::App& app, CommandChoice& choice);
void addShowCommand(CLI::App& app, CommandChoice& choice);
void addUdevRulesCommand(CLI::App& app, CommandChoice& choice);

// One sentence on standard error, after the program's name; returns `exitCode`.
int reportError(std::string_view sentence, int exitCode);

} // namespace scenewright
