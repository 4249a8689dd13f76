#include "platform/Resources.h"

#include "platform/Diagnostics.h"
#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

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
        Diagnostics::setConsole({});
    }

    testing::TempFolder folder_;
    fs::path given_ = folder_.path() / "given";
    fs::path user_ = folder_.path() / "config" / "scenewright";
    Environment config_{"XDG_CONFIG_HOME", (folder_.path() / "config").string()};
    fs::path shared_ = fs::path(SCENEWRIGHT_BINARY_DIR) / "share" / "scenewright";
};

using Paths = std::vector<fs::path>;

TEST_F(ResourcesTest, TheFoldersThatThereAreAreSearchedInTheirOrder) {
    EXPECT_EQ(Resources::searchPath(), (Paths{user_, shared_}));
    EXPECT_EQ(Resources::userFolder(), user_);
    Resources::setFolder(given_);
    EXPECT_EQ(Resources::searchPath(), (Paths{given_, user_, shared_}));
    const Environment home("HOME", std::nullopt);
    const Environment config("XDG_CONFIG_HOME", std::nullopt);
    EXPECT_EQ(Resources::userFolder(), std::nullopt);
    EXPECT_EQ(Resources::searchPath(), (Paths{given_, shared_}));
}

TEST_F(ResourcesTest, EachFileIsLookedForByItself) {
    Resources::setFolder(given_);
    writeText(given_ / "one.plist", listNaming("given"));
    writeText(user_ / "one.plist", listNaming("user"));
    writeText(user_ / "two.plist", listNaming("user"));
    EXPECT_EQ(Resources::find("one", "plist"), given_ / "one.plist");
    EXPECT_EQ(Resources::find("two", "plist"), user_ / "two.plist");
    EXPECT_EQ(Resources::load("one").text(), "given");
    EXPECT_EQ(Resources::load("two").text(), "user");
    EXPECT_EQ(Resources::find("project", "plist"), shared_ / "project.plist");
    EXPECT_EQ(Resources::load("project").elements().size(), 1U);
}

TEST_F(ResourcesTest, AListIsReadAnewEachTime) {
    const auto textOf = [] { return std::string(Resources::load("one").text()); };
    const fs::path file = user_ / "one.plist";
    writeText(file, listNaming("one"));
    EXPECT_EQ(textOf(), "one");
    rewriteText(file, listNaming("two"));
    EXPECT_EQ(textOf(), "two");
    Resources::forgetLists();
    EXPECT_EQ(textOf(), "two");
    fs::remove(file);
    EXPECT_EQ(textOf(), "");
}

std::string listErrorOf(const Result<PropertyValue>& list) {
    return list ? "none" : list.error();
}

TEST_F(ResourcesTest, AMissingListIsToldByItsName) {
    EXPECT_EQ(Resources::find("nothing", "plist"), std::nullopt);
    EXPECT_EQ(listErrorOf(Resources::read("nothing")),
              "nothing.plist: not found among the program's resources");
    EXPECT_TRUE(Resources::load("nothing").isAbsent());
}

TEST_F(ResourcesTest, AListThatCannotBeReadIsToldByReadingAloneAndHidesTheOneBehindIt) {
    std::string written;
    Diagnostics::setLog([&](std::string_view line) { written += line; });
    Diagnostics::setConsole([&](std::string_view text) { written += text; });
    const fs::path file = user_ / "project.plist";
    const auto expectTold = [&file](const std::string& why) {
        EXPECT_EQ(listErrorOf(Resources::read("project")),
                  "Cannot read " + file.string() + ": " + why);
        EXPECT_TRUE(Resources::load("project").isAbsent());
        fs::remove(file);
    };
    writeText(file, "no list at all");
    expectTold("it is not a property list");
    fs::create_directory(file);
    expectTold("it is a folder");
    fs::create_symlink("nowhere", file);
    expectTold("it is a link to a file that does not exist");
    EXPECT_EQ(written, "");
}

struct XdgCase {
    std::optional<std::string> config;
    std::optional<std::string> state;
    std::optional<std::string> home;
    std::optional<fs::path> configFolder;
    std::optional<fs::path> stateFolder;
};

TEST(XdgFolder, FollowsTheEnvironmentWithAbsolutePathsAlone) {
    const std::optional<std::string> unset;
    const std::vector<XdgCase> cases{
        {"/c", "/s", "/h", "/c/scenewright", "/s/scenewright"},
        {"/c", "/s", unset, "/c/scenewright", "/s/scenewright"},
        {unset, unset, "/h", "/h/.config/scenewright", "/h/.local/state/scenewright"},
        {"", "", "/h", "/h/.config/scenewright", "/h/.local/state/scenewright"},
        {"c", "./s", "/h", "/h/.config/scenewright", "/h/.local/state/scenewright"},
        {"c", "s", "h", std::nullopt, std::nullopt},
        {unset, unset, "h", std::nullopt, std::nullopt},
        {unset, unset, "", std::nullopt, std::nullopt},
        {unset, unset, unset, std::nullopt, std::nullopt},
    };
    for (const XdgCase& row : cases) {
        const Environment config("XDG_CONFIG_HOME", row.config);
        const Environment state("XDG_STATE_HOME", row.state);
        const Environment home("HOME", row.home);
        const auto place = &row - cases.data();
        EXPECT_EQ(xdgFolder(XdgFolder::Config), row.configFolder) << "row " << place;
        EXPECT_EQ(xdgFolder(XdgFolder::State), row.stateFolder) << "row " << place;
    }
}

} // namespace
} // namespace scenewright
