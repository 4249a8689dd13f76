// The main job over the built program: default, read, send, show, on the virtual controller.

#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <sstream>

namespace scenewright {

using testing::expectDone;
using testing::ProgramRun;
using testing::randomBank;
using testing::readBytes;
using testing::runCli;
using testing::TempFolder;
using testing::writeBytes;

namespace {

using Bytes = std::vector<std::uint8_t>;

std::size_t lineCount(const Bytes& bytes) {
    return static_cast<std::size_t>(std::ranges::count(bytes, '\n'));
}

} // namespace

TEST(Program, DefaultWritesFourNamedScenes) {
    const TempFolder folder;
    expectDone(runCli({"default", folder.file("bank")}));
    const Bytes bank = readBytes(folder.file("bank"));
    ASSERT_EQ(bank.size(), 1012U);
    for (std::size_t scene = 0; scene < 4; ++scene) {
        Bytes name(12);
        std::ranges::copy(std::string("SCENE") + std::to_string(scene + 1), name.begin());
        EXPECT_TRUE(
            std::equal(name.begin(), name.end(), bank.begin() + static_cast<int>(scene) * 253));
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{"bank"});
}

TEST(Program, ReadsWhatTheVirtualControllerHoldsAndSendsItBack) {
    const TempFolder folder;
    const Bytes held = randomBank(1);
    const Bytes other = randomBank(2);
    const std::string virtualBank = "--virtual=" + folder.file("held");
    writeBytes(folder.file("held"), held);
    writeBytes(folder.file("other"), other);

    expectDone(runCli({virtualBank, "read", folder.file("first")}));
    EXPECT_EQ(readBytes(folder.file("first")), held);
    expectDone(runCli({virtualBank, "send", folder.file("other")}));
    EXPECT_EQ(readBytes(folder.file("held")), other);
    expectDone(runCli({virtualBank, "read", folder.file("second")}));
    EXPECT_EQ(readBytes(folder.file("second")), other);
}

TEST(Program, SettingByteFrom128ReadsAsZero) {
    const TempFolder folder;
    Bytes held = randomBank(3);
    held[100] = 0x80;
    held[1011] = 0xFF;
    writeBytes(folder.file("held"), held);
    const ProgramRun read =
        runCli({"--virtual=" + folder.file("held"), "read", folder.file("out")});
    EXPECT_EQ(read.exitCode, 0);
    EXPECT_EQ(read.errors,
              "scenewright-cli: The keyboard holds values above 127, which scenes cannot "
              "hold; read as 0 instead: 2\n");
    held[100] = 0;
    held[1011] = 0;
    EXPECT_EQ(readBytes(folder.file("out")), held);
}

TEST(Program, MissingVirtualBankStartsWithTheDefaultScenes) {
    const TempFolder folder;
    expectDone(runCli({"default", folder.file("default")}));
    expectDone(runCli({"--virtual=" + folder.file("new"), "read", folder.file("out")}));
    EXPECT_EQ(readBytes(folder.file("out")), readBytes(folder.file("default")));
    EXPECT_FALSE(std::filesystem::exists(folder.file("new")));
}

TEST(Program, StreamsAreOffUnlessNamed) {
    const TempFolder folder;
    const ProgramRun quiet = runCli({"--virtual", "read", folder.file("out")});
    expectDone(quiet);
    EXPECT_EQ(quiet.output, "");
    expectDone(runCli({"--virtual", "--console", folder.file("console"), "--log",
                       folder.file("log"), "read", folder.file("out")}));
    // A line for each read and each write, and those of discovery.
    EXPECT_GT(lineCount(readBytes(folder.file("console"))), 1016U + 1014U);
    // Pause, sent packet and received transfer of each exchange.
    EXPECT_GT(lineCount(readBytes(folder.file("log"))), 3000U);
}

TEST(Program, DashSendsAStreamToStandardError) {
    const TempFolder folder;
    const ProgramRun loud = runCli({"--virtual", "--log", "-", "read", folder.file("out")});
    EXPECT_EQ(loud.exitCode, 0);
    EXPECT_NE(loud.errors.find("handshake yes\n"), std::string::npos);
    EXPECT_EQ(loud.output, "");
}

TEST(Program, ShowPrintsEverySceneWithin80Columns) {
    const TempFolder folder;
    expectDone(runCli({"default", folder.file("bank")}));
    const ProgramRun shown = runCli({"show", folder.file("bank")});
    expectDone(shown);
    std::istringstream lines(shown.output);
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(std::ranges::count_if(line, [](char c) { return (c & 0xC0) != 0x80; }), 80)
            << line;
    for (const char* heading : {"Scene 1: SCENE1\n", "Scene 4: SCENE4\n"})
        EXPECT_NE(shown.output.find(heading), std::string::npos);
}

TEST(Program, ShowOfOneSceneShowsThatOneOnly) {
    const TempFolder folder;
    expectDone(runCli({"default", folder.file("bank")}));
    const ProgramRun shown = runCli({"show", folder.file("bank"), "--scene", "3"});
    expectDone(shown);
    EXPECT_TRUE(shown.output.starts_with("Scene 3: SCENE3\n")) << shown.output;
    EXPECT_EQ(shown.output.find("SCENE4"), std::string::npos);
}

} // namespace scenewright
