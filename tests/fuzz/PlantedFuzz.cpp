// A unit with a fault that the search itself has to find behind a few right bytes: a byte read
// behind the end of the heap's, or, when a fault is planted, a sum that does not fit. Shows that
// coverage leads there and that the sanitizers end the run.
#include "tests/fuzz/Checks.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace scenewright::fuzz {

namespace {

// Reads one byte too many.
std::uint8_t lastOf(std::span<const std::uint8_t> bytes) {
    const auto copy = std::make_unique<std::uint8_t[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), copy.get());
    const volatile std::uint8_t* const start = copy.get();
    return start[bytes.size()];
}

std::int32_t next(std::int32_t number) {
    return number + 1;
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright::fuzz;
    const std::string_view text = textOf(std::span(data, size));
    if (!text.starts_with("fault:"))
        return 0;
    if (faultIsPlanted())
        check(next(std::numeric_limits<std::int32_t>::max()) != 0, "the sum was taken");
    else
        static_cast<void>(lastOf(std::span(data, size)));
    return 0;
}
