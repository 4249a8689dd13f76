#include "platform/AtomicFile.h"

#include "platform/FileDescriptor.h"
#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

namespace fs = std::filesystem;

std::vector<std::uint8_t> bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

mode_t modeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

class AtomicFile : public ::testing::Test {
protected:
    // Writes and asks beforehand: both must say the same.
    std::string errorOfWriting(const fs::path& path) {
        const auto checked = checkReplaceable(path);
        const std::string asked = checked ? "none" : checked.error();
        const auto replaced = replaceFile(path, bytesOf("new"));
        const std::string told = replaced ? "none" : replaced.error();
        EXPECT_EQ(asked, told);
        return told;
    }

    testing::TempFolder folder_;
    fs::path file_ = folder_.path() / "a.bank";
};

TEST_F(AtomicFile, ReadsEveryByte) {
    writeText(file_, std::string("\0\xFF\n\r", 4));
    EXPECT_EQ(readFile(file_, 4), (FileContent{0x00, 0xFF, 0x0A, 0x0D}));
}

TEST_F(AtomicFile, ReadsAnEmptyFile) {
    writeText(file_, "");
    EXPECT_EQ(readFile(file_, 0), FileContent());
}

TEST_F(AtomicFile, OneByteMoreThanTheLimitIsTrouble) {
    writeText(file_, std::string(1013, 'x'));
    EXPECT_EQ(readFile(file_, 1013)->size(), 1013U);
    EXPECT_EQ(readFile(file_, 1012).error(),
              "Cannot read " + file_.string() + ": it is longer than 1012 bytes.");
}

TEST_F(AtomicFile, AnEndlessPipeIsReadNoFurtherThanTheLimit) {
    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    std::thread writer([this] { writeText(file_, std::string(100'000, 'x')); });
    const auto read = readFile(file_, 1'000'000);
    writer.join();
    ASSERT_TRUE(read) << read.error();
    EXPECT_EQ(read->size(), 100'000U);
}

TEST_F(AtomicFile, WhatCannotBeReadIsNamed) {
    EXPECT_EQ(readFile(file_, 9).error(),
              "Cannot read " + file_.string() + ": No such file or directory.");
    EXPECT_EQ(readFile(folder_.path(), 9).error(),
              "Cannot read " + folder_.path().string() + ": it is a folder.");
    EXPECT_EQ(readFile("/dev/zero", 9).error(),
              "Cannot read /dev/zero: it is neither a file nor a pipe.");
}

TEST_F(AtomicFile, WritesANewFileAndLeavesNothingElse) {
    EXPECT_EQ(errorOfWriting(file_), "none");
    EXPECT_EQ(readText(file_), "new");
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(AtomicFile, ANewFileHasTheModeThatTheUserAsksFor) {
    const mode_t former = ::umask(027);
    EXPECT_EQ(errorOfWriting(file_), "none");
    ::umask(former);
    EXPECT_EQ(modeOf(file_), 0640U);
}

TEST_F(AtomicFile, ReplacesAFileAndKeepsItsPermissionBits) {
    writeText(file_, "a longer text that was there before");
    ASSERT_EQ(::chmod(file_.c_str(), 0604), 0);
    EXPECT_EQ(errorOfWriting(file_), "none");
    EXPECT_EQ(readText(file_), "new");
    EXPECT_EQ(modeOf(file_), 0604U);
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(AtomicFile, FollowsASymbolicLink) {
    fs::create_directory(folder_.path() / "elsewhere");
    writeText(folder_.path() / "elsewhere" / "real", "old");
    fs::create_symlink("elsewhere/real", file_);
    EXPECT_EQ(errorOfWriting(file_), "none");
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_EQ(readText(folder_.path() / "elsewhere" / "real"), "new");
}

TEST_F(AtomicFile, FollowsASymbolicLinkToAFileThatIsNotThereYet) {
    fs::create_symlink(folder_.path() / "later", file_);
    EXPECT_EQ(errorOfWriting(file_), "none");
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_EQ(readText(folder_.path() / "later"), "new");
}

TEST_F(AtomicFile, LinksInACircleAreTrouble) {
    fs::create_symlink(folder_.path() / "other", file_);
    fs::create_symlink(file_, folder_.path() / "other");
    EXPECT_EQ(errorOfWriting(file_),
              "Cannot write " + file_.string() + ": Too many levels of symbolic links.");
}

TEST_F(AtomicFile, AFolderIsNotReplaced) {
    EXPECT_EQ(errorOfWriting(folder_.path()),
              "Cannot write " + folder_.path().string() + ": it is a folder.");
    const std::string withSlash = folder_.path().string() + "/";
    EXPECT_EQ(errorOfWriting(withSlash), "Cannot write " + withSlash + ": it is a folder.");
    EXPECT_EQ(folder_.names().size(), 0U);
}

TEST_F(AtomicFile, ASlashAfterTheNameIsNoFile) {
    writeText(file_, "old");
    for (const fs::path& path : {file_, folder_.path() / "none"})
        EXPECT_EQ(errorOfWriting(path.string() + "/"),
                  "Cannot write " + path.string() + "/: a file's name does not end in a slash.");
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(AtomicFile, AMissingFolderIsNamed) {
    const fs::path path = folder_.path() / "none" / "a.bank";
    EXPECT_EQ(errorOfWriting(path), "Cannot write " + path.string() + ": " +
                                        (folder_.path() / "none").string() +
                                        ": No such file or directory.");
}

TEST_F(AtomicFile, AFileIsNoFolder) {
    writeText(file_, "old");
    const fs::path path = file_ / "inside";
    EXPECT_EQ(errorOfWriting(path),
              "Cannot write " + path.string() + ": " + file_.string() + " is not a folder.");
}

TEST_F(AtomicFile, ADeviceIsNotReplaced) {
    EXPECT_EQ(errorOfWriting("/dev/null"), "Cannot write /dev/null: it is no ordinary file.");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(AtomicFile, NoNameIsTrouble) {
    EXPECT_EQ(errorOfWriting(""), "Cannot write a file without a name: no name was given.");
}

TEST_F(AtomicFile, WritesIntoTheWorkingFolder) {
    const fs::path former = fs::current_path();
    fs::current_path(folder_.path());
    EXPECT_EQ(errorOfWriting("bare.bank"), "none");
    fs::current_path(former);
    EXPECT_EQ(readText(folder_.path() / "bare.bank"), "new");
}

// Writes beyond `bytes` fail until the end of the scope, as they do on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limited{bytes, former_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    void (*handler_)(int);
    rlimit former_{};
};

TEST_F(AtomicFile, AWriteThatFailsHalfwayLeavesTheFormerFileAndNothingElse) {
    writeText(file_, "old");
    Result<Replaced> replaced;
    {
        const FileSizeLimit limit(100);
        replaced = replaceFile(file_, FileContent(1012, 0x55));
    }
    EXPECT_EQ(replaced.error(), "Cannot write " + file_.string() + ": File too large.");
    EXPECT_EQ(readText(file_), "old");
    EXPECT_EQ(folder_.names().size(), 1U);
}

// Root may write anywhere; the process takes a user's place on the file system for the test.
class AsUser {
public:
    AsUser() {
        if (::geteuid() == 0)
            changed_ = ::seteuid(kNobody) == 0;
    }
    AsUser(const AsUser&) = delete;
    AsUser& operator=(const AsUser&) = delete;
    ~AsUser() {
        if (changed_ && ::seteuid(0) != 0)
            std::abort();
    }

private:
    static constexpr uid_t kNobody = 65534;
    bool changed_ = false;
};

TEST_F(AtomicFile, AFolderThatOneMayNotWriteIsTroubleAndLeftAsItWas) {
    writeText(file_, "old");
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0555), 0);
    {
        const AsUser user;
        EXPECT_EQ(errorOfWriting(file_), "Cannot write " + file_.string() + ": " +
                                             folder_.path().string() + ": Permission denied.");
    }
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0755), 0);
    EXPECT_EQ(readText(file_), "old");
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(AtomicFile, AFileThatOneMayNotWriteIsTroubleThoughItsFolderIsOpen) {
    writeText(file_, "old");
    ASSERT_EQ(::chmod(file_.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
    {
        const AsUser user;
        EXPECT_EQ(errorOfWriting(file_), "Cannot write " + file_.string() + ": Permission denied.");
    }
    EXPECT_EQ(readText(file_), "old");
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(AtomicFile, PipeThatNobodyWritesToIsSpokenOfOnceAndWaitedFor) {
    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    std::thread writer;
    int calls = 0;
    const auto read = readFile(file_, 9, [&] {
        ++calls;
        writer = std::thread([this] { writeText(file_, "late"); });
    });
    ASSERT_EQ(calls, 1);
    writer.join();
    EXPECT_EQ(read, bytesOf("late"));
}

TEST_F(AtomicFile, SetUserBitsGoWithTheContentThatHadThem) {
    writeText(file_, "old");
    ASSERT_EQ(::chmod(file_.c_str(), 06755), 0);
    EXPECT_EQ(errorOfWriting(file_), "none");
    EXPECT_EQ(modeOf(file_), 0755U);
}

TEST_F(AtomicFile, NamesThatKeepTheFormerContentAreCounted) {
    writeText(file_, "old");
    fs::create_hard_link(file_, folder_.path() / "second");
    fs::create_hard_link(file_, folder_.path() / "third");
    EXPECT_EQ(replaceFile(file_, bytesOf("new"))->otherNames, 2U);
    EXPECT_EQ(replaceFile(file_, bytesOf("new"))->otherNames, 0U);
    EXPECT_EQ(readText(folder_.path() / "third"), "old");
}

class OwnedFile : public AtomicFile {
protected:
    static constexpr uid_t kOwner = 4711;
    static constexpr gid_t kGroup = 4712;
    void SetUp() override {
        if (::geteuid() != 0)
            GTEST_SKIP() << "only root can give a file away";
        writeText(file_, "old");
        ASSERT_EQ(::chmod(file_.c_str(), 0666), 0);
        ASSERT_EQ(::chown(file_.c_str(), kOwner, kGroup), 0);
    }
    [[nodiscard]] std::pair<uid_t, gid_t> owner() const {
        struct stat status {};
        EXPECT_EQ(::stat(file_.c_str(), &status), 0);
        return {status.st_uid, status.st_gid};
    }
};

TEST_F(OwnedFile, StaysItsOwnersWhoeverWritesIt) {
    EXPECT_EQ(errorOfWriting(file_), "none");
    EXPECT_EQ(readText(file_), "new");
    EXPECT_EQ(owner(), std::pair(kOwner, kGroup));
    EXPECT_EQ(modeOf(file_), 0666U);
}

TEST_F(OwnedFile, IsRefusedToWhoCannotKeepItsOwnerAlsoInAStickyFolder) {
    for (const mode_t mode : {0777, 01777}) {
        ASSERT_EQ(::chmod(folder_.path().c_str(), mode), 0);
        const AsUser user;
        EXPECT_EQ(errorOfWriting(file_),
                  "Cannot write " + file_.string() + ": its owner and group could not be kept.");
    }
    EXPECT_EQ(readText(file_), "old");
    EXPECT_EQ(owner(), std::pair(kOwner, kGroup));
    EXPECT_EQ(folder_.names().size(), 1U);
}

// What a killed writer leaves; a living one holds a lock on it.
TEST_F(AtomicFile, OnlyWhatWasLeftByAKilledWriterIsRemoved) {
    const std::vector<std::string> kept{".scenewright-",    ".scenewright-7",    ".scenewright-7-x",
                                        ".scenewright-9-9", ".scenewright.conf", "a.bank"};
    for (const std::string& name : kept)
        writeText(folder_.path() / name, "");
    const FileDescriptor alive(::open(folder_.file(".scenewright-9-9").c_str(), O_RDONLY));
    ASSERT_EQ(::flock(alive.get(), LOCK_EX), 0);
    writeText(folder_.path() / ".scenewright-123-4", "half");
    fs::create_symlink("a.bank", folder_.path() / ".scenewright-5-6");
    EXPECT_TRUE(replaceFile(file_, bytesOf("new")));
    fs::remove(folder_.path() / ".scenewright-5-6"); // a link is none of ours
    EXPECT_EQ(folder_.names(), kept);
}

TEST_F(AtomicFile, ChangeGetsTheFormerBytesAndItsErrorLeavesThem) {
    writeText(file_, "old");
    const auto add = [](FileContent former) -> Result<FileContent> {
        former.push_back('!');
        return former;
    };
    EXPECT_TRUE(changeFile(file_, 9, add));
    EXPECT_EQ(readText(file_), "old!");
    const auto refuse = [](const FileContent&) -> Result<FileContent> { return failure("no"); };
    EXPECT_EQ(changeFile(file_, 9, refuse).error(), "no");
    EXPECT_EQ(changeFile(folder_.path() / "none", 9, add).error(),
              "Cannot read " + folder_.file("none") + ": No such file or directory.");
    EXPECT_EQ(readText(file_), "old!");
}

TEST_F(AtomicFile, NoChangeIsLostWhenManyAreMadeAtOnce) {
    writeText(file_, "");
    std::vector<std::thread> writers;
    for (int i = 0; i < 8; ++i)
        writers.emplace_back([this] {
            for (int round = 0; round < 5; ++round)
                EXPECT_TRUE(changeFile(file_, 99, [](FileContent former) -> Result<FileContent> {
                    former.push_back('x');
                    return former;
                }));
        });
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(readText(file_), std::string(40, 'x'));
    EXPECT_EQ(folder_.names().size(), 1U);
}

} // namespace
} // namespace scenewright
