#include "bank/BankJson.h"
#include "tests/bank/KnownBank.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace scenewright {

using testing::knownJson;
using testing::knownScenes;

TEST(BankJsonWriter, KnownBankIsItsKnownText) {
    EXPECT_EQ(writeBankJson(knownScenes(), *loadPopUpValue()), knownJson());
}

TEST(BankJsonWriter, OnlyTheFirstFourScenesAreWritten) {
    SceneList scenes = knownScenes();
    scenes.push_back(scenes.front());
    EXPECT_EQ(writeBankJson(scenes, *loadPopUpValue()), knownJson());
}

TEST(BankJsonWriter, ThreeScenesAreACallersFault) {
    SceneList scenes = knownScenes();
    scenes.pop_back();
    EXPECT_THROW(static_cast<void>(writeBankJson(scenes, PopUpValue())), std::out_of_range);
}

TEST(BankJsonWriter, SceneAloneIsTheSameTextUnderAnotherHead) {
    const std::string text = writeSceneJson(*knownScenes().front(), *loadPopUpValue());
    EXPECT_TRUE(text.starts_with("{\n"
                                 "  \"format\": \"scenewright-scene\",\n"
                                 "  \"version\": 1,\n"
                                 "  \"scene\": {\n"
                                 "    \"name\": \"LIVE\",\n"
                                 "    \"common\": {\n"
                                 "      \"GlobalMIDICh\": 8, \"//GlobalMIDICh\": \"9\",\n"))
        << text.substr(0, 200);
    EXPECT_TRUE(text.ends_with("\n      }\n    ]\n  }\n}\n")) << text.substr(text.size() - 100);
}

TEST(BankJsonWriter, WithoutListsThereAreNoTitles) {
    const std::string text = writeSceneJson(*knownScenes().front(), PopUpValue());
    EXPECT_NE(text.find("\"GlobalMIDICh\": 8,\n"), std::string::npos);
    EXPECT_EQ(text.find("\"//GlobalMIDICh\""), std::string::npos);
}

TEST(BankJsonWriter, ValueOutsideTheImagesRangeIsWrittenAsZero) {
    const SceneList scenes = knownScenes();
    scenes.front()->commonValue()->setGlobalMIDICh(128);
    scenes.front()->commonValue()->setPianoKeyCh(-1);
    const std::string text = writeSceneJson(*scenes.front(), *loadPopUpValue());
    EXPECT_NE(text.find("\"GlobalMIDICh\": 0,\n"), std::string::npos);
    EXPECT_NE(text.find("\"PianoKeyCh\": 0,\n"), std::string::npos);
}

TEST(BankJsonWriter, TitleOfAListIsEscapedAsJsonWants) {
    PopUpValue lists;
    lists.setCommon_GlobalMIDICh_Array(std::make_shared<const std::vector<std::string>>(
        std::vector<std::string>(9, "a\"b\\c\n\xFF")));
    const std::string text = writeSceneJson(*knownScenes().front(), lists);
    EXPECT_NE(text.find("\"//GlobalMIDICh\": \"a\\\"b\\\\c\\n\xEF\xBF\xBD\",\n"),
              std::string::npos);
}

} // namespace scenewright
