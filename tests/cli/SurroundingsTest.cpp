// The program in surroundings that fail it: streams that are full or left by their reader, files
// under several names, other writers. tests/system/surroundings has each command's results, and the
// limits.

#include "platform/Process.h"
#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright::testing {
namespace {

namespace fs = std::filesystem;

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
        put("a.bank", randomBank(1));
        put("b.bank", randomBank(2));
        fs::create_symlink("a.bank", file("link.bank"));
    }
    // With descriptors of the caller's in place of standard streams.
    [[nodiscard]] ProgramRun runWith(const std::string& words,
                                     const std::vector<GivenDescriptor>& given) const {
        return runProgram({"/bin/sh", "-c", "cd \"$0\" && exec " + kProgramInShell + " " + words,
                           std::filesystem::path(file("a.bank")).parent_path()},
                          {}, given);
    }
    void expectBanksAsTheyWere() const {
        EXPECT_EQ(bytes("a.bank"), randomBank(1));
        EXPECT_EQ(bytes("b.bank"), randomBank(2));
        EXPECT_EQ(names(), (std::vector<std::string>{"a.bank", "b.bank", "link.bank"}));
    }

    // A list that is found with these options, under its own name and another one.
    void expectListKept(const std::string& list, const std::string& options) const {
        fs::create_directories(fs::path(file(list)).parent_path());
        put(list, std::string("<plist><array/></plist>"));
        fs::create_symlink(file(list), file("alias"));
        const std::string start =
            "XDG_CONFIG_HOME=\"$0\"/home exec " + kProgramInShell + " " + options;
        expectInUse(start, "--log " + list);
        expectInUse(start, "--console alias");
        EXPECT_EQ(text(list), "<plist><array/></plist>");
        fs::remove(file("alias"));
    }
    void expectInUse(const std::string& start, const std::string& option) const {
        expectSentence(shell(start + option + " show a.bank"), 2,
                       option + ": it would overwrite a property list that is in use\n");
    }

    const FileDescriptor full_ = opened("/dev/full");
    const FileDescriptor left_ = withoutReader();
    const Pipe stuck_ = fullPipe();
    const std::vector<int> badErrors_{full_.get(), left_.get(), stuck_.writer.get(),
                                      GivenDescriptor::kClosed};
};

TEST_F(Surroundings, ErrorThatCannotBeToldChangesNoExitCode) {
    for (const int source : badErrors_)
        for (const char* words : {"show none", "dance", "set a.bank x=1", "--virtual send none"})
            EXPECT_EQ(runWith(words, {{2, source}}).exitCode, 2) << source << words;
}

TEST_F(Surroundings, StreamThatCannotBeWrittenToStandardErrorEndsNoTransaction) {
    for (const int source : badErrors_) {
        EXPECT_EQ(runWith("--virtual=b.bank --console - --log - read out", {{2, source}}).exitCode,
                  0);
        EXPECT_EQ(bytes("out"), randomBank(2));
        fs::remove(file("out"));
    }
}

TEST_F(Surroundings, NoFileIsOverwrittenUnderAnotherOptionsName) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"--log a.bank show a.bank",
         "--log a.bank: it would overwrite the bank that is to be shown"},
        {"--console a.bank show link.bank",
         "--console a.bank: it would overwrite the bank that is to be shown"},
        {"--log link.bank get a.bank scene1",
         "--log link.bank: it would overwrite the bank that is to be read"},
        {"--log a.bank set a.bank scene1.pad1.CR=1",
         "--log a.bank: it would overwrite the bank that is to be changed"},
        {"--log a.bank copy b.bank scene1 scene2 --from a.bank",
         "--log a.bank: it would overwrite what is to be copied"},
        {"--log a.bank convert b.bank a.bank",
         "--log a.bank: it would overwrite the bank that is to be written"},
        {"--log b.bank diff a.bank b.bank",
         "--log b.bank: it would overwrite a bank that is to be compared"},
        {"--log new default new", "--log new: it would overwrite the bank that is to be written"},
        {"--virtual=a.bank --log a.bank read out",
         "--log a.bank: it would overwrite the virtual controller's memory"},
        {"--virtual --log a.bank send a.bank",
         "--log a.bank: it would overwrite the bank that is to be sent"},
        {"--virtual send a.bank --backup link.bank",
         "link.bank: the backup would overwrite the bank that is to be sent"},
        {"--virtual=b.bank send a.bank --backup b.bank",
         "b.bank: a send to it would overwrite the backup"},
        {"--virtual send - --backup a.bank <a.bank",
         "a.bank: the backup would overwrite the bank that is to be sent"},
        {"--log a.bank show /dev/stdin <a.bank",
         "--log a.bank: it would overwrite the bank that is to be shown"},
    };
    for (const auto& [words, sentence] : rows)
        refused(words, "scenewright-cli: " + sentence + "\n");
    expectBanksAsTheyWere();
}

TEST_F(Surroundings, NoListThatIsInUseIsOverwritten) {
    for (const std::string name : {"basic.plist", "default.plist", "project.plist"}) {
        expectListKept("lists/" + name, "--resources lists ");
        expectListKept("home/scenewright/" + name, "");
    }
}

TEST_F(Surroundings, ProgramAwayFromItsListsSaysWhichIsMissing) {
    fs::create_directory(file("bin"));
    fs::copy_file(kProgram, file("bin/alone"));
    expectSentence(shell("XDG_CONFIG_HOME=/nonexistent exec bin/alone devices"), 2,
                   "project.plist: not found among the program's resources");
}

TEST_F(Surroundings, FileThatIsReadMayBeTheOneThatIsWritten) {
    changed("set link.bank scene1.pad1.CR=1");
    done("copy a.bank raw:scene1 scene2 --from a.bank");
    done("convert a.bank link.bank --to json");
    EXPECT_TRUE(text("a.bank").starts_with("{"));
    EXPECT_TRUE(fs::is_symlink(file("link.bank")));
    done("--virtual=b.bank read b.bank");
    done("--virtual=b.bank --console s --log s send b.bank");
}

TEST_F(Surroundings, StandardStreamsAreTheSameUnderEachOfTheirNames) {
    const std::string convert = "convert --to image a.bank ";
    for (const std::string name : {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
        put("out", std::string("kept"));
        done(convert + name + " >>out");
        EXPECT_EQ(text("out"), "kept" + text("a.bank")) << name;
        EXPECT_EQ(cli(convert + name + " | cat").output, text("a.bank")) << name;
    }
    for (const std::string name : {"-", "/dev/stdin", "/dev/fd/0"})
        done("show " + name + " <a.bank");
    done("convert a.bank /dev/fd/5 5>five");
    EXPECT_TRUE(text("five").starts_with("{"));
}

TEST_F(Surroundings, StreamsFileThatIsNotWholeIsToldOnceAtTheEnd) {
    expectSentence(cli("--virtual=b.bank --log /dev/full --console /dev/null read out"), 1,
                   "scenewright-cli: /dev/full: not all of it could be written\n");
    EXPECT_EQ(bytes("out"), randomBank(2));
    refused("--log /dev/full show none", "none");
}

TEST_F(Surroundings, StreamToAPipeThatNobodyReadsIsRefused) {
    ASSERT_EQ(mkfifo(file("pipe").c_str(), 0600), 0);
    for (const std::string option : {"--log", "--console"})
        refused(option + " pipe show a.bank", "Cannot write pipe: nobody reads this pipe.");
}

TEST_F(Surroundings, PipeWithoutAWriterIsToldAndWaitedFor) {
    ASSERT_EQ(mkfifo(file("pipe").c_str(), 0600), 0);
    const Pipe errors = makePipe();
    std::string told(200, '\0');
    std::thread writer([&] {
        told.resize(static_cast<std::size_t>(read(errors.reader.get(), told.data(), told.size())));
        put("pipe", randomBank(1));
    });
    const ProgramRun result = runWith("convert pipe out --to image", {{2, errors.writer.get()}});
    writer.join();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(told, "scenewright-cli: pipe: waiting for a writer of this pipe (Ctrl+C stops)\n");
    EXPECT_EQ(bytes("out"), randomBank(1));
}

TEST_F(Surroundings, OtherNamesOfAFileAreSpokenOf) {
    fs::create_hard_link(file("a.bank"), file("second"));
    EXPECT_EQ(cli("set a.bank scene1.pad1.CR=1 scene1.pad1.CG=raw:1").errors,
              "scenewright-cli: a.bank had 2 names; the other one keeps the former content\n"
              "scene1.pad1.CR: 6 -> 1\nscene1.pad1.CG: 66 -> 1\n");
    EXPECT_EQ(bytes("second"), randomBank(1));
    EXPECT_NE(bytes("a.bank"), randomBank(1));
}

TEST_F(Surroundings, ChangesThatAreMadeAtOnceAreAllIn) {
    for (int round = 0; round < 4; ++round) {
        const std::string value = std::to_string(round + 1);
        std::vector<std::thread> programs;
        for (int pad = 1; pad <= 8; ++pad)
            programs.emplace_back([&, pad] {
                changed("set a.bank scene1.pad" + std::to_string(pad) + ".CR=" + value);
            });
        for (std::thread& program : programs)
            program.join();
        const ProgramRun got = cli("get a.bank 'scene1.pad*.CR'");
        for (int pad = 1; pad <= 8; ++pad)
            EXPECT_NE(got.output.find("scene1.pad" + std::to_string(pad) + ".CR=" + value + "\t"),
                      std::string::npos)
                << got.output;
    }
}

} // namespace
} // namespace scenewright::testing
