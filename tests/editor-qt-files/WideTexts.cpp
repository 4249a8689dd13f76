#include "tests/editor-qt-files/WideTexts.h"

#include "editor/qt/Adapters.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTreeWidget>

#include <algorithm>
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

} // namespace

QString WideTranslator::translate(const char* context, const char* text,
                                  const char* /*disambiguation*/, int /*count*/) const {
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

WideTexts::WideTexts() {
    QCoreApplication::installTranslator(&translator_);
    setTranslator(&widened);
}

WideTexts::~WideTexts() {
    setTranslator(nullptr);
    QCoreApplication::removeTranslator(&translator_);
}

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

} // namespace scenewright::testing
