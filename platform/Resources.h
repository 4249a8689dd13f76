// Finding the application's resources by name and type, and the property lists (XML or binary)
// among them as plain values.
//
// Looked for in this order, a file at a time, so that a user replaces one and keeps the rest:
//   1. the folder given with --resources;
//   2. $XDG_CONFIG_HOME/scenewright, or ~/.config/scenewright;
//   3. share/scenewright beside the folder of the running program (installed and build trees
//      alike).
// Main thread, or before other threads start; `find`, `read` and `load` may be called by any thread
// after.
#pragma once

#include "platform/Text.h"

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

// The folders that a user's environment sets aside for the files of a program.
enum class XdgFolder {
    Config, // $XDG_CONFIG_HOME/scenewright, or ~/.config/scenewright
    State,  // $XDG_STATE_HOME/scenewright, or ~/.local/state/scenewright
};

// The folder's path, whether it exists or not; nothing when neither variable gives one. A relative
// value counts as unset: it would change with the working folder. With a name, what is called so in
// the folder. Any thread.
[[nodiscard]] std::optional<std::filesystem::path> xdgFolder(XdgFolder folder,
                                                             std::string_view name = {});

class Resources {
public:
    Resources() = delete;

    // The folder that --resources names; an empty path takes it back.
    static void setFolder(std::filesystem::path folder);

    // The folders in the order of the search; folders that do not exist are listed too.
    [[nodiscard]] static std::vector<std::filesystem::path> searchPath();

    // The user's own folder, the second of the search (whether it exists or not); nothing without a
    // home folder.
    [[nodiscard]] static std::optional<std::filesystem::path> userFolder();

    // The first file `name`.`type` of the search; nothing when there is none. A folder or a broken
    // link of that name is found too: the user is to hear of it, rather than get another file.
    [[nodiscard]] static std::optional<std::filesystem::path> find(std::string_view name,
                                                                   std::string_view type);

    // The same of several names: the first folder that has one of them counts, and there the first
    // of the names.
    [[nodiscard]] static std::optional<std::filesystem::path>
    findFirst(std::span<const std::string_view> names, std::string_view type);

    // All of the search, in its order; where the folder that --resources names has one, that alone.
    [[nodiscard]] static std::vector<std::filesystem::path> findAll(std::string_view name,
                                                                    std::string_view type);

    // The property list `name`.plist as its file is now.
    [[nodiscard]] static Result<PropertyValue> read(std::string_view name);

    // The same; an absent value when there is none that can be read.
    [[nodiscard]] static PropertyValue load(std::string_view name);

    // Gives back the memory of the lists read last, which are kept for a program that reads them
    // several times at its start. Any thread.
    static void forgetLists();
};

} // namespace scenewright
