#include "platform/Text.h"

#include <gtest/gtest.h>

namespace scenewright {

namespace {

constexpr SourceText kPair = sourceText("Test", "{0} before {1}");

std::string turnedRound(SourceText text) {
    return std::string(text.context) + ": {1} after {0}";
}
std::string withOnePlaceTooMany(SourceText) {
    return "{0} {1} {2}";
}
std::string withABrokenPlace(SourceText) {
    return "{0";
}

class TranslatorTest : public ::testing::Test {
protected:
    ~TranslatorTest() override { setTranslator(nullptr); }
};

TEST_F(TranslatorTest, WithoutATranslatorTextsStandAsWritten) {
    EXPECT_EQ(translated(kPair), "{0} before {1}");
    EXPECT_EQ(translated(kPair, "one", 2), "one before 2");
    EXPECT_EQ(translated(sourceText("Test", "nothing to fill")), "nothing to fill");
}

TEST_F(TranslatorTest, ATranslationMayTurnThePlacesRound) {
    setTranslator(&turnedRound);
    EXPECT_EQ(translated(kPair, "one", 2), "Test: 2 after one");
    EXPECT_EQ(untranslated(kPair), "{0} before {1}");
}

TEST_F(TranslatorTest, WordsAsWrittenCanBeAskedForWhateverTheLanguage) {
    setTranslator(&turnedRound);
    const int number = 2;
    EXPECT_EQ(format(kPair, &untranslated, fmt::make_format_args("one", number)), "one before 2");
}

TEST_F(TranslatorTest, ATranslationWithOtherPlacesIsPassedOver) {
    for (const Translator translator : {&withOnePlaceTooMany, &withABrokenPlace}) {
        setTranslator(translator);
        EXPECT_EQ(translated(kPair, "one", 2), "one before 2");
    }
}

TEST_F(TranslatorTest, ATextPutIntoAPlaceIsNotFilledItself) {
    EXPECT_EQ(translated(kPair, "{1}", "{0}"), "{1} before {0}");
}

} // namespace

} // namespace scenewright
