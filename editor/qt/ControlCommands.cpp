#include "editor/qt/ControlCommands.h"

#include "editor/qt/Owned.h"

#include <cstdint>

namespace scenewright {

ControlCommands::ControlCommands(MainWindow& window) : window_(window) {
    auto& menu = makeChild<QMenu>(tr("&Edit"), window.menuBar());
    menu.setAccessibleName(tr("Edit"));
    window.menuBar()->insertMenu(window.menu().device().menuAction(), &menu);
    const auto add = [&menu, this](const QString& title, const QString& keys,
                                   void (ControlCommands::*command)()) {
        QAction* action = menu.addAction(title);
        action->setShortcut(QKeySequence(keys));
        connect(action, &QAction::triggered, this, command);
        return action;
    };
    copy_ = add(tr("&Copy Control"), tr("Ctrl+C"), &ControlCommands::copy);
    paste_ = add(tr("&Paste Control"), tr("Ctrl+V"), &ControlCommands::paste);
    menu.addSeparator();
    reset_ = add(tr("&Reset Control"), tr("Ctrl+Backspace"), &ControlCommands::reset);
    connect(&window_, &MainWindow::refreshed, this, &ControlCommands::update);
    update();
}

void ControlCommands::copy() {
    clipboard_.copy(*window_.view().sceneValue(), window_.view().selectControl());
    update();
}

void ControlCommands::paste() {
    if (clipboard_.paste(*window_.view().sceneValue(), window_.view().selectControl()))
        window_.view().showChosenControl();
}

void ControlCommands::reset() {
    if (resetControl(*window_.view().sceneValue(), window_.view().selectControl()))
        window_.view().showChosenControl();
}

void ControlCommands::update() {
    const std::int32_t control = window_.view().selectControl();
    const bool isChosen = control >= 0 && control < kControlIndexEnd;
    copy_->setEnabled(isChosen);
    reset_->setEnabled(isChosen);
    paste_->setEnabled(clipboard_.canPaste(control));
}

} // namespace scenewright
