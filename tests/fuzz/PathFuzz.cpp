// Paths: what is taken names settings whose own paths are taken too; what is refused says where.
#include "bank/Path.h"
#include "tests/fuzz/Checks.h"

#include <charconv>

namespace scenewright::fuzz {

namespace {

void checkPlaces(const Path& path) {
    const auto places = settingsAt(path);
    check(!places.empty(), "a path of no setting");
    for (const SettingPlace& place : places) {
        const PathResult own = parsePath(pathOf(place));
        check(own.path.has_value(), "the path of a setting is refused");
        const auto again = settingsAt(*own.path);
        check(again.size() == (faultIsPlanted() ? 0U : 1U) && again.front() == place,
              "the path of a setting names another");
        checkSentence(wordsOf(place));
    }
}

void checkRefusal(std::string_view text, const std::string& trouble) {
    constexpr std::string_view kMark = ": at character ";
    checkSentence(trouble);
    check(trouble.ends_with(" was expected"), "not told what was expected");
    const std::size_t mark = trouble.rfind(kMark);
    check(mark != std::string::npos, "not told where");
    std::size_t at = 0;
    std::from_chars(trouble.data() + mark + kMark.size(), trouble.data() + trouble.size(), at);
    check(at >= 1 && at <= text.size() + 1, "a character outside the path");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright;
    const std::string_view text = fuzz::textOf(std::span(data, size));
    const PathResult result = parsePath(text);
    if (result.path) {
        fuzz::check(result.trouble.empty(), "taken, and yet there is trouble");
        fuzz::checkPlaces(*result.path);
    } else {
        fuzz::checkRefusal(text, result.trouble);
    }
    return 0;
}
