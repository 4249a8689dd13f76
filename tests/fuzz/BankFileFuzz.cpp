// Bank files of any content: images, JSON texts, and what is neither. JSON texts of one scene too.
#include "bank/BankJson.h"
#include "tests/fuzz/Banks.h"

namespace scenewright::fuzz {

namespace {

void checkScene(std::string_view text) {
    const BankContent scene = readSceneJson(text);
    if (scene.trouble) {
        checkTrouble(scene.trouble);
        check(scene.scenes.empty(), "refused, and yet there is a scene");
        return;
    }
    check(scene.scenes.size() == 1, "not one scene");
    const std::string written = writeSceneJson(*scene.scenes.front(), optionLists());
    const BankContent again = readSceneJson(written);
    check(!again.trouble && writeSceneJson(*again.scenes.front(), optionLists()) == written,
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
