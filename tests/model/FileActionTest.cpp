#include "model/FileAction.h"

#include "platform/Resources.h"
#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace scenewright {
namespace {

// Only the test's own resource folder is seen: the user's is one without files, and the test
// program stands in a folder of its own (see CMakeLists.txt), beside no resources.
class FileActionTest : public ::testing::Test {
protected:
    FileActionTest() {
        ::setenv("XDG_CONFIG_HOME", folder_.file("no-config").c_str(), 1);
        Resources::setFolder(folder_.path());
    }
    ~FileActionTest() override { Resources::setFolder({}); }

    void writeDefault(const std::string& rootEntries) const {
        writeFile(R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)" +
                  rootEntries + "</dict></plist>");
    }
    void writeFile(const std::string& content) const {
        const std::filesystem::path file = folder_.file("default.plist");
        if (std::filesystem::exists(file))
            rewriteText(file, content); // as the same file by its time
        else
            writeText(file, content);
    }

private:
    testing::TempFolder folder_;
};

std::string entry(const std::string& key, const std::string& node) {
    return "<key>" + key + "</key>" + node;
}

std::string numberOf(const std::string& key, int value) {
    return entry(key, "<integer>" + std::to_string(value) + "</integer>");
}

std::string arrayOf(const std::string& first, const std::string& second) {
    return entry("ButtonArray",
                 "<array><dict>" + first + "</dict><dict>" + second + "</dict></array>");
}

TEST_F(FileActionTest, ControlsComeInTheOrderOfTheFile) {
    writeDefault(arrayOf(numberOf("MIDIChannel", 3), numberOf("CR", 127)) +
                 entry("CommonValue", "<dict>" + numberOf("keyTranspose", 2) + "</dict>"));
    const auto scene = FileAction::GetSceneFromDefault();
    ASSERT_EQ(scene->buttonValueArray().size(), 2U);
    EXPECT_EQ(scene->buttonValueArray()[0]->MIDIChannel(), 3);
    EXPECT_EQ(scene->buttonValueArray()[0]->CR(), 0);
    EXPECT_EQ(scene->buttonValueArray()[1]->CR(), 127);
    EXPECT_EQ(scene->commonValue()->KeyTranspose(), 2);
    EXPECT_TRUE(scene->displayValue().empty());
}

TEST_F(FileActionTest, NameIsEmptyWhateverTheFileHolds) {
    writeDefault(
        entry("CommonValue", "<dict>" + entry("SceneName", "<string>X</string>") + "</dict>") +
        entry("SceneName", "<string>Y</string>"));
    EXPECT_EQ(FileAction::GetSceneFromDefault()->commonValue()->SceneName(), "");
}

TEST_F(FileActionTest, TwoScenesShareNothing) {
    writeDefault(arrayOf(numberOf("CR", 1), numberOf("CR", 2)));
    const auto first = FileAction::GetSceneFromDefault();
    const auto second = FileAction::GetSceneFromDefault();
    first->buttonValueArray()[0]->setCR(99);
    first->commonValue()->setKeyTranspose(8);
    EXPECT_EQ(second->buttonValueArray()[0]->CR(), 1);
    EXPECT_EQ(second->commonValue()->KeyTranspose(), 0);
}

TEST_F(FileActionTest, FileIsReadAnewAtEachCall) {
    for (const int red : {1, 7, 3}) {
        writeDefault(arrayOf(numberOf("CR", red), numberOf("CR", 2)));
        EXPECT_EQ(FileAction::GetSceneFromDefault()->buttonValueArray()[0]->CR(), red);
    }
}

TEST_F(FileActionTest, UnreadableFileGivesNoControlsAndZeros) {
    writeFile("this is no property list");
    const auto scene = FileAction::GetSceneFromDefault();
    EXPECT_TRUE(scene->buttonValueArray().empty());
    ASSERT_NE(scene->commonValue(), nullptr);
    EXPECT_EQ(scene->commonValue()->SceneName(), "");
    EXPECT_EQ(scene->commonValue()->GlobalMIDICh(), 0);
    EXPECT_EQ(scene->commonValue()->PadConstVelocity(), 0);
}

TEST_F(FileActionTest, FileWithoutTheTwoKeysGivesNoControlsAndZeros) {
    writeDefault("");
    const auto scene = FileAction::GetSceneFromDefault();
    EXPECT_TRUE(scene->buttonValueArray().empty());
    ASSERT_NE(scene->commonValue(), nullptr);
    EXPECT_EQ(scene->commonValue()->KeyTranspose(), 0);
}

TEST_F(FileActionTest, MissingFileGivesNoControlsAndZeros) {
    ASSERT_EQ(Resources::find("default", "plist"), std::nullopt);
    const auto scene = FileAction::GetSceneFromDefault();
    EXPECT_TRUE(scene->buttonValueArray().empty());
    ASSERT_NE(scene->commonValue(), nullptr);
    EXPECT_EQ(scene->commonValue()->PitchBendSpeed(), 0);
}

} // namespace
} // namespace scenewright
