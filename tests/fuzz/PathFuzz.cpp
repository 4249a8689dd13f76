// Paths: what is taken names settings whose own paths are taken too; what is refused says where.
#include "bank/SettingText.h"
#include "tests/fuzz/Checks.h"

#include <charconv>

namespace scenewright::fuzz {

namespace {

void checkPlaces(const Path& path) {
    const auto places = settingsAt(path);
    check(!places.empty(), "a path of no setting");
    for (const SettingPlace& place : places) {
        const auto own = parsePath(pathOf(place));
        check(own.has_value(), "the path of a setting is refused");
        const auto again = settingsAt(*own);
        check(again.size() == (faultIsPlanted() ? 0U : 1U) && again.front() == place,
              "the path of a setting names another");
        checkSentence(wordsOf(place));
    }
}

void checkRefusal(std::string_view text, const std::string& error) {
    constexpr std::string_view kMark = ": at character ";
    checkSentence(error);
    check(error.ends_with(" was expected"), "not told what was expected");
    const std::size_t mark = error.rfind(kMark);
    check(mark != std::string::npos, "not told where");
    std::size_t at = 0;
    std::from_chars(error.data() + mark + kMark.size(), error.data() + error.size(), at);
    check(at >= 1 && at <= text.size() + 1, "a character outside the path");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright;
    const std::string_view text = fuzz::textOf(std::span(data, size));
    if (const auto path = parsePath(text))
        fuzz::checkPlaces(*path);
    else
        fuzz::checkRefusal(text, path.error());
    return 0;
}
