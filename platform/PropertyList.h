// Property lists (XML or binary) as plain values.
#pragma once

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace scenewright {

// One node of a property list. A value type: it owns everything below it.
class PropertyValue {
public:
    using Array = std::vector<PropertyValue>;
    using Dictionary = std::map<std::string, PropertyValue, std::less<>>;
    using Node =
        std::variant<std::monostate, bool, std::int64_t, double, std::string, Array, Dictionary>;

    PropertyValue() = default;
    // Of one of the node's kinds, or of a whole node. The constraint leaves copies and moves alone.
    template <typename T>
    // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): constrained, as said above
    requires(!std::same_as<std::remove_cvref_t<T>, PropertyValue>) explicit PropertyValue(T&& value)
        : node_(std::forward<T>(value)) {}

    // Nothing was there: a missing key, a missing file, or a kind of node that this system has no
    // use for (data, dates).
    [[nodiscard]] bool isAbsent() const noexcept;
    [[nodiscard]] bool isDictionary() const noexcept;
    [[nodiscard]] bool isArray() const noexcept;
    [[nodiscard]] bool isText() const noexcept;

    // The entry under `key`; an absent value when this is no dictionary or holds no such key.
    [[nodiscard]] const PropertyValue& operator[](std::string_view key) const;

    // The elements of an array; empty for any other kind of node.
    [[nodiscard]] std::span<const PropertyValue> elements() const noexcept;

    // The text of a text node; empty for any other kind of node.
    [[nodiscard]] std::string_view text() const noexcept;

    // A number's integer value (a real is cut towards zero, a boolean is 0 or 1); a text's leading
    // decimal integer, blanks skipped, sign allowed, 0 if no digit stands there; 0 for anything
    // else. Clamped to the 32-bit range.
    [[nodiscard]] std::int32_t integer() const noexcept;

    [[nodiscard]] const Node& node() const noexcept { return node_; }

private:
    Node node_;
};

// What reading a property list gave: `root` is absent when `trouble` says why, in one sentence
// that names the file.
struct PropertyListFile {
    PropertyValue root;
    std::optional<std::string> trouble;
};

// Reads a whole file. At most 16 MiB, at most 64 levels deep.
[[nodiscard]] PropertyListFile readPropertyList(const std::filesystem::path& path);

// The same for bytes in memory; `name` stands in the sentence in place of the file.
[[nodiscard]] PropertyListFile parsePropertyList(std::string_view bytes, std::string_view name);

} // namespace scenewright
