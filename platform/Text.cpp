#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace scenewright {

namespace {

std::atomic<Translator> translatorInPlace = nullptr;

constexpr std::string_view kReplacement = "\xEF\xBF\xBD"; // U+FFFD

// The UTF-8 sequences of each length: the bits that mark the first byte, and the smallest code
// point that needs that length.
struct Form {
    std::size_t length;
    std::uint8_t mask;
    std::uint8_t mark;
    std::uint32_t smallest;
};
constexpr std::array<Form, 4> kForms{{
    {1, 0x80, 0x00, 0x00},
    {2, 0xE0, 0xC0, 0x80},
    {3, 0xF0, 0xE0, 0x800},
    {4, 0xF8, 0xF0, 0x10000},
}};

// Characters without a shape that end a line or turn the order of what follows.
struct Range {
    std::uint32_t first;
    std::uint32_t last;
};
constexpr std::array<Range, 5> kUnseen{{
    {0x061C, 0x061C}, // a mark of direction
    {0x200E, 0x200F}, // two more
    {0x2028, 0x2029}, // ends of lines and paragraphs
    {0x202A, 0x202E}, // embeddings and overrides of direction, and their end
    {0x2066, 0x2069}, // isolates, and their end
}};

constexpr bool isUnseen(std::uint32_t point) {
    return std::ranges::any_of(kUnseen, [point](const Range& range) {
        return point >= range.first && point <= range.last;
    });
}

constexpr bool isShowable(std::uint32_t point) {
    const bool isControl = point < 0x20 || (point >= 0x7F && point < 0xA0);
    const bool isSurrogate = point >= 0xD800 && point < 0xE000;
    return !isControl && !isSurrogate && !isUnseen(point) && point <= 0x10FFFF;
}

const Form* formOf(std::uint8_t first) {
    for (const Form& form : kForms)
        if ((first & form.mask) == form.mark)
            return &form;
    return nullptr;
}

// The length of the showable character that `text` begins with; 0 when it begins with none.
std::size_t showableLength(std::string_view text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const Form* const form = formOf(byteAt(0));
    if (form == nullptr || form->length > text.size())
        return 0;
    std::uint32_t point = byteAt(0) & static_cast<std::uint8_t>(~form->mask);
    for (std::size_t i = 1; i < form->length; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80U)
            return 0;
        point = (point << 6U) | (byteAt(i) & 0x3FU);
    }
    return point >= form->smallest && isShowable(point) ? form->length : 0;
}

} // namespace

std::string translated(SourceText text) {
    const Translator translator = translatorInPlace;
    return translator == nullptr ? text.written : translator(text);
}

void setTranslator(Translator translator) {
    translatorInPlace = translator;
}

std::string filled(SourceText text, fmt::format_args values) {
    try {
        return fmt::vformat(translated(text), values);
    } catch (const fmt::format_error&) {
        return fmt::vformat(text.written, values);
    }
}

std::string readableText(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = showableLength(text);
        shown += length == 0 ? kReplacement : text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return shown;
}

} // namespace scenewright
