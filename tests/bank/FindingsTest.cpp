#include "bank/Findings.h"

#include "bank/BankFile.h"
#include "bank/Edit.h"
#include "tests/bank/KnownBank.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace scenewright {

namespace {

using testing::knownScenes;

std::vector<Difference> differencesAfter(const PopUpValue& lists,
                                         const std::vector<std::string>& assignments) {
    return differences(lists, knownScenes(), setValues(lists, knownScenes(), assignments).value());
}

std::vector<std::string> linesAfter(const std::vector<std::string>& assignments) {
    std::vector<std::string> lines;
    for (const Difference& difference : differencesAfter(*loadPopUpValue(), assignments))
        lines.push_back(differenceLine(difference));
    return lines;
}

using Lines = std::vector<std::string>;

Lines linesBetween(const PopUpValue& lists, const SceneList& first, const SceneList& second) {
    Lines lines;
    for (const Difference& difference : differences(lists, first, second))
        lines.push_back(differenceLine(difference));
    return lines;
}

// A value without a title stands in parentheses, a name in quotation marks.
TEST(Difference, LineTellsPathWordsAndBothTitles) {
    for (const auto& [assignment, line] :
         {std::pair{"scene1.common.GlobalMIDICh=1",
                    "scene1.common.GlobalMIDICh  Scene 1, Global MIDI channel: 9 -> 2"},
          {"scene3.pad3.CR=127", "scene3.pad3.CR  Scene 3, Pad 3, Red: 8 -> 127"},
          {"scene1.common.KeyTranspose=raw:100",
           "scene1.common.KeyTranspose  Scene 1, Octave transposition: (10) -> (100)"},
          {"scene1.common.KeyVelocityCurve=3",
           "scene1.common.KeyVelocityCurve  Scene 1, Key velocity curve: (17) -> Constant"},
          {"scene4.common.SceneName=STAGE",
           "scene4.common.SceneName  Scene 4, Name: \"\" -> \"STAGE\""},
          {"scene3.common.SceneName=STAGE",
           "scene3.common.SceneName  Scene 3, Name: \"bytes:ff00410a0000000000000042\" -> "
           "\"STAGE\""}})
        EXPECT_EQ(linesAfter({assignment}), Lines{line});
    EXPECT_EQ(linesAfter({}), Lines{});
    EXPECT_EQ(linesAfter({"scene1.pad1.AssignType=Note"}).size(), 1U) << "no number with it";
}

TEST(Difference, WritingTheFirstValuesTakesEveryDifferenceAway) {
    const auto held = loadPopUpValue();
    const PopUpValue& lists = *held;
    for (const std::vector<std::string>& assignments :
         {Lines{"scene1.common.GlobalMIDICh=1"},
          Lines{"scene3.pad3.CR=127", "scene1.knob*.Enable=0"},
          Lines{"scene1.common.KeyTranspose=raw:100"}, Lines{"scene4.common.SceneName=STAGE"},
          Lines{"scene3.common.SceneName=STAGE"}}) {
        const SceneList scenes = setValues(lists, knownScenes(), assignments).value();
        const std::vector<Difference> list = differences(lists, knownScenes(), scenes);
        EXPECT_FALSE(list.empty());
        for (const Difference& difference : list)
            writeFirst(difference, scenes);
        EXPECT_EQ(linesBetween(lists, knownScenes(), scenes), Lines{}) << assignments[0];
        for (const Difference& difference : list)
            writeFirst(difference, {}); // holds no record: passed over
    }
}

// The index is told beside a title that is another number, or none.
TEST(Difference, LineOfAChangeTellsWhatIsStored) {
    for (const auto& [assignment, line] :
         {std::pair{"scene1.common.GlobalMIDICh=10",
                    "scene1.common.GlobalMIDICh: 9 -> 11 (index 8 -> 10)"},
          {"scene3.pad3.CR=127", "scene3.pad3.CR: 8 -> 127"},
          {"scene1.common.KeyTranspose=raw:100",
           "scene1.common.KeyTranspose: (10) -> (100) (index 10 -> 100)"},
          {"scene1.common.KeyVelocityCurve=const",
           "scene1.common.KeyVelocityCurve: (17) -> Constant (index 17 -> 3)"},
          {"scene4.common.SceneName=STAGE", "scene4.common.SceneName: \"\" -> \"STAGE\""}})
        EXPECT_EQ(changeLines(differencesAfter(*loadPopUpValue(), {assignment})),
                  line + std::string("\n"));
}

TEST(Difference, OptionsOfOneTitleAreToldApartByNumber) {
    PopUpValue lists;
    lists.setPad_CR_Array(
        std::make_shared<const std::vector<std::string>>(std::vector<std::string>(128, "same")));
    const auto list = differencesAfter(lists, {"scene3.pad3.CR=9"});
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(differenceWords(list.front()), "Scene 3, Pad 3, Red: same (8) -> same (9)");
}

TEST(Difference, FillOfANameAndValuesOutsideTheImageDoNotCount) {
    const SceneList padded = knownScenes();
    const SceneList bare = knownScenes();
    bare[0]->commonValue()->setSceneName("LIVE");
    padded[0]->commonValue()->setPianoKeyCh(0);
    bare[0]->commonValue()->setPianoKeyCh(-1);
    EXPECT_TRUE(differences(PopUpValue(), padded, bare).empty());
}

TEST(Difference, EveryByteOfTheImageCounts) {
    const PopUpValue none;
    for (std::size_t byte = 0; byte < kBankSize; ++byte) {
        BankImage image = testing::knownImage();
        image.at(byte) ^= 1U;
        ASSERT_EQ(differences(none, knownScenes(), parseScenes(image)).size(), 1U) << byte;
    }
}

TEST(Difference, JsonHoldsValuesAndTitles) {
    const auto lists = loadPopUpValue();
    EXPECT_EQ(differencesJson({}), "[]\n");
    EXPECT_EQ(differencesJson(differencesAfter(
                  *lists, {"scene1.common.SceneName=a\"b", "scene1.common.KeyTranspose=-4"})),
              "[\n"
              "  {\"path\": \"scene1.common.SceneName\", \"words\": \"Scene 1, Name\", "
              "\"first\": {\"value\": \"LIVE\"}, \"second\": {\"value\": \"a\\\"b\"}},\n"
              "  {\"path\": \"scene1.common.KeyTranspose\", \"words\": \"Scene 1, Octave "
              "transposition\", \"first\": {\"value\": 10}, \"second\": {\"value\": 8, "
              "\"title\": \"-4\"}}\n"
              "]\n");
}

const PopUpValue& lists() {
    static const auto kLists = loadPopUpValue();
    return *kLists;
}

// Four scenes in which nothing is found: each note and controller once, names that can be seen.
SceneList quietScenes() {
    std::vector<std::string> assignments{"scene*.common.SceneName=LIVE",
                                         "scene*.group*.MIDIChannel=Global",
                                         "scene*.knob*.Enable=On",
                                         "scene*.slider*.Enable=On",
                                         "scene*.knob*.UpperOrRightValue=127",
                                         "scene*.slider*.UpperOrRightValue=127",
                                         "scene*.pad*.AssignType=Note",
                                         "scene*.pad*.MIDIChannel=ch:10",
                                         "scene*.key*.AssignType=Note"};
    for (const auto& [kind, count, first] :
         {std::tuple{"knob", 4, 20}, {"slider", 4, 30}, {"pad", 8, 36}, {"key", 25, 48}})
        for (int i = 0; i < count; ++i)
            assignments.push_back("scene*." + std::string(kind) + std::to_string(i + 1) +
                                  ".CCOrNoteNumber=" + std::to_string(first + i));
    return setValues(lists(), parseScenes(BankImage{}), assignments).value();
}

std::string findingLinesAfter(const std::vector<std::string>& assignments) {
    return findingLines(
        findingsOf(lists(), setValues(lists(), quietScenes(), assignments).value()));
}

TEST(Check, NothingIsFoundWhereAllIsWell) {
    EXPECT_EQ(findingLinesAfter({}), "");
    EXPECT_EQ(findingsJson({}), "[]\n");
}

TEST(Check, EachRuleFindsItsFaultAndSaysMayWhereItRestsOnAnAssumption) {
    const std::string silent =
        ": may send nothing: the transposition moves its note out of range\n";
    const std::string ending = "  Scene 1, Common: the constant velocity is 0, which ends notes "
                               "instead of beginning them\n";
    struct Row {
        std::vector<std::string> assignments;
        std::string lines;
    };
    for (const Row& row : std::initializer_list<Row>{
             // Two controls, one message.
             {{"scene1.pad2.CCOrNoteNumber=C2"},
              "scene1.pad1, scene1.pad2  Scene 1, Pad 1, Pad 2: all send MIDI 36 C2, Bass Drum 1 "
              "on channel 10\n"},
             {{"scene2.pad2.AssignType=CC", "scene2.pad2.CCOrNoteNumber=20",
               "scene2.pad2.MIDIChannel=ch:1", "scene2.pad2.OnValue=127"},
              "scene2.knob1, scene2.pad2  Scene 2, Knob 1, Pad 2: may all send CC 20 on channel "
              "1\n"},
             {{"scene2.pad2.AssignType=CC", "scene2.pad2.CCOrNoteNumber=20",
               "scene2.pad2.MIDIChannel=ch:2", "scene2.pad2.OnValue=127"},
              ""},
             {{"scene1.slider2.CCOrNoteNumber=20"},
              "scene1.knob1, scene1.slider2  Scene 1, Knob 1, Slider 2: may all send CC 20 on "
              "channel 1\n"},
             {{"scene1.slider2.CCOrNoteNumber=20", "scene1.group2.MIDIChannel=ch:2"}, ""},
             {{"scene1.pad1.MIDIChannel=Global", "scene1.pad1.CCOrNoteNumber=C4"},
              "scene1.pad1, scene1.key13  Scene 1, Pad 1, Key 13: all send MIDI 60 C4 on channel "
              "1\n"},
             {{"scene1.pad1.MIDIChannel=Global", "scene1.pad1.CCOrNoteNumber=C3",
               "scene1.common.KeyTranspose=-1"},
              "scene1.pad1, scene1.key13  Scene 1, Pad 1, Key 13: may all send MIDI 48 C3 on "
              "channel 1\n"},
             // Nothing is sent.
             {{"scene3.pad8.AssignType=Off"},
              "scene3.pad8  Scene 3, Pad 8: sends nothing: it is off\n"},
             {{"scene3.knob4.Enable=Off"},
              "scene3.knob4  Scene 3, Knob 4: sends nothing: it is off\n"},
             {{"scene3.pad8.MIDIChannel=raw:90"},
              "scene3.pad8  Scene 3, Pad 8: may send nothing: it depends on a value that its list "
              "does not have\n"},
             // One value.
             {{"scene1.key1.AssignType=CC", "scene1.key1.CCOrNoteNumber=1"},
              "scene1.key1  Scene 1, Key 1: on and off send the same value 0\n"},
             {{"scene1.key1.AssignType=CC", "scene1.key1.CCOrNoteNumber=1",
               "scene1.key1.KeyBehavior=Toggle", "scene1.key1.OnValue=5", "scene1.key1.OffValue=5"},
              "scene1.key1  Scene 1, Key 1: on and off send the same value 5\n"},
             {{"scene1.key1.AssignType=CC", "scene1.key1.CCOrNoteNumber=1",
               "scene1.key1.KeyBehavior=Trigger"},
              ""},
             {{"scene1.slider3.UpperOrRightValue=0"},
              "scene1.slider3  Scene 1, Slider 3: both ends of travel send the value 0\n"},
             // A velocity that ends notes.
             {{"scene1.common.KeyVelocityCurve=Constant"},
              "scene1.common.KeyConstVelocity" + ending},
             {{"scene1.common.PadVelocityCurve=Constant"},
              "scene1.common.PadConstVelocity" + ending},
             {{"scene1.common.PadVelocityCurve=Constant", "scene1.common.PadConstVelocity=1"}, ""},
             {{"scene1.common.PadVelocityCurve=Constant", "scene1.pad*.AssignType=CC",
               "scene1.pad*.OnValue=127"},
              ""},
             // Out of range.
             {{"scene4.common.KeyTranspose=+4", "scene4.key2.CCOrNoteNumber=F#5"}, ""},
             {{"scene4.common.KeyTranspose=+4", "scene4.key2.CCOrNoteNumber=80"},
              "scene4.key2.CCOrNoteNumber  Scene 4, Key 2" + silent},
             {{"scene4.common.KeyTranspose=-4", "scene4.key2.CCOrNoteNumber=47"},
              "scene4.key2.CCOrNoteNumber  Scene 4, Key 2" + silent},
             // Names.
             {{"scene2.common.SceneName="},
              "scene2.common.SceneName  Scene 2, Common: nothing of the name can be seen\n"},
             {{"scene2.common.SceneName=bytes:20c2a0e38080200000000000"},
              "scene2.common.SceneName  Scene 2, Common: nothing of the name can be seen\n"},
             {{"scene2.common.SceneName= . "}, ""},
         })
        EXPECT_EQ(findingLinesAfter(row.assignments), row.lines) << row.assignments.front();
}

TEST(Check, FindingsStandBySceneAndKind) {
    const auto findings = findingsOf(
        lists(), setValues(lists(), quietScenes(),
                           std::vector<std::string>{
                               "scene2.pad8.AssignType=Off", "scene2.pad2.CCOrNoteNumber=C2",
                               "scene1.common.SceneName=", "scene1.knob1.Enable=Off"})
                     .value());
    EXPECT_EQ(
        findingsJson(findings),
        "[\n"
        "  {\"kind\": \"sends-nothing\", \"sure\": true, \"paths\": [\"scene1.knob1\"], \"text\": "
        "\"Scene 1, Knob 1: sends nothing: it is off\"},\n"
        "  {\"kind\": \"blank-name\", \"sure\": true, \"paths\": [\"scene1.common.SceneName\"], "
        "\"text\": \"Scene 1, Common: nothing of the name can be seen\"},\n"
        "  {\"kind\": \"same-message\", \"sure\": true, \"paths\": [\"scene2.pad1\", "
        "\"scene2.pad2\"], \"text\": \"Scene 2, Pad 1, Pad 2: all send MIDI 36 C2, Bass Drum 1 on "
        "channel 10\"},\n"
        "  {\"kind\": \"sends-nothing\", \"sure\": true, \"paths\": [\"scene2.pad8\"], \"text\": "
        "\"Scene 2, Pad 8: sends nothing: it is off\"}\n"
        "]\n");
}

} // namespace

} // namespace scenewright
