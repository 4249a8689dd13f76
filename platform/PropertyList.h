// Property lists (XML or binary) as plain values.
#pragma once

#include "platform/Result.h"

#include <concepts>
#include <cstddef>
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
    // use for (data, dates, identifiers).
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

    // A number's integer value (a real is cut towards zero); a text's leading decimal integer,
    // blanks skipped, sign allowed. Clamped to the 32-bit range. Nothing for anything else, among
    // it a text where no digit stands there.
    [[nodiscard]] std::optional<std::int32_t> number() const noexcept;

    // The same; a boolean is 0 or 1, and what has no number is 0.
    [[nodiscard]] std::int32_t integer() const noexcept;

    [[nodiscard]] const Node& node() const noexcept { return node_; }

private:
    Node node_;
};

// Reads a whole file: a regular one of at most 16 MiB, at most 64 levels and a million values.
[[nodiscard]] Result<PropertyValue> readPropertyList(const std::filesystem::path& path);

// The same for bytes in memory; `name` stands in the error in place of the file.
[[nodiscard]] Result<PropertyValue> parsePropertyList(std::string_view bytes,
                                                      std::string_view name);

// ---- The two forms. What is nested too deep or holds too much is refused, so that no list
// exhausts stack or memory. An error says in a few words what the bytes are ("it is not a property
// list"). Any thread.

inline constexpr std::size_t kPropertyListBytes = std::size_t{16} * 1024 * 1024;
inline constexpr std::size_t kPropertyListLevels = 64;
// Values that a list may unfold to; a binary list can name one object many times over.
inline constexpr std::size_t kPropertyListNodes = 1'000'000;

inline constexpr const char* kNoPropertyList = "it is not a property list";
inline constexpr const char* kTooDeepList = "it is nested deeper than 64 levels";
inline constexpr const char* kTooManyValues = "it holds more than a million values";

// In UTF-8, or in another encoding that the document declares and expat knows.
[[nodiscard]] Result<PropertyValue> parseXmlPropertyList(std::string_view bytes);

// Version 00 of the binary form.
[[nodiscard]] Result<PropertyValue> parseBinaryPropertyList(std::string_view bytes);

} // namespace scenewright
