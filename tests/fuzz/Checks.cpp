#include "tests/fuzz/Checks.h"

#include "model/SceneValue.h"
#include "platform/Resources.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>

namespace scenewright::fuzz {

namespace {

void useOwnResources() {
    Resources::setFolder(SCENEWRIGHT_SOURCE_DIR "/resources");
}

} // namespace

void check(bool holds, std::string_view what) {
    if (holds)
        return;
    fmt::print(stderr, "CHECK FAILED: {}\n", what);
    std::abort();
}

void checkSentence(std::string_view text) {
    constexpr std::string_view kOpenEnds = " ,:;(";
    check(!text.empty(), "a sentence is empty");
    check(readableText(text) == text, fmt::format("unreadable bytes in \"{}\"", text));
    check(kOpenEnds.find(text.back()) == std::string_view::npos,
          fmt::format("\"{}\" is no whole sentence", text));
}

void checkTrouble(const std::optional<std::string>& trouble) {
    check(trouble.has_value(), "refused without a reason");
    checkSentence(*trouble);
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

bool faultIsPlanted() {
    static const bool isPlanted = std::getenv("SCENEWRIGHT_FUZZ_PLANT") != nullptr;
    return isPlanted;
}

const PopUpValue& optionLists() {
    static const std::shared_ptr<PopUpValue> lists = [] {
        useOwnResources();
        return loadPopUpValue();
    }();
    return *lists;
}

SceneList defaultScenes() {
    useOwnResources();
    static const SceneImage image = encodeScene(*FileAction::GetSceneFromDefault());
    SceneList scenes;
    for (int number = 1; number <= 4; ++number) {
        scenes.push_back(parseScenes(image).front());
        scenes.back()->commonValue()->setSceneName(fmt::format("SCENE{}", number));
    }
    return scenes;
}

} // namespace scenewright::fuzz
