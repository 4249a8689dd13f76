#include "editor/qt/SceneCommands.h"

#include "app/StoredScenes.h"
#include "app/WindowAction.h"
#include "editor/ControlDescription.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/QtHelpers.h"
#include "model/SceneValue.h"
#include "protocol/SceneImage.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace scenewright {

namespace {

const QString kDragged = QStringLiteral("application/x-scenewright-scene"); // its index

QString nameOf(std::int32_t scene) {
    return shown(displayName(WindowAction::getSceneWithIndex(scene)->commonValue()->SceneName()));
}

} // namespace

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

RenameDialog::RenameDialog(const QString& name, QWidget* parent)
    : QDialog(parent), name_(&makeChild<QLineEdit>(name, this)), told_(&makeChild<QLabel>(this)) {
    auto& column = layOutDialog(*this, tr("Rename Scene"));
    auto& label = makeChild<QLabel>(tr("&Name"), this);
    label.setBuddy(name_);
    name_->setAccessibleName(tr("Name"));
    name_->selectAll();
    told_->setTextFormat(Qt::PlainText);
    told_->setWordWrap(true);
    told_->setMinimumWidth(340);
    column.addWidget(&label);
    column.addWidget(name_);
    column.addWidget(told_);
    column.addStretch();
    accept_ = &addAnswers(*this, column, tr("&Cancel"), tr("&Rename"));
    connect(name_, &QLineEdit::textChanged, this, &RenameDialog::check);
    check();
}

void RenameDialog::check() {
    const std::string name = name_->text().toStdString();
    const auto checked = StoredScenes::checkName(name);
    told_->setText(checked ? tr("%1 of %2 bytes").arg(name.size()).arg(kNameSize)
                           : shown(checked.error()));
    told_->setAccessibleName(told_->text());
    // The room that it takes once stays, so that nothing moves at each letter.
    told_->setMinimumHeight(
        std::max(told_->minimumHeight(), told_->heightForWidth(told_->minimumWidth())));
    accept_->setEnabled(checked.has_value());
}

SceneCommands::SceneCommands(MainWindow& window, History& history)
    : window_(window), history_(history), menu_(&makeChild<QMenu>(tr("&Scene"), window.menuBar())) {
    menu_->setAccessibleName(tr("Scene"));
    window.menuBar()->insertMenu(window.menu().device().menuAction(), menu_);
    QAction* rename = menu_->addAction(tr("&Rename..."));
    rename->setShortcut(Qt::Key_F2);
    connect(rename, &QAction::triggered, this, [this] { this->rename(shownScene()); });
    addOthers(tr("&Copy To"), "copy-to", &SceneCommands::copy);
    addOthers(tr("S&wap With"), "swap-with", &SceneCommands::swap);
    auto* const fromFile = window.menu().file().findChild<QAction*>(QStringLiteral("openScene"));
    connect(menu_->addAction(tr("&Duplicate From File...")), &QAction::triggered, fromFile,
            &QAction::trigger);
    menu_->addSeparator();
    QAction* reset = menu_->addAction(tr("R&eset Scene"));
    connect(reset, &QAction::triggered, this, [this] { this->reset(shownScene()); });
    for (int scene = 0; scene < kSceneCount; ++scene) {
        QAbstractButton& segment = window.scenes().segment(scene);
        segment.setAcceptDrops(true);
        segment.installEventFilter(this);
    }
}

void SceneCommands::addOthers(const QString& title, const char* name, Command command) {
    QMenu& menu = *menu_->addMenu(title);
    menu.setObjectName(QLatin1String(name));
    menu.setAccessibleName(unmarked(title));
    connect(&menu, &QMenu::aboutToShow, this,
            [this, &menu, command] { showOthers(menu, command); });
}

void SceneCommands::showOthers(QMenu& menu, Command command) {
    menu.clear();
    for (std::int32_t scene = 0; scene < kSceneCount; ++scene) {
        if (scene == shownScene())
            continue;
        QAction* action = menu.addAction(tr("&%1  %2").arg(scene + 1).arg(inMenu(nameOf(scene))));
        connect(action, &QAction::triggered, this,
                [this, command, scene] { (this->*command)(shownScene(), scene); });
    }
}

std::int32_t SceneCommands::shownScene() const {
    return window_.view().sceneIndex();
}

void SceneCommands::end(const QString& step) {
    history_.name(step);
    window_.view().showChosenControl();
}

void SceneCommands::rename(std::int32_t scene) {
    RenameDialog dialog(shown(StoredScenes::name(scene)), &window_);
    if (dialog.exec() == QDialog::Accepted &&
        StoredScenes::rename(scene, dialog.name().toStdString()))
        end(tr("Rename Scene %1").arg(scene + 1));
}

void SceneCommands::copy(std::int32_t from, std::int32_t to) {
    StoredScenes::copy(from, to);
    end(tr("Copy Scene %1 to %2").arg(from + 1).arg(to + 1));
}

void SceneCommands::swap(std::int32_t first, std::int32_t second) {
    StoredScenes::swap(first, second);
    end(tr("Swap Scenes %1 and %2").arg(first + 1).arg(second + 1));
}

void SceneCommands::reset(std::int32_t scene) {
    StoredScenes::reset(scene);
    end(tr("Reset Scene %1").arg(scene + 1));
}

std::optional<std::int32_t> SceneCommands::placeOf(const QObject* segment) const {
    for (std::int32_t scene = 0; scene < kSceneCount; ++scene)
        if (&window_.scenes().segment(scene) == segment)
            return scene;
    return std::nullopt;
}

bool SceneCommands::dragFrom(std::int32_t scene, const QMouseEvent& mouse) {
    const int way = (mouse.pos() - pressed_).manhattanLength();
    if ((mouse.buttons() & Qt::LeftButton) == 0 || way < QApplication::startDragDistance())
        return false;
    QAbstractButton& segment = window_.scenes().segment(scene);
    segment.setDown(false);
    auto& dragged = makeChild<QDrag>(&segment); // ends itself after the drop
    auto data = std::make_unique<QMimeData>();
    data->setData(kDragged, QByteArray::number(scene));
    dragged.setMimeData(data.release());
    dragged.setPixmap(segment.grab());
    dragged.exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
    return true;
}

bool SceneCommands::takeDrop(std::int32_t scene, QDropEvent& drop) {
    const QByteArray from = drop.mimeData()->data(kDragged);
    if (from.isEmpty() || from.toInt() == scene)
        return false;
    drop.acceptProposedAction();
    if (drop.type() == QEvent::Drop && drop.proposedAction() == Qt::CopyAction)
        copy(from.toInt(), scene);
    else if (drop.type() == QEvent::Drop)
        swap(from.toInt(), scene);
    return true;
}

bool SceneCommands::eventFilter(QObject* watched, QEvent* event) {
    const auto scene = placeOf(watched);
    if (!scene)
        return false;
    if (const auto* mouse = dynamic_cast<QMouseEvent*>(event)) {
        if (mouse->type() == QEvent::MouseButtonPress)
            pressed_ = mouse->pos();
        return mouse->type() == QEvent::MouseMove && dragFrom(*scene, *mouse);
    }
    if (auto* drop = dynamic_cast<QDropEvent*>(event)) // and what it is before the drop
        return takeDrop(*scene, *drop);
    if (event->type() != QEvent::ContextMenu)
        return false;
    window_.scenes().segment(*scene).click();
    menu_->popup(static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
}

} // namespace scenewright
