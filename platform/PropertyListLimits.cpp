#include "platform/PropertyListLimits.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace scenewright {

namespace {

constexpr std::string_view kTooDeep = "it is nested deeper than 64 levels";
constexpr std::string_view kTooLong = "it is longer than 16 MiB";
constexpr std::string_view kTooMany = "it holds more than a million values";
constexpr std::string_view kMalformed = "it is not a property list";

// XML: a walk from tag to tag. What a parser could read in two ways (a bracket or an odd quote
// inside a tag, a document type of its own) is refused, so that this count is the parser's count.
class XmlWalk {
public:
    explicit XmlWalk(std::string_view text) : rest_(text) {}

    std::string_view fault() {
        if (rest_.find('\0') != std::string_view::npos)
            return kMalformed;
        while (fault_.empty() && skipTo("<"))
            readTag();
        return fault_;
    }

private:
    bool skipTo(std::string_view mark) {
        const std::size_t at = rest_.find(mark);
        rest_ = at == std::string_view::npos ? std::string_view() : rest_.substr(at + mark.size());
        return at != std::string_view::npos;
    }

    bool take(std::string_view mark) {
        const bool taken = rest_.starts_with(mark);
        if (taken)
            rest_.remove_prefix(mark.size());
        return taken;
    }

    void readTag() {
        if (take("!--"))
            require(skipTo("-->"));
        else if (take("![CDATA["))
            require(skipTo("]]>"));
        else
            readPlainTag();
    }

    void readPlainTag() {
        const std::string_view tag = rest_.substr(0, rest_.find('>'));
        require(skipTo(">") && tag.find_first_of("<[") == std::string_view::npos &&
                std::count(tag.begin(), tag.end(), '"') % 2 == 0 &&
                std::count(tag.begin(), tag.end(), '\'') % 2 == 0);
        if (++tags_ > 2 * kPropertyListNodes)
            fault_ = kTooMany;
        countLevel(tag);
    }

    void countLevel(std::string_view tag) {
        const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n"));
        if (name == "/array" || name == "/dict")
            levels_ -= levels_ > 0 ? 1U : 0U;
        else if ((name == "array" || name == "dict") && !tag.ends_with('/'))
            ++levels_;
        if (levels_ > kPropertyListLevels)
            fault_ = kTooDeep;
    }

    void require(bool holds) {
        if (!holds && fault_.empty())
            fault_ = kMalformed;
    }

    std::string_view rest_;
    std::string_view fault_;
    std::size_t levels_ = 0;
    std::size_t tags_ = 0;
};

// Binary: a walk over the objects from the root, each object once.
class BinaryWalk {
public:
    explicit BinaryWalk(std::string_view bytes) : bytes_(bytes) {}

    std::string_view fault() {
        if (!readTrailer())
            return kMalformed;
        static_cast<void>(visit(root_, 0));
        return fault_;
    }

private:
    // The trailer is the file's last 32 bytes: 6 unused, then these.
    static constexpr std::size_t kTrailer = 32;
    static constexpr std::size_t kOffsetSizeAt = 6;
    static constexpr std::size_t kReferenceSizeAt = 7;
    static constexpr std::size_t kCountAt = 8;
    static constexpr std::size_t kRootAt = 16;
    static constexpr std::size_t kTableAt = 24;

    // An object's marker byte: its kind in the high nibble, its length in the low one, where 15
    // says that the length follows as an integer object.
    static constexpr std::uint64_t kData = 0x4;
    static constexpr std::uint64_t kAscii = 0x5;
    static constexpr std::uint64_t kUtf16 = 0x6;
    static constexpr std::uint64_t kArray = 0xA;
    static constexpr std::uint64_t kSet = 0xC;
    static constexpr std::uint64_t kDictionary = 0xD;
    static constexpr std::uint64_t kLengthFollows = 0xF;

    static constexpr std::uint64_t kNodeWeight = kPropertyListBytes / kPropertyListNodes;

    // What an object unfolds to: levels of arrays and dictionaries, and a measure of its memory.
    struct Extent {
        std::size_t levels = 0;
        std::uint64_t weight = kNodeWeight;
    };
    struct Object {
        std::uint64_t kind = 0;
        std::uint64_t length = 0;
        std::uint64_t body = 0; // where what follows marker and length begins
    };

    // A big-endian number; nothing when it does not lie inside the file.
    [[nodiscard]] std::optional<std::uint64_t> number(std::uint64_t at, std::uint64_t size) const {
        if (at > bytes_.size() || size > bytes_.size() - at || size == 0 || size > 8)
            return std::nullopt;
        std::uint64_t value = 0;
        for (const char c : bytes_.substr(at, size))
            value = value << 8U | static_cast<std::uint8_t>(c);
        return value;
    }

    bool readTrailer() {
        if (bytes_.size() < kTrailer)
            return false;
        const std::size_t at = bytes_.size() - kTrailer;
        offsetSize_ = *number(at + kOffsetSizeAt, 1);
        referenceSize_ = *number(at + kReferenceSizeAt, 1);
        const std::uint64_t count = *number(at + kCountAt, 8);
        root_ = *number(at + kRootAt, 8);
        table_ = *number(at + kTableAt, 8);
        if (count > bytes_.size() || root_ >= count)
            return false;
        known_.resize(count);
        return true;
    }

    [[nodiscard]] std::optional<Object> object(std::uint64_t index) const {
        if (index >= known_.size() || table_ > bytes_.size())
            return std::nullopt;
        const auto at = number(table_ + index * offsetSize_, offsetSize_);
        const auto marker = at ? number(*at, 1) : std::nullopt;
        if (!marker)
            return std::nullopt;
        Object result{*marker >> 4U, *marker & 0xFU, *at + 1};
        return result.length == kLengthFollows && hasLength(result.kind) ? longObject(result)
                                                                         : result;
    }

    [[nodiscard]] static bool hasLength(std::uint64_t kind) {
        return (kind >= kData && kind <= kUtf16) || (kind >= kArray && kind <= kDictionary);
    }

    [[nodiscard]] std::optional<Object> longObject(Object object) const {
        const auto marker = number(object.body, 1);
        if (!marker)
            return std::nullopt;
        const std::uint64_t size = std::uint64_t{1} << (*marker & 0xFU);
        const auto length = number(object.body + 1, size);
        if (!length)
            return std::nullopt;
        return Object{object.kind, *length, object.body + 1 + size};
    }

    // `above` counts the arrays and dictionaries that lead to the object.
    Extent visit(std::uint64_t index, std::size_t above) {
        const std::optional<Object> found = object(index);
        if (!found || found->length > bytes_.size())
            return fail(kMalformed);
        if (!known_[index])
            known_[index] = measure(*found, above);
        const Extent extent = *known_[index];
        if (above + extent.levels > kPropertyListLevels)
            return fail(kTooDeep);
        return extent;
    }

    Extent measure(const Object& object, std::size_t above) {
        Extent extent;
        if (object.kind == kArray || object.kind == kSet)
            addChildren(extent, object, object.length, above);
        else if (object.kind == kDictionary) {
            requireKeys(object);
            addChildren(extent, object, 2 * object.length, above);
        } else if (hasLength(object.kind))
            extent.weight += object.kind == kUtf16 ? 2 * object.length : object.length;
        return extent;
    }

    // The keys come first. The library ends the program at one that holds a zero character.
    void requireKeys(const Object& dictionary) {
        for (std::uint64_t i = 0; i < dictionary.length && fault_.empty(); ++i) {
            const auto index = number(dictionary.body + i * referenceSize_, referenceSize_);
            const auto key = index ? object(*index) : std::nullopt;
            if (!key || holdsZero(*key))
                fail(kMalformed);
        }
    }

    [[nodiscard]] bool holdsZero(const Object& text) const {
        if (text.kind != kAscii && text.kind != kUtf16)
            return false;
        const std::uint64_t size = text.kind == kUtf16 ? 2 : 1;
        for (std::uint64_t i = 0; i < text.length; ++i) {
            const auto character = number(text.body + i * size, size);
            if (!character || *character == 0)
                return true;
        }
        return false;
    }

    // Keys and values of a dictionary count alike. A cycle ends at the level limit.
    void addChildren(Extent& extent, const Object& object, std::uint64_t count, std::size_t above) {
        extent.levels = 1;
        if (above >= kPropertyListLevels) {
            fail(kTooDeep);
            return;
        }
        for (std::uint64_t i = 0; i < count && fault_.empty(); ++i) {
            const auto child = number(object.body + i * referenceSize_, referenceSize_);
            const Extent inner = child ? visit(*child, above + 1) : fail(kMalformed);
            extent.levels = std::max(extent.levels, inner.levels + 1);
            extent.weight += inner.weight;
            if (extent.weight > kPropertyListBytes)
                fail(kTooMany);
        }
    }

    Extent fail(std::string_view why) {
        if (fault_.empty())
            fault_ = why;
        return {};
    }

    std::string_view bytes_;
    std::string_view fault_;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t referenceSize_ = 0;
    std::uint64_t root_ = 0;
    std::uint64_t table_ = 0;
    std::vector<std::optional<Extent>> known_;
};

} // namespace

std::string_view propertyListFault(std::string_view bytes) {
    if (bytes.size() > kPropertyListBytes)
        return kTooLong;
    if (bytes.starts_with("bplist00"))
        return BinaryWalk(bytes).fault();
    // Another version of the binary form must not reach the parser unchecked.
    return bytes.starts_with("bplist") ? kMalformed : XmlWalk(bytes).fault();
}

} // namespace scenewright
