// A language that nobody speaks, in which each text of our own shows its letters as full-width
// ones. What shows plain letters has not gone through the translation.
#pragma once

#include "platform/Text.h"

#include <QStringList>
#include <QTranslator>
#include <QWidget>

namespace scenewright::testing {

class WideTranslator final : public QTranslator {
public:
    // Places, keys and patterns of file names stay; texts of the toolkit are left to it.
    [[nodiscard]] QString translate(const char* context, const char* text,
                                    const char* disambiguation, int count) const override;
    [[nodiscard]] bool isEmpty() const override { return false; }
};

// The language of the program while it lives.
class WideTexts {
public:
    WideTexts();
    ~WideTexts();
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
[[nodiscard]] QStringList textsOf(const QWidget& widget);

// What of `text` shows plain letters once the words that are not ours are taken out.
[[nodiscard]] QString plainPart(QString text, const QStringList& given);

} // namespace scenewright::testing
