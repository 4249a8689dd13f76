#include "editor/qt/Appearance.h"

#include "editor/qt/Theme.h"

#include <QSettings>

namespace scenewright {

namespace {

const QString kKey = QStringLiteral("appearance");

QSettings settings() {
    return QSettings(QStringLiteral("scenewright"), QStringLiteral("window"));
}

} // namespace

Appearance::Appearance(QApplication& application)
    : application_(application), isSystemDark_(isDark(QApplication::palette())) {
    const int kept = settings().value(kKey, 0).toInt();
    choice_ = kept == 1 || kept == 2 ? static_cast<Choice>(kept) : Choice::System;
    apply();
}

void Appearance::choose(Choice choice) {
    choice_ = choice;
    settings().setValue(kKey, static_cast<int>(choice));
    apply();
}

void Appearance::apply() {
    const bool wantsDark = choice_ == Choice::Dark || (choice_ == Choice::System && isSystemDark_);
    applyTheme(application_, wantsDark);
}

} // namespace scenewright
