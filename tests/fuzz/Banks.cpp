#include "tests/fuzz/Banks.h"

#include "bank/BankFile.h"
#include "model/SceneValue.h"

#include <algorithm>

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

} // namespace

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
