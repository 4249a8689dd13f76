#include "platform/Files.h"

#include "platform/Process.h"
#include "tests/platform/TextFile.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <sched.h>
#include <string>
#include <string_view>
#include <sys/mount.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

namespace fs = std::filesystem;
using Files = ReplacedFile;

TEST_F(Files, ReadsEveryByteUpToTheLimit) {
    writeText(file_, std::string("\0\xFF\n\r", 4));
    EXPECT_EQ(readFile(file_, 4), (FileContent{0x00, 0xFF, 0x0A, 0x0D}));
    writeText(file_, "");
    EXPECT_EQ(readFile(file_, 0), FileContent());
    writeText(file_, std::string(1013, 'x'));
    EXPECT_EQ(readFile(file_, 1013)->size(), 1013U);
    EXPECT_EQ(readFile(file_, 1012).error(),
              "Cannot read " + file_.string() + ": it is longer than 1012 bytes.");
}

TEST_F(Files, AnEndlessPipeIsReadNoFurtherThanTheLimit) {
    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    std::thread writer([this] { writeText(file_, std::string(100'000, 'x')); });
    const auto read = readFile(file_, 1'000'000);
    writer.join();
    ASSERT_TRUE(read) << read.error();
    EXPECT_EQ(read->size(), 100'000U);
}

TEST_F(Files, WhatCannotBeReadIsNamed) {
    EXPECT_EQ(readFile(file_, 9).error(),
              "Cannot read " + file_.string() + ": No such file or directory.");
    EXPECT_EQ(readFile(folder_.path(), 9).error(),
              "Cannot read " + folder_.path().string() + ": it is a folder.");
    EXPECT_EQ(readFile("/dev/zero", 9).error(),
              "Cannot read /dev/zero: it is neither a file nor a pipe.");
}

TEST_F(Files, ANewFileHasTheModeThatTheUserAsksForAndNothingElseIsLeft) {
    const mode_t former = ::umask(027);
    EXPECT_EQ(errorOfWriting(file_), "none");
    ::umask(former);
    EXPECT_EQ(readText(file_), "new");
    EXPECT_EQ(modeOf(file_), 0640U);
    EXPECT_EQ(folder_.names().size(), 1U);
}

// But for the set-user bits, which go with the content that had them.
TEST_F(Files, ReplacesAFileAndKeepsItsPermissionBits) {
    for (const mode_t mode : {0604U, 06755U}) {
        writeText(file_, "a longer text that was there before");
        ASSERT_EQ(::chmod(file_.c_str(), mode), 0);
        EXPECT_EQ(errorOfWriting(file_), "none");
        EXPECT_EQ(readText(file_), "new");
        EXPECT_EQ(modeOf(file_), mode & 0777U);
        EXPECT_EQ(folder_.names().size(), 1U);
    }
}

TEST_F(Files, FollowsASymbolicLinkAlsoToAFileThatIsNotThereYet) {
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

TEST_F(Files, WhatIsNoFileInAFolderIsNotReplaced) {
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

TEST_F(Files, WritesIntoTheWorkingFolder) {
    const fs::path former = fs::current_path();
    fs::current_path(folder_.path());
    EXPECT_EQ(errorOfWriting("bare.bank"), "none");
    fs::current_path(former);
    EXPECT_EQ(readText(folder_.path() / "bare.bank"), "new");
}

TEST_F(Files, PipeThatNobodyWritesToIsSpokenOfOnceAndWaitedFor) {
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

TEST_F(Files, PipeThatNobodyWritesToKeepsNoProgramWaitingThatHasNotAskedForIt) {
    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    EXPECT_EQ(readFile(file_, 9).error(),
              "Cannot read " + file_.string() + ": nobody writes to this pipe.");
}

TEST_F(Files, NamesThatKeepTheFormerContentAreCounted) {
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
    const auto ask = [&](int output) {
        const bool isReady = ::unshare(CLONE_NEWNS) == 0 &&
                             ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                             change();
        const auto checked = checkReplaceable(file);
        const std::string told = !isReady ? "no mounts" : checked ? "none" : checked.error();
        return ::write(output, told.data(), told.size()) < 0 ? 1 : 0;
    };
    return testing::runForked(ask).output;
}

TEST_F(Files, MountsThatKeepAFileFromBeingReplacedAreFoundBeforehand) {
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

TEST_F(Files, ChangeGetsTheFormerBytesAndItsErrorLeavesThem) {
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

TEST_F(Files, NoChangeIsLostWhenManyAreMadeAtOnce) {
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

namespace fs = std::filesystem;

class NamedFiles : public ::testing::Test {
protected:
    NamedFiles() {
        writeText(folder_.path() / "a", "text");
        writeText(folder_.path() / "b", "text");
        fs::create_hard_link(folder_.path() / "a", folder_.path() / "hard");
        fs::create_symlink("a", folder_.path() / "soft");
        fs::create_symlink("later", folder_.path() / "dangling");
    }
    [[nodiscard]] NamedFile file(const std::string& name, FileUse use) const {
        const std::string path = name.starts_with('/') || name == "-" ? name : folder_.file(name);
        return {path, use, name + ": it", "what is in " + name};
    }
    [[nodiscard]] std::string check(const std::vector<NamedFile>& files) const {
        const auto checked = checkNamedFiles(files);
        return checked ? "" : checked.error();
    }

    testing::TempFolder folder_;
};

TEST_F(NamedFiles, DescriptorsHaveManyNames) {
    const std::string own = "/proc/" + std::to_string(::getpid()) + "/fd/";
    fs::create_symlink("/dev/stdout", folder_.path() / "out");
    EXPECT_EQ(namedDescriptor("/dev/stdin"), 0);
    EXPECT_EQ(namedDescriptor("/dev/stdout"), 1);
    EXPECT_EQ(namedDescriptor("/dev/stderr"), 2);
    EXPECT_EQ(namedDescriptor("/dev/fd/17"), 17);
    EXPECT_EQ(namedDescriptor("/proc/self/fd/1"), 1);
    EXPECT_EQ(namedDescriptor("/dev/../dev//fd/1"), 1);
    EXPECT_EQ(namedDescriptor(own + "1"), 1);
    EXPECT_EQ(namedDescriptor(folder_.file("out")), 1);
    for (const char* name :
         {"", "-", "1", "stdout", "/dev/null", "/dev/fd", "/dev/fd/", "/dev/fd/x", "/dev/fd/-1"})
        EXPECT_EQ(namedDescriptor(name), std::nullopt) << name;
    for (const char* name : {"a", "soft", "dangling", "none/a"})
        EXPECT_EQ(namedDescriptor(folder_.file(name)), std::nullopt) << name;
}

TEST_F(NamedFiles, OneFileIsKnownUnderEveryName) {
    const std::string roundabout = "../" + folder_.path().filename().string() + "/a";
    for (const std::string& name : {std::string("a"), std::string("hard"), std::string("soft"),
                                    std::string("./a"), roundabout})
        EXPECT_EQ(check({file("a", FileUse::Read), file(name, FileUse::Appended)}),
                  name + ": it would overwrite what is in a");
    EXPECT_EQ(check({file("a", FileUse::Read), file("b", FileUse::Appended)}), "");
}

TEST_F(NamedFiles, FileThatIsNotThereYetIsKnownToo) {
    EXPECT_EQ(check({file("later", FileUse::Replaced), file("dangling", FileUse::Appended)}),
              "later: it would overwrite what is in dangling");
    EXPECT_EQ(check({file("later", FileUse::Replaced), file("other", FileUse::Appended)}), "");
    EXPECT_EQ(check({file("none/x", FileUse::Replaced), file("none/x", FileUse::Appended)}), "");
}

TEST_F(NamedFiles, UsesThatLoseSomethingAreRefused) {
    using enum FileUse;
    const std::vector<FileUse> uses{Read, Replaced, Written, Appended};
    // A row for the first, a column for the second.
    constexpr bool kMay[4][4] = {{true, true, false, false},
                                 {true, true, false, false},
                                 {false, false, false, false},
                                 {false, false, false, true}};
    for (std::size_t first = 0; first < uses.size(); ++first)
        for (std::size_t second = 0; second < uses.size(); ++second)
            EXPECT_EQ(check({file("a", uses[first]), file("hard", uses[second])}).empty(),
                      kMay[first][second])
                << first << ' ' << second;
}

// In a standard stream's place for a while.
class InPlaceOf {
public:
    InPlaceOf(int number, const std::string& path, int flags)
        : number_(number), former_(::fcntl(number, F_DUPFD_CLOEXEC, 3)) {
        const FileDescriptor file(::open(path.c_str(), flags | O_CLOEXEC));
        ::dup2(file.get(), number);
    }
    InPlaceOf(const InPlaceOf&) = delete;
    InPlaceOf& operator=(const InPlaceOf&) = delete;
    ~InPlaceOf() { ::dup2(former_.get(), number_); }

private:
    int number_;
    FileDescriptor former_;
};

TEST_F(NamedFiles, StreamsCountAsTheFilesThatTheyAreConnectedTo) {
    const InPlaceOf input(0, folder_.file("a"), O_RDONLY);
    for (const char* name : {"-", "/dev/stdin", "/dev/fd/0"}) {
        EXPECT_EQ(check({file(name, FileUse::Read), file("a", FileUse::Written)}),
                  "a: it would overwrite what is in " + std::string(name));
        EXPECT_EQ(check({file(name, FileUse::Read), file("b", FileUse::Written)}), "");
    }
}

TEST_F(NamedFiles, StandardOutputIsWrittenAsItComes) {
    const InPlaceOf output(1, folder_.file("a"), O_WRONLY | O_APPEND);
    EXPECT_EQ(check({file("a", FileUse::Read), file("-", FileUse::Replaced)}),
              "-: it would overwrite what is in a");
    EXPECT_EQ(check({file("b", FileUse::Read), file("-", FileUse::Replaced)}), "");
}

TEST_F(NamedFiles, DevicesAndPipesCannotBeOverwritten) {
    EXPECT_EQ(check({file("/dev/null", FileUse::Read), file("/dev/null", FileUse::Written)}), "");
}

} // namespace
} // namespace scenewright
