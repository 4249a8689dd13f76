// The window's texts in the language of the user, as far as there is one of translations/ for it:
// ours from the resources, the toolkit's own from where it keeps them. English otherwise.
#pragma once

#include <QLocale>
#include <QTranslator>

namespace scenewright {

// Installed while it lives; to be made before the first widget. Main thread only.
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
