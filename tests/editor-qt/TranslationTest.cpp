// The window in each language: its texts are found at run time, and they fit.
#include "editor/qt/Translation.h"

#include "editor/ValuePopUps.h"
#include "editor/options/SettingOptions.h"
#include "editor/qt/Wording.h"
#include "tests/editor-qt/WindowBench.h"

#include <QLabel>

#include <array>
#include <ostream>

namespace scenewright {

namespace {

struct Language {
    const char* locale;
    const char* fileMenu;
    const char* midiChannel;
    const char* summaryOfPad; // its beginning
};

void PrintTo(const Language& language, std::ostream* out) {
    *out << language.locale;
}

class TranslationTest : public testing::WindowBench,
                        public ::testing::WithParamInterface<Language> {
protected:
    Translation translation_{QLocale(QString::fromLatin1(GetParam().locale))};
};

TEST_P(TranslationTest, MenusLabelsAndDescriptionsSpeakTheLanguage) {
    ASSERT_TRUE(translation_.isLoaded());
    MainWindow& shown = open();
    EXPECT_EQ(shown.menu().file().title(), QString::fromUtf8(GetParam().fileMenu));
    EXPECT_EQ(settingLabel("MIDI channel"), QString::fromUtf8(GetParam().midiChannel));
    EXPECT_TRUE(shown.picture().button(13)->accessibleName().startsWith(
        QString::fromUtf8(GetParam().summaryOfPad)))
        << shown.picture().button(13)->accessibleName().toStdString();
}

TEST_P(TranslationTest, EverySettingHasALabelInTheLanguage) {
    for (const ValuePopUp& row : valuePopUps()) {
        const std::string title(settingTitle(row.setting));
        EXPECT_TRUE(title == "Type" || settingLabel(title) != QString::fromStdString(title))
            << title;
    }
}

TEST_P(TranslationTest, NoLabelOfAPaneIsCut) {
    MainWindow& shown = open();
    read();
    constexpr std::array kOneOfEachKind{1, 5, 9, 13, 21};
    for (int control = 0; const int tag : kOneOfEachKind) {
        shown.picture().button(tag)->click();
        QCoreApplication::processEvents();
        for (const QLabel* label : shown.panes().findChildren<QLabel*>()) {
            if (!label->isVisible() || label->wordWrap() || label->text().isEmpty())
                continue;
            ++control;
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
            EXPECT_GE(label->contentsRect().width(),
                      label->fontMetrics()
                          .size(Qt::TextSingleLine | Qt::TextShowMnemonic, label->text())
                          .width())
                << label->text().toStdString();
        }
        EXPECT_GT(control, 0);
    }
    EXPECT_LE(shown.minimumSizeHint().width(), 1180);
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslationTest,
                         ::testing::Values(Language{"de_AT", "&Datei", "MIDI-Kanal", "Pad 1"},
                                           Language{"es_MX", "&Archivo", "Canal MIDI", "Pad 1"},
                                           Language{"fr_CA", "&Fichier", "Canal MIDI", "Pad 1"},
                                           Language{"ja_JP", "ファイル(&F)", "MIDI チャンネル",
                                                    "パッド 1"},
                                           Language{"zh_CN", "文件(&F)", "MIDI 通道", "打击垫 1"}),
                         [](const auto& language) { return std::string(language.param.locale); });

TEST(TranslationChoice, TakesTheLanguageWhateverTheCountry) {
    EXPECT_EQ(translationFor(QLocale("de_CH")), "de");
    EXPECT_EQ(translationFor(QLocale("zh_SG")), "zh_CN");
}

TEST(TranslationChoice, EnglishOrUnknownLanguagesStayAsWritten) {
    EXPECT_EQ(translationFor(QLocale::c()), "");
    EXPECT_EQ(translationFor(QLocale("en_US")), "");
    EXPECT_EQ(translationFor(QLocale("fi_FI")), "");
    EXPECT_FALSE(Translation(QLocale("fi_FI")).isLoaded());
}

TEST(TranslationChoice, TraditionalChineseIsNotShownAsSimplified) {
    EXPECT_EQ(translationFor(QLocale("zh_TW")), "");
}

} // namespace

} // namespace scenewright
