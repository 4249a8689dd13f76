#include "app/ListCheck.h"

#include "platform/Resources.h"
#include "platform/Text.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace scenewright {

namespace {

std::string shipped(const std::string& name) {
    std::ifstream file(*Resources::find(name, "plist"));
    return {std::istreambuf_iterator<char>(file), {}};
}

// A folder of resources that comes before the shipped ones.
class ListCheckTest : public ::testing::Test {
protected:
    void SetUp() override { Resources::setFolder(folder.path()); }
    void TearDown() override { Resources::setFolder({}); }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder.file(name + ".plist")) << text;
    }
    // The sentence, without the folder; empty when the list serves.
    std::string errorOf(const std::string& name) const {
        const auto checked = checkList(name);
        if (checked)
            return "";
        std::string text = checked.error();
        const std::string path = folder.path().string() + "/";
        if (text.starts_with(path))
            text.erase(0, path.size());
        return text;
    }

    testing::TempFolder folder;
};

TEST_F(ListCheckTest, TheShippedListsServe) {
    EXPECT_EQ(listErrors(), std::vector<std::string>{});
}

TEST_F(ListCheckTest, AListOfTheLanguageThatCannotBeReadIsTold) {
    write("basic", shipped("basic"));
    write("basic_de", "nothing of the kind");
    EXPECT_EQ(listErrors(), std::vector<std::string>{}) << "of another language";
    setTranslator([](SourceText text) {
        return text.written == std::string("basic") ? std::string("basic_de") : text.written;
    });
    const auto errors = listErrors();
    setTranslator(nullptr);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_NE(errors.front().find(folder.file("basic_de.plist")), std::string::npos);
}

TEST_F(ListCheckTest, AListThatCannotBeReadNamesItsFile) {
    for (const char* name : {"basic", "default", "project"}) {
        write(name, "nothing of the kind");
        EXPECT_NE(errorOf(name).find(folder.file(std::string(name) + ".plist") + ": "),
                  std::string::npos)
            << errorOf(name);
    }
    EXPECT_EQ(listErrors().size(), 3U);
}

TEST_F(ListCheckTest, AShortListOfTitlesIsNamed) {
    const std::string one = "<string>Pad 3</string>";
    const std::string whole = shipped("basic");
    const auto place = whole.find(one);
    ASSERT_NE(place, std::string::npos);
    write("basic", std::string(whole).erase(place, one.size()));
    EXPECT_EQ(errorOf("basic"),
              "basic.plist: the list \"control\" holds 45 titles, and 46 are needed");
}

TEST_F(ListCheckTest, AMissingListOfTitlesIsNamed) {
    write("basic", std::regex_replace(shipped("basic"), std::regex("button-assginType"), "other"));
    EXPECT_EQ(errorOf("basic"),
              "basic.plist: the list \"button-assginType\" holds 0 titles, and 3 are needed");
}

TEST_F(ListCheckTest, ADefaultSceneWithoutControlsIsTold) {
    write("default", "<plist version=\"1.0\"><dict/></plist>");
    EXPECT_EQ(errorOf("default"),
              "default.plist: the default scene holds 0 controls, and the keyboard has 45");
}

TEST_F(ListCheckTest, AListWithoutAWholePairListsNoKeyboard) {
    write("project", "<plist version=\"1.0\"><array><dict><key>VID</key><integer>1</integer>"
                     "</dict></array></plist>");
    EXPECT_EQ(errorOf("project"), "project.plist: it lists no keyboard");
}

} // namespace

} // namespace scenewright
