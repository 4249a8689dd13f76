#include "tests/editor-qt-files/Contents.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>
#include <vector>

namespace scenewright::testing {

namespace {

using Words = QStringList;

void say(Words& words, bool isSo, const char* word) {
    if (isSo)
        words.append(QLatin1String(word));
}

void sayText(Words& words, const char* what, const QString& text) {
    if (!text.isEmpty())
        words.append(QLatin1String(what) + QLatin1Char('"') + text + QLatin1Char('"'));
}

Words wordsOf(const QLabel& label) {
    Words words{"label \"" + label.text() + '"'};
    say(words, label.wordWrap(), "wraps");
    say(words, label.textFormat() == Qt::PlainText, "plain");
    say(words, label.textInteractionFlags().testFlag(Qt::TextSelectableByMouse), "by-mouse");
    say(words, label.textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard), "by-keys");
    say(words, label.alignment().testFlag(Qt::AlignTop), "top");
    say(words, label.alignment().testFlag(Qt::AlignHCenter), "centre");
    sayText(words, "role ", label.property("role").toString());
    if (label.buddy() != nullptr)
        sayText(words, "for ", label.buddy()->accessibleName());
    return words;
}

Words wordsOf(const QAbstractButton& button) {
    Words words{"button \"" + button.text() + '"'};
    say(words, button.isCheckable(), button.isChecked() ? "checked" : "checkable");
    say(words, button.property("main").toBool(), "main");
    say(words, button.property("segment").toBool(), "segment");
    if (const auto* push = qobject_cast<const QPushButton*>(&button)) {
        say(words, push->isDefault(), "default");
        say(words, push->autoDefault() && !push->isDefault(), "auto-default");
        say(words, push->isFlat(), "flat");
        say(words, push->menu() != nullptr, "menu");
    } else if (const auto* tool = qobject_cast<const QToolButton*>(&button))
        say(words, tool->autoRaise(), "raised");
    return words;
}

Words wordsOf(const QAbstractItemView& view) {
    Words words{"list"};
    if (const auto* tree = qobject_cast<const QTreeView*>(&view)) {
        words = {"table"};
        for (int column = 0; column < tree->model()->columnCount(); ++column)
            sayText(words, "", tree->model()->headerData(column, Qt::Horizontal).toString());
        say(words, tree->rootIsDecorated(), "decorated");
        say(words, !tree->uniformRowHeights(), "uneven");
        say(words, tree->allColumnsShowFocus(), "whole-rows");
    }
    say(words, view.selectionMode() == QAbstractItemView::ExtendedSelection, "several");
    return words;
}

Words wordsOf(const QLineEdit& line) {
    Words words{"line"};
    say(words, line.isReadOnly(), "fixed");
    say(words, line.isClearButtonEnabled(), "clear-button");
    sayText(words, "hint ", line.placeholderText());
    sayText(words, "= ", line.text());
    sayText(words, "selected ", line.selectedText());
    return words;
}

Words wordsOf(const QPlainTextEdit& text) {
    Words words{"text"};
    say(words, text.isReadOnly(), "fixed");
    say(words, text.tabChangesFocus(), "tab-leaves");
    return words;
}

Words wordsOf(const QTextBrowser& pages) {
    Words words{"pages"};
    say(words, pages.frameShape() == QFrame::NoFrame, "frameless");
    words.append("margin " + QString::number(pages.document()->documentMargin()));
    return words;
}

Words wordsOf(const QComboBox& box) {
    Words words{"box"};
    say(words, box.isEditable(), "editable");
    sayText(words, "= ", box.currentText());
    return words;
}

// Of a widget that a person meets; empty for any other.
Words wordsOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return wordsOf(*label);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return wordsOf(*button);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget))
        return wordsOf(*view);
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return wordsOf(*line);
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(&widget))
        return wordsOf(*text);
    if (const auto* pages = qobject_cast<const QTextBrowser*>(&widget))
        return wordsOf(*pages);
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        return wordsOf(*box);
    if (const auto* number = qobject_cast<const QSpinBox*>(&widget))
        return {QString("number %1 of %2 to %3")
                    .arg(number->value())
                    .arg(number->minimum())
                    .arg(number->maximum())};
    if (const auto* bar = qobject_cast<const QProgressBar*>(&widget))
        return {QString("progress of %1 to %2%3")
                    .arg(bar->minimum())
                    .arg(bar->maximum())
                    .arg(bar->isTextVisible() ? " told" : "")};
    return {};
}

// A part of a field or a list that the toolkit makes.
bool isPartOfAnother(const QWidget& widget, const QWidget& window) {
    for (const QWidget* at = widget.parentWidget(); at != nullptr && at != &window;
         at = at->parentWidget())
        if (qobject_cast<const QComboBox*>(at) || qobject_cast<const QAbstractSpinBox*>(at) ||
            qobject_cast<const QLineEdit*>(at) || qobject_cast<const QAbstractScrollArea*>(at))
            return true;
    return widget.isWindow();
}

struct Line {
    QRect place;
    QString words;
};

QString lineOf(const QWidget& widget, Words words) {
    if (widget.accessibleName() != QString(words.front()).section('"', 1, 1).remove('&'))
        sayText(words, "called ", widget.accessibleName());
    sayText(words, "described ", widget.accessibleDescription());
    sayText(words, "tip ", widget.toolTip());
    say(words, !widget.isEnabled(), "disabled");
    return words.join(QLatin1Char(' '));
}

// From above, and from the left what stands beside one another.
QStringList inRows(std::vector<Line> lines) {
    std::ranges::stable_sort(lines, {}, [](const Line& line) { return line.place.center().y(); });
    QStringList text;
    for (auto from = lines.begin(); from != lines.end();) {
        const auto to = std::find_if(from, lines.end(), [&](const Line& line) {
            return line.place.top() > from->place.center().y();
        });
        std::stable_sort(from, to, [](const Line& one, const Line& other) {
            return one.place.left() < other.place.left();
        });
        for (auto line = from; line != to; ++line)
            text.append((line == from ? QString() : QStringLiteral("| ")) + line->words);
        from = to;
    }
    return text;
}

void appendMenu(QStringList& text, const QMenu& menu, const QString& indent) {
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator()) {
            text.append(indent + "--");
            continue;
        }
        Words words{indent + action->text()};
        sayText(words, "keys ", action->shortcut().toString());
        say(words, action->isCheckable(), action->isChecked() ? "checked" : "checkable");
        say(words, !action->autoRepeat(), "once");
        say(words, !action->isEnabled(), "disabled");
        text.append(words.join(QLatin1Char(' ')));
        if (action->menu() != nullptr) {
            text.last().append(" called " + action->menu()->accessibleName());
            appendMenu(text, *action->menu(), indent + "  ");
        }
    }
}

} // namespace

std::string menusOf(const QMenuBar& bar) {
    QStringList text;
    for (const QAction* action : bar.actions()) {
        text.append(action->text() + " called " + action->menu()->accessibleName());
        appendMenu(text, *action->menu(), QStringLiteral("  "));
    }
    return text.join(QLatin1Char('\n')).toStdString();
}

std::string contentsOf(QWidget& window) {
    window.show();
    QApplication::processEvents();
    std::vector<Line> lines;
    QStringList hidden;
    QStringList holders;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (isPartOfAnother(*widget, window))
            continue;
        const Words words = wordsOf(*widget);
        if (words.empty())
            holders.append(widget->accessibleName());
        else if (widget->isVisibleTo(&window))
            lines.push_back(
                {QRect(widget->mapTo(&window, QPoint()), widget->size()), lineOf(*widget, words)});
        else
            hidden.append("hidden " + lineOf(*widget, words));
    }
    holders.removeAll(QString());
    QStringList text = inRows(std::move(lines)) + hidden;
    if (!holders.isEmpty())
        text.append("holders: " + holders.join(QStringLiteral(", ")));
    return text.join(QLatin1Char('\n')).toStdString();
}

} // namespace scenewright::testing
