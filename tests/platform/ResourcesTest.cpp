#include "platform/Resources.h"

#include "platform/Diagnostics.h"
#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>

namespace scenewright {
namespace {

namespace fs = std::filesystem;

// Sets an environment variable, or takes it away, until the end of the scope.
class Environment {
public:
    Environment(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* former = std::getenv(name))
            former_ = former;
        set(value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() { set(former_); }

private:
    void set(const std::optional<std::string>& value) {
        if (value)
            ::setenv(name_, value->c_str(), 1);
        else
            ::unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> former_;
};

class ResourcesTest : public ::testing::Test {
protected:
    ResourcesTest() {
        fs::create_directory(given_);
        fs::create_directories(user_);
    }
    void TearDown() override {
        Resources::setFolder({});
        Diagnostics::setLog({});
    }

    testing::TempFolder folder_;
    fs::path given_ = folder_.path() / "given";
    fs::path user_ = folder_.path() / "config" / "scenewright";
    Environment config_{"XDG_CONFIG_HOME", (folder_.path() / "config").string()};
    fs::path shared_ = fs::path(SCENEWRIGHT_BINARY_DIR) / "share" / "scenewright";
};

using Paths = std::vector<fs::path>;

TEST_F(ResourcesTest, TheFoldersAreSearchedInTheirOrder) {
    Resources::setFolder(given_);
    EXPECT_EQ(Resources::searchPath(), (Paths{given_, user_, shared_}));
}

TEST_F(ResourcesTest, WithoutAGivenFolderTheUsersComesFirst) {
    EXPECT_EQ(Resources::searchPath(), (Paths{user_, shared_}));
    EXPECT_EQ(Resources::userFolder(), user_);
}

TEST_F(ResourcesTest, TheUsersFolderIsInHomeWhenNothingElseIsSaid) {
    const Environment home("HOME", "/home/somebody");
    const Environment config("XDG_CONFIG_HOME", std::nullopt);
    EXPECT_EQ(Resources::userFolder(), "/home/somebody/.config/scenewright");
}

TEST_F(ResourcesTest, ARelativeConfigurationFolderCountsAsUnset) {
    const Environment home("HOME", "/home/somebody");
    const Environment config("XDG_CONFIG_HOME", "relative");
    EXPECT_EQ(Resources::userFolder(), "/home/somebody/.config/scenewright");
}

TEST_F(ResourcesTest, WithoutAHomeThereIsNoUsersFolder) {
    const Environment home("HOME", std::nullopt);
    const Environment config("XDG_CONFIG_HOME", std::nullopt);
    EXPECT_EQ(Resources::userFolder(), "");
    EXPECT_EQ(Resources::searchPath(), Paths{shared_});
}

TEST_F(ResourcesTest, EachFileIsLookedForByItself) {
    Resources::setFolder(given_);
    writeText(given_ / "one.plist", listNaming("given"));
    writeText(user_ / "one.plist", listNaming("user"));
    writeText(user_ / "two.plist", listNaming("user"));
    EXPECT_EQ(Resources::find("one", "plist"), given_ / "one.plist");
    EXPECT_EQ(Resources::find("two", "plist"), user_ / "two.plist");
    EXPECT_EQ(Resources::load("one")->text(), "given");
    EXPECT_EQ(Resources::load("two")->text(), "user");
}

TEST_F(ResourcesTest, WhatTheUserDoesNotReplaceComesWithTheProgram) {
    EXPECT_EQ(Resources::find("project", "plist"), shared_ / "project.plist");
    EXPECT_EQ(Resources::load("project")->elements().size(), 1U);
}

TEST_F(ResourcesTest, AFolderOfTheNameIsNotTheFile) {
    fs::create_directory(user_ / "project.plist");
    EXPECT_EQ(Resources::find("project", "plist"), shared_ / "project.plist");
}

TEST_F(ResourcesTest, AMissingListIsAbsentAndNotLogged) {
    std::string log;
    Diagnostics::setLog([&log](std::string_view line) { log += line; });
    EXPECT_EQ(Resources::find("nothing", "plist"), std::nullopt);
    EXPECT_TRUE(Resources::load("nothing")->isAbsent());
    EXPECT_EQ(log, "");
}

TEST_F(ResourcesTest, AListThatCannotBeReadIsAbsentAndLogged) {
    std::string log;
    Diagnostics::setLog([&log](std::string_view line) { log += line; });
    writeText(user_ / "project.plist", "no list at all");
    EXPECT_TRUE(Resources::load("project")->isAbsent());
    EXPECT_EQ(log,
              "Cannot read " + (user_ / "project.plist").string() + ": it is not a property list.");
}

TEST_F(ResourcesTest, TroublesNameTheListsThatCannotBeRead) {
    writeText(user_ / "basic.plist", "no list at all");
    static constexpr std::array<std::string_view, 3> kNames{"project", "basic", "nothing"};
    EXPECT_EQ(Resources::troubles(kNames),
              std::vector<std::string>{"Cannot read " + (user_ / "basic.plist").string() +
                                       ": it is not a property list."});
}

} // namespace
} // namespace scenewright
