#include "editor/qt/EarlierCommands.h"

#include "editor/qt/QtHelpers.h"

#include <QDateTime>
#include <QLocale>

#include <chrono>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

constexpr std::size_t kMenuEntries = 20; // before the next menu

} // namespace

EarlierCommands::EarlierCommands(MainWindow& window, StoreFiles files, Document& document)
    : files_(std::move(files)), document_(document),
      menu_(&makeChild<QMenu>(tr("&Earlier Scenes"), &window.menu().file())) {
    menu_->setAccessibleName(tr("Earlier scenes"));
    QAction* const quit = &window.menu().quit();
    window.menu().file().insertMenu(quit, menu_);
    window.menu().file().insertSeparator(quit);
    connect(menu_, &QMenu::aboutToShow, this, &EarlierCommands::fill);
    window.commands().setKeepScenes([this]() -> std::optional<std::string> {
        const auto kept = files_.keep({.reason = EarlierScenes::Reason::Read});
        return kept ? std::nullopt : std::optional(kept.error());
    });
}

void EarlierCommands::restoreLatest() {
    if (const auto entry = files_.newestOther())
        bringBack(entry->image, tr("Brought back the earlier scenes"));
}

void EarlierCommands::bringBack(const BankImage& image, const QString& done) {
    document_.show(StoreFiles::Opened{.kept = files_.bringBack(image)}, done,
                   tr("Bring Back Scenes"));
    document_.forget();
}

void EarlierCommands::bringBackEdited(const EditedScenes& scenes) {
    bringBack(scenes.image, tr("Brought back the edited scenes"));
    document_.setUnsaved(shown(scenes.file));
}

void EarlierCommands::fill() {
    menu_->clear();
    qDeleteAll(menu_->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    const std::vector<EarlierScenes::Entry> entries = files_.earlier().list();
    QMenu* menu = menu_;
    for (std::size_t place = 0; place < entries.size(); ++place) {
        if (place > 0 && place % kMenuEntries == 0)
            menu = &olderMenu(*menu);
        add(*menu, entries[place]);
    }
    if (menu_->isEmpty())
        menu_->addAction(tr("None"))->setEnabled(false);
}

QMenu& EarlierCommands::olderMenu(QMenu& menu) {
    QMenu& older = *menu.addMenu(tr("Older"));
    older.setAccessibleName(older.title());
    return older;
}

// The time, why they were kept, and the names of the scenes.
void EarlierCommands::add(QMenu& menu, const EarlierScenes::Entry& entry) {
    const auto since = std::chrono::floor<std::chrono::milliseconds>(entry.kept.time_since_epoch());
    const QString when = QLocale().toString(QDateTime::fromMSecsSinceEpoch(since.count()),
                                            tr("d MMMM yyyy, hh:mm:ss"));
    QStringList names;
    for (const std::string& name : entry.names())
        names.append(shown(name));
    QStringList parts{when, shown(reasonText(entry.occasion)), names.join(QStringLiteral(", "))};
    parts.removeAll(QString());
    QAction& action = *menu.addAction(inMenu(parts.join(QStringLiteral(" – "))));
    connect(&action, &QAction::triggered, this, [this, image = entry.image, when] {
        bringBack(image, tr("Brought back the scenes of %1").arg(when));
    });
}

} // namespace scenewright
