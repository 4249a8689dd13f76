// The faults that the virtual controller is ordered to have: taken ones mean what they say, refused
// ones are told in one sentence.
#include "tests/fuzz/Checks.h"
#include "virtual/Fault.h"

#include <fmt/format.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright;
    const std::string_view text = fuzz::textOf(std::span(data, size));
    std::string trouble;
    const auto fault = parseFault(text, trouble);
    if (!fault) {
        fuzz::checkSentence(trouble);
        return 0;
    }
    fuzz::check(trouble.empty(), "taken, and yet there is trouble");
    const std::uint32_t count = fault->count + (fuzz::faultIsPlanted() ? 1U : 0U);
    const std::string again = fmt::format("{}:{}", text.substr(0, text.find(':')), count);
    fuzz::check(parseFault(again, trouble) == fault, "a fault does not count as it says");
    return 0;
}
