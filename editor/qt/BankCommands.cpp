#include "editor/qt/BankCommands.h"

#include "app/WindowAction.h"
#include "editor/qt/QtHelpers.h"
#include "model/SceneValue.h"

#include <QDate>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QMimeData>
#include <QTreeView>
#include <QUrl>

#include <filesystem>
#include <memory>
#include <vector>

namespace scenewright {

namespace {

constexpr QSize kDialogSize(860, 520);
constexpr int kPathWidth = 560; // of an entry of Recent, in device-independent pixels

// The local files that are dragged.
QStringList draggedFiles(const QMimeData& data) {
    QStringList files;
    for (const QUrl& url : data.urls())
        files.append(url.toLocalFile());
    files.removeAll(QString());
    return files;
}

// A bank's or scene's name without what tells its form. The toolkit may have put a second suffix in
// the place of the last one.
QString withoutSuffix(const QString& name) {
    for (const QString& suffix : {QStringLiteral(".bank.json"), QStringLiteral(".scene.json"),
                                  QStringLiteral(".bank"), QStringLiteral(".json")})
        if (name.endsWith(suffix, Qt::CaseInsensitive))
            return withoutSuffix(name.chopped(suffix.size()));
    return name;
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

} // namespace

BankCommands::BankCommands(MainWindow& window, StoreFiles files, History& history,
                           Document& document)
    : window_(window), files_(std::move(files)), history_(history), document_(document) {
    using Mode = QFileDialog::AcceptMode;
    const QStringList anyFile{tr("Banks and scenes (*.json *.bank)"), tr("All files (*)")};
    addFileEntry({.title = tr("&Open Bank..."),
                  .keys = QKeySequence(tr("Ctrl+O")),
                  .mode = Mode::AcceptOpen,
                  .command = &BankCommands::openBank,
                  .filters = anyFile,
                  .suffixes = {},
                  .suggestion = nullptr,
                  .name = "openBank"});
    QAction& save = addEntry(tr("&Save Bank"), QKeySequence(tr("Ctrl+S")), "saveBank");
    connect(&save, &QAction::triggered, this, &BankCommands::save);
    saveAs_ = {.title = tr("Save Bank &As..."),
               .keys = QKeySequence(tr("Ctrl+Shift+S")),
               .mode = Mode::AcceptSave,
               .command = &BankCommands::saveBank,
               .filters = {tr("JSON, a text to read, compare and edit (*.bank.json *.json)"),
                           tr("Image, the 1012 bytes as the keyboard holds them (*.bank)")},
               .suffixes = {QStringLiteral("bank.json"), QStringLiteral("bank")},
               .suggestion = &BankCommands::bankSuggestion,
               .name = "saveBankAs"};
    addFileEntry(saveAs_);
    recent_ = &addMenu(tr("&Recent"), tr("Recent banks"));
    window_.menu().file().insertSeparator(&window_.menu().quit());
    addFileEntry({.title = tr("Open S&cene Into This One..."),
                  .keys = {},
                  .mode = Mode::AcceptOpen,
                  .command = &BankCommands::openScene,
                  .filters = anyFile,
                  .suffixes = {},
                  .suggestion = nullptr,
                  .name = "openScene"});
    addFileEntry({.title = tr("Save &This Scene..."),
                  .keys = {},
                  .mode = Mode::AcceptSave,
                  .command = &BankCommands::saveScene,
                  .filters = {tr("JSON, a text to read, compare and edit (*.scene.json *.json)")},
                  .suffixes = {QStringLiteral("scene.json")},
                  .suggestion = &BankCommands::sceneSuggestion,
                  .name = "saveScene"});
    window_.menu().file().insertSeparator(&window_.menu().quit());
    addFileEntry({.title = tr("Export S&heet..."),
                  .keys = {},
                  .mode = Mode::AcceptSave,
                  .command = &BankCommands::exportSheet,
                  .filters = {tr("PDF, a page a scene (*.pdf)"), tr("SVG, a drawing (*.svg)"),
                              tr("PNG, a picture (*.png)")},
                  .suffixes = {QStringLiteral("pdf"), QStringLiteral("svg"), QStringLiteral("png")},
                  .suggestion = &BankCommands::bankSuggestion,
                  .name = "exportSheet"});
    QAction& print = addEntry(tr("Pr&int..."), QKeySequence(tr("Ctrl+P")), "print");
    connect(&print, &QAction::triggered, this, &BankCommands::print);
    window_.menu().file().insertSeparator(&window_.menu().quit());
    connect(recent_, &QMenu::aboutToShow, this, &BankCommands::fillRecent);
    window_.setAcceptDrops(true);
    window_.installEventFilter(this);
}

QAction& BankCommands::addEntry(const QString& title, const QKeySequence& keys, const char* name) {
    auto& action = makeChild<QAction>(title, &window_.menu().file());
    action.setObjectName(QLatin1String(name));
    action.setShortcut(keys);
    window_.menu().file().insertAction(&window_.menu().quit(), &action);
    return action;
}

void BankCommands::addFileEntry(const FileEntry& entry) {
    connect(&addEntry(entry.title, entry.keys, entry.name), &QAction::triggered, this,
            [this, entry] { askForFile(entry); });
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
    dialog.setWindowTitle(unmarked(entry.title).remove(QLatin1String("...")));
    dialog.setAcceptMode(entry.mode);
    const bool isSave = entry.mode == QFileDialog::AcceptSave;
    dialog.setFileMode(isSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(entry.filters);
    dialog.setDirectory(RecentFiles::folder());
    if (entry.suggestion != nullptr)
        dialog.selectFile((this->*entry.suggestion)() + QLatin1Char('.') + entry.suffixes.front());
    followFilter(dialog, entry);
    giveRoom(dialog);
    connect(&dialog, &QFileDialog::fileSelected, this,
            [this, command = entry.command](const QString& file) { (this->*command)(file); });
    dialog.open();
}

void BankCommands::followFilter(QFileDialog& dialog, const FileEntry& entry) {
    if (entry.suffixes.isEmpty())
        return;
    dialog.setDefaultSuffix(entry.suffixes.front());
    connect(&dialog, &QFileDialog::filterSelected, &dialog,
            [&dialog, filters = entry.filters, suffixes = entry.suffixes](const QString& filter) {
                const QString suffix = suffixes.value(filters.indexOf(filter), suffixes.front());
                dialog.setDefaultSuffix(suffix);
                const QString name = QFileInfo(dialog.selectedFiles().value(0)).fileName();
                dialog.selectFile(withoutSuffix(name) + QLatin1Char('.') + suffix);
            });
}

QString BankCommands::bankSuggestion() const {
    const QString file = QFileInfo(document_.file()).fileName();
    return file.isEmpty() ? tr("Scenes %1").arg(QDate::currentDate().toString(Qt::ISODate))
                          : withoutSuffix(file);
}

QString BankCommands::sceneSuggestion() const {
    QString name = shown(displayName(window_.view().sceneValue()->commonValue()->SceneName()));
    name = name.replace(QLatin1Char('/'), QLatin1Char('-')).trimmed();
    return name.isEmpty() ? tr("Scene %1").arg(window_.view().sceneIndex() + 1) : name;
}

SceneSheet BankCommands::sheet() const {
    std::vector<SceneSheet::Page> pages;
    for (const auto& scene : WindowAction::scenes())
        pages.push_back({scene, static_cast<std::int32_t>(pages.size())});
    return {window_.view().pu(), std::move(pages), QFileInfo(document_.file()).fileName()};
}

void BankCommands::exportSheet(const QString& file) {
    window_.finishTyping();
    RecentFiles::setFolderOf(file);
    showWritten(sheet().write(pathOf(file), SceneSheet::usualPaper()),
                tr("Exported the sheet to %1").arg(QFileInfo(file).fileName()));
}

void BankCommands::print() {
    window_.finishTyping();
    const auto devices = PaperDevices::load();
    if (!devices)
        return showWritten(failure(devices.error()), {});
    // The suggestion names a file that is printed to as well.
    (*devices)->askForPrinter(
        window_, bankSuggestion(), kSceneCount, [this](SheetPrinter& printer) {
            const QString file = QFileInfo(printer.file).fileName();
            showWritten(sheet().print(printer),
                        tr("Printed the sheet to %1").arg(file.isEmpty() ? printer.name : file));
        });
}

void BankCommands::askForScene(const QString& question, const std::vector<std::string>& names,
                               const std::function<void(std::int32_t place)>& chosen) {
    QStringList scenes;
    for (const std::string& name : names)
        scenes.append(tr("Scene %1, %2").arg(scenes.size() + 1).arg(shown(name)));
    auto& dialog = makeChild<QInputDialog>(&window_);
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.setWindowTitle(tr("Open Scene"));
    dialog.setAccessibleName(dialog.windowTitle());
    dialog.setLabelText(question);
    dialog.setComboBoxItems(scenes);
    dialog.setTextValue(scenes.value(window_.view().sceneIndex()));
    dialog.setOkButtonText(tr("&Open"));
    dialog.setCancelButtonText(tr("&Cancel"));
    connect(&dialog, &QInputDialog::textValueSelected, this,
            [scenes, chosen](const QString& scene) {
                chosen(static_cast<std::int32_t>(scenes.indexOf(scene)));
            });
    dialog.open();
}

QString BankCommands::openedBank(const QString& file) const {
    return tr("Opened %1").arg(QFileInfo(file).fileName());
}

QString BankCommands::openedScene(const QString& file, std::int32_t index) {
    return tr("Opened %1 as scene %2").arg(QFileInfo(file).fileName()).arg(index + 1);
}

QString BankCommands::openStep(const QString& file) {
    return tr("Open %1").arg(QFileInfo(file).fileName());
}

void BankCommands::openBank(const QString& file) {
    if (const auto held = StoreFiles::sceneNames(pathOf(file)); held && held->size() == 1) {
        std::vector<std::string> stored;
        for (const auto& scene : WindowAction::scenes())
            stored.push_back(displayName(scene->commonValue()->SceneName()));
        stored.resize(kSceneCount);
        return askForScene(tr("%1 holds one scene, %2. It replaces:")
                               .arg(QFileInfo(file).fileName(), shown(held->front())),
                           stored,
                           [this, file](std::int32_t place) { openSceneAs(file, 0, place); });
    }
    if (!document_.show(files_.openBank(pathOf(file)), openedBank(file), openStep(file)))
        return;
    RecentFiles::add(file);
    document_.opened(file);
}

void BankCommands::openAtStart(const QString& file) {
    const auto outcome = StoreFiles::openAtStart(pathOf(file), window_.view().sceneIndex());
    const bool isScene = outcome && outcome->isScene;
    const QString absolute = QFileInfo(file).absoluteFilePath();
    if (!document_.show(outcome,
                        isScene ? openedScene(file, window_.view().sceneIndex()) : openedBank(file),
                        {}))
        return;
    history_.forget(); // nothing was there before
    if (isScene)
        return RecentFiles::setFolderOf(absolute);
    RecentFiles::add(absolute);
    document_.opened(absolute);
}

void BankCommands::saveBank(const QString& file) {
    const auto saved = files_.saveBank(pathOf(file), *loadPopUpValue());
    showWritten(saved, tr("Saved %1").arg(QFileInfo(file).fileName()));
    if (!saved)
        return;
    RecentFiles::add(file);
    document_.saved(file);
}

void BankCommands::save() {
    const QString file = document_.file();
    if (file.isEmpty())
        return askForFile(saveAs_);
    const auto now = StoreFiles::imageIn(pathOf(file));
    if (!now || !document_.held() || now == document_.held() || now == storedImage())
        return saveBank(file);
    window_.notices().post(
        {.source = Notice::Source::Files,
         .kind = Notice::Kind::Error,
         .text =
             tr("Not saved: another program changed %1 meanwhile").arg(QFileInfo(file).fileName()),
         .actions = {{tr("Open It"), [this, file] { openBank(file); }},
                     {tr("Save Anyway"), [this, file] { saveBank(file); }}}});
}

void BankCommands::openScene(const QString& file) {
    const std::int32_t index = window_.view().sceneIndex();
    const auto held = StoreFiles::sceneNames(pathOf(file));
    if (!held || held->size() == 1)
        return openSceneAs(file, 0, index);
    askForScene(tr("%1 holds four scenes. Open as scene %2:")
                    .arg(QFileInfo(file).fileName())
                    .arg(index + 1),
                *held,
                [this, file, index](std::int32_t place) { openSceneAs(file, place, index); });
}

void BankCommands::openSceneAs(const QString& file, std::int32_t from, std::int32_t index) {
    if (!document_.show(files_.openScene(pathOf(file), index, from), openedScene(file, index),
                        openStep(file)))
        return;
    if (index != window_.view().sceneIndex())
        window_.showControl(index, 0);
    RecentFiles::setFolderOf(file);
}

void BankCommands::saveScene(const QString& file) {
    const auto saved =
        files_.saveScene(pathOf(file), window_.view().sceneIndex(), *loadPopUpValue());
    showWritten(saved, tr("Saved %1").arg(QFileInfo(file).fileName()));
    if (!saved)
        return;
    RecentFiles::setFolderOf(file);
    document_.overwritten(file);
}

void BankCommands::showWritten(const Result<void>& written, const QString& done) {
    window_.notices().postResult(Notice::Source::Files, written, written ? done : QString());
}

void BankCommands::fillRecent() {
    recent_->clear();
    for (const QString& file : RecentFiles::list()) {
        // The end of a long path tells it from its neighbours.
        QAction& action = *recent_->addAction(
            inMenu(recent_->fontMetrics().elidedText(file, Qt::ElideMiddle, kPathWidth)));
        connect(&action, &QAction::triggered, this, [this, file] { openBank(file); });
    }
    if (recent_->isEmpty())
        recent_->addAction(tr("None"))->setEnabled(false);
}

bool BankCommands::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::DragEnter) {
        auto* drag = static_cast<QDragEnterEvent*>(event);
        if (draggedFiles(*drag->mimeData()).isEmpty())
            return false;
        drag->acceptProposedAction();
        return true;
    }
    if (event->type() == QEvent::Drop) {
        auto* drop = static_cast<QDropEvent*>(event);
        drop->acceptProposedAction();
        const QStringList files = draggedFiles(*drop->mimeData());
        if (files.size() == 1)
            openBank(files.front());
        else
            window_.notices().postResult(
                Notice::Source::Files,
                failure(tr("%1 files were dropped, and one can be open at a time; drop one of them")
                            .arg(files.size())
                            .toStdString()),
                {});
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace scenewright
