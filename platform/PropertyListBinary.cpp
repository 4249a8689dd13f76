#include "platform/Resources.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>

namespace scenewright {

namespace {

// A trailer of 32 bytes ends the file: 6 unused ones, then these.
constexpr std::size_t kTrailer = 32;
constexpr std::size_t kOffsetSizeAt = 6;
constexpr std::size_t kReferenceSizeAt = 7;
constexpr std::size_t kCountAt = 8;
constexpr std::size_t kRootAt = 16;
constexpr std::size_t kTableAt = 24;

// An object begins with a marker byte: its kind in the high nibble, its size in the low one. In the
// kinds with a length, 15 says that the length follows as a number of its own.
constexpr std::uint8_t kNull = 0x00;
constexpr std::uint8_t kFalse = 0x08;
constexpr std::uint8_t kTrue = 0x09;
constexpr std::uint8_t kFill = 0x0F;
constexpr std::uint8_t kSingle = 0x22;
constexpr std::uint8_t kDouble = 0x23;
constexpr std::uint8_t kDate = 0x33;
constexpr std::uint8_t kIntegers = 0x1;
constexpr std::uint8_t kData = 0x4;
constexpr std::uint8_t kAscii = 0x5;
constexpr std::uint8_t kUtf16 = 0x6;
constexpr std::uint8_t kUid = 0x8;
constexpr std::uint8_t kArray = 0xA;
constexpr std::uint8_t kDictionary = 0xD;
constexpr std::size_t kLengthFollows = 0xF;

constexpr std::size_t kTextPerNode = 64; // so many bytes of text count as one value more

// One code point from UTF-16 as UTF-8.
void appendUtf8(std::string& text, std::uint32_t point) {
    const auto put = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (point < 0x80)
        return put(point);
    if (point < 0x800)
        put(0xC0U | point >> 6U);
    else if (point < 0x10000)
        put(0xE0U | point >> 12U);
    else
        put(0xF0U | point >> 18U);
    if (point >= 0x10000)
        put(0x80U | (point >> 12U & 0x3FU));
    if (point >= 0x800)
        put(0x80U | (point >> 6U & 0x3FU));
    put(0x80U | (point & 0x3FU));
}

class BinaryReader {
public:
    explicit BinaryReader(std::string_view bytes) : bytes_(bytes) {}

    Result<PropertyValue> read() {
        if (bytes_.size() < kTrailer)
            return failure(kNoPropertyList);
        const std::size_t trailer = bytes_.size() - kTrailer;
        offsetSize_ = number(trailer + kOffsetSizeAt, 1);
        referenceSize_ = number(trailer + kReferenceSizeAt, 1);
        count_ = number(trailer + kCountAt, 8);
        table_ = number(trailer + kTableAt, 8);
        PropertyValue root = object(number(trailer + kRootAt, 8), 0);
        if (fault_ != nullptr)
            return failure(fault_);
        return root;
    }

private:
    // Where an object's content lies in the file.
    struct Object {
        std::uint8_t marker = 0;
        std::uint8_t kind = 0;
        std::uint64_t size = 0;
        std::uint64_t body = 0;
    };

    // The bytes, or none at all and a fault when they do not lie in the file.
    std::string_view slice(std::uint64_t at, std::uint64_t size) {
        if (at <= bytes_.size() && size <= bytes_.size() - at)
            return bytes_.substr(at, size);
        fail(kNoPropertyList);
        return {};
    }

    // A big-endian number of one to eight bytes; 0 with a fault.
    std::uint64_t number(std::uint64_t at, std::uint64_t size) {
        if (size == 0 || size > 8)
            fail(kNoPropertyList);
        std::uint64_t value = 0;
        for (const char c : slice(at, std::min<std::uint64_t>(size, 8)))
            value = value << 8U | static_cast<std::uint8_t>(c);
        return value;
    }

    Object locate(std::uint64_t index) {
        if (index >= count_ || index >= bytes_.size() || table_ > bytes_.size())
            fail(kNoPropertyList);
        const std::uint64_t at =
            fault_ == nullptr ? number(table_ + index * offsetSize_, offsetSize_) : 0;
        Object found;
        found.marker = static_cast<std::uint8_t>(number(at, 1));
        found.kind = found.marker >> 4U;
        found.size = found.marker & 0xFU;
        found.body = at + 1;
        const bool hasLength = found.kind >= kData && found.kind != kUid;
        if (hasLength && found.size == kLengthFollows) {
            const std::uint64_t size = std::uint64_t{1} << (number(found.body, 1) & 0x3U);
            found.size = number(found.body + 1, size);
            found.body += 1 + size;
        }
        return found;
    }

    // `above` counts the arrays and dictionaries that lead to the object.
    PropertyValue object(std::uint64_t index, std::size_t above) {
        const Object found = locate(index);
        weight_ += 1;
        if (weight_ > kPropertyListNodes)
            fail(kTooManyValues);
        if (fault_ != nullptr)
            return {};
        switch (found.kind) {
        case kIntegers:
            return PropertyValue(integer(found));
        case kAscii:
        case kUtf16:
            return PropertyValue(text(found));
        case kArray:
        case kDictionary:
            return container(found, above);
        default:
            return single(found);
        }
    }

    PropertyValue single(const Object& found) {
        switch (found.marker) {
        case kFalse:
        case kTrue:
            return PropertyValue(found.marker == kTrue);
        case kSingle:
            return PropertyValue(static_cast<double>(
                std::bit_cast<float>(static_cast<std::uint32_t>(number(found.body, 4)))));
        case kDouble:
            return PropertyValue(std::bit_cast<double>(number(found.body, 8)));
        default:
            requireUnused(found);
            return {};
        }
    }

    // What a list may hold and this system has no use for.
    void requireUnused(const Object& found) {
        if (found.marker == kDate)
            slice(found.body, 8);
        else if (found.kind == kData)
            slice(found.body, found.size);
        else if (found.kind == kUid)
            slice(found.body, found.size + 1);
        else if (found.marker != kNull && found.marker != kFill)
            fail(kNoPropertyList);
    }

    // 1, 2 and 4 bytes without a sign, more with one; the nearest 64-bit number.
    std::int64_t integer(const Object& found) {
        const std::uint64_t size = std::uint64_t{1} << found.size;
        if (size < 8)
            return static_cast<std::int64_t>(number(found.body, size));
        const std::string_view bytes = slice(found.body, size);
        if (bytes.empty())
            return 0;
        const bool isNegative = (static_cast<std::uint8_t>(bytes[0]) & 0x80U) != 0;
        const std::string_view head = bytes.substr(0, bytes.size() - 8);
        const auto low = static_cast<std::int64_t>(number(found.body + head.size(), 8));
        const char sign = isNegative ? '\xFF' : '\0';
        if (head.find_first_not_of(sign) != std::string_view::npos || (low < 0) != isNegative)
            return isNegative ? std::numeric_limits<std::int64_t>::min()
                              : std::numeric_limits<std::int64_t>::max();
        return low;
    }

    std::string text(const Object& found) {
        const std::string_view bytes = slice(found.body, found.size);
        weight_ += bytes.size() / kTextPerNode;
        if (found.kind == kUtf16)
            return fromUtf16(found);
        if (std::ranges::any_of(bytes, [](char c) { return (c & 0x80) != 0; }))
            fail(kNoPropertyList);
        return std::string(bytes);
    }

    std::string fromUtf16(const Object& found) {
        slice(found.body, 2 * found.size);
        std::string result;
        for (std::uint64_t i = 0; i < found.size && fault_ == nullptr; ++i) {
            auto point = static_cast<std::uint32_t>(number(found.body + 2 * i, 2));
            if (point >= 0xD800 && point < 0xE000)
                point = withLowSurrogate(point, found, ++i);
            appendUtf8(result, point);
        }
        return result;
    }

    std::uint32_t withLowSurrogate(std::uint32_t high, const Object& found, std::uint64_t i) {
        const std::uint64_t low = i < found.size ? number(found.body + 2 * i, 2) : 0;
        if (high >= 0xDC00 || low < 0xDC00 || low >= 0xE000)
            fail(kNoPropertyList);
        return 0x10000 + ((high & 0x3FFU) << 10U) + (static_cast<std::uint32_t>(low) & 0x3FFU);
    }

    // A list that contains itself ends at the level limit.
    PropertyValue container(const Object& found, std::size_t above) {
        const bool isArray = found.kind == kArray;
        if (above == kPropertyListLevels)
            fail(kTooDeepList);
        if (found.size > bytes_.size())
            fail(kNoPropertyList);
        return isArray ? array(found, above + 1) : dictionary(found, above + 1);
    }

    PropertyValue array(const Object& found, std::size_t level) {
        PropertyValue::Array elements;
        for (std::uint64_t i = 0; i < found.size && fault_ == nullptr; ++i)
            elements.push_back(child(found, i, level));
        return PropertyValue(std::move(elements));
    }

    // The keys come first, then the values. An entry whose key is no text cannot be asked for.
    PropertyValue dictionary(const Object& found, std::size_t level) {
        PropertyValue::Dictionary entries;
        for (std::uint64_t i = 0; i < found.size && fault_ == nullptr; ++i) {
            const PropertyValue key = child(found, i, level);
            PropertyValue value = child(found, found.size + i, level);
            if (key.isText())
                entries.insert_or_assign(std::string(key.text()), std::move(value));
        }
        return PropertyValue(std::move(entries));
    }

    PropertyValue child(const Object& found, std::uint64_t place, std::size_t level) {
        const std::uint64_t index = number(found.body + place * referenceSize_, referenceSize_);
        return fault_ == nullptr ? object(index, level) : PropertyValue();
    }

    void fail(const char* why) {
        if (fault_ == nullptr)
            fault_ = why;
    }

    std::string_view bytes_;
    const char* fault_ = nullptr;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t referenceSize_ = 0;
    std::uint64_t count_ = 0;
    std::uint64_t table_ = 0;
    std::size_t weight_ = 0;
};

} // namespace

Result<PropertyValue> parseBinaryPropertyList(std::string_view bytes) {
    return BinaryReader(bytes).read();
}

} // namespace scenewright
