// Helpers around the toolkit: children, texts and their language, the keyboard, what is kept.
#pragma once

#include <QApplication>
#include <QLocale>
#include <QObject>
#include <QPushButton>
#include <QSettings>
#include <QString>
#include <QTranslator>
#include <QWidget>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace scenewright {

// A widget, layout or action made with the given arguments, whose last one is the parent that owns
// and deletes it.
template <typename T, typename... Args>
[[nodiscard]] T& makeChild(Args&&... args) {
    auto made = std::make_unique<T>(std::forward<Args>(args)...);
    Q_ASSERT(made->parent() != nullptr);
    return *made.release();
}

// A text of the view logic, in UTF-8, for the toolkit: bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] inline QString shown(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// A text in a menu, where "&" marks a letter.
[[nodiscard]] inline QString inMenu(QString text) {
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

// A title as it is spoken, without the "&" that marks a letter.
[[nodiscard]] inline QString unmarked(QString title) {
    return title.remove(QLatin1Char('&'));
}

// A button that Return presses only where the keyboard is on it. It is called by its title.
[[nodiscard]] inline QPushButton& makeButton(const QString& title, QWidget* parent) {
    auto& button = makeChild<QPushButton>(title, parent);
    button.setAccessibleName(unmarked(title));
    button.setAutoDefault(false);
    return button;
}

// `title` with one of its letters marked, the first that is not in `taken`, which gains it. The
// title alone when all are taken.
[[nodiscard]] inline QString withMnemonic(const QString& title, QString& taken) {
    for (qsizetype place = 0; place < title.size(); ++place) {
        const QChar letter = title[place].toLower();
        // A letter that stands on a key: no ideograph does.
        if (!letter.isLetter() || letter.script() != QChar::Script_Latin || taken.contains(letter))
            continue;
        taken.append(letter);
        QString marked = title;
        return marked.insert(place, QLatin1Char('&'));
    }
    return title;
}

// Whether the user is asked something, or chooses: nothing moves under them then.
[[nodiscard]] inline bool isPopUpOpen() {
    return QApplication::activePopupWidget() != nullptr ||
           QApplication::activeModalWidget() != nullptr;
}

// Whether it has the keyboard, or something in it.
[[nodiscard]] inline bool hasKeyboard(const QWidget& widget) {
    const QWidget* const at = widget.window()->focusWidget();
    return at != nullptr && widget.isAncestorOf(at);
}

// Shows a window of its own, before the others.
inline void bringUp(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

// What the window keeps from one start to the next, in the user's configuration folder
// (scenewright/window.conf). Main thread.
[[nodiscard]] inline QSettings programSettings() {
    return QSettings(QStringLiteral("scenewright"), QStringLiteral("window"));
}

// The window's texts in the language of the user, as far as there is one of translations/ for it:
// ours from the resources, the toolkit's own from where it keeps them. English otherwise. Installed
// while it lives; to be made before the first widget. Main thread only.
class Translation {
public:
    explicit Translation(const QLocale& locale);
    ~Translation();
    Q_DISABLE_COPY_MOVE(Translation)

    // Whether a file of ours was found and taken.
    [[nodiscard]] bool isLoaded() const { return !own_.isEmpty(); }

private:
    QTranslator toolkit_;
    QTranslator own_;
};

// The name of the translation for the first language of the locale that the program speaks, as in
// "zh_CN"; empty for English.
[[nodiscard]] QString translationFor(const QLocale& locale);

} // namespace scenewright
