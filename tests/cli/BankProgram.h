// The built program with a folder of its own, for tests of its commands on banks.
#pragma once

#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace scenewright::testing {

inline const std::string kProgram = SCENEWRIGHT_BINARY_DIR "/bin/scenewright-cli";

// Names of any bytes, settings of 0 to 127.
inline std::vector<std::uint8_t> randomBank(std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<std::uint8_t> bank(1012);
    for (std::size_t i = 0; i < bank.size(); ++i)
        bank[i] = static_cast<std::uint8_t>(random() % (i % 253 < 12 ? 256U : 128U));
    return bank;
}

inline std::string readText(const std::string& path) {
    const auto bytes = readBytes(path);
    return {bytes.begin(), bytes.end()};
}

inline void writeText(const std::string& path, const std::string& text) {
    writeBytes(path, std::vector<std::uint8_t>(text.begin(), text.end()));
}

// The program with these arguments, to its end.
inline ProgramRun runCli(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), kProgram);
    return runProgram(arguments);
}

inline void expectDone(const ProgramRun& result) {
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
}

// One line on standard error that holds `part`, and nothing on standard output.
inline void expectSentence(const ProgramRun& result, int exitCode, const std::string& part) {
    EXPECT_EQ(result.exitCode, exitCode);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
    EXPECT_NE(result.errors.find(part), std::string::npos) << result.errors;
}

class BankProgram : public ::testing::Test {
protected:
    [[nodiscard]] static ProgramRun run(std::vector<std::string> arguments) {
        return runCli(std::move(arguments));
    }
    // With one of the folder's files as standard input.
    [[nodiscard]] ProgramRun shell(const std::string& arguments, const std::string& input) const {
        return runProgram({"/bin/sh", "-c", kProgram + " " + arguments + " <" + file(input)});
    }
    [[nodiscard]] std::string file(const std::string& name) const { return folder_.file(name); }
    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(file(name));
    }
    [[nodiscard]] std::vector<std::string> names() const { return folder_.names(); }

private:
    TempFolder folder_;
};

} // namespace scenewright::testing
