#include "editor/qt/ControlCommands.h"

#include "app/StoredScenes.h"
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
    selectAll_ = add(tr("Select &All of This Kind"), tr("Ctrl+A"), &ControlCommands::selectAll);
    menu.addSeparator();
    fill_ = add(tr("&Fill..."), {}, &ControlCommands::fill);
    transpose_ = add(tr("&Transpose..."), {}, &ControlCommands::transpose);
    menu.addSeparator();
    reset_ = add({}, tr("Ctrl+Backspace"), &ControlCommands::reset);
    connect(&window_, &MainWindow::refreshed, this, &ControlCommands::update);
    update();
}

QString ControlCommands::chosenTitle() {
    return shown(alikeTitle(window_.choice().selection()));
}

bool ControlCommands::changeAll(const Change& change) {
    bool isChanged = false;
    for (const std::int32_t control : window_.choice().selection().alike())
        isChanged = change(*window_.view().sceneValue(), control) || isChanged;
    return isChanged;
}

void ControlCommands::copy() {
    clipboard_.copy(*window_.view().sceneValue(), window_.view().selectControl());
    update();
    tell(tr("Copied %1").arg(shown(controlName(window_.view().selectControl()))));
}

void ControlCommands::paste() {
    if (changeAll([this](const SceneValue& scene, std::int32_t control) {
            return clipboard_.paste(scene, control);
        }))
        showStep(tr("Paste Into %1"));
}

void ControlCommands::reset() {
    if (!changeAll(&resetControl))
        return;
    showStep(tr("Reset %1"));
    const bool isOne = window_.choice().selection().alike().size() == 1;
    tell((isOne ? tr("%1 has its default settings") : tr("%1 have their default settings"))
             .arg(chosenTitle()));
}

void ControlCommands::ask(FillDialog::What what, const QString& step) {
    FillDialog dialog(window_, what);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const auto scene = static_cast<std::size_t>(window_.view().sceneIndex());
    copyInto(*window_.view().sceneValue(), *dialog.filled()->at(scene));
    showStep(step);
}

void ControlCommands::tell(const QString& done) {
    window_.notices().post(
        {.source = Notice::Source::Edit, .kind = Notice::Kind::Done, .text = done});
}

void ControlCommands::showStep(const QString& name) {
    history_.name(name.arg(chosenTitle()));
    window_.view().showChosenControl();
}

void ControlCommands::update() {
    const std::int32_t control = window_.view().selectControl();
    const bool isChosen = control >= 0 && control < kControlIndexEnd;
    const bool isScene = control == 0;
    const bool isSeveral = window_.choice().selection().alike().size() > 1;
    copy_->setText(isScene ? tr("&Copy Scene Settings") : tr("&Copy Control"));
    paste_->setText(isScene     ? tr("&Paste Scene Settings")
                    : isSeveral ? tr("&Paste Into Controls")
                                : tr("&Paste Control"));
    reset_->setText(isScene     ? tr("&Reset Scene Settings")
                    : isSeveral ? tr("&Reset Controls")
                                : tr("&Reset Control"));
    copy_->setEnabled(isChosen);
    reset_->setEnabled(isChosen);
    paste_->setEnabled(clipboard_.canPaste(control));
    for (QAction* action : {selectAll_, fill_})
        action->setEnabled(isChosen && !isScene);
    const ControlRange* const range = controlRangeOf(control);
    transpose_->setEnabled(range != nullptr &&
                           FillDialog::offers(range->kind, FillDialog::What::Transpose));
}

} // namespace scenewright
