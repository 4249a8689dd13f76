// What the program does with bad files and bad usage: one sentence, exit code 2, nothing touched.

#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace scenewright {

using testing::ProgramRun;
using testing::runCli;
using testing::TempFolder;

namespace {

void expectOneSentence(const ProgramRun& result, int exitCode, const std::string& part) {
    EXPECT_EQ(result.exitCode, exitCode);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
    EXPECT_TRUE(result.errors.starts_with("scenewright-cli: ")) << result.errors;
    EXPECT_NE(result.errors.find(part), std::string::npos) << result.errors;
}

} // namespace

class BadBank : public ::testing::TestWithParam<std::size_t> {};

TEST_P(BadBank, OfAnotherSizeIsRefusedBySendAndShow) {
    const TempFolder folder;
    testing::writeBytes(folder.file("bad"), std::vector<std::uint8_t>(GetParam(), 1));
    const std::string sentence = folder.file("bad") + ": not a bank";
    expectOneSentence(runCli({"show", folder.file("bad")}), 2, sentence);
    expectOneSentence(runCli({"--virtual=" + folder.file("memory"), "send", folder.file("bad")}), 2,
                      sentence);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"bad"});
}

INSTANTIATE_TEST_SUITE_P(Sizes, BadBank,
                         ::testing::Values(0, 1, 252, 253, 1011, 1013, 2024, 100000));

TEST(ProgramFiles, MissingBankIsNamed) {
    const TempFolder folder;
    expectOneSentence(runCli({"show", folder.file("none")}), 2, folder.file("none"));
    expectOneSentence(runCli({"--virtual", "send", folder.file("none")}), 2, folder.file("none"));
}

TEST(ProgramFiles, FolderInPlaceOfABankIsRefused) {
    const TempFolder folder;
    expectOneSentence(runCli({"show", folder.path()}), 2, folder.path());
    expectOneSentence(runCli({"default", folder.path()}), 2, folder.path());
    expectOneSentence(runCli({"--virtual", "read", folder.path()}), 2, folder.path());
    EXPECT_TRUE(folder.names().empty());
}

TEST(ProgramFiles, MissingFolderToWriteInIsRefusedBeforeTheControllerIsAsked) {
    const TempFolder folder;
    const std::string out = folder.file("none/out");
    expectOneSentence(runCli({"--log", folder.file("log"), "--virtual", "read", out}), 2, out);
    EXPECT_TRUE(testing::readBytes(folder.file("log")).empty());
}

TEST(ProgramFiles, BadVirtualBankIsRefused) {
    const TempFolder folder;
    testing::writeBytes(folder.file("memory"), std::vector<std::uint8_t>(7, 1));
    expectOneSentence(runCli({"--virtual=" + folder.file("memory"), "read", folder.file("out")}), 2,
                      folder.file("memory"));
    EXPECT_EQ(folder.names(), std::vector<std::string>{"memory"});
}

TEST(ProgramFiles, BadPropertyListIsNamed) {
    const TempFolder folder;
    const std::string text = "<plist><dict><key>open";
    testing::writeBytes(folder.file("default.plist"),
                        {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    expectOneSentence(runCli({"--resources", folder.path(), "default", folder.file("out")}), 2,
                      folder.file("default.plist"));
    EXPECT_EQ(folder.names(), std::vector<std::string>{"default.plist"});
}

// Each command with the lists that it works with; every other one may be bad.
struct NeedsLists {
    std::vector<std::string> arguments; // BANK and OUT stand for files of the case
    std::vector<std::string> lists;
};

// For the names of the cases.
void PrintTo(const NeedsLists& row, std::ostream* out) {
    for (const std::string& argument : row.arguments)
        *out << argument << ' ';
}

class BadList : public ::testing::TestWithParam<NeedsLists> {};

void expectEndedByList(const ProgramRun& result, const std::string& list,
                       const TempFolder& folder) {
    expectOneSentence(result, 2, list);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"bank"});
    EXPECT_EQ(testing::readBytes(folder.file("bank")), testing::randomBank(1));
}

std::vector<std::string> inFolder(std::vector<std::string> arguments, const TempFolder& folder) {
    for (std::string& argument : arguments)
        if (argument == "bank" || argument.starts_with("out"))
            argument = folder.file(argument);
    return arguments;
}

TEST_P(BadList, EndsTheCommandsThatNeedItAndNoOthers) {
    const auto& [command, needed] = GetParam();
    for (const std::string list : {"basic", "default", "project"}) {
        SCOPED_TRACE(command[0] + " with a bad " + list);
        const TempFolder folder;
        const TempFolder lists;
        testing::writeBytes(folder.file("bank"), testing::randomBank(1));
        testing::writeText(lists.file(list + ".plist"), "<plist><dict><key>open");
        std::vector<std::string> arguments = inFolder(command, folder);
        arguments.insert(arguments.begin(), {"--resources", lists.path()});
        const ProgramRun result = runCli(arguments);
        if (std::ranges::find(needed, list) != needed.end())
            expectEndedByList(result, lists.file(list + ".plist"), folder);
        else
            expectDone(result);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Commands, BadList,
    ::testing::Values(
        NeedsLists{{"show", "bank"}, {"basic"}},
        NeedsLists{{"get", "bank", "scene1.pad1"}, {"basic"}},
        NeedsLists{{"set", "bank", "scene1.pad1.CR=1"}, {"basic"}},
        NeedsLists{{"copy", "bank", "scene1", "scene2"}, {}},
        NeedsLists{{"diff", "bank", "bank"}, {"basic"}},
        NeedsLists{{"convert", "bank", "out.bank"}, {}},
        NeedsLists{{"convert", "bank", "out.json"}, {"basic"}},
        NeedsLists{{"default", "out.bank"}, {"default"}},
        NeedsLists{{"default", "out.json"}, {"default", "basic"}},
        NeedsLists{{"udev-rules"}, {"project"}}, NeedsLists{{"devices"}, {"project"}},
        NeedsLists{{"--virtual", "read", "out.bank"}, {"project", "default"}},
        NeedsLists{{"--virtual", "read", "out.json"}, {"project", "basic", "default"}},
        NeedsLists{{"--virtual", "send", "bank"}, {"project", "default"}},
        NeedsLists{{"--virtual", "send", "bank", "--verify"}, {"project", "basic", "default"}}));

TEST(ProgramFiles, BadUsageIsOneSentence) {
    const TempFolder folder;
    expectOneSentence(runCli({}), 2, "--help");
    expectOneSentence(runCli({"dance"}), 2, "dance");
    expectOneSentence(runCli({"read"}), 2, "OUT");
    expectOneSentence(runCli({"show", folder.file("x"), "--scene", "5"}), 2, "--scene");
    expectOneSentence(runCli({"show", folder.file("x"), "--scene", "one"}), 2, "--scene");
    expectOneSentence(runCli({"--resources", folder.file("none"), "default", folder.file("x")}), 2,
                      folder.file("none"));
    expectOneSentence(runCli({"--log", folder.file("none/log"), "default", folder.file("x")}), 2,
                      folder.file("none/log"));
    EXPECT_TRUE(folder.names().empty());
}

TEST(ProgramFiles, HelpAndVersionGoToStandardOutput) {
    const ProgramRun help = runCli({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.errors, "");
    for (const char* part : {"read", "send", "show", "default", "--virtual", "Exit code"})
        EXPECT_NE(help.output.find(part), std::string::npos) << part;
    const ProgramRun version = runCli({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_TRUE(version.output.starts_with("scenewright-cli 0.")) << version.output;
}

} // namespace scenewright
