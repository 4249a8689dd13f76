#include "editor/qt/BankCommands.h"

#include "app/WindowAction.h"
#include "editor/qt/ProgramSettings.h"
#include "editor/qt/QtHelpers.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>
#include <QMimeData>
#include <QTreeView>
#include <QUrl>

#include <chrono>
#include <filesystem>
#include <optional>
#include <vector>

namespace scenewright {

namespace {

constexpr std::size_t kMenuEntries = 20; // of earlier scenes, before the next menu
constexpr QSize kDialogSize(860, 520);

// The one local file that is dragged; empty for anything else.
QString draggedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

std::filesystem::path pathOf(const QString& file) {
    return {file.toStdString()};
}

// For whole names, kinds and dates in the toolkit's dialog, which cuts them short otherwise.
void giveRoom(QFileDialog& dialog) {
    dialog.resize(kDialogSize);
    for (const QTreeView* details : dialog.findChildren<QTreeView*>())
        details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

// A name in a menu, where "&" marks a letter.
QString inMenu(QString text) {
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

BankCommands::BankCommands(MainWindow& window, StoreFiles files, History& history,
                           Document& document)
    : window_(window), files_(std::move(files)), history_(history), document_(document) {
    using Mode = QFileDialog::AcceptMode;
    const QString bankSuffix = QStringLiteral("bank.json");
    const QString sceneSuffix = QStringLiteral("scene.json");
    addFileEntry({tr("&Open Bank..."), QKeySequence(tr("Ctrl+O")), Mode::AcceptOpen,
                  &BankCommands::openBank, bankSuffix, "openBank"});
    addFileEntry({tr("&Save Bank As..."), QKeySequence(tr("Ctrl+S")), Mode::AcceptSave,
                  &BankCommands::saveBank, bankSuffix, "saveBank"});
    recent_ = &addMenu(tr("&Recent"), tr("Recent banks"));
    window_.menu().file().insertSeparator(&window_.menu().quit());
    addFileEntry({tr("Open S&cene Into This One..."),
                  {},
                  Mode::AcceptOpen,
                  &BankCommands::openScene,
                  sceneSuffix,
                  "openScene"});
    addFileEntry({tr("Save &This Scene..."),
                  {},
                  Mode::AcceptSave,
                  &BankCommands::saveScene,
                  sceneSuffix,
                  "saveScene"});
    window_.menu().file().insertSeparator(&window_.menu().quit());
    earlier_ = &addMenu(tr("&Earlier Scenes"), tr("Earlier scenes"));
    window_.menu().file().insertSeparator(&window_.menu().quit());
    connect(recent_, &QMenu::aboutToShow, this, &BankCommands::fillRecent);
    connect(earlier_, &QMenu::aboutToShow, this, &BankCommands::fillEarlier);
    window_.commands().setKeepScenes([this]() -> std::optional<std::string> {
        const auto kept = files_.keep({.reason = EarlierScenes::Reason::Read});
        return kept ? std::nullopt : std::optional(kept.error());
    });
    window_.setAcceptDrops(true);
    window_.installEventFilter(this);
}

void BankCommands::addFileEntry(const FileEntry& entry) {
    auto& action = makeChild<QAction>(entry.title, &window_.menu().file());
    action.setObjectName(QLatin1String(entry.name));
    action.setShortcut(entry.keys);
    window_.menu().file().insertAction(&window_.menu().quit(), &action);
    connect(&action, &QAction::triggered, this, [this, entry] { askForFile(entry); });
}

QMenu& BankCommands::addMenu(const QString& title, const QString& name) {
    auto& menu = makeChild<QMenu>(title, &window_.menu().file());
    menu.setAccessibleName(name);
    window_.menu().file().insertMenu(&window_.menu().quit(), &menu);
    return menu;
}

void BankCommands::askForFile(const FileEntry& entry) {
    auto& dialog = makeChild<QFileDialog>(&window_);
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.setWindowTitle(
        QString(entry.title).remove(QLatin1Char('&')).remove(QLatin1String("...")));
    dialog.setAcceptMode(entry.mode);
    const bool isSave = entry.mode == QFileDialog::AcceptSave;
    dialog.setFileMode(isSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters({tr("Banks and scenes (*.json *.bank)"), tr("All files (*)")});
    dialog.setDefaultSuffix(entry.suffix);
    dialog.setDirectory(RecentFiles::folder());
    giveRoom(dialog);
    connect(&dialog, &QFileDialog::fileSelected, this,
            [this, command = entry.command](const QString& file) { (this->*command)(file); });
    dialog.open();
}

QString BankCommands::openedBank(const QString& file) const {
    return tr("Opened %1").arg(QFileInfo(file).fileName());
}

QString BankCommands::openedScene(const QString& file) const {
    return tr("Opened %1 as scene %2")
        .arg(QFileInfo(file).fileName())
        .arg(window_.view().sceneIndex() + 1);
}

QString BankCommands::openStep(const QString& file) {
    return tr("Open %1").arg(QFileInfo(file).fileName());
}

void BankCommands::openBank(const QString& file) {
    if (showOutcome(files_.openBank(pathOf(file)), openedBank(file), openStep(file)))
        follow(file);
}

void BankCommands::openAtStart(const QString& file) {
    const auto outcome = StoreFiles::openAtStart(pathOf(file), window_.view().sceneIndex());
    const bool isScene = outcome && outcome->isScene;
    const QString absolute = QFileInfo(file).absoluteFilePath();
    if (!showOutcome(outcome, isScene ? openedScene(file) : openedBank(file), {}))
        return;
    history_.forget(); // nothing was there before
    if (isScene)
        RecentFiles::setFolderOf(absolute);
    else
        follow(absolute);
}

void BankCommands::saveBank(const QString& file) {
    const auto saved = files_.saveBank(pathOf(file), *window_.view().pu());
    showSaved(saved, file);
    if (saved)
        follow(file);
}

void BankCommands::follow(const QString& file) {
    RecentFiles::add(file);
    document_.set(file);
}

void BankCommands::openScene(const QString& file) {
    if (showOutcome(files_.openScene(pathOf(file), window_.view().sceneIndex()), openedScene(file),
                    openStep(file)))
        RecentFiles::setFolderOf(file);
}

void BankCommands::saveScene(const QString& file) {
    const auto saved =
        files_.saveScene(pathOf(file), window_.view().sceneIndex(), *window_.view().pu());
    showSaved(saved, file);
    if (saved)
        RecentFiles::setFolderOf(file);
}

void BankCommands::restoreLatest() {
    if (const auto entry = files_.newestOther())
        bringBack(*entry, tr("Brought back the earlier scenes"));
}

void BankCommands::bringBack(const EarlierScenes::Entry& entry, const QString& done) {
    showOutcome(StoreFiles::Opened{.kept = files_.bringBack(entry)}, done, tr("Bring Back Scenes"));
    document_.forget();
}

void BankCommands::bringBackEdited(const EditedScenes& scenes) {
    EarlierScenes::Entry entry;
    entry.image = scenes.image;
    bringBack(entry, tr("Brought back the edited scenes"));
    document_.setUnsaved(shown(scenes.file));
}

bool BankCommands::showOutcome(const Result<StoreFiles::Opened>& outcome, const QString& done,
                               const QString& step) {
    post(outcome ? outcome->kept : failure(outcome.error()), outcome ? done : QString());
    if (!outcome)
        return false;
    history_.name(step);
    window_.showScenesAnew();
    emit replaced();
    return true;
}

void BankCommands::showSaved(const Result<void>& saved, const QString& file) {
    post(saved, saved ? tr("Saved %1").arg(QFileInfo(file).fileName()) : QString());
}

// Both may be there: something was done, and something else beside it was not.
void BankCommands::post(const Result<void>& result, const QString& done) {
    QStringList lines;
    if (!done.isEmpty())
        lines.append(done);
    if (!result)
        lines.append(shown(result.error()));
    if (lines.isEmpty())
        return window_.notices().withdraw(Notice::Source::Files);
    window_.notices().post({.source = Notice::Source::Files,
                            .kind = result ? Notice::Kind::Done : Notice::Kind::Error,
                            .text = lines.join(QLatin1Char('\n'))});
}

void BankCommands::fillRecent() {
    recent_->clear();
    for (const QString& file : RecentFiles::list()) {
        QAction& action = *recent_->addAction(inMenu(file));
        connect(&action, &QAction::triggered, this, [this, file] { openBank(file); });
    }
    if (recent_->isEmpty())
        recent_->addAction(tr("None"))->setEnabled(false);
}

void BankCommands::fillEarlier() {
    earlier_->clear();
    qDeleteAll(earlier_->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    const std::vector<EarlierScenes::Entry> entries = files_.earlier().list();
    QMenu* menu = earlier_;
    for (std::size_t place = 0; place < entries.size(); ++place) {
        if (place > 0 && place % kMenuEntries == 0)
            menu = &olderMenu(*menu);
        addEarlier(*menu, entries[place]);
    }
    if (earlier_->isEmpty())
        earlier_->addAction(tr("None"))->setEnabled(false);
}

QMenu& BankCommands::olderMenu(QMenu& menu) {
    QMenu& older = *menu.addMenu(tr("Older"));
    older.setAccessibleName(older.title());
    return older;
}

// The time, why they were kept, and the names of the scenes.
void BankCommands::addEarlier(QMenu& menu, const EarlierScenes::Entry& entry) {
    const auto since = std::chrono::floor<std::chrono::milliseconds>(entry.kept.time_since_epoch());
    const QString when = QLocale().toString(QDateTime::fromMSecsSinceEpoch(since.count()),
                                            tr("d MMMM yyyy, hh:mm:ss"));
    QStringList names;
    for (const std::string& name : entry.names())
        names.append(shown(name));
    QStringList parts{when, shown(reasonText(entry.occasion)), names.join(QStringLiteral(", "))};
    parts.removeAll(QString());
    QAction& action = *menu.addAction(inMenu(parts.join(QStringLiteral(" – "))));
    connect(&action, &QAction::triggered, this, [this, entry, when] {
        bringBack(entry, tr("Brought back the scenes of %1").arg(when));
    });
}

bool BankCommands::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::DragEnter) {
        auto* drag = static_cast<QDragEnterEvent*>(event);
        if (draggedFile(*drag->mimeData()).isEmpty())
            return false;
        drag->acceptProposedAction();
        return true;
    }
    if (event->type() == QEvent::Drop) {
        auto* drop = static_cast<QDropEvent*>(event);
        drop->acceptProposedAction();
        openBank(draggedFile(*drop->mimeData()));
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace scenewright
