// The program in surroundings that fail it: streams that are closed, full or left by their reader,
// small limits, files under several names, other writers, signals.

#include "platform/Process.h"
#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright::testing {
namespace {

namespace fs = std::filesystem;
using Translator = std::vector<std::string>;

const std::string kOutputError = "scenewright-cli: standard output could not be written\n";

struct Pipe {
    FileDescriptor reader;
    FileDescriptor writer;
};

Pipe makePipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

FileDescriptor withoutReader() {
    return makePipe().writer;
}

FileDescriptor opened(const char* path) {
    return FileDescriptor(open(path, O_WRONLY | O_CLOEXEC));
}

// A pipe that is full, and whose reader takes nothing.
Pipe fullPipe() {
    Pipe pipe = makePipe();
    fcntl(pipe.writer.get(), F_SETFL, O_NONBLOCK);
    while (write(pipe.writer.get(), "x", 1) == 1) {
    }
    fcntl(pipe.writer.get(), F_SETFL, 0);
    return pipe;
}

class Surroundings : public BankProgram {
protected:
    Surroundings() {
        writeBytes(file("a.bank"), randomBank(1));
        writeBytes(file("b.bank"), randomBank(2));
        fs::create_symlink("a.bank", file("link.bank"));
    }
    static ProgramRun runWith(Translator arguments, const std::vector<GivenDescriptor>& given) {
        arguments.insert(arguments.begin(), kProgram);
        return runProgram(arguments, {}, given);
    }
    static ProgramRun inShell(const std::string& script) {
        return runProgram({"/bin/sh", "-c", script});
    }
    void expectBanksAsTheyWere() const {
        EXPECT_EQ(readBytes(file("a.bank")), randomBank(1));
        EXPECT_EQ(readBytes(file("b.bank")), randomBank(2));
    }
};

TEST_F(Surroundings, ErrorThatCannotBeToldChangesNoExitCode) {
    const FileDescriptor full = opened("/dev/full");
    const FileDescriptor left = withoutReader();
    const Pipe stuck = fullPipe();
    for (const int source : {full.get(), left.get(), stuck.writer.get(), GivenDescriptor::kClosed})
        for (const Translator& arguments : {Translator{"show", file("none")}, Translator{"dance"},
                                            Translator{"set", file("a.bank"), "x=1"},
                                            Translator{"--virtual", "send", file("none")}})
            EXPECT_EQ(runWith(arguments, {{2, source}}).exitCode, 2) << source << arguments[0];
}

TEST_F(Surroundings, StreamThatCannotBeWrittenToStandardErrorEndsNoTransaction) {
    const FileDescriptor full = opened("/dev/full");
    const FileDescriptor left = withoutReader();
    const Pipe stuck = fullPipe();
    for (const int source :
         {full.get(), left.get(), stuck.writer.get(), GivenDescriptor::kClosed}) {
        const ProgramRun read = runWith(
            {"--virtual=" + file("b.bank"), "--console", "-", "--log", "-", "read", file("out")},
            {{2, source}});
        EXPECT_EQ(read.exitCode, 0);
        EXPECT_EQ(readBytes(file("out")), randomBank(2));
        fs::remove(file("out"));
    }
}

TEST_F(Surroundings, ResultThatCannotBeWrittenIsAnError) {
    const FileDescriptor full = opened("/dev/full");
    const FileDescriptor left = withoutReader();
    const std::string held = "--virtual=" + file("b.bank");
    const std::vector<std::pair<Translator, int>> commands{
        {{"--help"}, 1},
        {{"--version"}, 1},
        {{"show", "--help"}, 1},
        {{"udev-rules"}, 1},
        {{"show", file("a.bank")}, 1},
        {{"get", file("a.bank"), "scene*"}, 1},
        {{"convert", file("a.bank"), "-"}, 1},
        {{"convert", file("a.bank"), "/dev/stdout"}, 1},
        {{"default", "-"}, 1},
        {{held, "read", "-"}, 1},
        {{held, "send", file("a.bank"), "--dry-run"}, 1},
        {{held, "send", file("b.bank"), "--backup", "-"}, 1},
        {{"diff", file("a.bank"), file("b.bank")}, 2},
    };
    for (const auto& [arguments, exitCode] : commands)
        for (const int source : {full.get(), left.get(), GivenDescriptor::kClosed}) {
            const ProgramRun result = runWith(arguments, {{1, source}});
            EXPECT_EQ(result.exitCode, exitCode) << arguments[0] << ' ' << source;
            EXPECT_EQ(result.errors, kOutputError) << arguments[0] << ' ' << source;
        }
    expectBanksAsTheyWere();
}

TEST_F(Surroundings, DevicesToAFullDiskAreNoSuccess) {
    const FileDescriptor full = opened("/dev/full");
    EXPECT_EQ(runWith({"devices"}, {{1, full.get()}}).exitCode, 1);
}

TEST_F(Surroundings, NoFileIsOverwrittenUnderAnotherOptionsName) {
    const std::string a = file("a.bank");
    const std::string b = file("b.bank");
    const std::string link = file("link.bank");
    const std::vector<std::pair<Translator, std::string>> commands{
        {{"--log", a, "show", a},
         "--log " + a + ": it would overwrite the bank that is to be shown"},
        {{"--console", a, "show", link},
         "--console " + a + ": it would overwrite the bank that is to be shown"},
        {{"--log", link, "get", a, "scene1"},
         "--log " + link + ": it would overwrite the bank that is to be read"},
        {{"--log", a, "set", a, "scene1.pad1.CR=1"},
         "--log " + a + ": it would overwrite the bank that is to be changed"},
        {{"--log", a, "copy", b, "scene1", "scene2", "--from", a},
         "--log " + a + ": it would overwrite what is to be copied"},
        {{"--log", a, "convert", b, a},
         "--log " + a + ": it would overwrite the bank that is to be written"},
        {{"--log", b, "diff", a, b},
         "--log " + b + ": it would overwrite a bank that is to be compared"},
        {{"--log", file("new"), "default", file("new")},
         "--log " + file("new") + ": it would overwrite the bank that is to be written"},
        {{"--virtual=" + a, "--log", a, "read", file("out")},
         "--log " + a + ": it would overwrite the virtual controller's memory"},
        {{"--virtual", "--log", a, "send", a},
         "--log " + a + ": it would overwrite the bank that is to be sent"},
        {{"--virtual", "send", a, "--backup", link},
         link + ": the backup would overwrite the bank that is to be sent"},
        {{"--virtual=" + b, "send", a, "--backup", b},
         b + ": a send to it would overwrite the backup"},
    };
    for (const auto& [arguments, sentence] : commands) {
        expectSentence(run(arguments), 2, "scenewright-cli: " + sentence + "\n");
        expectBanksAsTheyWere();
        EXPECT_EQ(names(), (Translator{"a.bank", "b.bank", "link.bank"})) << sentence;
    }
}

TEST_F(Surroundings, NoListThatIsInUseIsOverwritten) {
    fs::create_directories(file("home/scenewright"));
    for (const char* name : {"basic", "default", "project"}) {
        const std::string list = std::string(name) + ".plist";
        for (const std::string& folder : {file("lists"), file("home/scenewright")}) {
            fs::create_directories(folder);
            writeText(folder + "/" + list, "<plist><array/></plist>");
            fs::create_symlink(folder + "/" + list, file("alias"));
            for (const std::string& option :
                 {"--log " + folder + "/" + list, "--console " + file("alias")}) {
                const ProgramRun result =
                    inShell("XDG_CONFIG_HOME=" + file("home") + " " + kProgram + " " +
                            (folder == file("lists") ? "--resources " + folder + " " : "") +
                            option + " show " + file("a.bank"));
                expectSentence(result, 2,
                               option + ": it would overwrite a property list that is in use\n");
                EXPECT_EQ(readText(folder + "/" + list), "<plist><array/></plist>");
            }
            fs::remove(file("alias"));
        }
    }
}

TEST_F(Surroundings, StandardInputCountsAsTheFileThatItComesFrom) {
    expectSentence(shell("--virtual send - --backup " + file("a.bank"), "a.bank"), 2,
                   "the backup would overwrite the bank that is to be sent");
    expectSentence(shell("--log " + file("a.bank") + " show /dev/stdin", "a.bank"), 2,
                   "it would overwrite the bank that is to be shown");
    expectBanksAsTheyWere();
}

TEST_F(Surroundings, FileThatIsReadMayBeTheOneThatIsWritten) {
    expectDone(run({"set", file("link.bank"), "scene1.pad1.CR=1"}));
    expectDone(run({"copy", file("a.bank"), "scene1", "scene2", "--from", file("a.bank")}));
    expectDone(run({"convert", file("a.bank"), file("link.bank"), "--to", "json"}));
    EXPECT_TRUE(readText(file("a.bank")).starts_with("{"));
    EXPECT_TRUE(fs::is_symlink(file("link.bank")));
    expectDone(run({"--virtual=" + file("b.bank"), "read", file("b.bank")}));
    expectDone(run({"--virtual=" + file("b.bank"), "--console", file("s"), "--log", file("s"),
                    "send", file("b.bank")}));
}

TEST_F(Surroundings, StandardStreamsAreTheSameUnderEachOfTheirNames) {
    const std::string bank = readText(file("a.bank"));
    for (const char* name : {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
        writeText(file("out"), "kept");
        expectDone(inShell(kProgram + " convert --to image " + file("a.bank") + " " + name + " >>" +
                           file("out")));
        EXPECT_EQ(readText(file("out")), "kept" + bank) << name;
        const ProgramRun piped =
            inShell(kProgram + " convert --to image " + file("a.bank") + " " + name + " | cat");
        EXPECT_EQ(piped.output, bank) << name;
    }
    for (const char* name : {"-", "/dev/stdin", "/dev/fd/0"})
        expectDone(shell("show " + std::string(name), "a.bank"));
    expectDone(inShell(kProgram + " convert " + file("a.bank") + " /dev/fd/5 5>" + file("five")));
    EXPECT_TRUE(readText(file("five")).starts_with("{"));
}

TEST_F(Surroundings, FileSizeLimitIsAWriteThatFails) {
    const ProgramRun result = inShell("(ulimit -f 0; " + kProgram + " set " + file("a.bank") +
                                      " scene1.pad1.CR=1) 2>&1 | cat");
    EXPECT_EQ(result.output,
              "scenewright-cli: Cannot write " + file("a.bank") + ": File too large.\n");
    EXPECT_EQ(
        inShell("ulimit -f 0; exec " + kProgram + " set " + file("a.bank") + " scene1.pad1.CR=1")
            .exitCode,
        2);
    expectBanksAsTheyWere();
    EXPECT_EQ(names(), (Translator{"a.bank", "b.bank", "link.bank"}));
}

TEST_F(Surroundings, StreamsFileThatIsNotWholeIsToldOnceAtTheEnd) {
    const ProgramRun read = run({"--virtual=" + file("b.bank"), "--log", "/dev/full", "--console",
                                 "/dev/null", "read", file("out")});
    expectSentence(read, 1, "scenewright-cli: /dev/full: not all of it could be written\n");
    EXPECT_EQ(readBytes(file("out")), randomBank(2));
    expectSentence(run({"--log", "/dev/full", "show", file("none")}), 2, file("none"));
}

TEST_F(Surroundings, StreamToAPipeThatNobodyReadsIsRefused) {
    ASSERT_EQ(mkfifo(file("pipe").c_str(), 0600), 0);
    for (const char* option : {"--log", "--console"})
        expectSentence(run({option, file("pipe"), "show", file("a.bank")}), 2,
                       "Cannot write " + file("pipe") + ": nobody reads this pipe.");
}

TEST_F(Surroundings, NoFileTakesThePlaceOfAClosedStream) {
    const std::vector<GivenDescriptor> closed{{0, GivenDescriptor::kClosed},
                                              {1, GivenDescriptor::kClosed},
                                              {2, GivenDescriptor::kClosed}};
    const ProgramRun result = runWith({"--virtual=" + file("b.bank"), "--console", file("console"),
                                       "--log", file("log"), "read", "-"},
                                      closed);
    EXPECT_EQ(result.exitCode, 1);
    for (const char* name : {"console", "log"})
        EXPECT_EQ(readText(file(name)).find("could not be written"), std::string::npos) << name;
    EXPECT_EQ(runWith({"show", "-"}, closed).exitCode, 2);
}

TEST_F(Surroundings, PipeWithoutAWriterIsToldAndWaitedFor) {
    ASSERT_EQ(mkfifo(file("pipe").c_str(), 0600), 0);
    const Pipe errors = makePipe();
    std::string told(200, '\0');
    std::thread writer([&] {
        told.resize(static_cast<std::size_t>(read(errors.reader.get(), told.data(), told.size())));
        writeBytes(file("pipe"), randomBank(1));
    });
    const ProgramRun result = runWith({"convert", file("pipe"), file("out"), "--to", "image"},
                                      {{2, errors.writer.get()}});
    writer.join();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(told, "scenewright-cli: " + file("pipe") +
                        ": waiting for a writer of this pipe (Ctrl+C stops)\n");
    EXPECT_EQ(readBytes(file("out")), randomBank(1));
}

TEST_F(Surroundings, OtherNamesOfAFileAreSpokenOf) {
    fs::create_hard_link(file("a.bank"), file("second"));
    const ProgramRun result = run({"set", file("a.bank"), "scene1.pad1.CR=1"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "scenewright-cli: " + file("a.bank") +
                                 " had 2 names; the other one keeps the former content\n");
    EXPECT_EQ(readBytes(file("second")), randomBank(1));
    EXPECT_NE(readBytes(file("a.bank")), randomBank(1));
}

TEST_F(Surroundings, ChangesThatAreMadeAtOnceAreAllIn) {
    for (int round = 0; round < 4; ++round) {
        const std::string value = std::to_string(round + 1);
        std::vector<std::thread> programs;
        for (int pad = 1; pad <= 8; ++pad)
            programs.emplace_back([&, pad] {
                expectDone(run(
                    {"set", file("a.bank"), "scene1.pad" + std::to_string(pad) + ".CR=" + value}));
            });
        for (std::thread& program : programs)
            program.join();
        const ProgramRun got = run({"get", file("a.bank"), "scene1.pad*.CR"});
        for (int pad = 1; pad <= 8; ++pad)
            EXPECT_NE(got.output.find("scene1.pad" + std::to_string(pad) + ".CR=" + value + "\t"),
                      std::string::npos)
                << got.output;
    }
}

// Commands that write files; each run is met by the signal after a longer time.
const std::vector<std::vector<std::string>> kWriters{
    {"set", "a.bank", "scene1.pad1.CR=1"},
    {"--virtual=b.bank", "read", "out.bank"},
    {"--virtual=b.bank", "send", "a.bank"},
    {"--virtual", "send", "a.bank", "--backup", "out.bank"},
};

TEST_F(Surroundings, SignalLeavesNoFileBehind) {
    constexpr int kRuns = 40;
    constexpr useconds_t kLonger = 400; // microseconds: past the end of a run
    for (const Translator& words : kWriters)
        for (int run = 0; run < kRuns; ++run) {
            const pid_t child = fork();
            if (child == 0) {
                signal(SIGTERM, SIG_DFL);
                std::vector<char*> arguments{const_cast<char*>(kProgram.c_str())};
                for (const std::string& word : words)
                    arguments.push_back(const_cast<char*>(word.c_str()));
                arguments.push_back(nullptr);
                if (chdir(fs::path(file("a.bank")).parent_path().c_str()) == 0)
                    execv(kProgram.c_str(), arguments.data());
                _exit(127);
            }
            usleep(static_cast<useconds_t>(run) * kLonger);
            kill(child, SIGTERM);
            int status = 0;
            ASSERT_EQ(waitpid(child, &status, 0), child);
            fs::remove(file("out.bank"));
            ASSERT_EQ(names(), (Translator{"a.bank", "b.bank", "link.bank"})) << words[0] << run;
        }
    for (const char* name : {"a.bank", "b.bank"})
        EXPECT_EQ(readBytes(file(name)).size(), 1012U);
}

} // namespace
} // namespace scenewright::testing
