// The window in each language: its texts are found at run time, and they fit.
#include "editor/ControlDescription.h"
#include "editor/ValuePopUps.h"
#include "editor/qt/EditorCommands.h"
#include "editor/qt/QtHelpers.h"
#include "model/Setting.h"
#include "platform/Text.h"
#include "tests/editor-qt/WindowBench.h"
#include "tests/support/TempFolder.h"

#include <QLabel>

#include <algorithm>
#include <ostream>
#include <vector>

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

// Of the visible ones; how many there are.
int expectLabelsWhole(const QWidget& pane) {
    int seen = 0;
    for (const QLabel* label : pane.findChildren<QLabel*>()) {
        if (!label->isVisible() || label->wordWrap() || label->text().isEmpty())
            continue;
        ++seen;
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        EXPECT_GE(label->contentsRect().width(),
                  label->fontMetrics()
                      .size(Qt::TextSingleLine | Qt::TextShowMnemonic, label->text())
                      .width())
            << label->text().toStdString();
    }
    return seen;
}

int settingsOf(ControlKind kind) {
    return static_cast<int>(std::ranges::count(settings(), kind, &Setting::kind));
}

TEST_P(TranslationTest, MenusLabelsAndDescriptionsSpeakTheLanguage) {
    ASSERT_TRUE(translation_.isLoaded());
    MainWindow& shown = open();
    EXPECT_EQ(shown.menu().file().title(), QString::fromUtf8(GetParam().fileMenu));
    EXPECT_EQ(settingTitle(*findSetting(ControlKind::Group, "MIDIChannel")),
              GetParam().midiChannel);
    EXPECT_TRUE(shown.picture().button(13)->accessibleName().startsWith(
        QString::fromUtf8(GetParam().summaryOfPad)))
        << shown.picture().button(13)->accessibleName().toStdString();
}

TEST_P(TranslationTest, EverySettingHasALabelInTheLanguage) {
    std::vector<std::string> spoken;
    for (const ValuePopUp& row : valuePopUps())
        spoken.push_back(settingTitle(*row.setting));
    setTranslator(nullptr);
    for (std::size_t row = 0; row < spoken.size(); ++row) {
        const std::string written = settingTitle(*valuePopUps()[row].setting);
        EXPECT_TRUE(written == "Type" || spoken[row] != written) << written;
    }
}

TEST_P(TranslationTest, ListsAndDisplayModesSpeakTheLanguageAndFilesDoNot) {
    MainWindow& shown = open();
    const PopUpValue written = *loadPopUpValue();
    const PopUpValue& lists = *shown.view().pu();
    EXPECT_NE(*lists.display_Select_Array(), *written.display_Select_Array());
    EXPECT_NE(*lists.pad_PadBehavior_Array(), *written.pad_PadBehavior_Array());
    EXPECT_EQ(*lists.pad_NoteNumber_Array(), *written.pad_NoteNumber_Array());
    for (std::int32_t control = 0; control < kControlIndexEnd; ++control)
        EXPECT_EQ(*titleAt(lists.control_Array(), control), controlName(control));
    EXPECT_GE(shown.list().viewport()->width(), shown.list().sizeHintForColumn(0));
    EXPECT_EQ(shown.panes().popUp("padPadBehavior").titles()[1].toStdString(),
              lists.pad_PadBehavior_Array()->at(1));
    EXPECT_EQ(shown.displayModes().itemText(5).toStdString(), lists.display_Select_Array()->at(5));
    const testing::TempFolder folder;
    EditorCommands commands(shown, nullptr);
    commands.banks().saveBank(QString::fromStdString(folder.file("a.json")));
    const auto bytes = testing::readBytes(folder.file("a.json"));
    const std::string saved(bytes.begin(), bytes.end());
    EXPECT_NE(saved.find(R"("//PadBehavior": "Momentary")"), std::string::npos);
}

TEST_P(TranslationTest, TitlesAreTypedInTheLanguageOrAsTheyAreWritten) {
    open();
    window().picture().button(14)->click();
    PopUpBox& box = window().panes().popUp("padPadBehavior");
    type(box, QStringLiteral("toggle"));
    EXPECT_EQ(box.currentIndex(), 1);
    type(box, QStringLiteral("rel"));
    EXPECT_EQ(box.currentIndex(), 3);
    type(window().displayModes(), QStringLiteral("off"));
    EXPECT_EQ(window().displayModes().currentIndex(), 6);
}

TEST_P(TranslationTest, NoLabelOfAPaneIsCut) {
    MainWindow& shown = open();
    read(); // the settings of the scene as a whole stand first
    for (const QSize& size : {shown.size(), shown.minimumSizeHint(), QSize(1024, 600)}) {
        shown.resize(size);
        shown.scenes().segment(0).click();
        for (const ControlRange& range : kControlRanges) {
            if (range.kind == ControlKind::Common)
                shown.list().selectRow(0);
            else
                shown.picture().button(range.start)->click();
            QCoreApplication::processEvents();
            ASSERT_TRUE(shown.panes().pane(range.kind).isVisible()) << range.name;
            EXPECT_GT(expectLabelsWhole(shown.panes().pane(range.kind)),
                      settingsOf(range.kind)); // and the heading
        }
    }
    EXPECT_LE(shown.minimumSizeHint().width(), 1024);
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
