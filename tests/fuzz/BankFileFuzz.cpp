// Bank files of any content: images, JSON texts, and what is neither. JSON texts of one scene too.
#include "bank/BankFile.h"
#include "tests/fuzz/Checks.h"

namespace scenewright::fuzz {

namespace {

void checkScene(std::string_view text) {
    const auto scene = readBankOrSceneJson(text);
    if (!scene)
        return checkSentence(scene.error());
    if (scene->size() > 1)
        return; // a bank
    const std::string written = writeSceneJson(*scene->front(), optionLists());
    const auto again = readBankOrSceneJson(written);
    check(again && writeSceneJson(*again->front(), optionLists()) == written,
          "a scene changes when it is written and read");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright;
    fuzz::checkBank(std::span(data, size));
    fuzz::checkScene(fuzz::textOf(std::span(data, size)));
    return 0;
}
