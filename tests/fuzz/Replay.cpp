// Takes the place of the fuzzing engine where there is none: the unit gets each input of a list
// once.
#include <fmt/format.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int kCheckFailed = 77;

std::string contents(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error(fmt::format("Cannot read {}.", path.string()));
    return {std::istreambuf_iterator<char>(file), {}};
}

// The list is the engine's own: paths with commas between.
std::size_t replay(const char* list) {
    std::istringstream paths(contents(list));
    std::size_t count = 0;
    for (std::string path; std::getline(paths, path, ','); ++count) {
        const std::string text = contents(path);
        // Of exactly its size, so that a byte read behind its end is seen.
        const std::vector<std::uint8_t> input(text.begin(), text.end());
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    return count;
}

} // namespace

int main(int count, char** arguments) try {
    // As the engine does: a check that fails gives an exit code, which ctest can expect.
    static_cast<void>(std::signal(SIGABRT, [](int) { std::_Exit(kCheckFailed); }));
    std::size_t inputs = 0;
    for (int index = 1; index < count; ++index)
        inputs += replay(arguments[index]);
    fmt::print("{} inputs\n", inputs);
    return inputs == 0 ? 1 : 0;
} catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
}
