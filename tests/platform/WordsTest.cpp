#include "platform/Words.h"

#include <gtest/gtest.h>

namespace scenewright {

namespace {

constexpr OwnText kPair = ownText("Test", "{0} before {1}");

std::string turnedRound(OwnText text) {
    return std::string(text.context) + ": {1} after {0}";
}
std::string withOnePlaceTooMany(OwnText) {
    return "{0} {1} {2}";
}
std::string withABrokenPlace(OwnText) {
    return "{0";
}

class WordsTest : public ::testing::Test {
protected:
    ~WordsTest() override { setTranslator(nullptr); }
};

TEST_F(WordsTest, WithoutATranslatorTextsStandAsWritten) {
    EXPECT_EQ(inLanguage(kPair), "{0} before {1}");
    EXPECT_EQ(say(kPair, "one", 2), "one before 2");
    EXPECT_EQ(say(ownText("Test", "nothing to fill")), "nothing to fill");
}

TEST_F(WordsTest, ATranslationMayTurnThePlacesRound) {
    setTranslator(&turnedRound);
    EXPECT_EQ(say(kPair, "one", 2), "Test: 2 after one");
    EXPECT_EQ(asWritten(kPair), "{0} before {1}");
}

TEST_F(WordsTest, WordsAsWrittenCanBeAskedForWhateverTheLanguage) {
    setTranslator(&turnedRound);
    const int number = 2;
    EXPECT_EQ(filled(kPair, &asWritten, fmt::make_format_args("one", number)), "one before 2");
}

TEST_F(WordsTest, ATranslationWithOtherPlacesIsPassedOver) {
    for (const Words translator : {&withOnePlaceTooMany, &withABrokenPlace}) {
        setTranslator(translator);
        EXPECT_EQ(say(kPair, "one", 2), "one before 2");
    }
}

TEST_F(WordsTest, ATextPutIntoAPlaceIsNotFilledItself) {
    EXPECT_EQ(say(kPair, "{1}", "{0}"), "{1} before {0}");
}

} // namespace

} // namespace scenewright
