#include "platform/Files.h"
#include "platform/Process.h"
#include "tests/platform/TextFile.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <sched.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
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

TEST_F(AtomicFile, ReadsEveryByteUpToTheLimit) {
    writeText(file_, std::string("\0\xFF\n\r", 4));
    EXPECT_EQ(readFile(file_, 4), (FileContent{0x00, 0xFF, 0x0A, 0x0D}));
    writeText(file_, "");
    EXPECT_EQ(readFile(file_, 0), FileContent());
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

TEST_F(AtomicFile, ANewFileHasTheModeThatTheUserAsksForAndNothingElseIsLeft) {
    const mode_t former = ::umask(027);
    EXPECT_EQ(errorOfWriting(file_), "none");
    ::umask(former);
    EXPECT_EQ(readText(file_), "new");
    EXPECT_EQ(modeOf(file_), 0640U);
    EXPECT_EQ(folder_.names().size(), 1U);
}

// But for the set-user bits, which go with the content that had them.
TEST_F(AtomicFile, ReplacesAFileAndKeepsItsPermissionBits) {
    for (const mode_t mode : {0604U, 06755U}) {
        writeText(file_, "a longer text that was there before");
        ASSERT_EQ(::chmod(file_.c_str(), mode), 0);
        EXPECT_EQ(errorOfWriting(file_), "none");
        EXPECT_EQ(readText(file_), "new");
        EXPECT_EQ(modeOf(file_), mode & 0777U);
        EXPECT_EQ(folder_.names().size(), 1U);
    }
}

TEST_F(AtomicFile, FollowsASymbolicLinkAlsoToAFileThatIsNotThereYet) {
    fs::create_directory(folder_.path() / "elsewhere");
    writeText(folder_.path() / "elsewhere" / "real", "old");
    for (const char* const target : {"elsewhere/real", "later"}) {
        fs::create_symlink(target, file_);
        EXPECT_EQ(errorOfWriting(file_), "none");
        EXPECT_TRUE(fs::is_symlink(file_));
        EXPECT_EQ(readText(folder_.path() / target), "new");
        fs::remove(file_);
    }
}

TEST_F(AtomicFile, WhatIsNoFileInAFolderIsNotReplaced) {
    const std::string folder = folder_.path().string();
    writeText(file_, "old");
    fs::create_symlink(folder + "/there", folder + "/back");
    fs::create_symlink(folder + "/back", folder + "/there");
    const std::string slash = "a file's name does not end in a slash.";
    const std::pair<std::string, std::string> rows[] = {
        {folder, "it is a folder."},
        {folder + "/", "it is a folder."},
        {file_.string() + "/", slash},
        {folder + "/none/", slash},
        {folder + "/back", "Too many levels of symbolic links."},
        {folder + "/none/a.bank", folder + "/none: No such file or directory."},
        {file_.string() + "/inside", file_.string() + " is not a folder."},
        {"/dev/null", "it is no ordinary file."},
    };
    for (const auto& [path, why] : rows)
        EXPECT_EQ(errorOfWriting(path), "Cannot write " + path + ": " + why);
    EXPECT_EQ(errorOfWriting(""), "Cannot write a file without a name: no name was given.");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(readText(file_), "old");
    EXPECT_EQ(folder_.names(), (std::vector<std::string>{"a.bank", "back", "there"}));
}

TEST_F(AtomicFile, WritesIntoTheWorkingFolder) {
    const fs::path former = fs::current_path();
    fs::current_path(folder_.path());
    EXPECT_EQ(errorOfWriting("bare.bank"), "none");
    fs::current_path(former);
    EXPECT_EQ(readText(folder_.path() / "bare.bank"), "new");
}

TEST_F(AtomicFile, AWriteThatFailsHalfwayLeavesTheFormerFileAndNothingElse) {
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

TEST_F(AtomicFile, WhatOneMayNotWriteIsTroubleAndLeftAsItWas) {
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

TEST_F(AtomicFile, NamesThatKeepTheFormerContentAreCounted) {
    writeText(file_, "old");
    fs::create_hard_link(file_, folder_.path() / "second");
    fs::create_hard_link(file_, folder_.path() / "third");
    EXPECT_EQ(replaceFile(file_, bytesOf("new"))->otherNames, 2U);
    EXPECT_EQ(replaceFile(file_, bytesOf("new"))->otherNames, 0U);
    EXPECT_EQ(readText(folder_.path() / "third"), "old");
}

// In a process with mounts of its own, where the folder is changed first. What cannot be replaced
// there is found before anything is written.
std::string errorBesideMounts(const fs::path& file, const std::function<bool()>& change) {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe(ends.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isReady = ::unshare(CLONE_NEWNS) == 0 &&
                             ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                             change();
        const auto checked = checkReplaceable(file);
        const std::string told = !isReady ? "no mounts" : checked ? "none" : checked.error();
        static_cast<void>(!::write(ends[1], told.data(), told.size()));
        ::_exit(0);
    }
    ::close(ends[1]);
    std::string told;
    for (char letter = 0; ::read(ends[0], &letter, 1) == 1;)
        told += letter;
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return told;
}

TEST_F(AtomicFile, MountsThatKeepAFileFromBeingReplacedAreFoundBeforehand) {
    writeText(file_, "old");
    writeText(folder_.path() / "other", "");
    const std::string folder = folder_.path().string();
    const std::string onFile = errorBesideMounts(file_, [&] {
        return ::mount(folder_.file("other").c_str(), file_.c_str(), nullptr, MS_BIND, nullptr) ==
               0;
    });
    if (onFile == "no mounts")
        GTEST_SKIP() << "only root can mount";
    EXPECT_EQ(onFile, "Cannot write " + file_.string() + ": a file system is mounted on it.");
    const std::string readOnly = errorBesideMounts(file_, [&] {
        constexpr unsigned long kReadOnly = MS_BIND | MS_REMOUNT | MS_RDONLY;
        return ::mount(folder.c_str(), folder.c_str(), nullptr, MS_BIND, nullptr) == 0 &&
               ::mount("none", folder.c_str(), nullptr, kReadOnly, nullptr) == 0;
    });
    EXPECT_EQ(readOnly,
              "Cannot write " + file_.string() + ": " + folder + ": Read-only file system.");
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

class FileWithAttributes : public AtomicFile {
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
