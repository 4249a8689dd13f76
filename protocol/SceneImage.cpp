#include "protocol/SceneImage.h"

#include "model/ValueAction.h"
#include "platform/Diagnostics.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

namespace {

// One setting's run of bytes: its value in each member of its kind, in order.
struct Block {
    const Setting* setting = nullptr;
    std::size_t offset = 0;
    std::int32_t count = 0;
};

using Layout = std::array<Block, kSettingCount>;

// The blocks follow the name and each other without a gap, in the order of the settings.
consteval Layout layOut() {
    Layout layout{};
    std::size_t offset = kNameSize;
    for (std::size_t i = 0; i < kSettingCount; ++i) {
        const std::int32_t count = controlRange(kSettings[i].kind()).count;
        layout[i] = {&kSettings[i], offset, count};
        offset += static_cast<std::size_t>(count);
    }
    return layout;
}

constexpr Layout kLayout = layOut();

void writeName(const SceneValue& scene, SceneImage& image) {
    const auto name = std::span(image).first<kNameSize>();
    std::ranges::fill(name, static_cast<std::uint8_t>(ValueAction::GetFrom127WirhStr("00")));
    if (!scene.commonValue())
        return;
    const std::string& text = scene.commonValue()->SceneName();
    std::ranges::copy(std::string_view(text).substr(0, kNameSize), name.begin());
}

void parseBlock(const Block& block, std::span<const std::uint8_t> images, std::size_t base,
                const SceneValue& scene, bool logged) {
    for (std::int32_t k = 0; k < block.count; ++k) {
        const std::size_t position = base + block.offset + static_cast<std::size_t>(k);
        const std::int32_t index =
            ValueAction::GetFrom127WirhChar(static_cast<std::int8_t>(images[position]));
        block.setting->write(scene, k, index);
        if (logged && block.setting->kind() == ControlKind::Group)
            Diagnostics::log("index------>%d:%d", position, index);
    }
}

std::shared_ptr<SceneValue> parseSceneAt(std::span<const std::uint8_t> images, std::size_t base,
                                         bool logged) {
    auto scene = blankScene();
    const auto name = images.subspan(base, kNameSize);
    scene->commonValue()->setSceneName(std::string(name.begin(), name.end()));
    for (const Block& block : kLayout)
        parseBlock(block, images, base, *scene, logged);
    return scene;
}

} // namespace

void markFieldsAbsent(ButtonValue& button) {
    for (const IndexField<ButtonValue>& field : kButtonOptionFields)
        field.set(button, kFieldAbsent);
}

std::shared_ptr<SceneValue> blankScene() {
    auto scene = std::make_shared<SceneValue>();
    scene->setCommonValue(std::make_shared<CommonValue>());
    std::vector<std::shared_ptr<ButtonValue>> buttons(kControlCount);
    for (auto& button : buttons) {
        button = std::make_shared<ButtonValue>();
        markFieldsAbsent(*button);
    }
    scene->setButtonValueArray(std::move(buttons));
    return scene;
}

SceneImage encodeScene(const SceneValue& scene) {
    SceneImage image{};
    writeName(scene, image);
    for (const Block& block : kLayout)
        for (std::int32_t k = 0; k < block.count; ++k)
            image[block.offset + static_cast<std::size_t>(k)] = static_cast<std::uint8_t>(
                ValueAction::GetFrom127WithIndex(block.setting->read(scene, k)));
    return image;
}

SceneList parseScenes(std::span<const std::uint8_t> images) {
    SceneList scenes;
    for (std::size_t base = 0; images.size() - base >= kSceneImageSize; base += kSceneImageSize)
        scenes.push_back(parseSceneAt(images, base, true));
    return scenes;
}

std::shared_ptr<SceneValue> sceneFrom(std::span<const std::uint8_t, kSceneImageSize> image) {
    return parseSceneAt(image, 0, false);
}

} // namespace scenewright
