#include "platform/PropertyList.h"

#include "platform/PropertyListLimits.h"
#include "platform/WholeFile.h"

#include <plist/plist.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <utility>

namespace scenewright {

namespace {

struct PlistFree {
    void operator()(void* tree) const { plist_free(tree); }
};
struct MemoryFree {
    void operator()(void* memory) const { std::free(memory); }
};
using PlistTree = std::unique_ptr<void, PlistFree>;
using PlistMemory = std::unique_ptr<void, MemoryFree>;
using PlistKey = std::unique_ptr<char, MemoryFree>;

PropertyValue convert(plist_t node);

// The iterators keep this linear: access by index walks a list from its start.
PropertyValue convertArray(plist_t node) {
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    const PlistMemory owner(iterator);
    PropertyValue::Array array;
    array.reserve(plist_array_get_size(node));
    for (plist_t item = nullptr; plist_array_next_item(node, iterator, &item), item != nullptr;)
        array.push_back(convert(item));
    return PropertyValue(std::move(array));
}

PropertyValue convertDictionary(plist_t node) {
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    const PlistMemory owner(iterator);
    PropertyValue::Dictionary dictionary;
    while (true) {
        char* name = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, iterator, &name, &value);
        const PlistKey key(name);
        if (value == nullptr || key == nullptr)
            return PropertyValue(std::move(dictionary));
        dictionary.insert_or_assign(key.get(), convert(value));
    }
}

PropertyValue convertText(plist_t node) {
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return PropertyValue(text == nullptr ? std::string() : std::string(text, length));
}

PropertyValue convertBoolean(plist_t node) {
    std::uint8_t value = 0;
    plist_get_bool_val(node, &value);
    return PropertyValue(value != 0);
}

// Negative numbers come as the unsigned number of the same bits.
PropertyValue convertInteger(plist_t node) {
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    return PropertyValue(static_cast<std::int64_t>(value));
}

PropertyValue convertReal(plist_t node) {
    double value = 0;
    plist_get_real_val(node, &value);
    return PropertyValue(value);
}

PropertyValue convert(plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
        return convertBoolean(node);
    case PLIST_UINT:
        return convertInteger(node);
    case PLIST_REAL:
        return convertReal(node);
    case PLIST_STRING:
        return convertText(node);
    case PLIST_ARRAY:
        return convertArray(node);
    case PLIST_DICT:
        return convertDictionary(node);
    case PLIST_DATE:
    case PLIST_DATA:
    case PLIST_KEY:
    case PLIST_UID:
    case PLIST_NONE:
        break;
    }
    return {};
}

constexpr std::int64_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();

std::int32_t clamped(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp(value, kLeast, kMost));
}

std::int32_t integerOf(double value) {
    if (std::isnan(value))
        return 0;
    const double inRange =
        std::clamp(value, static_cast<double>(kLeast), static_cast<double>(kMost));
    return static_cast<std::int32_t>(inRange);
}

std::int32_t integerOf(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
    text.remove_prefix(std::min(start, text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            break;
        value = std::min(value * 10 + (c - '0'), kMost + 1);
    }
    return clamped(negative ? -value : value);
}

std::string troubleText(std::string_view name, std::string_view why) {
    return "Cannot read " + std::string(name) + ": " + std::string(why) + ".";
}

} // namespace

bool PropertyValue::isAbsent() const noexcept {
    return std::holds_alternative<std::monostate>(node_);
}
bool PropertyValue::isDictionary() const noexcept {
    return std::holds_alternative<Dictionary>(node_);
}
bool PropertyValue::isArray() const noexcept {
    return std::holds_alternative<Array>(node_);
}
bool PropertyValue::isText() const noexcept {
    return std::holds_alternative<std::string>(node_);
}

const PropertyValue& PropertyValue::operator[](std::string_view key) const {
    static const PropertyValue absent;
    const Dictionary* dictionary = std::get_if<Dictionary>(&node_);
    if (dictionary == nullptr)
        return absent;
    const auto entry = dictionary->find(key);
    return entry == dictionary->end() ? absent : entry->second;
}

std::span<const PropertyValue> PropertyValue::elements() const noexcept {
    const Array* array = std::get_if<Array>(&node_);
    return array == nullptr ? std::span<const PropertyValue>() : std::span(*array);
}

std::string_view PropertyValue::text() const noexcept {
    const std::string* text = std::get_if<std::string>(&node_);
    return text == nullptr ? std::string_view() : std::string_view(*text);
}

std::int32_t PropertyValue::integer() const noexcept {
    if (const bool* flag = std::get_if<bool>(&node_))
        return *flag ? 1 : 0;
    if (const std::int64_t* number = std::get_if<std::int64_t>(&node_))
        return clamped(*number);
    if (const double* number = std::get_if<double>(&node_))
        return integerOf(*number);
    return integerOf(text());
}

PropertyListFile parsePropertyList(std::string_view bytes, std::string_view name) {
    if (const std::string_view fault = propertyListFault(bytes); !fault.empty())
        return {{}, troubleText(name, fault)};
    plist_t tree = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &tree);
    const PlistTree owner(tree);
    if (tree == nullptr)
        return {{}, troubleText(name, "it is not a property list")};
    return {convert(tree), std::nullopt};
}

PropertyListFile readPropertyList(const std::filesystem::path& path) {
    FileBytes file = readWholeFile(path, kPropertyListBytes);
    if (file.trouble)
        return {{}, std::move(file.trouble)};
    const std::string bytes(file.bytes.begin(), file.bytes.end());
    return parsePropertyList(bytes, path.string());
}

} // namespace scenewright
