#include "editor/qt/MainMenu.h"

#include "editor/qt/Mnemonic.h"

#include <QChildEvent>
#include <QMenu>

namespace scenewright {

namespace {

QAction& added(QMenu& menu, const QString& title, const QKeySequence& keys = {}) {
    QAction& action = *menu.addAction(title);
    action.setShortcut(keys);
    action.setAutoRepeat(false); // a key held down is one command
    return action;
}

QMenu& menuNamed(QMenuBar& bar, const QString& title) {
    QMenu& menu = *bar.addMenu(title);
    menu.setAccessibleName(QString(title).remove(QLatin1Char('&')));
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
    gainPanel_ = &added(*view_, tr("&Gain Panel"));
    about_ = &added(menuNamed(bar, tr("&Help")), tr("&About Scenewright"));
    quit_->setMenuRole(QAction::QuitRole);
    about_->setMenuRole(QAction::AboutRole);
    modes_.setExclusive(true);
}

bool MainMenu::eventFilter(QObject* watched, QEvent* event) {
    // The toolkit makes a button and a menu of its own for what a narrow window has no room for.
    if (event->type() == QEvent::ChildAdded || event->type() == QEvent::ChildPolished)
        if (auto* made = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child()))
            if (made->accessibleName().isEmpty())
                made->setAccessibleName(tr("More menus"));
    return QObject::eventFilter(watched, event);
}

void MainMenu::setModes(const QStringList& titles) {
    //: The letters marked in "Gain Panel" and "Appearance".
    QString taken = tr("ga");
    for (int mode = 0; mode < titles.size(); ++mode) {
        QAction& action = *modes_.addAction(withMnemonic(titles[mode], taken));
        action.setCheckable(true);
        view_->insertAction(gainPanel_, &action);
        connect(&action, &QAction::triggered, this, [this, mode] { emit modeChosen(mode); });
    }
    view_->insertSeparator(gainPanel_);
}

void MainMenu::checkMode(int mode) {
    const QList<QAction*> modes = modes_.actions();
    if (mode >= 0 && mode < modes.size())
        modes[mode]->setChecked(true);
}

} // namespace scenewright
