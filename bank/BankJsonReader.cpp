#include "bank/BankFile.h"
#include "bank/SettingText.h"
#include "model/Setting.h"
#include "model/TypedValue.h"
#include "platform/Text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using Json = nlohmann::json;
using Keys = std::vector<std::string_view>;

// In sentences of the form "PLACE must be ..., and is ...".
constexpr SourceText kText = sourceText("scenewright::Bank", "a text");
constexpr SourceText kArray = sourceText("scenewright::Bank", "an array");
constexpr SourceText kObject = sourceText("scenewright::Bank", "an object");

// ---- From text to values

// `position` is how many bytes had been read when the parser gave up, the offending one included;
// one more than there are means that the text ended.
std::string brokenAt(std::string_view text, std::size_t position) {
    const std::string_view before = text.substr(0, position > 0 ? position - 1 : 0);
    const auto line = std::ranges::count(before, '\n') + 1;
    if (position > text.size())
        return translated(
            sourceText("scenewright::Bank", "its JSON text ends too soon, in line {}"), line);
    const std::size_t lineStart = before.rfind('\n') + 1; // npos + 1 is 0
    return translated(
        sourceText("scenewright::Bank", "its JSON text is wrong at line {}, column {}"), line,
        before.size() - lineStart + 1);
}

// Builds the value from the parser's events; a false answer ends the parse. The library's own
// builder takes a key twice and has no limits, and with a callback it looks through a whole array
// after each object in it.
class Builder : public nlohmann::json_sax<Json> {
public:
    explicit Builder(std::string_view text) : text_(text) {}

    Result<Json> result() {
        if (!error_.empty())
            return failure(std::move(error_));
        return std::move(root_);
    }

    bool null() override { return add(nullptr); }
    bool boolean(bool value) override { return add(value); }
    bool number_integer(number_integer_t value) override { return add(value); }
    bool number_unsigned(number_unsigned_t value) override { return add(value); }
    bool number_float(number_float_t value, const string_t& /*written*/) override {
        return add(value);
    }
    bool string(string_t& value) override { return add(std::move(value)); }
    bool binary(binary_t& /*value*/) override { return false; } // no text form has any
    bool start_object(std::size_t /*unknown*/) override { return open(Json::object()); }
    bool end_object() override { return close(); }
    bool start_array(std::size_t /*unknown*/) override { return open(Json::array()); }
    bool end_array() override { return close(); }
    bool key(string_t& name) override {
        if (levels_.back().node->contains(name))
            return fail(translated(sourceText("scenewright::Bank", "{} stands twice"),
                                   memberPlace(here(), sanitized(name))));
        levels_.back().key = std::move(name);
        return true;
    }
    bool parse_error(std::size_t position, const std::string& /*token*/,
                     const Json::exception& /*error*/) override {
        return fail(brokenAt(text_, position));
    }

private:
    // An array or object that has not ended.
    struct Level {
        Json* node;
        std::string key; // of the value to come
    };

    bool fail(std::string error) {
        error_ = std::move(error);
        return false;
    }

    // The place of the innermost open value.
    [[nodiscard]] std::string here() const {
        std::string place;
        for (std::size_t i = 0; i + 1 < levels_.size(); ++i)
            place = levels_[i].node->is_array() ? elementPlace(place, levels_[i].node->size() - 1)
                                                : memberPlace(place, sanitized(levels_[i].key));
        return place;
    }

    // Where the value stands now; null when there are too many.
    Json* put(Json value) {
        if (++count_ > kJsonValues) {
            fail(translated(sourceText("scenewright::Bank", "it holds more than {} values"),
                            kJsonValues));
            return nullptr;
        }
        if (levels_.empty())
            return &(root_ = std::move(value));
        Json& node = *levels_.back().node;
        if (node.is_array())
            return &node.emplace_back(std::move(value));
        return &(node[levels_.back().key] = std::move(value));
    }

    bool add(Json value) { return put(std::move(value)) != nullptr; }

    bool open(Json value) {
        if (levels_.size() == kJsonLevels)
            return fail(
                translated(sourceText("scenewright::Bank", "it is nested deeper than {} levels"),
                           kJsonLevels));
        Json* const node = put(std::move(value));
        levels_.push_back({node, {}});
        return node != nullptr;
    }

    bool close() {
        levels_.pop_back();
        return true;
    }

    std::string_view text_;
    Json root_;
    std::vector<Level> levels_;
    std::size_t count_ = 0;
    std::string error_;
};

Result<Json> parseJson(std::string_view text) {
    if (text.size() > kJsonBytes)
        return failure(
            translated(sourceText("scenewright::Bank", "it is longer than {} bytes"), kJsonBytes));
    Builder builder(text);
    Json::sax_parse(text, &builder);
    return builder.result();
}

// ---- From values to scenes

const Json* find(const Json& object, std::string_view key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

std::string_view textOf(const Json& node) {
    return node.get_ref<const std::string&>();
}

std::string found(const Json& node) {
    if (node.is_string())
        return translated(kText);
    if (node.is_array())
        return translated(kArray);
    return node.is_object() ? translated(kObject) : node.dump();
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
Result<void> checkKeys(const Json& node, std::string_view place, const Keys& required,
                       const Keys& allowed = {}) {
    if (!node.is_object())
        return failure(notExpected(place, translated(kObject), found(node)));
    for (const auto& [key, value] : node.items())
        if (!key.starts_with(kCommentMark) && std::ranges::find(required, key) == required.end() &&
            std::ranges::find(allowed, key) == allowed.end())
            return failure(translated(sourceText("scenewright::Bank", "{} is unknown"),
                                      memberPlace(place, sanitized(key))));
    for (const std::string_view key : required)
        if (!node.contains(key))
            return failure(missing(memberPlace(place, key)));
    return {};
}

// A pad's `colour` in place of the three fields that it stands for.
Result<void> readColour(const Json& node, const std::string& place, std::int32_t pad,
                        const SceneValue& scene) {
    const std::string member = memberPlace(place, kColourField);
    const Json& value = *find(node, kColourField);
    if (std::ranges::any_of(kColourFields, [&](auto field) { return node.contains(field); }))
        return failure(translated(
            sourceText("scenewright::Bank", "{} must not stand beside CR, CG and CB"), member));
    const auto colour = value.is_string() ? colourOf(textOf(value)) : std::nullopt;
    if (!colour)
        return failure(notExpected(
            member, translated(sourceText("scenewright::Bank", "# and six hexadecimal digits")),
            value.is_string() ? fmt::format("\"{}\"", sanitized(textOf(value))) : found(value)));
    for (std::size_t i = 0; i < colour->size(); ++i)
        findSetting(ControlKind::Pad, kColourFields.at(i))->write(scene, pad, colour->at(i));
    return {};
}

Result<void> readFields(const Json& node, const std::string& place, ControlKind kind,
                        std::int32_t control, const SceneValue& scene) {
    Keys keys;
    for (const Setting& setting : settings())
        if (setting.kind() == kind)
            keys.push_back(setting.name());
    const Keys allowed = kind == ControlKind::Pad ? Keys{kColourField} : Keys();
    if (!allowed.empty() && node.contains(kColourField)) {
        if (auto read = readColour(node, place, control, scene); !read)
            return read;
        std::erase_if(keys, [](std::string_view key) {
            return std::ranges::find(kColourFields, key) != kColourFields.end();
        });
    }
    if (auto checked = checkKeys(node, place, keys, allowed); !checked)
        return checked;
    for (const std::string_view key : keys) {
        const Json& value = *find(node, key);
        if (!value.is_number_integer() || value < 0 || value > kLargestSettingValue)
            return failure(notAValue(memberPlace(place, key), found(value)));
        findSetting(kind, key)->write(scene, control, value.get<std::int32_t>());
    }
    return {};
}

// An array of exactly `count` elements; `owner` and `elements` say of what, for the message.
Result<void> checkCount(const Json& node, std::string_view place, std::int32_t count,
                        SourceText owner, std::string_view elements) {
    if (!node.is_array())
        return failure(notExpected(place, translated(kArray), found(node)));
    const std::size_t expected = static_cast<std::size_t>(count);
    if (node.size() < expected)
        return failure(missing(elementPlace(place, node.size())));
    if (node.size() > expected)
        return failure(
            translated(sourceText("scenewright::Bank", "{} is one too many, as {} has {} {}"),
                       elementPlace(place, expected), translated(owner), count, elements));
    return {};
}

Result<void> readControls(const Json& node, const std::string& place, const ControlRange& range,
                          const SceneValue& scene) {
    if (range.kind == ControlKind::Common)
        return readFields(node, place, range.kind, 0, scene);
    auto read = checkCount(node, place, range.count, sourceText("scenewright::Bank", "a scene"),
                           controlsKey(range.kind));
    for (std::size_t i = 0; read && i < node.size(); ++i)
        read = readFields(node[i], elementPlace(place, i), range.kind, static_cast<std::int32_t>(i),
                          scene);
    return read;
}

Result<void> readName(const Json& node, const std::string& place, const SceneValue& scene) {
    const Json* const text = find(node, "name");
    const Json* const digits = find(node, "nameBytes");
    if (text != nullptr && digits != nullptr)
        return failure(
            translated(sourceText("scenewright::Bank", "{} must not stand beside a name"),
                       memberPlace(place, "nameBytes")));
    if (text == nullptr && digits == nullptr)
        return failure(missing(memberPlace(place, "name")));
    const std::string_view key = text != nullptr ? "name" : "nameBytes";
    const Json& value = text != nullptr ? *text : *digits;
    if (!value.is_string())
        return failure(notExpected(memberPlace(place, key), translated(kText), found(value)));
    const auto name = text != nullptr ? nameOfText(textOf(value)) : nameOfHex(textOf(value));
    if (!name)
        return failure(notExpected(
            memberPlace(place, key),
            translated(text != nullptr ? sourceText("scenewright::Bank",
                                                    "at most 12 bytes without control characters")
                                       : sourceText("scenewright::Bank", "24 hexadecimal digits")),
            fmt::format("\"{}\"", sanitized(textOf(value)))));
    scene.commonValue()->setSceneName(*name);
    return {};
}

Result<void> readScene(const Json& node, const std::string& place, const SceneValue& scene) {
    std::vector<std::string> names;
    names.reserve(kControlRanges.size());
    for (const ControlRange& range : kControlRanges)
        names.push_back(controlsKey(range.kind));
    auto read = checkKeys(node, place, Keys(names.begin(), names.end()), {"name", "nameBytes"});
    if (read)
        read = readName(node, place, scene);
    for (std::size_t i = 0; read && i < kControlRanges.size(); ++i)
        read = readControls(*find(node, names[i]), memberPlace(place, names[i]), kControlRanges[i],
                            scene);
    return read;
}

// Format and version come first: a later version's keys must not be called unknown.
Result<void> checkHead(const Json& root, std::string_view format, std::string_view content) {
    if (!root.is_object())
        return failure(notExpected("", translated(kObject), found(root)));
    const Json* const named = find(root, "format");
    if (named == nullptr)
        return failure(missing("format"));
    if (*named != format)
        return failure(notExpected("format", jsonQuoted(format),
                                   named->is_string() ? jsonQuoted(sanitized(textOf(*named)))
                                                      : found(*named)));
    const Json* const version = find(root, "version");
    if (version == nullptr)
        return failure(missing("version"));
    if (!version->is_number_integer() || *version != kBankVersion)
        return failure(
            translated(sourceText("scenewright::Bank",
                                  "version is {}, and this program knows version {} only"),
                       found(*version), kBankVersion));
    return checkKeys(root, "", {"format", "version", content});
}

Result<SceneList> bankIn(const Json& root) {
    constexpr const char* kKey = "scenes";
    auto read = checkHead(root, kBankFormat, kKey);
    if (read)
        read = checkCount(root[kKey], kKey, kSceneCount, sourceText("scenewright::Bank", "a bank"),
                          kKey);
    SceneList scenes;
    for (std::size_t i = 0; read && i < kSceneCount; ++i) {
        scenes.push_back(blankScene());
        read = readScene(root[kKey][i], elementPlace(kKey, i), *scenes.back());
    }
    return read.map([&scenes] { return std::move(scenes); });
}

Result<SceneList> sceneIn(const Json& root) {
    constexpr const char* kKey = "scene";
    SceneList scenes{blankScene()};
    return checkHead(root, kSceneFormat, kKey)
        .and_then([&] { return readScene(root[kKey], kKey, *scenes.front()); })
        .map([&scenes] { return std::move(scenes); });
}

} // namespace

std::string memberPlace(std::string_view place, std::string_view key) {
    return place.empty() ? std::string(key) : fmt::format("{}.{}", place, key);
}

std::string elementPlace(std::string_view place, std::size_t index) {
    return fmt::format("{}[{}]", place, index);
}

std::string jsonQuoted(std::string_view text) {
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string notAValue(std::string_view place, std::string_view found) {
    return notExpected(
        place, translated(sourceText("scenewright::Bank", "a whole number from 0 to 127")), found);
}

Result<SceneList> readBankJson(std::string_view text) {
    return parseJson(text).and_then(&bankIn);
}

Result<SceneList> readBankOrSceneJson(std::string_view text) {
    return parseJson(text).and_then([](const Json& root) {
        const bool isScene = root.is_object() && root.value("format", Json()) == kSceneFormat;
        return isScene ? sceneIn(root) : bankIn(root);
    });
}

} // namespace scenewright
