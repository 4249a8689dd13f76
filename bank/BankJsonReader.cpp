#include "bank/BankJson.h"
#include "bank/JsonTree.h"
#include "bank/SettingText.h"
#include "model/Setting.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace scenewright {

namespace {

using Kind = JsonNode::Kind;
using Trouble = std::optional<std::string>;
using Keys = std::vector<std::string_view>;

// In sentences of the form "PLACE must be ..., and is ...".
constexpr SourceText kText = sourceText("scenewright::Bank", "a text");
constexpr SourceText kArray = sourceText("scenewright::Bank", "an array");
constexpr SourceText kObject = sourceText("scenewright::Bank", "an object");

std::string found(const JsonNode& node) {
    switch (node.kind) {
    case Kind::Null:
        return "null";
    case Kind::Boolean:
        return node.integer != 0 ? "true" : "false";
    case Kind::Integer:
        return std::to_string(node.integer);
    case Kind::Number:
        return sanitized(node.text);
    case Kind::Text:
        return translated(kText);
    case Kind::Array:
        return translated(kArray);
    case Kind::Object:
        return translated(kObject);
    }
    return {};
}

std::string notExpected(std::string_view place, std::string_view expected, std::string_view is) {
    return translated(sourceText("scenewright::Bank", "{} must be {}, and is {}"),
                      place.empty() ? translated(sourceText("scenewright::Bank", "it"))
                                    : std::string(place),
                      expected, is);
}

std::string missing(std::string_view place) {
    return translated(sourceText("scenewright::Bank", "{} is missing"), place);
}

// The object's keys are `required`, `allowed` besides them, comments, and no other.
Trouble keysTrouble(const JsonNode& node, std::string_view place, const Keys& required,
                    const Keys& allowed = {}) {
    if (node.kind != Kind::Object)
        return notExpected(place, translated(kObject), found(node));
    for (const std::string& key : node.keys)
        if (!key.starts_with(kCommentMark) && std::ranges::find(required, key) == required.end() &&
            std::ranges::find(allowed, key) == allowed.end())
            return translated(sourceText("scenewright::Bank", "{} is unknown"),
                              memberPlace(place, sanitized(key)));
    for (const std::string_view key : required)
        if (node.find(key) == nullptr)
            return missing(memberPlace(place, key));
    return std::nullopt;
}

Trouble readFields(const JsonNode& node, const std::string& place, ControlKind kind,
                   std::int32_t control, const SceneValue& scene) {
    Keys keys;
    for (const Setting& setting : settings())
        if (setting.kind() == kind)
            keys.push_back(setting.name());
    if (Trouble trouble = keysTrouble(node, place, keys))
        return trouble;
    for (const std::string_view key : keys) {
        const JsonNode& value = *node.find(key);
        if (value.kind != Kind::Integer || value.integer < 0 ||
            value.integer > kLargestSettingValue)
            return notAValue(memberPlace(place, key), found(value));
        findSetting(kind, key)->write(scene, control, static_cast<std::int32_t>(value.integer));
    }
    return std::nullopt;
}

// An array of exactly `count` elements; `owner` and `elements` say of what, for the message.
Trouble countTrouble(const JsonNode& node, std::string_view place, std::int32_t count,
                     SourceText owner, std::string_view elements) {
    if (node.kind != Kind::Array)
        return notExpected(place, translated(kArray), found(node));
    const std::size_t expected = static_cast<std::size_t>(count);
    if (node.values.size() < expected)
        return missing(elementPlace(place, node.values.size()));
    if (node.values.size() > expected)
        return translated(sourceText("scenewright::Bank", "{} is one too many, as {} has {} {}"),
                          elementPlace(place, expected), translated(owner), count, elements);
    return std::nullopt;
}

Trouble readControls(const JsonNode& node, const std::string& place, const ControlRange& range,
                     const SceneValue& scene) {
    if (range.kind == ControlKind::Common)
        return readFields(node, place, range.kind, 0, scene);
    if (Trouble trouble =
            countTrouble(node, place, range.count, sourceText("scenewright::Bank", "a scene"),
                         controlsKey(range.kind)))
        return trouble;
    for (std::size_t i = 0; i < node.values.size(); ++i)
        if (Trouble trouble = readFields(node.values[i], elementPlace(place, i), range.kind,
                                         static_cast<std::int32_t>(i), scene))
            return trouble;
    return std::nullopt;
}

Trouble readName(const JsonNode& node, const std::string& place, const SceneValue& scene) {
    const JsonNode* const text = node.find("name");
    const JsonNode* const digits = node.find("nameBytes");
    if (text != nullptr && digits != nullptr)
        return translated(sourceText("scenewright::Bank", "{} must not stand beside a name"),
                          memberPlace(place, "nameBytes"));
    if (text == nullptr && digits == nullptr)
        return missing(memberPlace(place, "name"));
    const std::string_view key = text != nullptr ? "name" : "nameBytes";
    const JsonNode& value = text != nullptr ? *text : *digits;
    if (value.kind != Kind::Text)
        return notExpected(memberPlace(place, key), translated(kText), found(value));
    const auto name = text != nullptr ? nameOfText(value.text) : nameOfHex(value.text);
    if (!name)
        return notExpected(
            memberPlace(place, key),
            translated(text != nullptr ? sourceText("scenewright::Bank",
                                                    "at most 12 bytes without control characters")
                                       : sourceText("scenewright::Bank", "24 hexadecimal digits")),
            fmt::format("\"{}\"", sanitized(value.text)));
    scene.commonValue()->setSceneName(*name);
    return std::nullopt;
}

Trouble readScene(const JsonNode& node, const std::string& place, const SceneValue& scene) {
    std::vector<std::string> names;
    names.reserve(kControlRanges.size());
    for (const ControlRange& range : kControlRanges)
        names.push_back(controlsKey(range.kind));
    if (Trouble trouble =
            keysTrouble(node, place, Keys(names.begin(), names.end()), {"name", "nameBytes"}))
        return trouble;
    if (Trouble trouble = readName(node, place, scene))
        return trouble;
    for (const ControlRange& range : kControlRanges) {
        const std::string key = controlsKey(range.kind);
        if (Trouble trouble = readControls(*node.find(key), memberPlace(place, key), range, scene))
            return trouble;
    }
    return std::nullopt;
}

Trouble formatTrouble(const JsonNode& root, std::string_view format) {
    const JsonNode* const value = root.find("format");
    if (value == nullptr)
        return missing("format");
    if (value->kind == Kind::Text && value->text == format)
        return std::nullopt;
    return notExpected("format", jsonQuoted(format),
                       value->kind == Kind::Text ? jsonQuoted(sanitized(value->text))
                                                 : found(*value));
}

Trouble versionTrouble(const JsonNode& root) {
    const JsonNode* const value = root.find("version");
    if (value == nullptr)
        return missing("version");
    if (value->kind == Kind::Integer && value->integer == kBankVersion)
        return std::nullopt;
    return translated(
        sourceText("scenewright::Bank", "version is {}, and this program knows version {} only"),
        found(*value), kBankVersion);
}

// Format and version come first: a later version's keys must not be called unknown.
Trouble headTrouble(const JsonNode& root, std::string_view format, std::string_view content) {
    if (root.kind != Kind::Object)
        return notExpected("", translated(kObject), found(root));
    if (Trouble trouble = formatTrouble(root, format))
        return trouble;
    if (Trouble trouble = versionTrouble(root))
        return trouble;
    return keysTrouble(root, "", {"format", "version", content});
}

BankContent readScenes(const JsonTree& tree, SceneList scenes, bool isBank) {
    Trouble trouble = tree.trouble;
    const std::string_view key = isBank ? "scenes" : "scene";
    if (!trouble)
        trouble = headTrouble(tree.root, isBank ? kBankFormat : kSceneFormat, key);
    if (!trouble && isBank)
        trouble = countTrouble(*tree.root.find(key), key, kSceneCount,
                               sourceText("scenewright::Bank", "a bank"), key);
    for (std::size_t i = 0; !trouble && i < scenes.size(); ++i) {
        const JsonNode& content = *tree.root.find(key);
        trouble = isBank ? readScene(content.values[i], elementPlace(key, i), *scenes[i])
                         : readScene(content, std::string(key), *scenes[i]);
    }
    if (trouble)
        return {{}, std::move(trouble)};
    return {std::move(scenes), std::nullopt};
}

} // namespace

std::string notAValue(std::string_view place, std::string_view found) {
    return notExpected(
        place, translated(sourceText("scenewright::Bank", "a whole number from 0 to 127")), found);
}

BankContent readBankJson(std::string_view text) {
    SceneList scenes;
    for (std::int32_t i = 0; i < kSceneCount; ++i)
        scenes.push_back(blankScene());
    return readScenes(parseJson(text), std::move(scenes), true);
}

BankContent readSceneJson(std::string_view text) {
    return readScenes(parseJson(text), {blankScene()}, false);
}

} // namespace scenewright
