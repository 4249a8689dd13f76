#include "platform/Files.h"
#include "platform/Process.h"
#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace scenewright {
namespace {

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
