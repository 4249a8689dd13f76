// The built program with a folder of its own, for tests of its commands on banks, and a command of
// it in the test's own process.
#pragma once

#include "cli/Command.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace scenewright::testing {

inline const std::string kProgram = SCENEWRIGHT_BINARY_DIR "/bin/scenewright-cli";
inline const std::string kProgramInShell = "'" + kProgram + "'"; // its folder may have blanks

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

inline void expectDone(const ProgramRun& result) {
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
}

// One line on standard error that holds `part`, and nothing on standard output.
inline void expectSentence(const ProgramRun& result, int exitCode, const std::string& part) {
    EXPECT_EQ(result.exitCode, exitCode);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
    EXPECT_TRUE(result.errors.starts_with("scenewright-cli: ")) << result.errors;
    EXPECT_NE(result.errors.find(part), std::string::npos) << result.errors;
}

// Runs what a line says whose words have no spaces in them; the program's name is not among them.
inline int runCommand(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words{"scenewright-cli"};
    for (std::string word; stream >> word;)
        words.push_back(word);
    std::vector<const char*> pointers;
    pointers.reserve(words.size());
    for (const std::string& word : words)
        pointers.push_back(word.c_str());
    const CommandLine chosen =
        parseCommandLine(static_cast<int>(pointers.size()), pointers.data()).value();
    return chosen.choice.run(chosen.arguments);
}

class BankProgram : public ::testing::Test {
protected:
    // With these words of a shell in the folder: "show - --scene 2 <a.bank".
    [[nodiscard]] ProgramRun cli(const std::string& words) const {
        return shell("exec " + kProgramInShell + " " + words);
    }
    [[nodiscard]] ProgramRun shell(const std::string& script) const {
        return runProgram({"/bin/sh", "-c", "export XDG_STATE_HOME=\"$1\"; cd \"$0\" && " + script,
                           folder_.path(), state_.path()});
    }
    void done(const std::string& words) const {
        SCOPED_TRACE(words);
        expectDone(cli(words));
    }
    // Done, and standard error tells changed settings at most.
    void changed(const std::string& words) const {
        const ProgramRun result = cli(words);
        EXPECT_EQ(result.exitCode, 0) << words;
        std::istringstream lines(result.errors);
        for (std::string line; std::getline(lines, line);)
            EXPECT_TRUE(line.starts_with("scene") && line.find("-cli:") == std::string::npos &&
                        line.find(" -> ") != std::string::npos)
                << words << ": " << line;
    }
    // One line on standard error that holds `part`, nothing on standard output, and no file
    // touched.
    void refused(const std::string& words, const std::string& part, int exitCode = 2) const {
        SCOPED_TRACE(words);
        const auto before = files();
        expectSentence(cli(words), exitCode, part);
        EXPECT_EQ(files(), before);
    }

    [[nodiscard]] std::string file(const std::string& name) const { return folder_.file(name); }
    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(file(name));
    }
    [[nodiscard]] std::vector<std::string> names() const { return folder_.names(); }
    [[nodiscard]] std::string text(const std::string& name) const { return readText(file(name)); }
    [[nodiscard]] std::vector<std::uint8_t> bytes(const std::string& name) const {
        return readBytes(file(name));
    }
    void put(const std::string& name, const std::vector<std::uint8_t>& bytes) const {
        writeBytes(file(name), bytes);
    }
    void put(const std::string& name, const std::string& text) const {
        writeText(file(name), text);
    }
    [[nodiscard]] std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> files;
        for (const std::string& name : names())
            if (std::filesystem::is_regular_file(file(name)))
                files[name] = text(name);
            else
                files[name] = "";
        return files;
    }

private:
    TempFolder folder_;
    TempFolder state_; // what the programs keep
};

} // namespace scenewright::testing
