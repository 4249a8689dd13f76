// The command line when the power goes, or a system call fails, while it writes a file.
#include "tests/support/PowerCut.h"

#include "tests/cli/BankProgram.h"

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

namespace scenewright::testing {
namespace {

namespace fs = std::filesystem;
using Calls = std::vector<FileCall>;

class ProgramPowerCut : public ::testing::Test {
protected:
    // The folder `files` holds what is written and nothing else.
    void prepare() const {
        fs::remove_all(files_);
        fs::create_directory(files_);
        writeText(target_, old_);
    }
    [[nodiscard]] Writing writingBy(const std::vector<std::string>& arguments) const {
        std::vector<std::string> command{kProgram};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return {[this] { prepare(); },
                [this, command](const Blow& blow) { return runTraced(files_, command, blow); }};
    }
    // What the target holds when nothing goes wrong.
    [[nodiscard]] std::string writtenBy(const Writing& writing) const {
        writing.prepare();
        const TracedRun run = writing.run({});
        EXPECT_EQ(run.exitCode, 0) << run.errors;
        EXPECT_NE(readText(target_), old_);
        return readText(target_);
    }
    void expectOldOrNewAfterPowerCuts(const Writing& writing) const {
        const std::string written = writtenBy(writing);
        strikeEachCall(
            writing, kPowerCuts, [&](const TracedRun& run, const Blow& blow, const Calls& whole) {
                EXPECT_TRUE(run.isKilled);
                EXPECT_EQ(readText(target_), isBeforeRename(whole, "a", blow) ? old_ : written);
            });
    }
    void expectOldWhenToldElseNew(const Writing& writing) const {
        const std::string written = writtenBy(writing);
        strikeEachCall(writing, kFailures, [&](const TracedRun& run, const Blow&, const Calls&) {
            expectOneSentenceOrNone(run);
            EXPECT_EQ(run.exitCode, run.errors.empty() ? 0 : 2) << run.errors;
            EXPECT_EQ(readText(target_), run.errors.empty() ? written : old_) << run.errors;
            for (const auto& entry : fs::directory_iterator(files_))
                EXPECT_EQ(entry.path(), target_) << "litter";
        });
    }

    TempFolder folder_;
    fs::path files_ = folder_.path() / "files";
    std::string target_ = files_ / "a";
    std::string old_ = std::string(1012, '\x01');
    std::string other_ = folder_.file("other");
};

TEST_F(ProgramPowerCut, LeavesTheOldFileOrTheWholeReadOne) {
    expectOldOrNewAfterPowerCuts(writingBy({"--virtual", "read", target_}));
}

TEST_F(ProgramPowerCut, AFailureInAReadIsToldAndLeavesTheOldFile) {
    expectOldWhenToldElseNew(writingBy({"--virtual", "read", target_}));
}

TEST_F(ProgramPowerCut, LeavesTheOldFileOrTheWholeConvertedOne) {
    writeBytes(other_, randomBank(1));
    expectOldOrNewAfterPowerCuts(writingBy({"convert", other_, target_}));
}

TEST_F(ProgramPowerCut, LeavesTheOldBankOrTheWholeEditedOne) {
    expectOldOrNewAfterPowerCuts(writingBy({"set", target_, "scene1.pad3.CR=9"}));
}

TEST_F(ProgramPowerCut, AFailureInAnEditIsToldAndLeavesTheOldBank) {
    expectOldWhenToldElseNew(writingBy({"set", target_, "scene1.pad3.CR=9"}));
}

// The virtual controller's memory: a bank that was sent is in it whole, or not at all.
TEST_F(ProgramPowerCut, LeavesTheOldMemoryOrTheWholeSentOne) {
    writeBytes(other_, randomBank(2));
    expectOldOrNewAfterPowerCuts(writingBy({"--virtual=" + target_, "send", other_}));
}

// The list is opened for each scene anew, and may be gone, or fail, for one of them.
TEST_F(ProgramPowerCut, ADefaultListThatFailsForOneSceneGivesNoBank) {
    const fs::path lists = folder_.path() / "lists";
    fs::create_directory(lists);
    fs::copy_file(SCENEWRIGHT_SOURCE_DIR "/resources/default.plist", lists / "default.plist");
    const std::string out = folder_.file("out");
    const Writing writing{[&] { fs::remove(out); },
                          [&](const Blow& blow) {
                              return runTraced(
                                  lists, {kProgram, "--resources", lists.string(), "default", out},
                                  blow);
                          }};
    writing.prepare();
    const std::size_t calls = writing.run({}).calls.size();
    const std::string whole = readText(out);
    ASSERT_GT(calls, 8U);
    int refused = 0;
    for (std::size_t call = 0; call < calls; ++call)
        for (const int error : {EIO, ENOENT}) {
            writing.prepare();
            const TracedRun run = writing.run({Blow::Kind::Fail, call, error});
            expectOneSentenceOrNone(run);
            refused += run.exitCode == 2 ? 1 : 0;
            EXPECT_EQ(fs::exists(out) ? readText(out) : "", run.exitCode == 0 ? whole : "") << call;
        }
    EXPECT_GT(refused, 0);
}

} // namespace
} // namespace scenewright::testing
