#include "model/PopUpValue.h"

#include "platform/Resources.h"
#include "platform/Text.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace scenewright {

namespace {

Titles titlesOf(const PropertyValue& value) {
    if (!value.isArray())
        return nullptr;
    std::vector<std::string> titles;
    for (const PropertyValue& element : value.elements())
        titles.emplace_back(element.text());
    return std::make_shared<const std::vector<std::string>>(std::move(titles));
}

} // namespace

std::span<const OptionList> optionLists() {
#define SCENEWRIGHT_ROW(Name, SetName, Key) PopUpValue::Name##List,
    static constexpr std::array kLists{SCENEWRIGHT_OPTION_LISTS(SCENEWRIGHT_ROW)};
#undef SCENEWRIGHT_ROW
    return kLists;
}

namespace {

// The titles of `basic`, or those of `words` where it has as many.
std::shared_ptr<PopUpValue> popUpValueOf(const PropertyValue& basic,
                                         const PropertyValue& words = {}) {
    std::map<std::string_view, Titles> byKey;
    auto lists = std::make_shared<PopUpValue>();
    for (const OptionList& list : optionLists()) {
        const auto [entry, isNew] = byKey.try_emplace(list.key);
        if (isNew) {
            entry->second = titlesOf(basic[list.key]);
            const Titles shown = titlesOf(words[list.key]);
            if (shown && entry->second && shown->size() == entry->second->size())
                entry->second = shown;
        }
        list.set(*lists, entry->second);
    }
    return lists;
}

constexpr std::string_view kWritten = "basic";

// As in basic_de.
std::string listFileOfLanguage() {
    return translated(sourceText("scenewright::Lists", "basic"));
}

// Nothing where it is behind the user's own, too.
std::optional<std::filesystem::path> listFileOfWords() {
    const std::string name = listFileOfLanguage();
    const std::array<std::string_view, 2> names{name, kWritten};
    const auto file = Resources::findFirst(names, "plist");
    return file && file->stem() != kWritten ? file : std::nullopt;
}

PropertyValue wordsOfLanguage() {
    const auto file = listFileOfWords();
    return file ? readPropertyList(*file).value_or(PropertyValue()) : PropertyValue();
}

std::string countError(const std::filesystem::path& file, std::string_view key, std::size_t count,
                       std::size_t needed) {
    return translated(sourceText("scenewright::File",
                                 "{0}: the list \"{1}\" holds {2} titles, and {3} are needed"),
                      file.string(), key, count, needed);
}

// How many titles the settings of the keyboard need.
struct TitleCount {
    const char* key;
    std::size_t least;
};
constexpr std::array<TitleCount, 13> kTitleCounts{{
    {"displaySelect", 8},
    {"control", 46},
    {"button-MIDICh", 17},
    {"button-assginType", 3},
    {"select127", 128},
    {"button-note", 128},
    {"button-behavior", 4},
    {"button-enable", 2},
    {"common-globalMIDICh", 16},
    {"common-pianoKeyCh", 17},
    {"common-PitchBendSpeed", 128},
    {"common-keyTranspose", 9},
    {"common-velocityCurve", 4},
}};

std::string fileName() {
    const auto file = Resources::find("basic", "plist");
    return file ? file->string() : "basic.plist";
}

} // namespace

std::shared_ptr<PopUpValue> loadPopUpValue() {
    return popUpValueOf(Resources::load("basic"));
}

std::shared_ptr<PopUpValue> loadShownPopUpValue() {
    return popUpValueOf(Resources::load("basic"), wordsOfLanguage());
}

std::span<const std::string_view> writtenTitles(const OptionList& list) {
    if (listFileOfLanguage() == kWritten)
        return {};
    static const std::shared_ptr<PopUpValue> written = loadPopUpValue();
    static std::map<std::string_view, std::vector<std::string_view>> byKey;
    const auto [entry, isNew] = byKey.try_emplace(list.key);
    if (const Titles& titles = list.of(*written); isNew && titles)
        entry->second.assign(titles->begin(), titles->end());
    return entry->second;
}

Result<std::shared_ptr<PopUpValue>> readPopUpValue() {
    const auto basic = Resources::read("basic");
    if (!basic)
        return failure(basic.error());
    for (const TitleCount& needed : kTitleCounts) {
        const std::size_t count = (*basic)[needed.key].elements().size();
        if (count < needed.least)
            return failure(countError(fileName(), needed.key, count, needed.least));
    }
    return popUpValueOf(*basic);
}

Result<void> checkShownTitles() {
    const auto file = listFileOfWords();
    if (!file)
        return {};
    const auto words = readPropertyList(*file);
    if (!words)
        return failure(words.error());
    const PropertyValue basic = Resources::load("basic");
    for (const TitleCount& list : kTitleCounts) {
        const std::size_t count = (*words)[list.key].elements().size();
        const std::size_t needed = basic[list.key].elements().size();
        if ((*words)[list.key].isArray() && count != needed)
            return failure(countError(*file, list.key, count, needed));
    }
    return {};
}

const std::string* titleAt(const Titles& titles, std::int32_t position) {
    if (!titles || position < 0 || static_cast<std::size_t>(position) >= titles->size())
        return nullptr;
    return &(*titles)[static_cast<std::size_t>(position)];
}

} // namespace scenewright
