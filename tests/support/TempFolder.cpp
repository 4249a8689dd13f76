#include "tests/support/TempFolder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace scenewright::testing {

TempFolder::TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "scenewright-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no folder could be made for the test");
    path_ = name;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::vector<std::string> TempFolder::names() const {
    std::vector<std::string> list;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
        list.push_back(entry.path().filename().string());
    std::ranges::sort(list);
    return list;
}

void writeBytes(const std::string& path, std::span<const std::uint8_t> bytes) {
    std::ofstream file(path, std::ios::binary);
    for (const std::uint8_t byte : bytes)
        file.put(static_cast<char>(byte));
    if (!file.flush())
        throw std::runtime_error("cannot write " + path);
}

std::vector<std::uint8_t> readBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace scenewright::testing
