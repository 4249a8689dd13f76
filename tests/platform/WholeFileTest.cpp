#include "platform/WholeFile.h"

#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

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

class WholeFileTest : public ::testing::Test {
protected:
    // Writes and asks beforehand: both must say the same.
    std::string troubleOfWriting(const fs::path& path) {
        const std::string asked = whyNotWritable(path).value_or("none");
        const std::string told = writeWholeFile(path, bytesOf("new")).value_or("none");
        EXPECT_EQ(asked, told);
        return told;
    }

    testing::TempFolder folder_;
    fs::path file_ = folder_.path() / "a.bank";
};

TEST_F(WholeFileTest, ReadsEveryByte) {
    writeText(file_, std::string("\0\xFF\n\r", 4));
    const FileBytes read = readWholeFile(file_, 4);
    EXPECT_EQ(read.trouble, std::nullopt);
    EXPECT_EQ(read.bytes, (std::vector<std::uint8_t>{0x00, 0xFF, 0x0A, 0x0D}));
}

TEST_F(WholeFileTest, ReadsAnEmptyFile) {
    writeText(file_, "");
    EXPECT_EQ(readWholeFile(file_, 0).trouble, std::nullopt);
}

TEST_F(WholeFileTest, OneByteMoreThanTheLimitIsTrouble) {
    writeText(file_, std::string(1013, 'x'));
    EXPECT_EQ(readWholeFile(file_, 1013).bytes.size(), 1013U);
    const FileBytes read = readWholeFile(file_, 1012);
    EXPECT_EQ(read.trouble, "Cannot read " + file_.string() + ": it is longer than 1012 bytes.");
    EXPECT_TRUE(read.bytes.empty());
}

TEST_F(WholeFileTest, AnEndlessPipeIsReadNoFurtherThanTheLimit) {
    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    std::thread writer([this] { writeText(file_, std::string(100'000, 'x')); });
    const FileBytes read = readWholeFile(file_, 1'000'000);
    writer.join();
    EXPECT_EQ(read.trouble, std::nullopt);
    EXPECT_EQ(read.bytes.size(), 100'000U);
}

TEST_F(WholeFileTest, WhatCannotBeReadIsNamed) {
    EXPECT_EQ(readWholeFile(file_, 9).trouble,
              "Cannot read " + file_.string() + ": No such file or directory.");
    EXPECT_EQ(readWholeFile(folder_.path(), 9).trouble,
              "Cannot read " + folder_.path().string() + ": it is a folder.");
    EXPECT_EQ(readWholeFile("/dev/zero", 9).trouble,
              "Cannot read /dev/zero: it is neither a file nor a pipe.");
}

TEST_F(WholeFileTest, WritesANewFileAndLeavesNothingElse) {
    EXPECT_EQ(troubleOfWriting(file_), "none");
    EXPECT_EQ(readText(file_), "new");
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(WholeFileTest, ANewFileHasTheModeThatTheUserAsksFor) {
    const mode_t former = ::umask(027);
    EXPECT_EQ(troubleOfWriting(file_), "none");
    ::umask(former);
    EXPECT_EQ(modeOf(file_), 0640U);
}

TEST_F(WholeFileTest, ReplacesAFileAndKeepsItsPermissionBits) {
    writeText(file_, "a longer text that was there before");
    ASSERT_EQ(::chmod(file_.c_str(), 0604), 0);
    EXPECT_EQ(troubleOfWriting(file_), "none");
    EXPECT_EQ(readText(file_), "new");
    EXPECT_EQ(modeOf(file_), 0604U);
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(WholeFileTest, FollowsASymbolicLink) {
    fs::create_directory(folder_.path() / "elsewhere");
    writeText(folder_.path() / "elsewhere" / "real", "old");
    fs::create_symlink("elsewhere/real", file_);
    EXPECT_EQ(troubleOfWriting(file_), "none");
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_EQ(readText(folder_.path() / "elsewhere" / "real"), "new");
}

TEST_F(WholeFileTest, FollowsASymbolicLinkToAFileThatIsNotThereYet) {
    fs::create_symlink(folder_.path() / "later", file_);
    EXPECT_EQ(troubleOfWriting(file_), "none");
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_EQ(readText(folder_.path() / "later"), "new");
}

TEST_F(WholeFileTest, LinksInACircleAreTrouble) {
    fs::create_symlink(folder_.path() / "other", file_);
    fs::create_symlink(file_, folder_.path() / "other");
    EXPECT_EQ(troubleOfWriting(file_),
              "Cannot write " + file_.string() + ": Too many levels of symbolic links.");
}

TEST_F(WholeFileTest, AFolderIsNotReplaced) {
    EXPECT_EQ(troubleOfWriting(folder_.path()),
              "Cannot write " + folder_.path().string() + ": it is a folder.");
    const std::string withSlash = folder_.path().string() + "/";
    EXPECT_EQ(troubleOfWriting(withSlash), "Cannot write " + withSlash + ": it is a folder.");
    EXPECT_EQ(folder_.names().size(), 0U);
}

TEST_F(WholeFileTest, AMissingFolderIsNamed) {
    const fs::path path = folder_.path() / "none" / "a.bank";
    EXPECT_EQ(troubleOfWriting(path), "Cannot write " + path.string() + ": " +
                                          (folder_.path() / "none").string() +
                                          ": No such file or directory.");
}

TEST_F(WholeFileTest, AFileIsNoFolder) {
    writeText(file_, "old");
    const fs::path path = file_ / "inside";
    EXPECT_EQ(troubleOfWriting(path),
              "Cannot write " + path.string() + ": " + file_.string() + " is not a folder.");
}

TEST_F(WholeFileTest, ADeviceIsNotReplaced) {
    EXPECT_EQ(troubleOfWriting("/dev/null"), "Cannot write /dev/null: it is no ordinary file.");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(WholeFileTest, NoNameIsTrouble) {
    EXPECT_EQ(troubleOfWriting(""), "Cannot write a file without a name: no name was given.");
}

TEST_F(WholeFileTest, WritesIntoTheWorkingFolder) {
    const fs::path former = fs::current_path();
    fs::current_path(folder_.path());
    EXPECT_EQ(troubleOfWriting("bare.bank"), "none");
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

TEST_F(WholeFileTest, AWriteThatFailsHalfwayLeavesTheFormerFileAndNothingElse) {
    writeText(file_, "old");
    std::optional<std::string> trouble;
    {
        const FileSizeLimit limit(100);
        trouble = writeWholeFile(file_, std::vector<std::uint8_t>(1012, 0x55));
    }
    EXPECT_EQ(trouble, "Cannot write " + file_.string() + ": File too large.");
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

TEST_F(WholeFileTest, AFolderThatOneMayNotWriteIsTroubleAndLeftAsItWas) {
    writeText(file_, "old");
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0555), 0);
    {
        const AsUser user;
        EXPECT_EQ(troubleOfWriting(file_), "Cannot write " + file_.string() + ": " +
                                               folder_.path().string() + ": Permission denied.");
    }
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0755), 0);
    EXPECT_EQ(readText(file_), "old");
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(WholeFileTest, AFileThatOneMayNotWriteIsTroubleThoughItsFolderIsOpen) {
    writeText(file_, "old");
    ASSERT_EQ(::chmod(file_.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
    {
        const AsUser user;
        EXPECT_EQ(troubleOfWriting(file_),
                  "Cannot write " + file_.string() + ": Permission denied.");
    }
    EXPECT_EQ(readText(file_), "old");
    EXPECT_EQ(folder_.names().size(), 1U);
}

} // namespace
} // namespace scenewright
