// Files as text, written and read in one go, what tests write into them, and a file that is
// replaced.
#pragma once

#include "platform/Files.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace scenewright {

inline void writeText(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// Changes the file without its time; with a text of the same length only its content shows it.
inline void rewriteText(const std::filesystem::path& path, const std::string& text) {
    const auto written = std::filesystem::last_write_time(path);
    writeText(path, text);
    std::filesystem::last_write_time(path, written);
}

inline std::string readText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A property list that holds the text and nothing else.
inline std::string listNaming(const std::string& text) {
    return "<plist version=\"1.0\"><string>" + text + "</string></plist>";
}

inline FileContent bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

inline mode_t modeOf(const std::filesystem::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

// A file of a folder of its own that is written.
class ReplacedFile : public ::testing::Test {
protected:
    // Writes and asks beforehand: both must say the same.
    std::string errorOfWriting(const std::filesystem::path& path) {
        const auto checked = checkReplaceable(path);
        const std::string asked = checked ? "none" : checked.error();
        const auto replaced = replaceFile(path, bytesOf("new"));
        const std::string told = replaced ? "none" : replaced.error();
        EXPECT_EQ(asked, told);
        return told;
    }

    testing::TempFolder folder_;
    std::filesystem::path file_ = folder_.path() / "a.bank";
};

} // namespace scenewright
