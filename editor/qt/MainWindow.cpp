#include "editor/qt/MainWindow.h"

#include "app/WindowAction.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/StripPlace.h"
#include "model/SceneValue.h"

#include <QCloseEvent>
#include <QShortcut>
#include <QWhatsThis>

#include <algorithm>
#include <array>

namespace scenewright {

MainWindow::MainWindow(QuitController& application, Appearance& appearance, bool isVirtual)
    : application_(application), appearance_(appearance), windowController_(*this, application) {
    setWindowTitle(isVirtual ? tr("Scenewright – Virtual controller") : tr("Scenewright"));
    setAccessibleName(windowTitle());
    installAccessibleFaces();
    layOut();
    connectOutlets();
    view_.viewDidLoad();
    list_->fitTitles();
    windowController_.windowDidLoad();
    menu_->setModes(displayModes_->titles());
    displayModes_->setNames(writtenTitles(PopUpValue::display_Select_ArrayList));
    connectChoices();
    connectCommands();
    connectQuit();
    addSceneKeys();
    addAppearanceMenu();
    view_.setOnChange([this] { refresh(); });
    refresh();
}

MainWindow::~MainWindow() {
    finishTyping(); // while the view that takes it is there
}

GainWindow& MainWindow::gainPanel() {
    if (gainPanel_ == nullptr)
        gainPanel_ = &makeChild<GainWindow>(this);
    return *gainPanel_;
}

GuideWindow& MainWindow::guide() {
    if (guide_ == nullptr)
        guide_ = &makeChild<GuideWindow>(this);
    return *guide_;
}

void MainWindow::connectOutlets() {
    view_.setWindowView(picture_);
    view_.setSceneSegmented(scenes_);
    view_.setControllerTableView(list_);
    view_.setDisplaySelect(displayModes_);
    view_.setMessage(&status_->message());
    panes_->connectTo(view_);
    choice_ = &makeChild<ControlChoice>(view_, *picture_, *list_, *panes_, this);
    connect(choice_, &ControlChoice::changed, this, &MainWindow::refresh);
}

void MainWindow::connectChoices() {
    connect(scenes_, &SegmentBar::chosen, this, [this] { view_.changeSceneAction(*scenes_); });
    connect(displayModes_, &QComboBox::activated, this,
            [this] { view_.changeDispalyAction(*displayModes_); });
    connect(strips_, &StripPlace::changed, this, &MainWindow::fitStrips);
    connect(list_, &ControlList::rowChosen, strips_, &StripPlace::showSettings);
    for (std::int32_t control = 1; control < kControlIndexEnd; ++control)
        connect(picture_->button(control), &QAbstractButton::clicked, this, [this, control] {
            if (!picture_->button(control)->plays())
                strips_->showSettings();
        });
    connect(menu_, &MainMenu::modeChosen, this, &MainWindow::chooseMode);
    connect(&menu_->previousControl(), &QAction::triggered, this, [this] { chooseBeside(-1); });
    connect(&menu_->nextControl(), &QAction::triggered, this, [this] { chooseBeside(1); });
}

void MainWindow::connectCommands() {
    connect(&menu_->read(), &QAction::triggered, &commands_, &DeviceCommands::read);
    connect(readButton_, &QPushButton::clicked, &commands_, &DeviceCommands::read);
    connect(&menu_->send(), &QAction::triggered, &commands_, &DeviceCommands::send);
    connect(sendButton_, &QPushButton::clicked, &commands_, &DeviceCommands::send);
    connect(&commands_, &DeviceCommands::busyChanged, this, &MainWindow::showBusy);
    connect(&menu_->gainPanel(), &QAction::triggered, this, [this] { bringUp(gainPanel()); });
    connect(&menu_->guide(), &QAction::triggered, this, [this] { bringUp(guide()); });
    connect(&menu_->whatsThis(), &QAction::triggered, this,
            [] { QWhatsThis::enterWhatsThisMode(); });
    connect(&menu_->about(), &QAction::triggered, this, [this] { About(this).exec(); });
}

void MainWindow::connectQuit() {
    connect(&menu_->quit(), &QAction::triggered, &application_, &QuitController::terminate);
    connect(&application_, &QuitController::waiting, this, [this] {
        centralWidget()->setEnabled(false);
        notices_->post({.source = Notice::Source::Quit,
                        .kind = Notice::Kind::Done,
                        .text = tr("The program ends when the scenes have been sent"),
                        .stays = true});
    });
}

void MainWindow::addSceneKeys() {
    constexpr std::array kKeys{Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4};
    for (int scene = 0; scene < kSceneCount; ++scene) {
        const QKeySequence keys(Qt::CTRL | kKeys.at(static_cast<std::size_t>(scene)));
        auto& shortcut = makeChild<QShortcut>(keys, this);
        connect(&shortcut, &QShortcut::activated, &scenes_->segment(scene),
                &QAbstractButton::click);
    }
}

void MainWindow::addAppearanceMenu() {
    QMenu& menu = *menu_->view().addMenu(tr("&Appearance"));
    menu.setAccessibleName(tr("Appearance"));
    auto& group = makeChild<QActionGroup>(this);
    const std::array titles{tr("As the &System"), tr("&Light"), tr("&Dark")};
    for (std::size_t place = 0; place < titles.size(); ++place) {
        const auto choice = static_cast<Appearance::Choice>(place);
        QAction& action = *group.addAction(titles.at(place));
        action.setCheckable(true);
        action.setChecked(appearance_.choice() == choice);
        menu.addAction(&action);
        connect(&action, &QAction::triggered, this, [this, choice] { appearance_.choose(choice); });
    }
}

// A button that is greyed loses the keyboard to the next widget, and the user with it: it is let go
// of before, and comes back unless it was put elsewhere meanwhile.
void MainWindow::showBusy(bool isBusy) {
    status_->setBusy(isBusy);
    QWidget* at = focusWidget();
    if (isBusy && (at == readButton_ || at == sendButton_)) {
        former_ = at;
        at->clearFocus();
    }
    for (QAction* action : {&menu_->read(), &menu_->send()})
        action->setEnabled(!isBusy);
    for (QPushButton* button : {readButton_, sendButton_})
        button->setEnabled(!isBusy);
    if (isBusy || !former_)
        return;
    if (focusWidget() == nullptr)
        former_->setFocus(Qt::OtherFocusReason);
    former_ = nullptr;
}

void MainWindow::chooseMode(int mode) {
    displayModes_->selectItem(mode);
    view_.changeDispalyAction(*displayModes_);
}

void MainWindow::chooseBeside(std::int32_t rows) {
    const std::int32_t control =
        std::clamp(list_->selectedRow() + rows, 0, std::int32_t{kControlIndexEnd} - 1);
    if (control != 0)
        return view_.chooseButtonAction(*picture_->button(control));
    view_.setSelectControl(0); // the scene's own settings have no button
    list_->selectRow(0);
}

void MainWindow::showScenesAnew() {
    view_.setSelectControl(0);
    view_.showSceneValue();
}

void MainWindow::showControl(std::int32_t scene, std::int32_t control) {
    if (view_.sceneIndex() != scene) {
        scenes_->segment(scene).setChecked(true);
        view_.changeSceneAction(*scenes_);
    }
    view_.setSelectControl(control);
    list_->selectRow(control);
    view_.showChosenControl(); // also when the row was chosen before
    view_.showChooseButtonWithIndex(control);
}

void MainWindow::refresh() {
    // The keys went over a row without choosing it: no pane stands for what is not chosen.
    if (view_.selectControl() < 0)
        view_.hideView();
    choice_->follow();
    panes_->show(view_, choice_->selection());
    menu_->checkMode(displayModes_->selectedItem());
    if (view_.pu() && view_.sceneValue())
        picture_->showScene(*view_.pu(), *view_.sceneValue());
    refreshSceneTitles();
    emit refreshed();
}

void MainWindow::setSceneMarks(const SceneMarks& marks) {
    if (sceneMarks_ == marks)
        return;
    sceneMarks_ = marks;
    refreshSceneTitles();
}

void MainWindow::refreshSceneTitles() {
    const SceneList& stored = WindowAction::scenes();
    for (int scene = 0; scene < kSceneCount && scene < static_cast<int>(stored.size()); ++scene) {
        const auto& common = stored[static_cast<std::size_t>(scene)]->commonValue();
        const QString name = common ? shown(displayName(common->SceneName())) : QString();
        QAbstractButton& segment = scenes_->segment(scene);
        const bool isMarked = sceneMarks_.at(static_cast<std::size_t>(scene));
        const QString title = tr("%1  %2").arg(scene + 1).arg(name);
        scenes_->setTitle(scene, isMarked ? tr("%1 •").arg(title) : title);
        const QString said = tr("Scene %1, %2").arg(scene + 1).arg(name);
        segment.setAccessibleName(isMarked ? tr("%1, not sent").arg(said) : said);
        segment.setToolTip(segment.accessibleName());
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    finishTyping();
    closeButton_.click();
}

void MainWindow::finishTyping() {
    if (QWidget* at = focusWidget())
        at->clearFocus();
}

} // namespace scenewright
