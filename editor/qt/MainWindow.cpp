#include "editor/qt/MainWindow.h"

#include "app/WindowAction.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/SceneMarks.h"
#include "editor/qt/StripPlace.h"
#include "model/SceneValue.h"

#include <QApplication>
#include <QBoxLayout>
#include <QChildEvent>
#include <QCloseEvent>
#include <QMenu>
#include <QScrollArea>
#include <QShortcut>
#include <QWhatsThis>

#include <algorithm>
#include <array>
#include <memory>

namespace scenewright {

namespace {

constexpr QSize kWindowSize(1180, 720);
constexpr int kModesWidth = 168;
constexpr int kGap = 10;
constexpr int kRowGap = 6; // between what stands above another

// `outer` owns the layout.
template <typename Layout>
Layout& nested(QBoxLayout& outer, int stretch = 0) {
    auto made = std::make_unique<Layout>();
    Layout& layout = *made;
    outer.addLayout(made.release(), stretch);
    layout.setSpacing(kGap);
    return layout;
}

QPushButton& command(const QString& title, const QString& name, const QString& help,
                     QWidget* parent) {
    auto& button = makeButton(title, parent);
    button.setAccessibleName(name);
    button.setToolTip(help);
    button.setWhatsThis(help);
    return button;
}

// The keys as the menu shows them.
QString withKeys(const QString& help, const QAction& action) {
    return help.arg(action.shortcut().toString(QKeySequence::NativeText));
}

// As the menu shows an entry with keys, of which something else takes the keys.
QString withKeyName(const QString& title, QKeyCombination keys) {
    return title + QLatin1Char('\t') + QKeySequence(keys).toString(QKeySequence::NativeText);
}

QAction& added(QMenu& menu, const QString& title, const QKeySequence& keys = {}) {
    QAction& action = *menu.addAction(title);
    action.setShortcut(keys);
    action.setAutoRepeat(false); // a key held down is one command
    return action;
}

QMenu& menuNamed(QMenuBar& bar, const QString& title) {
    QMenu& menu = *bar.addMenu(title);
    menu.setAccessibleName(unmarked(title));
    return menu;
}

} // namespace

MainMenu::MainMenu(QMenuBar& bar) : QObject(&bar), modes_(this) {
    bar.setAccessibleName(tr("Menu"));
    bar.installEventFilter(this);
    file_ = &menuNamed(bar, tr("&File"));
    quit_ = &added(*file_, tr("&Quit"), QKeySequence(tr("Ctrl+Q")));
    device_ = &menuNamed(bar, tr("&Device"));
    read_ = &added(*device_, tr("&Read Scenes"), QKeySequence(tr("Ctrl+R")));
    send_ = &added(*device_, tr("&Send Scenes"), QKeySequence(tr("Ctrl+Return")));
    view_ = &menuNamed(bar, tr("&View"));
    previousControl_ = &added(*view_, tr("Previous Control"), QKeySequence(tr("Ctrl+PgUp")));
    nextControl_ = &added(*view_, tr("Next Control"), QKeySequence(tr("Ctrl+PgDown")));
    for (QAction* action : {previousControl_, nextControl_})
        action->setAutoRepeat(true);
    view_->addSeparator();
    gainPanel_ = &added(*view_, tr("&Gain Panel"));
    QMenu& help = menuNamed(bar, tr("&Help"));
    guide_ = &added(help, tr("&Guide"), QKeySequence(QKeySequence::HelpContents));
    // The toolkit itself answers Shift+F1, for the widget that has the keyboard; the entry lets the
    // pointer choose one.
    whatsThis_ = &added(help, withKeyName(tr("&What's This?"), Qt::SHIFT | Qt::Key_F1));
    about_ = &added(help, tr("&About Scenewright"));
    quit_->setMenuRole(QAction::QuitRole);
    about_->setMenuRole(QAction::AboutRole);
}

bool MainMenu::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::ChildAdded && event->type() != QEvent::ChildPolished)
        return false;
    auto* made = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child());
    // The toolkit makes a button and a menu of its own for what a narrow window has no room for.
    if (made != nullptr && made->accessibleName().isEmpty())
        made->setAccessibleName(tr("More menus"));
    // Its sheet would only cost before it opens.
    auto* menu = qobject_cast<QMenu*>(made);
    if (event->type() == QEvent::ChildPolished && menu != nullptr && menu->styleSheet().isEmpty())
        connect(
            menu, &QMenu::aboutToShow, this, [menu] { giveSheet(*menu, Sheet::Menus); },
            Qt::SingleShotConnection);
    return false;
}

void MainMenu::setModes(const QStringList& titles) {
    //: The letters marked in "Gain Panel", "Appearance", "Monitor" and "Choose by Touching".
    QString taken = tr("gamt");
    for (int mode = 0; mode < titles.size(); ++mode) {
        QAction& action = *modes_.addAction(withMnemonic(titles[mode], taken));
        action.setCheckable(true);
        view_->insertAction(previousControl_, &action);
        connect(&action, &QAction::triggered, this, [this, mode] { emit modeChosen(mode); });
    }
    view_->insertSeparator(previousControl_);
    for (QAction* action : {previousControl_, nextControl_})
        action->setText(withMnemonic(action->text(), taken));
}

void MainMenu::checkMode(int mode) {
    const QList<QAction*> modes = modes_.actions();
    if (mode >= 0 && mode < modes.size())
        modes[mode]->setChecked(true);
}

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

void MainWindow::layOut() {
    menu_ = &makeChild<MainMenu>(*menuBar());
    auto& root = makeRoot();
    auto& rows = makeChild<QVBoxLayout>(&root);
    rows.setContentsMargins(12, 3, 12, 8);
    rows.setSpacing(kRowGap);
    layOutHeader(nested<QHBoxLayout>(rows), root);
    notices_ = &makeChild<NoticeBar>(&root);
    rows.addWidget(notices_);

    auto& middle = nested<QHBoxLayout>(rows, 1);
    list_ = &makeChild<ControlList>(&root);
    list_->setObjectName(QStringLiteral("controls"));
    list_->setAccessibleName(tr("Controls"));
    list_->setWhatsThis(tr("The settings of the scene as a whole, and the 45 controls. A click "
                           "or Return shows the settings of one."));
    middle.addWidget(list_);
    auto& right = nested<QVBoxLayout>(middle, 1);
    picture_ = &makeChild<DevicePicture>(&root);
    picture_->setAccessibleName(tr("Picture of the keyboard"));
    picture_->setWhatsThis(tr("The keyboard's controls in the chosen scene. A click, or Space, "
                              "shows the settings of one below."));
    right.addWidget(picture_, 1);
    panes_ = &makeChild<ValuePanes>(&root);
    panes_->setAccessibleName(tr("Settings"));
    strips_ = &makeChild<StripPlace>(*panes_, &root);
    right.addWidget(strips_);

    status_ = &makeChild<StatusLine>(&root);
    status_->setAccessibleName(tr("Status line"));
    rows.addWidget(status_);
    resize(kWindowSize);
}

void MainWindow::fitStrips() {
    const QWidget& root = *qobject_cast<QScrollArea*>(centralWidget())->widget();
    const int others = root.minimumSizeHint().height() - picture_->minimumSizeHint().height() -
                       strips_->minimumSizeHint().height();
    strips_->setLow(centralWidget()->height() < others + strips_->heightApart());
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    fitStrips();
}

// A window that is smaller than all that is in it lets it be scrolled, and scrolls by itself to
// where the keyboard goes.
QWidget& MainWindow::makeRoot() {
    auto& room = makeChild<QScrollArea>(this);
    room.setFrameShape(QFrame::NoFrame);
    room.setWidgetResizable(true);
    room.setFocusPolicy(Qt::NoFocus);
    room.setAccessibleName(tr("Editor"));
    setCentralWidget(&room);
    auto& root = makeChild<QWidget>(&room);
    root.setObjectName(QStringLiteral("root"));
    root.setAccessibleName(tr("Editor"));
    room.setWidget(&root);
    connect(qApp, &QApplication::focusChanged, &root, [&room, &root](QWidget*, QWidget* now) {
        if (now != nullptr && root.isAncestorOf(now))
            room.ensureWidgetVisible(now);
    });
    return root;
}

void MainWindow::layOutHeader(QHBoxLayout& header, QWidget& root) {
    const QStringList names{tr("Scene 1"), tr("Scene 2"), tr("Scene 3"), tr("Scene 4")};
    scenes_ = &makeChild<SegmentBar>(names, &root);
    scenes_->setAccessibleName(tr("Scenes"));
    scenes_->setWhatsThis(tr("The four scenes. One is shown and edited at a time; a read and a "
                             "send are of all four. A dot is on a scene that is not what the "
                             "keyboard is known to hold."));
    header.addWidget(scenes_);
    header.addStretch(1);

    auto& label = makeChild<QLabel>(tr("Sho&w"), &root);
    label.setProperty("role", "field");
    displayModes_ = &makeChild<PopUpBox>(&root);
    displayModes_->setObjectName(QStringLiteral("displaySelect"));
    displayModes_->setAccessibleName(tr("What the picture shows"));
    displayModes_->setWhatsThis(tr("Which setting the picture shows on each of its controls."));
    displayModes_->setFixedWidth(kModesWidth);
    label.setBuddy(displayModes_);
    header.addWidget(&label);
    header.addWidget(displayModes_);
    header.addSpacing(kGap);

    readButton_ = &command(
        tr("Read"), tr("Read scenes"),
        withKeys(tr("Read the four scenes from the controller (%1)"), menu_->read()), &root);
    sendButton_ =
        &command(tr("Send"), tr("Send scenes"),
                 withKeys(tr("Send the four scenes to the controller (%1)"), menu_->send()), &root);
    sendButton_->setProperty("main", true);
    unsentButton_ = &makeChild<UnsentButton>(&root);
    header.addWidget(unsentButton_);
    header.addWidget(readButton_);
    header.addWidget(sendButton_);
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
    connect(&menu_->gainPanel(), &QAction::triggered, this,
            [this] { bringUp(subWindow<GainWindow>()); });
    connect(&menu_->guide(), &QAction::triggered, this,
            [this] { bringUp(subWindow<GuideWindow>()); });
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
