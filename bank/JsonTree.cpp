#include "bank/JsonTree.h"

#include "bank/SettingText.h"
#include "platform/Text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace scenewright {

namespace {

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

// Receives the parser's events in the order of the text; a false answer ends the parse.
class Builder {
public:
    using Json = nlohmann::json;

    explicit Builder(std::string_view text) : text_(text) {}

    JsonTree result() { return {std::move(root_), std::move(trouble_)}; }

    bool null() { return add({}); }
    bool boolean(bool value) { return add({JsonNode::Kind::Boolean, value ? 1 : 0, {}, {}, {}}); }
    bool number_integer(Json::number_integer_t value) {
        return add({JsonNode::Kind::Integer, value, {}, {}, {}});
    }
    bool number_unsigned(Json::number_unsigned_t value) {
        if (std::in_range<std::int64_t>(value))
            return number_integer(static_cast<std::int64_t>(value));
        return add({JsonNode::Kind::Number, 0, std::to_string(value), {}, {}});
    }
    bool number_float(Json::number_float_t /*value*/, const std::string& written) {
        return add({JsonNode::Kind::Number, 0, written, {}, {}});
    }
    bool string(std::string& value) {
        return add({JsonNode::Kind::Text, 0, std::move(value), {}, {}});
    }
    bool binary(Json::binary_t& /*value*/) { return false; } // no text form has any

    bool start_object(std::size_t /*unknown*/) { return open(JsonNode::Kind::Object); }
    bool end_object() { return close(); }
    bool start_array(std::size_t /*unknown*/) { return open(JsonNode::Kind::Array); }
    bool end_array() { return close(); }
    bool key(std::string& name) {
        Open& object = open_.back();
        if (!object.seen.insert(name).second)
            return fail(translated(sourceText("scenewright::Bank", "{} stands twice"),
                                   memberPlace(here(), sanitized(name))));
        object.node.keys.push_back(std::move(name));
        return true;
    }

    bool parse_error(std::size_t position, const std::string& /*token*/,
                     const Json::exception& /*error*/) {
        return fail(brokenAt(text_, position));
    }

private:
    struct Open {
        JsonNode node;
        std::unordered_set<std::string> seen;
    };

    bool fail(std::string trouble) {
        if (!trouble_)
            trouble_ = std::move(trouble);
        return false;
    }

    // The place of the innermost open value.
    [[nodiscard]] std::string here() const {
        std::string place;
        for (std::size_t level = 0; level + 1 < open_.size(); ++level) {
            const JsonNode& node = open_[level].node;
            place = node.kind == JsonNode::Kind::Array
                        ? elementPlace(place, node.values.size())
                        : memberPlace(place, sanitized(node.keys.back()));
        }
        return place;
    }

    bool add(JsonNode node) {
        if (++count_ > kJsonValues)
            return fail(translated(sourceText("scenewright::Bank", "it holds more than {} values"),
                                   kJsonValues));
        if (open_.empty())
            root_ = std::move(node);
        else
            open_.back().node.values.push_back(std::move(node));
        return true;
    }

    bool open(JsonNode::Kind kind) {
        if (open_.size() == kJsonLevels)
            return fail(
                translated(sourceText("scenewright::Bank", "it is nested deeper than {} levels"),
                           kJsonLevels));
        open_.push_back({{kind, 0, {}, {}, {}}, {}});
        return true;
    }

    bool close() {
        JsonNode node = std::move(open_.back().node);
        open_.pop_back();
        return add(std::move(node));
    }

    std::string_view text_;
    JsonNode root_;
    std::vector<Open> open_;
    std::size_t count_ = 0;
    std::optional<std::string> trouble_;
};

} // namespace

const JsonNode* JsonNode::find(std::string_view key) const {
    const auto found = std::ranges::find(keys, key);
    return found == keys.end() ? nullptr : &values[static_cast<std::size_t>(found - keys.begin())];
}

JsonTree parseJson(std::string_view text) {
    if (text.size() > kJsonBytes)
        return {
            {},
            translated(sourceText("scenewright::Bank", "it is longer than {} bytes"), kJsonBytes)};
    Builder builder(text);
    nlohmann::json::sax_parse(text.begin(), text.end(), &builder);
    return builder.result();
}

std::string memberPlace(std::string_view place, std::string_view key) {
    return place.empty() ? std::string(key) : fmt::format("{}.{}", place, key);
}

std::string elementPlace(std::string_view place, std::size_t index) {
    return fmt::format("{}[{}]", place, index);
}

std::string jsonQuoted(std::string_view text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

} // namespace scenewright
