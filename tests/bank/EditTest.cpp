#include "bank/Edit.h"

#include "bank/BankFile.h"
#include "bank/SettingText.h"
#include "tests/bank/KnownBank.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <utility>

namespace scenewright {

using testing::knownImage;
using testing::knownScenes;

namespace {

const PopUpValue& lists() {
    static const auto kLists = loadPopUpValue();
    return *kLists;
}

std::vector<std::size_t> changedBytes(const SceneList& scenes) {
    const BankImage image = encodeBank(scenes);
    const BankImage before = knownImage();
    std::vector<std::size_t> bytes;
    for (std::size_t at = 0; at < image.size(); ++at)
        if (image.at(at) != before.at(at))
            bytes.push_back(at);
    return bytes;
}

Result<SceneList> set(const std::vector<std::string>& assignments) {
    const SceneList scenes = knownScenes();
    auto edited = setValues(lists(), scenes, assignments);
    EXPECT_EQ(encodeBank(scenes), knownImage()) << "what goes in is never changed";
    return edited;
}

// Many of the known values are in no list.
Result<SceneList> copy(std::string_view from, std::string_view to) {
    const SceneList scenes = knownScenes();
    auto edited = copyValues(lists(), scenes, scenes, "raw:" + std::string(from), to);
    EXPECT_EQ(encodeBank(scenes), knownImage());
    return edited;
}

std::string errorOf(const Result<SceneList>& edited) {
    return edited ? "none" : edited.error();
}

std::string valueAfter(const std::vector<std::string>& assignments, std::string_view path) {
    const SettingPlace place = settingsAt(parsePath(path).value()).front();
    const SceneList scenes = set(assignments).value();
    return settingText(lists(), *scenes.at(static_cast<std::size_t>(place.scene)), place).value;
}

} // namespace

TEST(SetValues, IndexChangesItsByteAlone) {
    const SceneList edited = set({"scene2.pad4.CR=100"}).value();
    EXPECT_EQ(changedBytes(edited), std::vector<std::size_t>{253 + 229 + 3});
    EXPECT_EQ(encodeBank(edited).at(253 + 229 + 3), 100);
}

TEST(SetValues, ScenesThatComeOutShareNothingWithThoseThatWentIn) {
    const SceneList scenes = knownScenes();
    const SceneList edited = setValues(lists(), scenes, {}).value();
    for (std::size_t scene = 0; scene < 4; ++scene) {
        EXPECT_NE(edited[scene]->commonValue(), scenes[scene]->commonValue());
        for (std::size_t control = 0; control < 45; ++control)
            EXPECT_NE(edited[scene]->buttonValueArray()[control],
                      scenes[scene]->buttonValueArray()[control]);
    }
}

// Digits are an index unless they are marked as a title or a channel, and one outside its list has
// to be marked too; anything else is what a person calls the option. A name is a text, or marked
// bytes.
TEST(SetValues, ValueIsAnIndexATitleOrAName) {
    struct Row {
        std::string path;
        const char* value;
        const char* expected;
    };
    const std::string name = "scene1.common.SceneName";
    for (const Row& row : std::initializer_list<Row>{
             {"scene1.pad3.AssignType", "Note", "2"},
             {"scene1.common.KeyTranspose", "-4", "8"},
             {"scene1.common.KeyTranspose", "+4", "4"},
             {"scene1.group1.MIDIChannel", "Global", "16"},
             {"scene1.group1.MIDIChannel", "1", "1"},
             {"scene1.group1.MIDIChannel", "title:1", "0"},
             {"scene1.pad1.AssignType", "title:CC", "1"},
             {"scene1.group1.MIDIChannel", "16", "16"},
             {"scene1.group1.MIDIChannel", "raw:127", "127"},
             {"scene1.group1.MIDIChannel", "raw:9", "9"},
             {"scene1.group1.MIDIChannel", "10", "10"},
             {"scene1.group1.MIDIChannel", "ch:10", "9"},
             {"scene1.common.GlobalMIDICh", "ch:1", "0"},
             {"scene1.common.PianoKeyCh", "ch:16", "15"},
             {"scene1.group1.MIDIChannel", "global", "16"},
             {"scene1.pad3.AssignType", "note", "2"},
             {"scene1.pad3.PadBehavior", "tog", "1"},
             {"scene1.knob1.CCOrNoteNumber", "sustain", "64"},
             {"scene1.knob1.CCOrNoteNumber", "Brightness", "74"},
             {name, "My = Bank", "My = Bank"},
             {name, "", ""},
             {name, "7", "7"},
             {name, "bytes:41ff00000000000000000000", "bytes:41ff00000000000000000000"},
             {name, "bytes:414200000000000000000000", "AB"},
             {name, "bytes:41", "bytes:41"},
         })
        EXPECT_EQ(valueAfter({row.path + "=" + row.value}, row.path), row.expected) << row.value;
}

TEST(SetValues, NumbersTitleIsThatOfTheTypeAfterAllAssignments) {
    const std::string type = "scene1.key1.AssignType=";
    const std::string number = "scene1.key1.CCOrNoteNumber=";
    for (const auto& order :
         {std::vector{type + "Note", number + "C4"}, std::vector{number + "C4", type + "Note"},
          std::vector{number + "C4", type + "CC", type + "2"}})
        EXPECT_EQ(valueAfter(order, "scene1.key1.CCOrNoteNumber"), "60");
    EXPECT_EQ(errorOf(set({type + "Note", number + "C4", type + "CC"})),
              "scene1.key1.CCOrNoteNumber has no option \"C4\": its options go from 0 to 127");
    EXPECT_EQ(errorOf(set({type + "2", number + "title:60"})),
              "scene1.key1.CCOrNoteNumber has no option \"60\": its options go from C-1 to G9");
}

TEST(SetValues, NotesAreTakenInEverySpelling) {
    for (const auto& [typed, index] : {std::pair{"Db2", "37"},
                                       {"D#2", "39"},
                                       {"A#2", "46"},
                                       {"eb2", "39"},
                                       {"C2", "36"},
                                       {"c+2", "36"},
                                       {"Ab-1", "8"},
                                       {"36", "36"},
                                       {"hand clap", "39"}})
        EXPECT_EQ(valueAfter({"scene1.pad1.AssignType=Note",
                              std::string("scene1.pad1.CCOrNoteNumber=") + typed},
                             "scene1.pad1.CCOrNoteNumber"),
                  index)
            << typed;
}

TEST(SetValues, ColourSetsThreeFields) {
    const BankImage image = encodeBank(set({"scene2.pad4.colour=#fF8000"}).value());
    EXPECT_EQ(image.at(253 + 229 + 3), 127);
    EXPECT_EQ(image.at(253 + 237 + 3), 64);
    EXPECT_EQ(image.at(253 + 245 + 3), 0);
    const BankImage all = encodeBank(set({"scene1.pad*.colour=#010203"}).value());
    for (std::size_t pad = 0; pad < 8; ++pad)
        EXPECT_EQ((std::array{all.at(229 + pad), all.at(237 + pad), all.at(245 + pad)}),
                  (std::array<std::uint8_t, 3>{0, 1, 1}));
    EXPECT_EQ(valueAfter({"scene1.pad1.colour=#ffffff", "scene1.pad1.CG=5"}, "scene1.pad1.CG"),
              "5");
}

TEST(SetValues, StarsSetEachAndTheLaterOfTwoWins) {
    const BankImage image =
        encodeBank(set({"scene*.knob*.Enable=On", "scene2.knob3.Enable=Off"}).value());
    for (std::size_t scene = 0; scene < 4; ++scene)
        for (std::size_t knob = 0; knob < 4; ++knob)
            EXPECT_EQ(image.at(scene * 253 + 149 + knob), scene == 1 && knob == 2 ? 0 : 1);
    EXPECT_EQ(valueAfter({"scene2.knob3.Enable=0", "scene*.knob*.Enable=1"}, "scene2.knob3.Enable"),
              "1");
}

TEST(SetValues, OneBadAssignmentLeavesAllUndone) {
    EXPECT_FALSE(set({"scene1.pad1.CR=1", "scene1.pad1.CG=128"}));
}

TEST(SetValues, ErrorIsOnePhrase) {
    for (const auto& [assignment, error] :
         std::initializer_list<std::pair<const char*, std::string>>{
             {"scene1.pad3.CR", "scene1.pad3.CR: PATH=VALUE was expected"},
             {"", ": PATH=VALUE was expected"},
             {"scene1.pad3=1", "scene1.pad3: a value needs the path of a setting"},
             {"scene1=1", "scene1: a value needs the path of a setting"},
             {"scene1.pad9.CR=1",
              "scene1.pad9.CR: at character 11, a pad's number from 1 to 8 or * was expected"},
             {"scene1.pad3.CR=128",
              "scene1.pad3.CR must be a whole number from 0 to 127, and is 128"},
             {"scene1.pad3.CR=99999999999999999999",
              "scene1.pad3.CR must be a whole number from 0 to 127, and is 99999999999999999999"},
             {"scene1.pad3.CR=-1",
              "scene1.pad3.CR has no option \"-1\": its options go from 0 to 127"},
             {"scene1.pad3.CR=", "scene1.pad3.CR has no option \"\": its options go from 0 to 127"},
             {"scene1.pad3.AssignType=notes",
              "scene1.pad3.AssignType has no option \"notes\": its options are Off, CC, Note"},
             {"scene1.pad3.PadBehavior=T",
              "scene1.pad3.PadBehavior has no option \"T\": its options "
              "are Momentary, Toggle, Trigger, Release"},
             {"scene1.pad3.MIDIChannel=127",
              "scene1.pad3.MIDIChannel has no option of index 127: its options go from 0 (1) to 16 "
              "(Global); raw:127 is stored all the same"},
             {"scene1.pad3.AssignType=9",
              "scene1.pad3.AssignType has no option of index 9: its options go from 0 (Off) to 2 "
              "(Note); raw:9 is stored all the same"},
             {"scene1.pad3.AssignType=raw:128",
              "scene1.pad3.AssignType must be a whole number from 0 to 127, and is 128"},
             {"scene1.pad3.AssignType=raw:Note ",
              "scene1.pad3.AssignType must be a whole number from 0 to 127, and is \"Note \""},
             {"scene1.pad3.AssignType=raw:",
              "scene1.pad3.AssignType must be a whole number from 0 to 127, and is \"\""},
             {"scene1.pad3.MIDIChannel=ch:17",
              "scene1.pad3.MIDIChannel must be a channel from 1 to "
              "16 behind ch:, and is \"17\""},
             {"scene1.pad3.MIDIChannel=ch:0", "scene1.pad3.MIDIChannel must be a channel from 1 to "
                                              "16 behind ch:, and is \"0\""},
             {"scene1.pad3.CR=ch:1", "scene1.pad3.CR is no channel"},
             {"scene1.pad3.colour=red",
              "scene1.pad3.colour must be # and six hexadecimal digits, as "
              "in #ff8000, and is \"red\""},
             {"scene1.pad3.colour=#ff80zz", "scene1.pad3.colour must be # and six hexadecimal "
                                            "digits, as in #ff8000, and is \"#ff80zz\""},
             {"scene1.common.SceneName=THIRTEEN BYTE",
              "scene1.common.SceneName must be at most 12 bytes without control characters, or "
              "bytes: and 24 hexadecimal digits, and is \"THIRTEEN BYTE\""},
         })
        EXPECT_EQ(errorOf(set({assignment})), error);
}

TEST(SetValues, WithoutListsThereAreIndicesOnly) {
    const auto with = [](const std::string& assignment) {
        return errorOf(setValues(PopUpValue(), knownScenes(), std::vector{assignment}));
    };
    EXPECT_EQ(with("scene1.pad3.AssignType=Note"),
              "scene1.pad3.AssignType has no option \"Note\": it has none");
    EXPECT_EQ(with("scene1.pad3.AssignType=2"), "none");
}

TEST(CopyValues, WhatIsNamedGoesAndNothingElse) {
    struct Row {
        const char* from;
        const char* to;
        std::size_t first;
        std::size_t place;
        std::size_t size;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"scene1", "scene4", 0, 759, 253},
             {"scene1.common", "scene2.common", 0, 253, 20},
             {"scene1.pad*", "scene3.pad*", 181, 506 + 181, 72},
             {"scene1.pad1.CR", "scene2.pad1.CR", 229, 253 + 229, 1},
             {"scene3.common.SceneName", "scene1.common.SceneName", 506, 0, 12}}) {
        BankImage expected = knownImage();
        std::copy_n(expected.begin() + row.first, row.size, expected.begin() + row.place);
        EXPECT_EQ(encodeBank(copy(row.from, row.to).value()), expected) << row.from;
    }
}

TEST(CopyValues, ControlGoesToAnother) {
    const SceneList edited = copy("scene1.pad1", "scene2.pad8").value();
    const BankImage image = encodeBank(edited);
    for (std::size_t block = 181; block < 253; block += 8)
        EXPECT_EQ(image.at(253 + block + 7), knownImage().at(block));
    for (const std::size_t byte : changedBytes(edited))
        EXPECT_TRUE(byte >= 253 + 181 && (byte - 253 - 181) % 8 == 7) << byte;
}

TEST(CopyValues, OneGoesToMany) {
    const BankImage image = encodeBank(copy("scene1.knob2", "scene*.knob*").value());
    for (std::size_t scene = 0; scene < 4; ++scene)
        for (std::size_t field = 0; field < 16; ++field)
            EXPECT_EQ(image.at(scene * 253 + 149 + field),
                      knownImage().at(149 + field / 4 * 4 + 1));
}

TEST(CopyValues, OverlappingCopyTakesWhatWasThereBefore) {
    const BankImage image = encodeBank(copy("scene*.pad1", "scene*.pad2").value());
    for (std::size_t scene = 0; scene < 4; ++scene)
        EXPECT_EQ(image.at(scene * 253 + 182), knownImage().at(scene * 253 + 181));
}

TEST(CopyValues, WhatNoListHasIsCopiedRawOnly) {
    const SceneList odd = setValues(lists(), parseScenes(BankImage{}),
                                    std::vector<std::string>{"scene1.pad1.MIDIChannel=raw:127"})
                              .value();
    EXPECT_EQ(
        errorOf(copyValues(lists(), odd, odd, "scene1.pad1", "scene2.pad*")),
        "scene1.pad1 cannot be copied to scene2.pad*: scene2.pad1.MIDIChannel would be 127, "
        "and its options go from 0 (1) to 16 (Global); raw:scene1.pad1 is copied all the same");
    const BankImage image =
        encodeBank(copyValues(lists(), odd, odd, "raw:scene1.pad1", "scene2.pad*").value());
    for (std::size_t pad = 0; pad < 8; ++pad)
        EXPECT_EQ(image.at(253 + 197 + pad), 127);
    EXPECT_EQ(errorOf(copyValues(lists(), odd, odd, "scene1.pad2", "scene2.pad*")), "none");
}

TEST(SwapValues, ScenesAndControlsChangePlaces) {
    const SceneList scenes = knownScenes();
    const BankImage before = knownImage();
    const BankImage image = encodeBank(swapValues(scenes, "scene2", "scene4").value());
    EXPECT_EQ(encodeBank(scenes), before) << "what goes in is never changed";
    BankImage expected = before;
    std::swap_ranges(expected.begin() + 253, expected.begin() + 506, expected.begin() + 759);
    EXPECT_EQ(image, expected);

    const BankImage pads = encodeBank(swapValues(scenes, "scene1.pad1", "scene3.pad8").value());
    expected = before;
    for (std::size_t block = 181; block < 253; block += 8)
        std::swap(expected.at(block), expected.at(506 + block + 7));
    EXPECT_EQ(pads, expected);
    EXPECT_EQ(encodeBank(swapValues(scenes, "scene2", "scene2").value()), before);
}

TEST(SwapValues, ErrorIsOnePhrase) {
    const auto error = [](std::string_view first, std::string_view second) {
        return errorOf(swapValues(knownScenes(), first, second));
    };
    for (const auto& [first, second] :
         {std::pair{"scene*", "scene*"}, {"scene1", "scene*"}, {"scene*", "scene1"}})
        EXPECT_EQ(error(first, second), std::string(first) + " cannot be swapped with " + second +
                                            ": neither may have a star");
    EXPECT_EQ(error("scene1.pad1", "scene1.key1"),
              "scene1.pad1 cannot be swapped with scene1.key1: both must name scenes, controls of "
              "one kind, or one and the same setting");
    EXPECT_EQ(error("scene1", "scene5"),
              "scene5: at character 6, a scene's number from 1 to 4 or * was expected");
}

TEST(RenameScene, NameIsStoredOrRefused) {
    const SceneList scenes = knownScenes();
    const BankImage image = encodeBank(renameScene(scenes, "scene2", "Caf\xC3\xA9 Night").value());
    EXPECT_EQ(encodeBank(scenes), knownImage());
    const std::string name(image.begin() + 253, image.begin() + 265);
    EXPECT_EQ(name, std::string("Caf\xC3\xA9 Night\0", 12));
    EXPECT_TRUE(std::equal(image.begin() + 265, image.end(), knownImage().begin() + 265));
    for (const auto& [path, text, error] :
         std::initializer_list<std::tuple<const char*, const char*, const char*>>{
             {"scene2", "THIRTEEN BYTE",
              "a scene's name has at most 12 bytes, and \"THIRTEEN BYTE\" has 13"},
             {"scene2", "tab\there",
              "a scene's name is a text without control characters, and "
              "\"tab\xEF\xBF\xBDhere\" is none"},
             {"scene2.pad1", "X", "scene2.pad1: the path of a scene was expected"},
             {"pad1", "X", "pad1: at character 1, \"scene\" was expected"}})
        EXPECT_EQ(errorOf(renameScene(scenes, path, text)), error);
}

TEST(CopyValues, ErrorIsOnePhrase) {
    const std::string kinds =
        "both must name scenes, controls of one kind, or one and the same setting";
    const std::string star = "a star in the first needs a star in the second";
    struct Row {
        std::string from;
        std::string to;
        std::string why;
    };
    for (const Row& row : std::initializer_list<Row>{{"scene1", "scene2.pad1", kinds},
                                                     {"scene1.pad1", "scene1.knob1", kinds},
                                                     {"scene1.pad1.CR", "scene1.pad1.CG", kinds},
                                                     {"scene*", "scene2", star},
                                                     {"scene1.pad*", "scene1.pad1", star}})
        EXPECT_EQ(errorOf(copy(row.from, row.to)),
                  row.from + " cannot be copied to " + row.to + ": " + row.why);
    EXPECT_EQ(errorOf(copy("scene1", "scene5")),
              "scene5: at character 6, a scene's number from 1 to 4 or * was expected");
    EXPECT_EQ(errorOf(copy("x", "scene5")), "x: at character 1, \"scene\" was expected");
}

} // namespace scenewright
