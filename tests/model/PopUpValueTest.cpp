#include "model/PopUpValue.h"

#include "platform/Resources.h"
#include "platform/Text.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using Strings = std::vector<std::string>;

constexpr std::array<std::pair<const char*, const char*>, 47> kPropertiesAndKeys{{
    {"display_Select_Array", "displaySelect"},
    {"control_Array", "control"},
    {"display_MIDIChannel_Array", "button-MIDICh"},
    {"display_AssignType_Array", "button-assginType"},
    {"display_CCNumber_Array", "select127"},
    {"display_NoteNumber_Array", "button-note"},
    {"display_UpperOrRightValue_Array", "select127"},
    {"display_LowerOrLeftValue_Array", "select127"},
    {"display_PadBehavior_Array", "button-behavior"},
    {"display_KeyBehavior_Array", "button-behavior"},
    {"display_OnValue_Array", "select127"},
    {"display_OffValue_Array", "select127"},
    {"display_Enable_Array", "button-enable"},
    {"common_SceneName_Array", "common-sceneName"},
    {"common_GlobalMIDICh_Array", "common-globalMIDICh"},
    {"common_PianoKeyCh_Array", "common-pianoKeyCh"},
    {"common_PitchBendSpeed_Array", "common-PitchBendSpeed"},
    {"common_KeyTranspose_Array", "common-keyTranspose"},
    {"common_KeyVelocityCurve_Array", "common-velocityCurve"},
    {"common_KeyConstVelocity_Array", "select127"},
    {"common_PadVelocityCurve_Array", "common-velocityCurve"},
    {"common_PadConstVelocity_Array", "select127"},
    {"group_MIDIChannel_Array", "button-MIDICh"},
    {"knob_Enable_Array", "button-enable"},
    {"knob_CCNumber_Array", "select127"},
    {"knob_UpperOrRightValue_Array", "select127"},
    {"knob_LowerOrLeftValue_Array", "select127"},
    {"slider_Enable_Array", "button-enable"},
    {"slider_CCNumber_Array", "select127"},
    {"slider_UpperOrRightValue_Array", "select127"},
    {"slider_LowerOrLeftValue_Array", "select127"},
    {"pad_AssignType_Array", "button-assginType"},
    {"pad_CCNumber_Array", "select127"},
    {"pad_NoteNumber_Array", "button-note"},
    {"pad_OnValue_Array", "select127"},
    {"pad_OffValue_Array", "select127"},
    {"pad_PadBehavior_Array", "button-behavior"},
    {"pad_MIDIChannel_Array", "button-MIDICh"},
    {"pad_CR_Array", "select127"},
    {"pad_CG_Array", "select127"},
    {"pad_CB_Array", "select127"},
    {"key_AssignType_Array", "button-assginType"},
    {"key_CCNumber_Array", "select127"},
    {"key_NoteNumber_Array", "button-note"},
    {"key_OnValue_Array", "select127"},
    {"key_OffValue_Array", "select127"},
    {"key_KeyBehavior_Array", "button-behavior"},
}};

class PopUpValueTest : public ::testing::Test {
protected:
    void SetUp() override { Resources::setFolder(folder_.path()); }
    void TearDown() override {
        Resources::setFolder({});
        setTranslator(nullptr);
        ::unsetenv("XDG_CONFIG_HOME");
    }

    void writeBasic(const std::string& dictionary) { writeList("basic", dictionary); }
    void writeList(const std::string& name, const std::string& dictionary) {
        writeList(folder_.path(), name, dictionary);
    }
    static void writeList(const std::filesystem::path& folder, const std::string& name,
                          const std::string& dictionary) {
        const std::string text = "<plist version=\"1.0\"><dict>" + dictionary + "</dict></plist>";
        testing::writeBytes((folder / (name + ".plist")).string(),
                            {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    }

    // One title a key, the key itself.
    static std::string everyKey() {
        std::string text;
        Strings seen;
        for (const auto& [property, key] : kPropertiesAndKeys) {
            if (std::ranges::find(seen, key) != seen.end())
                continue;
            seen.emplace_back(key);
            text +=
                "<key>" + seen.back() + "</key><array><string>" + seen.back() + "</string></array>";
        }
        EXPECT_EQ(seen.size(), 14U);
        return text;
    }
    [[nodiscard]] std::string file(const char* name) const { return folder_.file(name); }

private:
    testing::TempFolder folder_;
};

} // namespace

TEST_F(PopUpValueTest, TableHoldsThe47PropertiesInDeclaredOrderEachFilledFromItsKey) {
    writeBasic(everyKey());
    const auto lists = loadPopUpValue();
    EXPECT_NE(loadPopUpValue(), lists) << "each call gives a new holder";
    ASSERT_EQ(optionLists().size(), kPropertiesAndKeys.size());
    for (std::size_t row = 0; row < optionLists().size(); ++row) {
        const OptionList& list = optionLists()[row];
        EXPECT_EQ(list.name, kPropertiesAndKeys[row].first);
        EXPECT_EQ(list.key, kPropertiesAndKeys[row].second);
        ASSERT_NE(list.of(*lists), nullptr) << list.name;
        EXPECT_EQ(*list.of(*lists), Strings{kPropertiesAndKeys[row].second});
        for (const OptionList& other : optionLists()) // one key, one list
            EXPECT_EQ(list.of(*lists) == other.of(*lists), list.key == other.key) << other.name;
    }
}

TEST_F(PopUpValueTest, EachReaderGivesWhatItsWriterSetAndNothingElse) {
    for (const OptionList& written : optionLists()) {
        PopUpValue lists;
        const auto titles = std::make_shared<const Strings>(Strings{"a"});
        written.set(lists, titles);
        for (const OptionList& read : optionLists())
            EXPECT_EQ(read.of(lists), &read == &written ? titles : nullptr) << read.name;
    }
}

TEST_F(PopUpValueTest, WhatTheFileLacksOrSpellsOtherwiseIsNullAndTheRestFilled) {
    struct Row {
        const char* dictionary;
        Titles (*read)(const PopUpValue&);
        std::optional<Strings> titles; // nothing for no list
    };
    const auto control = [](const PopUpValue& lists) { return lists.control_Array(); };
    const auto notes = [](const PopUpValue& lists) { return lists.pad_NoteNumber_Array(); };
    const auto types = [](const PopUpValue& lists) { return lists.pad_AssignType_Array(); };
    const char* const kNotes = "<key>button-note</key><array><string>C4</string></array>";
    for (const Row& row : {
             Row{kNotes, notes, Strings{"C4"}},
             Row{kNotes, control, {}},
             Row{"<key>control</key><string>Common</string>", control, {}},
             Row{"<key>control</key><array/>", control, Strings{}},
             Row{"<key>control</key><array><string>a</string><array/><string>c</string></array>",
                 control, Strings{"a", "", "c"}},
             Row{"<key>button-assignType</key><array><string>Off</string></array>", types, {}},
             Row{"<key>button-assginType</key><array><string>Off</string></array>", types,
                 Strings{"Off"}},
         }) {
        writeBasic(row.dictionary);
        const Titles titles = row.read(*loadPopUpValue());
        ASSERT_EQ(titles != nullptr, row.titles.has_value()) << row.dictionary;
        if (titles) {
            EXPECT_EQ(*titles, *row.titles) << row.dictionary;
        }
    }
    writeBasic("<key>control"); // no property list
    const auto lists = loadPopUpValue();
    for (const OptionList& list : optionLists())
        EXPECT_EQ(list.of(*lists), nullptr) << list.name;
}

constexpr const char* kEnglish =
    "<key>button-enable</key><array><string>Off</string><string>On</string></array>"
    "<key>button-behavior</key><array><string>Toggle</string></array>"
    "<key>button-note</key><array><string>C4</string></array>";
constexpr const char* kGerman =
    "<key>button-enable</key><array><string>Aus</string><string>Ein</string></array>"
    "<key>button-behavior</key><array><string>Umschaltend</string><string>?</string></array>"
    "<key>select127</key><array><string>0</string></array>";

std::string germanNames(SourceText text) {
    return text.written == std::string("basic") ? "basic_de" : text.written;
}

TEST_F(PopUpValueTest, ShownListsHaveTheWordsOfTheLanguageWhereItHasAsMany) {
    writeBasic(kEnglish);
    writeList("basic_de", kGerman);
    EXPECT_EQ(*loadShownPopUpValue()->knob_Enable_Array(), (Strings{"Off", "On"}));
    setTranslator(&germanNames);
    const auto lists = loadShownPopUpValue();
    EXPECT_EQ(*lists->knob_Enable_Array(), (Strings{"Aus", "Ein"}));
    EXPECT_EQ(*lists->key_KeyBehavior_Array(), Strings{"Toggle"}) << "one title too many";
    EXPECT_EQ(*lists->pad_NoteNumber_Array(), Strings{"C4"}) << "no list of that language";
    EXPECT_EQ(lists->pad_CR_Array(), nullptr) << "no list of basic.plist";
    EXPECT_EQ(*loadPopUpValue()->knob_Enable_Array(), (Strings{"Off", "On"})) << "as in files";
}

TEST_F(PopUpValueTest, UsersOwnBasicListStaysAsItIsInEveryLanguage) {
    setTranslator(&germanNames);
    const testing::TempFolder later; // in the search
    ::setenv("XDG_CONFIG_HOME", later.path().c_str(), 1);
    const std::filesystem::path lists = later.path() / "scenewright";
    std::filesystem::create_directory(lists);
    writeList(lists, "basic", kEnglish);
    writeList(lists, "basic_de", kGerman);
    EXPECT_EQ(*loadShownPopUpValue()->knob_Enable_Array(), (Strings{"Aus", "Ein"}));
    writeBasic(kEnglish);
    EXPECT_EQ(*loadShownPopUpValue()->knob_Enable_Array(), (Strings{"Off", "On"}));
}

TEST_F(PopUpValueTest, LanguagesListThatCannotServeIsToldAndLeavesTheWrittenTitles) {
    setTranslator(&germanNames);
    writeBasic(kEnglish);
    EXPECT_TRUE(checkShownTitles()) << "there is none";
    const std::string german = file("basic_de.plist");
    struct Row {
        const char* text;
        std::string error;
    };
    for (const Row& row :
         {Row{"<key>button-enable</key><array><string>Aus</string></array>",
              german + ": the list \"button-enable\" holds 1 titles, and 2 are needed"},
          Row{"<key>button-note</key><array><string>C4</string></array>", ""},
          Row{"<key>button-enable", "Cannot read " + german}}) {
        writeList("basic_de", row.text);
        const auto checked = checkShownTitles();
        EXPECT_EQ(checked ? "" : checked.error().substr(0, row.error.size()), row.error);
        EXPECT_EQ(checked.has_value(), row.error.empty());
        EXPECT_EQ(*loadShownPopUpValue()->knob_Enable_Array(), (Strings{"Off", "On"}));
    }
}

TEST_F(PopUpValueTest, ProgramsDoWithoutNoTitleThatASettingNeeds) {
    EXPECT_FALSE(readPopUpValue()) << "there is no file";
    const std::array<std::pair<const char*, std::size_t>, 13> needed{{
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
    const auto writeAllBut = [&](const char* shorter) {
        std::string lists;
        for (const auto& [key, count] : needed) {
            lists += std::string("<key>") + key + "</key><array>";
            for (std::size_t at = key == shorter ? 1 : 0; at < count; ++at)
                lists += "<string>a</string>";
            lists += "</array>";
        }
        writeBasic(lists);
    };
    writeAllBut(nullptr);
    const auto read = readPopUpValue();
    ASSERT_TRUE(read) << read.error();
    EXPECT_EQ((*read)->knob_Enable_Array()->size(), 2U);
    for (const auto& [key, count] : needed) {
        writeAllBut(key);
        const auto refused = readPopUpValue();
        ASSERT_FALSE(refused) << key;
        EXPECT_EQ(refused.error(), file("basic.plist") + ": the list \"" + key + "\" holds " +
                                       std::to_string(count - 1) + " titles, and " +
                                       std::to_string(count) + " are needed");
    }
}

TEST(TitleAt, GivesTheTitleOfAPositionThatTheListHas) {
    const auto titles = std::make_shared<const Strings>(Strings{"a", "b"});
    EXPECT_EQ(*titleAt(titles, 0), "a");
    EXPECT_EQ(*titleAt(titles, 1), "b");
    for (const std::int32_t outside : {-1, 2, INT32_MIN})
        EXPECT_EQ(titleAt(titles, outside), nullptr) << outside;
    EXPECT_EQ(titleAt(nullptr, 0), nullptr);
}

} // namespace scenewright
