#include "model/TypedValue.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace scenewright {

namespace {

constexpr std::int32_t kOctave = 12; // semitones

// A shorter part of an entry is the beginning of a note or of a number that is still being typed.
constexpr std::size_t kLeastOfPart = 3;

char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool isSame(std::string_view entry, std::string_view typed) {
    return entry == typed;
}

bool isSameInAnyCase(std::string_view entry, std::string_view typed) {
    return std::ranges::equal(entry, typed, {}, lower, lower);
}

bool beginsWith(std::string_view entry, std::string_view typed) {
    return isSameInAnyCase(entry.substr(0, typed.size()), typed);
}

bool isWordStart(std::string_view entry, std::size_t at) {
    constexpr std::string_view kBetween = " (/-";
    return at == 0 || kBetween.find(entry[at - 1]) != std::string_view::npos;
}

bool hasWord(std::string_view entry, std::string_view typed) {
    for (std::size_t at = 0; at < entry.size(); ++at)
        if (isWordStart(entry, at) && beginsWith(entry.substr(at), typed))
            return true;
    return false;
}

bool hasWordOutsideParentheses(std::string_view entry, std::string_view typed) {
    return hasWord(entry.substr(0, entry.find('(')), typed);
}

using Rule = bool (*)(std::string_view entry, std::string_view typed);

template <typename Entries>
std::optional<std::int32_t> firstOf(const Entries& entries, const auto& matches) {
    const auto found = std::ranges::find_if(entries, matches);
    if (found == entries.end())
        return std::nullopt;
    return static_cast<std::int32_t>(found - entries.begin());
}

template <typename Entries>
std::optional<std::int32_t> onlyOneOf(const Entries& entries, std::string_view typed, Rule rule) {
    const auto matches = [&](std::string_view entry) { return rule(entry, typed); };
    return std::ranges::count_if(entries, matches) == 1 ? firstOf(entries, matches) : std::nullopt;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool take(std::string_view& text, std::string_view prefix) {
    if (!beginsWith(text, prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

// -1, 0 or 1 semitones.
std::int32_t takeAccidental(std::string_view& name) {
    if (take(name, "#") || take(name, "\xE2\x99\xAF"))
        return 1;
    return take(name, "b") || take(name, "\xE2\x99\xAD") ? -1 : 0;
}

std::optional<std::int32_t> numberOf(std::string_view text) {
    const bool isNegative = take(text, "-");
    if (!isNegative)
        take(text, "+");
    const auto number = text.starts_with('-') ? std::nullopt : numberFrom<std::int32_t>(text);
    return number && isNegative ? -*number : number;
}

std::optional<std::int32_t> noteIn(std::span<const std::string> titles, std::string_view typed) {
    const auto note = noteNumber(typed);
    if (!note)
        return std::nullopt;
    return firstOf(titles, [&](const std::string& title) { return noteNumber(title) == note; });
}

std::optional<std::int32_t> numberIn(std::span<const std::string> titles, std::string_view typed) {
    const auto number = numberOf(typed);
    if (!number)
        return std::nullopt;
    if (const auto found =
            firstOf(titles, [&](const std::string& title) { return numberOf(title) == number; }))
        return found;
    const bool isNote = *number >= 0 && static_cast<std::size_t>(*number) < titles.size() &&
                        noteNumber(titles[static_cast<std::size_t>(*number)]);
    return isNote ? number : std::nullopt;
}

template <typename Entries>
std::optional<std::int32_t> partIn(const Entries& entries, std::string_view typed) {
    constexpr std::array<Rule, 3> kRules{beginsWith, hasWordOutsideParentheses, hasWord};
    if (typed.size() < kLeastOfPart)
        return std::nullopt;
    for (const Rule rule : kRules)
        if (const auto found = onlyOneOf(entries, typed, rule))
            return found;
    return std::nullopt;
}

// The position, if the list that `names` goes with has it.
std::optional<std::int32_t> within(std::span<const std::string> titles,
                                   std::optional<std::int32_t> position) {
    return position && static_cast<std::size_t>(*position) < titles.size() ? position
                                                                           : std::nullopt;
}

} // namespace

std::optional<std::int32_t> noteNumber(std::string_view name) {
    // In semitones above the C below.
    constexpr std::array<std::int32_t, 7> kLetters{9, 11, 0, 2, 4, 5, 7}; // from A on
    const char letter = name.empty() ? '\0' : lower(name.front());
    if (letter < 'a' || letter > 'g')
        return std::nullopt;
    name.remove_prefix(1);
    const std::int32_t accidental = takeAccidental(name);
    const bool isSigned = name.starts_with('-') || name.starts_with('+');
    const auto octave = name.size() == (isSigned ? 2 : 1) ? numberOf(name) : std::nullopt;
    if (!octave)
        return std::nullopt;
    return (*octave + 1) * kOctave + kLetters.at(static_cast<std::size_t>(letter - 'a')) +
           accidental;
}

std::optional<std::int32_t> typedPosition(std::string_view typed,
                                          std::span<const std::string> titles,
                                          std::span<const std::string_view> names) {
    typed = trimmed(typed);
    if (typed.empty())
        return std::nullopt;
    const auto matching = [typed](Rule rule) {
        return [typed, rule](std::string_view entry) { return rule(entry, typed); };
    };
    for (const Rule rule : {isSame, isSameInAnyCase})
        if (const auto found = firstOf(titles, matching(rule)))
            return found;
    if (const auto note = noteIn(titles, typed))
        return note;
    if (const auto number = numberIn(titles, typed))
        return number;
    if (const auto name = within(titles, firstOf(names, matching(isSameInAnyCase))))
        return name;
    if (const auto beginning = onlyOneOf(titles, typed, beginsWith))
        return beginning;
    if (const auto part = partIn(titles, typed))
        return part;
    return within(titles, partIn(names, typed));
}

namespace {

constexpr std::size_t kDigits = 2; // of a level
constexpr int kBase = 16;
constexpr std::int32_t kFullLevel = 127;
constexpr std::int32_t kFullShown = 255;

// A pad's light shows low levels as dark and mixes of three as white, so each colour but the whites
// has one level of 0 or nearly so and one that is full.
constexpr std::array<PadColour, 16> kBright{{
    {127, 0, 0},
    {127, 32, 0},
    {127, 64, 0},
    {127, 96, 0},
    {127, 127, 0},
    {64, 127, 0},
    {0, 127, 0},
    {0, 127, 64},
    {0, 127, 127},
    {0, 64, 127},
    {0, 0, 127},
    {64, 0, 127},
    {127, 0, 127},
    {127, 0, 64},
    {127, 64, 64},
    {127, 127, 127},
}};

// Where red and green look alike there are two things to see, how yellow and how blue a light is:
// in one of them at least any two differ by a quarter of the range.
constexpr std::array<PadColour, 8> kSafe{{
    {0, 0, 127},
    {127, 127, 0},
    {127, 0, 64},
    {127, 127, 127},
    {127, 40, 0},
    {0, 90, 127},
    {90, 127, 64},
    {0, 100, 64},
}};

constexpr std::array<NamedPalette, 2> kPalettes{{{"bright", kBright}, {"safe", kSafe}}};

} // namespace

std::optional<PadColour> colourOf(std::string_view text) {
    PadColour colour{};
    if (text.size() != 1 + kDigits * colour.size() || text.front() != '#')
        return std::nullopt;
    text.remove_prefix(1);
    for (std::int32_t& level : colour) {
        const auto shown = numberFrom<std::uint8_t>(text.substr(0, kDigits), kBase);
        if (!shown)
            return std::nullopt;
        level = (*shown * kFullLevel + kFullShown / 2) / kFullShown;
        text.remove_prefix(kDigits);
    }
    return colour;
}

std::string colourText(const PadColour& colour) {
    std::string text = "#";
    for (const std::int32_t level : colour)
        text += fmt::format("{:02x}", level * kFullShown / kFullLevel);
    return text;
}

std::span<const NamedPalette> palettes() {
    return kPalettes;
}

const Palette* findPalette(std::string_view name) {
    const auto* const found = std::ranges::find(kPalettes, name, &NamedPalette::name);
    return found == kPalettes.end() ? nullptr : &found->colours;
}

std::string paletteNames() {
    std::string names;
    for (const NamedPalette& palette : kPalettes)
        names += fmt::format("{}{}", names.empty() ? "" : ", ", palette.name);
    return names;
}

} // namespace scenewright
