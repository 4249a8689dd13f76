#include "editor/qt/Appearance.h"

#include "editor/qt/ProgramSettings.h"
#include "editor/qt/Theme.h"

namespace scenewright {

namespace {

const QString kKey = QStringLiteral("appearance");

} // namespace

Appearance::Appearance(QApplication& application)
    : application_(application), isSystemDark_(isDark(QApplication::palette())) {
    const int kept = programSettings().value(kKey, 0).toInt();
    choice_ = kept == 1 || kept == 2 ? static_cast<Choice>(kept) : Choice::System;
    apply();
}

void Appearance::choose(Choice choice) {
    choice_ = choice;
    programSettings().setValue(kKey, static_cast<int>(choice));
    apply();
}

void Appearance::apply() {
    const bool wantsDark = choice_ == Choice::Dark || (choice_ == Choice::System && isSystemDark_);
    applyTheme(application_, wantsDark);
}

} // namespace scenewright
