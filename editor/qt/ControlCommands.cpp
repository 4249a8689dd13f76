#include "editor/qt/ControlCommands.h"

#include "editor/ControlDescription.h"
#include "editor/qt/QtHelpers.h"

#include <cstdint>

namespace scenewright {

ControlCommands::ControlCommands(MainWindow& window, History& history)
    : window_(window), history_(history) {
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
    menu.addActions({&history.undoAction(), &history.redoAction()});
    menu.addSeparator();
    copy_ = add({}, tr("Ctrl+C"), &ControlCommands::copy);
    paste_ = add({}, tr("Ctrl+V"), &ControlCommands::paste);
    menu.addSeparator();
    reset_ = add({}, tr("Ctrl+Backspace"), &ControlCommands::reset);
    connect(&window_, &MainWindow::refreshed, this, &ControlCommands::update);
    update();
}

void ControlCommands::copy() {
    clipboard_.copy(*window_.view().sceneValue(), window_.view().selectControl());
    update();
    tell(tr("Copied %1"));
}

void ControlCommands::paste() {
    if (clipboard_.paste(*window_.view().sceneValue(), window_.view().selectControl()))
        showStep(tr("Paste Into %1"));
}

void ControlCommands::reset() {
    if (resetControl(*window_.view().sceneValue(), window_.view().selectControl())) {
        showStep(tr("Reset %1"));
        tell(tr("%1 has its default settings"));
    }
}

void ControlCommands::tell(const QString& done) {
    window_.notices().post({.source = Notice::Source::Edit,
                            .kind = Notice::Kind::Done,
                            .text = done.arg(shown(controlName(window_.view().selectControl())))});
}

void ControlCommands::showStep(const QString& name) {
    history_.name(name.arg(shown(controlName(window_.view().selectControl()))));
    window_.view().showChosenControl();
}

void ControlCommands::update() {
    const std::int32_t control = window_.view().selectControl();
    const bool isChosen = control >= 0 && control < kControlIndexEnd;
    const bool isScene = control == 0;
    copy_->setText(isScene ? tr("&Copy Scene Settings") : tr("&Copy Control"));
    paste_->setText(isScene ? tr("&Paste Scene Settings") : tr("&Paste Control"));
    reset_->setText(isScene ? tr("&Reset Scene Settings") : tr("&Reset Control"));
    copy_->setEnabled(isChosen);
    reset_->setEnabled(isChosen);
    paste_->setEnabled(clipboard_.canPaste(control));
}

} // namespace scenewright
