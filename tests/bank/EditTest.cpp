#include "bank/Edit.h"

#include "bank/BankFile.h"
#include "bank/SettingText.h"
#include "tests/bank/KnownBank.h"

#include <gtest/gtest.h>

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

Edited set(const std::vector<std::string>& assignments) {
    const SceneList scenes = knownScenes();
    Edited edited = setValues(lists(), scenes, assignments);
    EXPECT_EQ(edited.scenes.empty(), edited.trouble.has_value());
    EXPECT_EQ(encodeBank(scenes), knownImage()) << "what goes in is never changed";
    return edited;
}

std::string setTrouble(const std::vector<std::string>& assignments) {
    return set(assignments).trouble.value_or("none");
}

std::string valueAfter(const std::vector<std::string>& assignments, std::string_view path) {
    const Edited edited = set(assignments);
    EXPECT_EQ(edited.trouble, std::nullopt);
    const SettingPlace place = settingsAt(parsePath(path).path.value()).front();
    return settingText(lists(), *edited.scenes.at(static_cast<std::size_t>(place.scene)), place)
        .value;
}

Edited copy(std::string_view from, std::string_view to) {
    const SceneList scenes = knownScenes();
    Edited edited = copyValues(scenes, from, to);
    EXPECT_EQ(encodeBank(scenes), knownImage());
    return edited;
}

std::string copyTrouble(std::string_view from, std::string_view to) {
    return copy(from, to).trouble.value_or("none");
}

} // namespace

TEST(SetValues, IndexChangesItsByteAlone) {
    const Edited edited = set({"scene2.pad4.CR=100"});
    EXPECT_EQ(changedBytes(edited.scenes), std::vector<std::size_t>{253 + 229 + 3});
    EXPECT_EQ(encodeBank(edited.scenes).at(253 + 229 + 3), 100);
}

TEST(SetValues, ScenesThatComeOutShareNothingWithThoseThatWentIn) {
    const SceneList scenes = knownScenes();
    const Edited edited = setValues(lists(), scenes, {});
    for (std::size_t scene = 0; scene < 4; ++scene) {
        EXPECT_NE(edited.scenes[scene]->commonValue(), scenes[scene]->commonValue());
        for (std::size_t control = 0; control < 45; ++control)
            EXPECT_NE(edited.scenes[scene]->buttonValueArray()[control],
                      scenes[scene]->buttonValueArray()[control]);
    }
}

TEST(SetValues, TitleIsTurnedIntoItsIndex) {
    EXPECT_EQ(valueAfter({"scene1.pad3.AssignType=Note"}, "scene1.pad3.AssignType"), "2");
    EXPECT_EQ(valueAfter({"scene1.common.KeyTranspose=-4"}, "scene1.common.KeyTranspose"), "8");
    EXPECT_EQ(valueAfter({"scene1.common.KeyTranspose=+4"}, "scene1.common.KeyTranspose"), "4");
    EXPECT_EQ(valueAfter({"scene1.group1.MIDIChannel=Global"}, "scene1.group1.MIDIChannel"), "16");
}

TEST(SetValues, DigitsAreAnIndexUnlessMarkedAsATitle) {
    EXPECT_EQ(valueAfter({"scene1.group1.MIDIChannel=1"}, "scene1.group1.MIDIChannel"), "1");
    EXPECT_EQ(valueAfter({"scene1.group1.MIDIChannel=title:1"}, "scene1.group1.MIDIChannel"), "0");
    EXPECT_EQ(valueAfter({"scene1.pad1.AssignType=title:CC"}, "scene1.pad1.AssignType"), "1");
}

TEST(SetValues, IndexOutsideItsListIsTakenAsTheImageTakesIt) {
    EXPECT_EQ(valueAfter({"scene1.group1.MIDIChannel=127"}, "scene1.group1.MIDIChannel"), "127");
}

TEST(SetValues, NumbersTitleIsThatOfTheTypeAfterAllAssignments) {
    const std::string type = "scene1.key1.AssignType=";
    const std::string number = "scene1.key1.CCOrNoteNumber=";
    for (const auto& order :
         {std::vector{type + "Note", number + "C4"}, std::vector{number + "C4", type + "Note"},
          std::vector{number + "C4", type + "CC", type + "2"}})
        EXPECT_EQ(valueAfter(order, "scene1.key1.CCOrNoteNumber"), "60");
    EXPECT_EQ(setTrouble({type + "Note", number + "C4", type + "CC"}),
              "scene1.key1.CCOrNoteNumber has no option \"C4\": its options go from 0 to 127");
    EXPECT_EQ(setTrouble({type + "2", number + "title:60"}),
              "scene1.key1.CCOrNoteNumber has no option \"60\": its options go from C-1 to G9");
}

TEST(SetValues, StarsSetEachAndTheLaterOfTwoWins) {
    const Edited edited = set({"scene*.knob*.Enable=On", "scene2.knob3.Enable=Off"});
    const BankImage image = encodeBank(edited.scenes);
    for (std::size_t scene = 0; scene < 4; ++scene)
        for (std::size_t knob = 0; knob < 4; ++knob)
            EXPECT_EQ(image.at(scene * 253 + 149 + knob), scene == 1 && knob == 2 ? 0 : 1);
    EXPECT_EQ(valueAfter({"scene2.knob3.Enable=0", "scene*.knob*.Enable=1"}, "scene2.knob3.Enable"),
              "1");
}

TEST(SetValues, NameIsSetAsTextOrAsBytes) {
    EXPECT_EQ(valueAfter({"scene1.common.SceneName=My = Bank"}, "scene1.common.SceneName"),
              "My = Bank");
    EXPECT_EQ(valueAfter({"scene1.common.SceneName="}, "scene1.common.SceneName"), "");
    EXPECT_EQ(valueAfter({"scene1.common.SceneName=7"}, "scene1.common.SceneName"), "7");
    EXPECT_EQ(valueAfter({"scene1.common.SceneName=bytes:41ff00000000000000000000"},
                         "scene1.common.SceneName"),
              "bytes:41ff00000000000000000000");
    EXPECT_EQ(valueAfter({"scene1.common.SceneName=bytes:414200000000000000000000"},
                         "scene1.common.SceneName"),
              "AB");
    EXPECT_EQ(valueAfter({"scene1.common.SceneName=bytes:41"}, "scene1.common.SceneName"),
              "bytes:41");
}

TEST(SetValues, OneBadAssignmentLeavesAllUndone) {
    EXPECT_TRUE(set({"scene1.pad1.CR=1", "scene1.pad1.CG=128"}).scenes.empty());
}

TEST(SetValues, TroubleIsOnePhrase) {
    EXPECT_EQ(setTrouble({"scene1.pad3.CR"}), "scene1.pad3.CR: PATH=VALUE was expected");
    EXPECT_EQ(setTrouble({""}), ": PATH=VALUE was expected");
    EXPECT_EQ(setTrouble({"scene1.pad3=1"}), "scene1.pad3: a value needs the path of a setting");
    EXPECT_EQ(setTrouble({"scene1=1"}), "scene1: a value needs the path of a setting");
    EXPECT_EQ(setTrouble({"scene1.pad9.CR=1"}),
              "scene1.pad9.CR: at character 11, a pad's number from 1 to 8 or * was expected");
    EXPECT_EQ(setTrouble({"scene1.pad3.CR=128"}),
              "scene1.pad3.CR must be a whole number from 0 to 127, and is 128");
    EXPECT_EQ(setTrouble({"scene1.pad3.CR=99999999999999999999"}),
              "scene1.pad3.CR must be a whole number from 0 to 127, and is 99999999999999999999");
    EXPECT_EQ(setTrouble({"scene1.pad3.CR=-1"}),
              "scene1.pad3.CR has no option \"-1\": its options go from 0 to 127");
    EXPECT_EQ(setTrouble({"scene1.pad3.CR="}),
              "scene1.pad3.CR has no option \"\": its options go from 0 to 127");
    EXPECT_EQ(setTrouble({"scene1.pad3.AssignType=note"}),
              "scene1.pad3.AssignType has no option \"note\": its options are Off, CC, Note");
    EXPECT_EQ(setTrouble({"scene1.common.SceneName=THIRTEEN BYTE"}),
              "scene1.common.SceneName must be at most 12 bytes without control characters, or "
              "bytes: and 24 hexadecimal digits, and is \"THIRTEEN BYTE\"");
}

TEST(SetValues, WithoutListsThereAreIndicesOnly) {
    const PopUpValue none;
    const std::vector<std::string> title{"scene1.pad3.AssignType=Note"};
    const std::vector<std::string> index{"scene1.pad3.AssignType=2"};
    EXPECT_EQ(setValues(none, knownScenes(), title).trouble,
              "scene1.pad3.AssignType has no option \"Note\": it has none");
    EXPECT_EQ(setValues(none, knownScenes(), index).trouble, std::nullopt);
}

TEST(CopyValues, SceneGoesWithItsName) {
    const BankImage image = encodeBank(copy("scene1", "scene4").scenes);
    EXPECT_TRUE(std::equal(image.begin(), image.begin() + 253, image.begin() + 759));
    EXPECT_TRUE(std::equal(image.begin(), image.begin() + 759, knownImage().begin()));
}

TEST(CopyValues, ControlGoesToAnother) {
    const Edited edited = copy("scene1.pad1", "scene2.pad8");
    const BankImage image = encodeBank(edited.scenes);
    for (std::size_t block = 181; block < 253; block += 8)
        EXPECT_EQ(image.at(253 + block + 7), knownImage().at(block));
    for (const std::size_t byte : changedBytes(edited.scenes))
        EXPECT_TRUE(byte >= 253 + 181 && (byte - 253 - 181) % 8 == 7) << byte;
}

TEST(CopyValues, KindGoesPairByPair) {
    const BankImage image = encodeBank(copy("scene1.pad*", "scene3.pad*").scenes);
    EXPECT_TRUE(std::equal(image.begin() + 181, image.begin() + 253, image.begin() + 506 + 181));
}

TEST(CopyValues, OneGoesToMany) {
    const BankImage image = encodeBank(copy("scene1.knob2", "scene*.knob*").scenes);
    for (std::size_t scene = 0; scene < 4; ++scene)
        for (std::size_t field = 0; field < 16; ++field)
            EXPECT_EQ(image.at(scene * 253 + 149 + field),
                      knownImage().at(149 + field / 4 * 4 + 1));
}

TEST(CopyValues, OverlappingCopyTakesWhatWasThereBefore) {
    const BankImage image = encodeBank(copy("scene*.pad1", "scene*.pad2").scenes);
    for (std::size_t scene = 0; scene < 4; ++scene)
        EXPECT_EQ(image.at(scene * 253 + 182), knownImage().at(scene * 253 + 181));
}

TEST(CopyValues, SettingAndNameCanBeCopied) {
    EXPECT_EQ(changedBytes(copy("scene1.pad1.CR", "scene2.pad1.CR").scenes),
              std::vector<std::size_t>{253 + 229});
    const Edited named = copy("scene3.common.SceneName", "scene1.common.SceneName");
    EXPECT_EQ(named.scenes[0]->commonValue()->SceneName(),
              knownScenes()[2]->commonValue()->SceneName());
}

TEST(CopyValues, CommonSettingsGoWithTheName) {
    const BankImage image = encodeBank(copy("scene1.common", "scene2.common").scenes);
    EXPECT_TRUE(std::equal(image.begin(), image.begin() + 20, image.begin() + 253));
    EXPECT_TRUE(std::equal(image.begin() + 273, image.end(), knownImage().begin() + 273));
}

TEST(CopyValues, TroubleIsOnePhrase) {
    const std::string one =
        ": both must name scenes, controls of one kind, or one and the same setting";
    EXPECT_EQ(copyTrouble("scene1", "scene2.pad1"), "scene1 cannot be copied to scene2.pad1" + one);
    EXPECT_EQ(copyTrouble("scene1.pad1", "scene1.knob1"),
              "scene1.pad1 cannot be copied to scene1.knob1" + one);
    EXPECT_EQ(copyTrouble("scene1.pad1.CR", "scene1.pad1.CG"),
              "scene1.pad1.CR cannot be copied to scene1.pad1.CG" + one);
    const std::string star = ": a star in the first needs a star in the second";
    EXPECT_EQ(copyTrouble("scene*", "scene2"), "scene* cannot be copied to scene2" + star);
    EXPECT_EQ(copyTrouble("scene1.pad*", "scene1.pad1"),
              "scene1.pad* cannot be copied to scene1.pad1" + star);
    EXPECT_EQ(copyTrouble("scene1", "scene5"),
              "scene5: at character 6, a scene's number from 1 to 4 or * was expected");
    EXPECT_EQ(copyTrouble("x", "scene5"), "x: at character 1, \"scene\" was expected");
}

} // namespace scenewright
