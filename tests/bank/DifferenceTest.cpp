#include "bank/Difference.h"

#include "bank/Edit.h"
#include "tests/bank/KnownBank.h"

#include <gtest/gtest.h>

#include <memory>

namespace scenewright {

using testing::knownScenes;

namespace {

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

} // namespace

TEST(Difference, EqualBanksHaveNone) {
    EXPECT_TRUE(differences(*loadPopUpValue(), knownScenes(), knownScenes()).empty());
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

TEST(Difference, TypeChangesNoNumber) {
    EXPECT_EQ(linesAfter({"scene1.pad1.AssignType=Note"}).size(), 1U);
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

} // namespace scenewright
