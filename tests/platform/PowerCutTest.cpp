// The writer of whole files when the power goes, or a system call fails, in the middle of it.
#include "tests/support/PowerCut.h"

#include "platform/AtomicFile.h"
#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <unistd.h>

namespace scenewright {
namespace {

namespace fs = std::filesystem;
using testing::Blow;
using testing::FileCall;
using testing::TracedRun;
using Calls = std::vector<FileCall>;

const std::string kOld(1012, 'o');
const std::string kNew(2024, 'n');
const std::string kLater(100, 'l');

std::vector<std::uint8_t> bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

std::string errorOf(const Result<Replaced>& replaced) {
    return replaced ? std::string() : replaced.error();
}

class PowerCut : public ::testing::Test {
protected:
    // What lies in the folder, and is written, before the blow.
    void prepare(const std::optional<std::string>& before) const {
        for (const auto& entry : fs::directory_iterator(folder_.path()))
            fs::remove_all(entry);
        if (before)
            writeText(file_, *before);
    }
    [[nodiscard]] TracedRun write(const Blow& blow = {}) const {
        return testing::runTraced(
            folder_.path(), [this] { return errorOf(replaceFile(file_, bytesOf(kNew))); }, blow);
    }
    [[nodiscard]] testing::Writing over(const std::optional<std::string>& before) const {
        return {[this, before] { prepare(before); },
                [this](const Blow& blow) { return write(blow); }};
    }
    [[nodiscard]] std::optional<std::string> found() const {
        return fs::exists(file_) ? std::optional(readText(file_)) : std::nullopt;
    }
    // At most one file beside the one that is written, hidden, and none of it in the way.
    void expectLitterHurtsNobody() const {
        std::vector<std::string> names = folder_.names();
        std::erase(names, "a.bank");
        EXPECT_LE(names.size(), 1U);
        for (const std::string& name : names)
            EXPECT_TRUE(name.starts_with(".scenewright-")) << name;
        EXPECT_EQ(errorOf(replaceFile(file_, bytesOf(kLater))), "");
        EXPECT_EQ(found(), kLater);
    }
    void expectOldOrNewAfterPowerCuts(const std::optional<std::string>& before) const {
        testing::strikeEachCall(over(before), testing::kPowerCuts,
                                [&](const TracedRun& run, const Blow& blow, const Calls& whole) {
                                    EXPECT_TRUE(run.isKilled);
                                    const bool isOld =
                                        testing::isBeforeRename(whole, "a.bank", blow);
                                    EXPECT_EQ(found(), isOld ? before : kNew);
                                    expectLitterHurtsNobody();
                                });
    }
    void expectOldWhenToldElseNew(const TracedRun& run,
                                  const std::optional<std::string>& before) const {
        testing::expectOneSentenceOrNone(run);
        EXPECT_EQ(found(), run.errors.empty() ? kNew : before) << run.errors;
        if (!run.errors.empty()) {
            EXPECT_TRUE(run.errors.starts_with("Cannot write " + file_.string() + ": "));
            EXPECT_TRUE(run.errors.ends_with(".")) << run.errors;
        }
        for (const std::string& name : folder_.names())
            EXPECT_FALSE(name.starts_with(".scenewright-")) << "litter";
    }

    testing::TempFolder folder_;
    fs::path file_ = folder_.path() / "a.bank";
};

TEST_F(PowerCut, TheBytesAreOnTheDiskBeforeTheRenameAndTheRenameBeforeTheEnd) {
    prepare(kOld);
    const TracedRun run = write();
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(testing::changesAmong(run.calls), (Calls{{"open", "a.bank", ""},
                                                       {"open", "a.bank", ""},
                                                       {"open", ".", ""},
                                                       {"open", ".", ""},
                                                       {"write", "(temporary)", ""},
                                                       {"chmod", "(temporary)", ""},
                                                       {"fsync", "(temporary)", ""},
                                                       {"link", "(temporary)", "(temporary)"},
                                                       {"rename", "(temporary)", "a.bank"},
                                                       {"open", ".", ""},
                                                       {"fsync", ".", ""}}));
}

TEST_F(PowerCut, AtAnyCallLeavesTheOldFileOrTheNewOne) {
    expectOldOrNewAfterPowerCuts(kOld);
}

TEST_F(PowerCut, AtAnyCallLeavesNoFileOrTheNewOne) {
    expectOldOrNewAfterPowerCuts(std::nullopt);
}

TEST_F(PowerCut, AFailureAtAnyCallIsToldAndLeavesTheOldFile) {
    bool isToldOnce = false;
    testing::strikeEachCall(over(kOld), testing::kFailures,
                            [&](const TracedRun& run, const Blow&, const Calls&) {
                                expectOldWhenToldElseNew(run, kOld);
                                isToldOnce = isToldOnce || !run.errors.empty();
                            });
    EXPECT_TRUE(isToldOnce);
}

TEST_F(PowerCut, AFailureAtAnyCallIsToldAndLeavesNoFileWhereThereWasNone) {
    testing::strikeEachCall(over(std::nullopt), testing::kFailures,
                            [&](const TracedRun& run, const Blow&, const Calls&) {
                                expectOldWhenToldElseNew(run, std::nullopt);
                            });
}

TEST_F(PowerCut, AFailureAtAnyCallLeavesASymbolicLinkALink) {
    const auto prepareLink = [this] {
        prepare(std::nullopt);
        writeText(folder_.path() / "real", kOld);
        fs::create_symlink("real", file_);
    };
    testing::strikeEachCall({prepareLink, [this](const Blow& blow) { return write(blow); }},
                            testing::kFailures,
                            [&](const TracedRun& run, const Blow&, const Calls&) {
                                EXPECT_TRUE(fs::is_symlink(file_));
                                expectOldWhenToldElseNew(run, kOld);
                            });
}

// The calls without which the new file is not safe: that they fail is never kept quiet.
TEST_F(PowerCut, AFailureThatEndangersTheNewFileIsTold) {
    for (const char* name : {"write", "chmod", "fsync", "link", "rename"}) {
        prepare(kOld);
        const Calls whole = write().calls;
        const auto call = std::ranges::find_if(whole, [name](const FileCall& each) {
            return each.name == name && each.path == "(temporary)";
        });
        ASSERT_NE(call, whole.end()) << name;
        prepare(kOld);
        const auto place = static_cast<std::size_t>(call - whole.begin());
        const TracedRun run = write({Blow::Kind::Fail, place, EIO});
        EXPECT_EQ(run.errors, "Cannot write " + file_.string() + ": Input/output error.") << name;
        EXPECT_EQ(found(), kOld);
    }
}

TEST_F(PowerCut, AWriteThatTakesHalfGoesOnWithTheRest) {
    prepare(kOld);
    const Calls whole = write().calls;
    const auto call = std::ranges::find(whole, "write", &FileCall::name);
    const auto place = static_cast<std::size_t>(call - whole.begin());
    prepare(kOld);
    const TracedRun run = write({Blow::Kind::CutShort, place});
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.calls.size(), whole.size() + 1);
    EXPECT_EQ(found(), kNew);
}

// A process number comes again some day, and with it the name that a killed writer has left.
TEST_F(PowerCut, LitterOfTheOwnProcessNumberIsNotInTheWay) {
    prepare(kOld);
    const auto body = [this] {
        for (int number = 0; number < 20; ++number)
            writeText(folder_.path() / (".scenewright-" + std::to_string(::getpid()) + "-" +
                                        std::to_string(number)),
                      "litter");
        return errorOf(replaceFile(file_, bytesOf(kNew)));
    };
    EXPECT_EQ(testing::runTraced(folder_.path(), body).errors, "");
    EXPECT_EQ(found(), kNew);
}

// Where a file cannot be without a name it has a hidden one from its beginning.
TEST_F(PowerCut, FileSystemWithoutNamelessFilesIsWrittenToAsSafely) {
    prepare(kOld);
    const Calls whole = write().calls;
    // The folder is opened to be listed, and then for the file.
    const auto listing = std::ranges::find(whole, FileCall{"open", ".", ""});
    const auto call = std::find(std::next(listing), whole.end(), FileCall{"open", ".", ""});
    ASSERT_NE(call, whole.end());
    prepare(kOld);
    const auto place = static_cast<std::size_t>(call - whole.begin());
    const TracedRun run = write({Blow::Kind::Fail, place, EOPNOTSUPP});
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(found(), kNew);
    const Calls changes = testing::changesAmong(run.calls);
    EXPECT_EQ(std::ranges::count(changes, "link", &FileCall::name), 0);
    EXPECT_EQ(folder_.names().size(), 1U);
}

} // namespace
} // namespace scenewright
