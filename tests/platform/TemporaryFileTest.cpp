#include "platform/Files.h"
#include "platform/Process.h"
#include "tests/platform/TextFile.h"
#include "tests/support/FileSizeLimit.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

namespace fs = std::filesystem;
using TemporaryFileTest = ReplacedFile;

TEST_F(TemporaryFileTest, AWriteThatFailsHalfwayLeavesTheFormerFileAndNothingElse) {
    writeText(file_, "old");
    Result<Replaced> replaced;
    {
        const testing::FileSizeLimit limit(100);
        replaced = replaceFile(file_, FileContent(1012, 0x55));
    }
    EXPECT_EQ(replaced.error(), "Cannot write " + file_.string() + ": File too large.");
    EXPECT_EQ(readText(file_), "old");
    EXPECT_EQ(folder_.names().size(), 1U);
}

// What a killed writer leaves; a living one holds a lock on it.
TEST_F(TemporaryFileTest, OnlyWhatWasLeftByAKilledWriterIsRemoved) {
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

// Root may write anywhere; the process takes a user's place on the file system for the test.
class AsUser {
public:
    static constexpr uid_t kNobody = 65534;
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
    bool changed_ = false;
};

TEST_F(TemporaryFileTest, WhatOneMayNotWriteIsTroubleAndLeftAsItWas) {
    struct Row {
        mode_t folder;
        mode_t file;
        std::string denied; // before the cause
    };
    writeText(file_, "old");
    for (const Row& row : {Row{0555, 0644, folder_.path().string() + ": "}, Row{0777, 0444, ""}}) {
        ASSERT_EQ(::chmod(file_.c_str(), row.file), 0);
        ASSERT_EQ(::chmod(folder_.path().c_str(), row.folder), 0);
        {
            const AsUser user;
            EXPECT_EQ(errorOfWriting(file_),
                      "Cannot write " + file_.string() + ": " + row.denied + "Permission denied.");
        }
        ASSERT_EQ(::chmod(folder_.path().c_str(), 0755), 0);
        EXPECT_EQ(readText(file_), "old");
        EXPECT_EQ(folder_.names().size(), 1U);
    }
}

// An access list as the kernel has it in its attribute: the owner, one more user, the group, the
// mask and the others.
std::string accessList(std::uint32_t user) {
    struct Entry {
        std::uint16_t tag;
        std::uint16_t rights;
        std::uint32_t id;
    };
    constexpr std::uint32_t kVersion = 2;
    constexpr std::uint32_t kNobodyInParticular = ~0U;
    const std::vector<Entry> entries{{0x01, 6, kNobodyInParticular},
                                     {0x02, 6, user},
                                     {0x04, 4, kNobodyInParticular},
                                     {0x10, 6, kNobodyInParticular},
                                     {0x20, 0, kNobodyInParticular}};
    std::string bytes(reinterpret_cast<const char*>(&kVersion), sizeof kVersion);
    bytes.append(reinterpret_cast<const char*>(entries.data()), entries.size() * sizeof(Entry));
    return bytes;
}

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kDefaultList = "system.posix_acl_default"; // a folder's, for new files
constexpr const char* kNote = "user.note";

class FileWithAttributes : public ReplacedFile {
protected:
    void SetUp() override {
        if (::setxattr(folder_.path().c_str(), kNote, "", 0, 0) != 0 && errno == ENOTSUP)
            GTEST_SKIP() << "the file system of " << folder_.path() << " has no attributes";
    }
    static void give(const fs::path& path, const char* name, const std::string& value) {
        ASSERT_EQ(::setxattr(path.c_str(), name, value.data(), value.size(), 0), 0) << errno;
    }
    [[nodiscard]] std::string attribute(const char* name) const {
        std::string value(200, '\0');
        const ssize_t size = ::getxattr(file_.c_str(), name, value.data(), value.size());
        return size < 0 ? "none" : value.substr(0, static_cast<std::size_t>(size));
    }
};

TEST_F(FileWithAttributes, KeepsItsAccessListAndWhatItsUserGaveIt) {
    writeText(file_, "old");
    give(file_, kAccessList, accessList(4711));
    give(file_, kNote, "mine");
    give(file_, "user.empty", "");
    const mode_t mode = modeOf(file_);
    EXPECT_EQ(errorOfWriting(file_), "none");
    EXPECT_EQ(readText(file_), "new");
    EXPECT_EQ(attribute(kAccessList), accessList(4711));
    EXPECT_EQ(attribute(kNote), "mine");
    EXPECT_EQ(attribute("user.empty"), "");
    EXPECT_EQ(modeOf(file_), mode);
}

TEST_F(FileWithAttributes, GetsNoUsersOfItsFolderThatItHadNot) {
    writeText(file_, "old");
    ASSERT_EQ(::chmod(file_.c_str(), 0640), 0);
    give(folder_.path(), kDefaultList, accessList(4711));
    EXPECT_EQ(errorOfWriting(file_), "none");
    EXPECT_EQ(attribute(kAccessList), "none");
    EXPECT_EQ(modeOf(file_), 0640U);
}

TEST_F(FileWithAttributes, GetsThoseOfItsFolderWhenItIsNew) {
    give(folder_.path(), kDefaultList, accessList(4711));
    EXPECT_EQ(errorOfWriting(file_), "none");
    EXPECT_NE(attribute(kAccessList), "none");
}

TEST_F(FileWithAttributes, IsNotWrittenWhenTheyCannotBeKept) {
    writeText(file_, "old");
    give(file_, kNote, "mine");
    ASSERT_EQ(::chmod(file_.c_str(), 0222), 0); // to be written, and not to be asked
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(file_.c_str(), AsUser::kNobody, ::getegid()), 0);
    }
    {
        const AsUser user;
        EXPECT_EQ(errorOfWriting(file_), "Cannot write " + file_.string() +
                                             ": its access list and attributes could not be kept.");
    }
    ASSERT_EQ(::chmod(file_.c_str(), 0666), 0);
    EXPECT_EQ(readText(file_), "old");
    EXPECT_EQ(attribute(kNote), "mine");
}

class OwnedFile : public ReplacedFile {
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

} // namespace
} // namespace scenewright
