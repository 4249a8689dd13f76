#include "tests/fuzz/Checks.h"

#include "bank/BankFile.h"
#include "model/SceneValue.h"
#include "platform/Resources.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace scenewright::fuzz {

namespace {

const std::string kName = "some bank";

// An image that is text in all its bytes counts as a JSON text that was cut short.
bool looksLikeText(std::span<const std::uint8_t> image) {
    return image.front() == '{' && std::ranges::none_of(image, [](std::uint8_t byte) {
               return (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r') || byte == 0x7F;
           });
}

void checkWritten(const SceneList& scenes, BankFormat form) {
    const auto bytes = bankBytes(scenes, form, optionLists());
    const BankImage image = encodeBank(scenes);
    if (form == BankFormat::Image && looksLikeText(image))
        return;
    const auto again = parseBank(bytes, kName);
    check(again.has_value(), "a bank that was written is refused");
    check(again->form == form, "a bank that was written is taken for the other form");
    BankImage copy = encodeBank(again->scenes);
    if (faultIsPlanted())
        copy.back() ^= 1U;
    check(copy == image, "a bank changes when it is written and read");
    check(bankBytes(again->scenes, form, optionLists()) == bytes,
          "a bank is written otherwise the second time");
}

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

void checkBank(std::span<const std::uint8_t> bytes) {
    const auto parsed = parseBank(bytes, kName);
    if (!parsed) {
        checkSentence(parsed.error());
        check(parsed.error().starts_with(kName + ": "), "the error does not name the file");
        return;
    }
    const BankFile& file = *parsed;
    check(file.scenes.size() == kSceneCount, "a bank of another count of scenes");
    if (file.form == BankFormat::Image)
        check(std::ranges::equal(encodeBank(file.scenes), bytes), "an image changes by reading");
    checkWritten(file.scenes, BankFormat::Image);
    checkWritten(file.scenes, BankFormat::Json);
    const SceneValue& first = *file.scenes.front();
    const auto alone = readBankOrSceneJson(writeSceneJson(first, optionLists()));
    check(alone && encodeScene(*alone->front()) == encodeScene(first),
          "a scene changes when it is written and read alone");
}

} // namespace scenewright::fuzz
