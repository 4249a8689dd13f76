#include "editor/qt/QtHelpers.h"

#include "platform/Resources.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

struct Spoken {
    QLocale::Language language;
    QLocale::Script script; // AnyScript: whichever it is written in
    const char* name;       // none: the texts as they are written
};

constexpr std::array kSpoken{
    Spoken{QLocale::C, QLocale::AnyScript, ""},
    Spoken{QLocale::English, QLocale::AnyScript, ""},
    Spoken{QLocale::German, QLocale::AnyScript, "de"},
    Spoken{QLocale::Spanish, QLocale::AnyScript, "es"},
    Spoken{QLocale::French, QLocale::AnyScript, "fr"},
    Spoken{QLocale::Japanese, QLocale::AnyScript, "ja"},
    Spoken{QLocale::Chinese, QLocale::SimplifiedHanScript, "zh_CN"},
};

bool loadOwn(QTranslator& translator, const QString& name) {
    return std::ranges::any_of(Resources::searchPath(), [&](const std::filesystem::path& folder) {
        return translator.load(QStringLiteral("scenewright_") + name,
                               QString::fromStdString((folder / "translations").string()));
    });
}

std::string toolkitTranslation(SourceText text) {
    return QCoreApplication::translate(text.context, text.written).toStdString();
}

} // namespace

QString translationFor(const QLocale& locale) {
    for (const QString& wanted : locale.uiLanguages()) {
        const QLocale language(wanted);
        for (const Spoken& spoken : kSpoken)
            if (spoken.language == language.language() &&
                (spoken.script == QLocale::AnyScript || spoken.script == language.script()))
                return QLatin1String(spoken.name);
    }
    return {};
}

Translation::Translation(const QLocale& locale) {
    const QString name = translationFor(locale);
    if (name.isEmpty() || !loadOwn(own_, name))
        return;
    if (toolkit_.load(QStringLiteral("qtbase_") + name,
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&toolkit_);
    QCoreApplication::installTranslator(&own_);
    setTranslator(&toolkitTranslation);
}

Translation::~Translation() {
    setTranslator(nullptr);
    QCoreApplication::removeTranslator(&own_);
    QCoreApplication::removeTranslator(&toolkit_);
}

} // namespace scenewright
