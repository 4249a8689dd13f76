// Where the main window's widgets stand, and its menus.
#include "editor/qt/MainWindow.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/SceneMarks.h"
#include "editor/qt/StripPlace.h"

#include <QApplication>
#include <QBoxLayout>
#include <QChildEvent>
#include <QMenu>
#include <QScrollArea>

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
    modes_.setExclusive(true);
}

bool MainMenu::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ChildAdded && event->type() != QEvent::ChildPolished)
        return QObject::eventFilter(watched, event);
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
    return QObject::eventFilter(watched, event);
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

} // namespace scenewright
