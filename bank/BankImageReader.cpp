#include "bank/BankImageReader.h"

#include "bank/BankJson.h"
#include "bank/JsonTree.h"
#include "model/Control.h"
#include "model/Setting.h"
#include "platform/Translator.h"
#include "protocol/SceneImage.h"

namespace scenewright {

namespace {

// Where a JSON text would have the value, so that both forms name a place alike.
std::string placeOf(std::size_t scene, const Setting& setting, std::int32_t control) {
    std::string place = memberPlace(elementPlace("scenes", scene), controlsKey(setting.kind()));
    if (setting.kind() != ControlKind::Common)
        place = elementPlace(place, static_cast<std::size_t>(control));
    return memberPlace(place, setting.name());
}

// The fields stand in the order of the settings, right behind the name.
std::optional<std::string> readScene(std::span<const std::uint8_t> bytes, std::size_t number,
                                     const SceneValue& scene) {
    const auto name = bytes.first(kNameSize);
    scene.commonValue()->setSceneName(std::string(name.begin(), name.end()));
    auto next = bytes.begin() + kNameSize;
    for (const Setting& setting : settings()) {
        for (std::int32_t k = 0; k < controlRange(setting.kind()).count; ++k, ++next) {
            if (*next > kLargestSettingValue)
                return notAValue(placeOf(number, setting, k), std::to_string(*next));
            setting.write(scene, k, *next);
        }
    }
    return std::nullopt;
}

} // namespace

BankContent readBankImage(std::span<const std::uint8_t> bytes) {
    if (bytes.size() != kBankSize)
        return {
            {},
            translated(sourceText("scenewright::Bank",
                                  "not a bank: it holds {} bytes, and a bank holds {} or is JSON"),
                       bytes.size(), kBankSize)};
    SceneList scenes;
    for (std::size_t number = 0; number < kSceneCount; ++number) {
        scenes.push_back(blankScene());
        if (auto trouble = readScene(bytes.subspan(number * kSceneImageSize, kSceneImageSize),
                                     number, *scenes.back()))
            return {{}, std::move(trouble)};
    }
    return {std::move(scenes), std::nullopt};
}

} // namespace scenewright
