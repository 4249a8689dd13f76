// Files as text, written and read in one go, and what tests write into them.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

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

} // namespace scenewright
