// Every text of our own that the window shows goes through the translation.
#include "app/DeviceSession.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "editor/qt/Adapters.h"
#include "editor/qt/DeviceVerification.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/QtHelpers.h"
#include "model/Midi.h"
#include "model/Setting.h"
#include "platform/Text.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>
#include <QTranslator>
#include <QTreeWidget>
#include <QWidget>

#include <algorithm>
#include <array>
#include <string>

namespace scenewright::testing {

namespace {

constexpr ushort kWideShift = 0xFEE0; // from "A" to "A" of full width

bool isPlainLetter(QChar letter) {
    return letter.unicode() < 0x80 && letter.isLetter();
}

QString widened(QString text) {
    for (QChar& letter : text)
        if (isPlainLetter(letter))
            letter = QChar(static_cast<ushort>(letter.unicode() + kWideShift));
    return text;
}

std::string widened(SourceText text) {
    return QCoreApplication::translate(text.context, text.written).toStdString();
}

bool isInFileDialog(const QObject& object) {
    for (const QObject* parent = object.parent(); parent != nullptr; parent = parent->parent())
        if (qobject_cast<const QFileDialog*>(parent) != nullptr)
            return true;
    return false;
}

void appendTexts(const QWidget& widget, QStringList& texts) {
    texts << widget.windowTitle() << widget.toolTip() << widget.statusTip() << widget.whatsThis()
          << widget.accessibleName() << widget.accessibleDescription();
    if (const auto* label = qobject_cast<const QLabel*>(&widget);
        label != nullptr && qobject_cast<const TextLabel*>(&widget) == nullptr)
        texts << label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        texts << button->text();
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&widget))
        texts << edit->toPlainText().split(QLatin1Char('\n')) << edit->placeholderText();
    if (const auto* table = qobject_cast<const QTreeWidget*>(&widget))
        for (int column = 0; column < table->columnCount(); ++column) {
            texts << table->headerItem()->text(column);
            for (int row = 0; row < table->topLevelItemCount(); ++row)
                texts << table->topLevelItem(row)->text(column);
        }
    if (const auto* menu = qobject_cast<const QMenu*>(&widget))
        texts << menu->title();
    for (const QAction* action : widget.actions())
        texts << action->text() << action->toolTip() << action->statusTip();
    if (const auto* dialog = qobject_cast<const QFileDialog*>(&widget))
        texts << dialog->nameFilters();
}

// A language that nobody speaks, in which each text of our own shows its letters as full-width
// ones. What shows plain letters has not gone through the translation.
class WideTranslator final : public QTranslator {
public:
    // Places, keys and patterns of file names stay; texts of the toolkit are left to it.
    [[nodiscard]] QString translate(const char* context, const char* text,
                                    const char* /*disambiguation*/, int /*count*/) const override {
        const QString written = QString::fromUtf8(text);
        if (!QByteArray(context).startsWith("scenewright::"))
            return {};
        if (written.startsWith(QLatin1String("Ctrl+")))
            return written;
        static const QRegularExpression kKept(QStringLiteral(R"(%[\ds]|\{[^}]*\}|\*\.[a-z]+)"));
        QString wide;
        qsizetype end = 0;
        for (auto match = kKept.globalMatch(written); match.hasNext();) {
            const QRegularExpressionMatch kept = match.next();
            wide += widened(written.mid(end, kept.capturedStart() - end)) + kept.captured();
            end = kept.capturedEnd();
        }
        return wide + widened(written.mid(end));
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

// The language of the program while it lives.
class WideTexts {
public:
    WideTexts() {
        QCoreApplication::installTranslator(&translator_);
        setTranslator(&widened);
    }
    ~WideTexts() {
        setTranslator(nullptr);
        QCoreApplication::removeTranslator(&translator_);
    }
    WideTexts(const WideTexts&) = delete;
    WideTexts& operator=(const WideTexts&) = delete;
    WideTexts(WideTexts&&) = delete;
    WideTexts& operator=(WideTexts&&) = delete;

private:
    WideTranslator translator_;
};

// The texts of the widget and of all in it that show or tell one, those of dialogs and menus
// included, without what the user's own files and the device's lists say: line edits, list rows,
// options, and the status line's message.
QStringList textsOf(const QWidget& widget) {
    QStringList texts;
    appendTexts(widget, texts);
    for (const QWidget* child : widget.findChildren<QWidget*>())
        if (!isInFileDialog(*child))
            appendTexts(*child, texts);
    texts.removeAll(QString());
    texts.removeDuplicates();
    return texts;
}

// What of `text` shows plain letters once the words that are not ours are taken out.
QString plainPart(QString text, const QStringList& given) {
    QStringList longestFirst = given;
    text.remove(QLatin1Char('&')); // marks a letter
    longestFirst.replaceInStrings(QStringLiteral("&"), QString());
    std::ranges::sort(longestFirst, std::ranges::greater(), &QString::size);
    for (const QString& word : longestFirst)
        if (text.contains(word))
            text.remove(QRegularExpression(QStringLiteral("(?<![A-Za-z])%1(?![A-Za-z])")
                                               .arg(QRegularExpression::escape(word))));
    return std::ranges::any_of(text, isPlainLetter) ? text : QString();
}

class SourceTextsTest : public CommandsBench {
protected:
    SourceTextsTest() {
        for (const Setting& setting : settings())
            for (const std::int32_t type : {kAssignOff, kAssignController, kAssignNote})
                for (const std::string& title : *optionList(*lists_, setting, type))
                    given_ << QString::fromStdString(title);
        // MIDI's own names, and what stands before them.
        for (const auto names : {controllerNames(), percussionNames()})
            for (const std::string_view name : names)
                given_ << shown(shortName(name));
        given_ << "CC"
               << "MIDI";
        given_ += QStringList{"Ctrl+R", "Ctrl+Return", "Shift+F1", "SCENE1",
                              "SCENE2", "SCENE3",      "SCENE4",   folder.path().c_str()};
        given_.removeAll(QString());
        given_.removeDuplicates();
    }

    void open(std::shared_ptr<Keyboards> looked = nullptr) {
        CommandsBench::open(std::move(looked));
        given_ += window().displayModes().titles();
    }
    void expectOwn(const QString& text, const QStringList& given = {}) {
        EXPECT_EQ(plainPart(text, given_ + given).toStdString(), "") << text.toStdString();
    }
    void expectAllOwn(const QWidget& widget, const QStringList& given = {}) {
        const QStringList texts = textsOf(widget);
        EXPECT_FALSE(texts.isEmpty());
        for (const QString& text : texts)
            expectOwn(text, given);
    }
    // What is told, in our words: something, and nothing of it plain.
    void expectTold(const QString& text, const QStringList& given = {}) {
        EXPECT_NE(text, "");
        expectOwn(text, given);
    }
    std::string bankText() { return writeBankJson(WindowAction::scenes(), *lists_); }
    QString written(const std::string& content) {
        const QString name = file("bad.json");
        writeBytes(name.toStdString(),
                   {reinterpret_cast<const std::uint8_t*>(content.data()), content.size()});
        return name;
    }

    WideTexts wide_;
    std::shared_ptr<PopUpValue> lists_ = WindowAction::InitializePopUp();
    QStringList given_;
};

TEST_F(SourceTextsTest, PlainLettersAreFound) {
    EXPECT_EQ(plainPart("Ｓｔａｔｕｓ: Note", {"Note"}), "");
    EXPECT_EQ(plainPart("Ｓｔａｔｕｓ: Notes", {"Note"}), "Ｓｔａｔｕｓ: Notes");
    open();
    notices().post({.text = "Dismiss"});
    EXPECT_TRUE(textsOf(window()).contains("Dismiss"));
}

TEST_F(SourceTextsTest, TheWindowItsMenusAndThePaneOfEachKind) {
    open();
    expectAllOwn(window());
    for (const ControlRange& range : kControlRanges) {
        if (range.kind != ControlKind::Common)
            choose(range.start);
        expectAllOwn(window());
    }
}

TEST_F(SourceTextsTest, AValueOutsideItsList) {
    record(kPad).setPadBehavior(100);
    record(kPad).setAssignType(kAssignNote);
    open();
    expectAllOwn(window());
}

TEST_F(SourceTextsTest, TheGainPanelAndTheVersions) {
    open();
    expectAllOwn(window().subWindow<GainWindow>());
    // Licences and libraries have their own words.
    QStringList words = shown(licenceText()).split('\n');
    for (const Library& library : libraries())
        words += {shown(library.name), shown(library.version), shown(library.licence)};
    words.removeAll(QString());
    expectAllOwn(About(&window()), words);
}

TEST_F(SourceTextsTest, TheMenusOfFilesAndEarlierScenes) {
    open();
    auto& recent = field<QMenu>(window(), BankCommands::tr("Recent banks"));
    for (int count = 0; count < 2; ++count) {
        emit recent.aboutToShow();
        emit commands().earlier().menu().aboutToShow();
        expectAllOwn(recent, {"a & b.bank"});
        expectAllOwn(commands().earlier().menu());
        commands().banks().openBank(bankWithRed("a & b.bank", count));
        expectTold(notice(), {"a & b.bank"});
    }
    commands().earlier().restoreLatest();
    expectTold(notice());
}

TEST_F(SourceTextsTest, PlayingAndTrying) {
    open();
    commands().useVirtual();
    window().menu().view().actions().back()->setChecked(true);
    window().picture().button(kPad)->click();
    press(Qt::Key_R);
    part<TryStrip>().action().trigger();
    expectAllOwn(window());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    expectAllOwn(part<TryStrip>());
    expectAllOwn(part<PlayBar>());
}

TEST_F(SourceTextsTest, TheFileDialogs) {
    open();
    for (const char* name : {"openBank", "saveBank", "openScene", "saveScene"}) {
        window().findChild<QAction*>(name)->trigger();
        const std::unique_ptr<QFileDialog> dialog(window().findChild<QFileDialog*>());
        ASSERT_NE(dialog, nullptr) << name;
        expectOwn(dialog->windowTitle());
        for (const QString& filter : dialog->nameFilters())
            expectOwn(filter, {"*.json", "*.bank", "*.scene"});
    }
}

TEST_F(SourceTextsTest, TheListOfDifferences) {
    open();
    record(kPad).setCR(12);
    record(kPad).setAssignType(100);
    WindowAction::getSceneWithIndex(1)->commonValue()->setSceneName("Live");
    WindowAction::getSceneWithIndex(2)->commonValue()->setPitchBendSpeed(3);
    press(Qt::Key_D);
    const auto* dialog = window().findChild<DifferenceDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->lines().size(), 4);
    expectAllOwn(*dialog, {"Live"});
}

TEST_F(SourceTextsTest, SavingAndWhatKeepsAFileFromBeingWritten) {
    open();
    commands().banks().saveBank(file("kept.json"));
    expectTold(notice(), {"kept.json"});
    commands().banks().saveScene(file("scene.json"));
    expectTold(notice(), {"scene.json"});
    for (const QString& name : {file(""), QString(), file("kept.json/inside"), QString("/dev/null"),
                                file("missing/inside.json")}) {
        commands().banks().saveBank(name);
        expectTold(notice(), {"kept.json", "missing", "inside", "inside.json", "/dev/null",
                              "No such file or directory", "Not a directory"});
    }
    commands().banks().setUsed({{file("kept.json").toStdString(), FileUse::Replaced, {}, {}}});
    commands().banks().saveBank(file("kept.json"));
    expectTold(notice(), {"kept.json"});
}

TEST_F(SourceTextsTest, WhatKeepsTheEarlierScenesFromBeingKept) {
    writeBytes(folder.file("backups"), {});
    open();
    const QString bank = bankWithRed("other.bank", 1);
    record(kPad).setCR(2);
    commands().banks().openBank(bank);
    EXPECT_TRUE(notice().contains("backups"));
    expectTold(notice(), {"other.bank", "backups", "Not a directory", "File exists"});
}

struct BadBank {
    const char* from;
    const char* to;
    QStringList given;
};

TEST_F(SourceTextsTest, WhatIsWrongWithABank) {
    open();
    const std::array<BadBank, 14> banks{{
        {"\"version\": 1", "\"version\": 2", {"version"}},
        {"\"version\": 1", "\"version\": null", {"version", "null"}},
        {"\"format\"", "\"f\"", {"format"}},
        {"scenewright-bank", "other", {"format", "scenewright-bank", "other"}},
        {"\"scenes\": [", "\"scenes\": [1, 2], \"scenes\": [", {"scenes"}},
        {"\"scenes\": [", "\"scenes\": [7, ", {"scenes"}},
        {"\"scenes\": [", "\"more\": [], \"scenes\": [", {"more"}},
        {"\"name\": \"SCENE1\"", "\"name\": 3", {"scenes", "name"}},
        {"\"name\": \"SCENE1\"",
         "\"name\": \"longer than twelve\"",
         {"scenes", "name", "longer than twelve"}},
        {"\"name\": \"SCENE1\"", "\"nameBytes\": \"1\"", {"scenes", "nameBytes"}},
        {"\"name\": \"SCENE1\"", "\"nameBytes\": \"1\", \"name\": \"\"", {"scenes", "nameBytes"}},
        {"\"MIDIChannel\": ",
         "\"MIDIChannel\": true, \"X\": ",
         {"scenes", "groups", "MIDIChannel", "X", "true"}},
        {"\"MIDIChannel\": ",
         "\"MIDIChannel\": 128, \"//\": ",
         {"scenes", "groups", "MIDIChannel"}},
        {"\"groups\": [", "\"groups\": {}, \"//g\": [", {"scenes", "groups"}},
    }};
    for (const BadBank& bad : banks) {
        std::string text = bankText();
        text.replace(text.find(bad.from), std::string(bad.from).size(), bad.to);
        commands().banks().openBank(written(text));
        EXPECT_NE(notice(), "") << bad.to;
        expectTold(notice(), QStringList{"bad.json", "JSON"} + bad.given);
    }
}

TEST_F(SourceTextsTest, WhatIsNoBankAtAll) {
    open();
    const std::string deep = "{\"a\": " + std::string(20, '[');
    for (const std::string& content :
         {std::string("{"), std::string("{]"), deep, std::string("short"),
          std::string(1012, '\xFF'), std::string("{}"), std::string()}) {
        for (const bool isBank : {true, false}) {
            if (isBank)
                commands().banks().openBank(written(content));
            else
                commands().banks().openScene(written(content));
            expectTold(notice(), {"bad.json", "scenes", "common", "GlobalMIDICh", "format"});
        }
    }
    for (const QString& name : {file("missing.bank"), file(""), QString("/dev/null")}) {
        commands().banks().openBank(name);
        expectTold(notice(), {"missing.bank", "/dev/null", "No such file or directory"});
    }
}

TEST_F(SourceTextsTest, WhatIsToldAfterATransfer) {
    open();
    press(Qt::Key_D);
    expectTold(notice());
    plugIn({{Fault::Kind::ShortTransfer, 100}});
    press(Qt::Key_D);
    expectTold(notice());
    record(kPad).setCR(78);
    plugIn({{Fault::Kind::ShortTransfer, 100}});
    press(Qt::Key_R);
    expectTold(notice());
    expectAllOwn(window());
    plugIn({{Fault::Kind::Unplug, 1012 + 500}});
    send();
    expectTold(notice());
    expectAllOwn(window());
    unplug();
    press(Qt::Key_R);
    expectTold(notice());
    send();
    expectTold(notice());
}

TEST_F(SourceTextsTest, EveryCauseAndCure) {
    for (const ResultCode code : {kResultAccess, kResultBusy, kResultNoDevice, kResultNotFound,
                                  kResultTimeout, kResultOverflow})
        expectTold(QString::fromStdString(causeAndCure(code)));
    // The code itself is a number, in hexadecimal digits.
    expectTold(QString::fromStdString(causeAndCure(kResultOther))
                   .remove(QRegularExpression(QStringLiteral("[0-9a-f]{8}"))));
}

TEST_F(SourceTextsTest, WhatKeepsTheKeyboardFromUse) {
    open(std::make_shared<Keyboards>("", [this] { return plugged; }));
    expectTold(commands().keyboard().text());
    using Access = AttachedDevice::Access;
    for (const Access access : {Access::NoPermission, Access::Claimed, Access::Usable}) {
        plugged = {{.port = "1-1", .ids = deviceList().at(0), .access = access}};
        commands().keyboard().look();
        expectAllOwn(commands().keyboard());
        expectTold(commands().keyboard().text());
    }
}

} // namespace

} // namespace scenewright::testing
