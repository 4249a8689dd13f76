#include "tests/resources/ResourceFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <variant>

namespace scenewright {
namespace {

using Texts = std::vector<std::string>;
// The option list of each field that a kind of control carries.
using FieldLists = std::map<std::string, std::string>;

struct Kind {
    std::string name;
    std::size_t start; // in "ButtonArray"
    std::size_t count;
    FieldLists fields;
};

const std::vector<Kind>& kinds() {
    static const FieldLists turned{{"CCOrNoteNumber", "select127"},
                                   {"UpperOrRightValue", "select127"},
                                   {"LowerOrLeftValue", "select127"},
                                   {"Enable", "button-enable"}};
    static const std::vector<Kind> all{
        {"group", 0, 4, {{"MIDIChannel", "button-MIDICh"}}},
        {"knob", 4, 4, turned},
        {"slider", 8, 4, turned},
        {"pad",
         12,
         8,
         {{"MIDIChannel", "button-MIDICh"},
          {"AssignType", "button-assginType"},
          {"CCOrNoteNumber", "button-note"},
          {"PadBehavior", "button-behavior"},
          {"OnValue", "select127"},
          {"OffValue", "select127"},
          {"CR", "select127"},
          {"CG", "select127"},
          {"CB", "select127"}}},
        {"key",
         20,
         25,
         {{"AssignType", "button-assginType"},
          {"CCOrNoteNumber", "button-note"},
          {"KeyBehavior", "button-behavior"},
          {"OnValue", "select127"},
          {"OffValue", "select127"}}},
    };
    return all;
}

std::vector<PropertyValue> controlsOf(const std::string& kindName) {
    const PropertyValue root = resource("default");
    const auto all = root["ButtonArray"].elements();
    std::vector<PropertyValue> controls;
    for (const Kind& kind : kinds())
        if (kind.name == kindName && all.size() >= kind.start + kind.count)
            controls.assign(all.begin() + static_cast<std::ptrdiff_t>(kind.start),
                            all.begin() + static_cast<std::ptrdiff_t>(kind.start + kind.count));
    EXPECT_FALSE(controls.empty());
    return controls;
}

std::vector<int> valuesOf(const std::string& kindName, std::string_view field) {
    std::vector<int> values;
    for (const PropertyValue& control : controlsOf(kindName))
        values.push_back(control[field].integer());
    return values;
}

std::vector<int> counting(int first, int count) {
    std::vector<int> values;
    for (int i = 0; i < count; ++i)
        values.push_back(first + i);
    return values;
}

TEST(DefaultList, HasItsTwoKeys) {
    EXPECT_EQ(keysOf(resource("default")), (Texts{"ButtonArray", "CommonValue"}));
}

TEST(DefaultList, HasFortyFiveControlsNumberedInOrder) {
    const PropertyValue root = resource("default");
    const auto controls = root["ButtonArray"].elements();
    ASSERT_EQ(controls.size(), 45U);
    for (std::size_t i = 0; i < controls.size(); ++i)
        EXPECT_EQ(controls[i]["BtnID"].integer(), static_cast<int>(i) + 1);
}

TEST(DefaultList, EveryControlHasTheFourteenKeysAsIntegers) {
    const Texts expected{"AssignType", "BtnID",   "CB",          "CCOrNoteNumber",   "CG",
                         "CR",         "Enable",  "KeyBehavior", "LowerOrLeftValue", "MIDIChannel",
                         "OffValue",   "OnValue", "PadBehavior", "UpperOrRightValue"};
    const PropertyValue root = resource("default");
    for (const PropertyValue& control : root["ButtonArray"].elements()) {
        EXPECT_EQ(keysOf(control), expected);
        for (const std::string& key : expected)
            EXPECT_TRUE(std::holds_alternative<std::int64_t>(control[key].node())) << key;
    }
}

TEST(DefaultList, FieldsThatAKindDoesNotCarryAreMarkedAbsent) {
    for (const Kind& kind : kinds())
        for (const PropertyValue& control : controlsOf(kind.name))
            for (const std::string& key : keysOf(control))
                if (key != "BtnID" && !kind.fields.contains(key)) {
                    EXPECT_EQ(control[key].integer(), -1) << kind.name << " " << key;
                }
}

TEST(DefaultList, EveryFieldThatAKindCarriesLiesInItsOptionList) {
    const PropertyValue options = resource("basic");
    for (const Kind& kind : kinds())
        for (const PropertyValue& control : controlsOf(kind.name))
            for (const auto& [field, key] : kind.fields) {
                const int value = control[field].integer();
                EXPECT_GE(value, 0) << kind.name << " " << field;
                EXPECT_LT(value, std::ssize(options[key].elements())) << kind.name << " " << field;
            }
}

TEST(DefaultList, EverySceneWideSettingLiesInItsOptionList) {
    const FieldLists lists{
        {"globalMIDICh", "common-globalMIDICh"}, {"keyConstVelocity", "select127"},
        {"keyTranspose", "common-keyTranspose"}, {"keyVelocityCurve", "common-velocityCurve"},
        {"padConstVelocity", "select127"},       {"padVelocityCurve", "common-velocityCurve"},
        {"pianoKeyCh", "common-pianoKeyCh"},     {"pitchBendSpeed", "common-PitchBendSpeed"}};
    const PropertyValue options = resource("basic");
    const PropertyValue root = resource("default");
    const PropertyValue& common = root["CommonValue"];
    Texts keys;
    for (const auto& [field, key] : lists) {
        keys.push_back(field);
        EXPECT_GE(common[field].integer(), 0) << field;
        EXPECT_LT(common[field].integer(), std::ssize(options[key].elements())) << field;
    }
    EXPECT_EQ(keysOf(common), keys);
}

TEST(DefaultList, GroupsFollowTheGlobalChannel) {
    EXPECT_EQ(valuesOf("group", "MIDIChannel"), (std::vector<int>{16, 16, 16, 16}));
}

TEST(DefaultList, KnobsAndSlidersSendTheirControllersOverTheWholeRange) {
    EXPECT_EQ(valuesOf("knob", "CCOrNoteNumber"), (std::vector<int>{74, 71, 73, 72}));
    EXPECT_EQ(valuesOf("slider", "CCOrNoteNumber"), (std::vector<int>{7, 11, 91, 93}));
    for (const std::string kind : {"knob", "slider"}) {
        EXPECT_EQ(valuesOf(kind, "LowerOrLeftValue"), std::vector<int>(4, 0));
        EXPECT_EQ(valuesOf(kind, "UpperOrRightValue"), std::vector<int>(4, 127));
        EXPECT_EQ(valuesOf(kind, "Enable"), std::vector<int>(4, 1));
    }
}

TEST(DefaultList, PadsPlayDrumsFromNote36OnTheDrumChannel) {
    EXPECT_EQ(valuesOf("pad", "AssignType"), std::vector<int>(8, 2));
    EXPECT_EQ(valuesOf("pad", "CCOrNoteNumber"), counting(36, 8));
    EXPECT_EQ(valuesOf("pad", "MIDIChannel"), std::vector<int>(8, 9)); // channel 10
}

TEST(DefaultList, PadsHaveEightColoursEachBright) {
    std::set<std::tuple<int, int, int>> colours;
    for (const PropertyValue& pad : controlsOf("pad")) {
        const std::array<int, 3> parts{pad["CR"].integer(), pad["CG"].integer(),
                                       pad["CB"].integer()};
        EXPECT_EQ(std::max({parts[0], parts[1], parts[2]}), 127);
        colours.insert({parts[0], parts[1], parts[2]});
    }
    EXPECT_EQ(colours.size(), 8U);
}

TEST(DefaultList, KeysPlayNotesFromC3Up) {
    EXPECT_EQ(valuesOf("key", "AssignType"), std::vector<int>(25, 2));
    EXPECT_EQ(valuesOf("key", "CCOrNoteNumber"), counting(48, 25));
}

} // namespace
} // namespace scenewright
