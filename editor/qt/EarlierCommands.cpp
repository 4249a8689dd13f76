#include "editor/qt/EarlierCommands.h"

#include "app/DeviceSession.h"
#include "editor/qt/QtHelpers.h"
#include "platform/Process.h"

#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
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

void EarlierCommands::fill() {
    menu_->clear();
    qDeleteAll(menu_->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    const std::vector<EarlierScenes::Entry> entries = files_.earlier().list();
    QMenu* menu = menu_;
    for (std::size_t place = 0; place < entries.size(); ++place) {
        if (place > 0 && place % kMenuEntries == 0) {
            menu = menu->addMenu(tr("Older"));
            menu->setAccessibleName(menu->title());
        }
        add(*menu, entries[place]);
    }
    if (menu_->isEmpty())
        menu_->addAction(tr("None"))->setEnabled(false);
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

ScenesKeeper::ScenesKeeper(MainWindow& window, History& history, EarlierCommands& earlier,
                           std::shared_ptr<Recovery> recovery)
    : window_(window), earlier_(earlier), recovery_(std::move(recovery)) {
    delay_.setInterval(kDelay);
    connect(&delay_, &QTimer::timeout, this, &ScenesKeeper::flush);
    connect(&history, &History::changed, this, &ScenesKeeper::follow);
    connect(&earlier_.document(), &Document::changed, this, &ScenesKeeper::follow);
    keyboard_ = KnownKeyboard::addObserver([this] { follow(); });
    // A read holds the event loop up, and may end the program with it.
    connect(&window_.commands(), &DeviceCommands::started, this, &ScenesKeeper::flush);
    // The end of the user's session, which need not leave time for more.
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &ScenesKeeper::flush,
            Qt::DirectConnection);
    offer();
}

ScenesKeeper::~ScenesKeeper() {
    if (const auto kept = recovery_->flush(); !kept)
        reportError("scenewright", kept.error());
}

void ScenesKeeper::follow() {
    if (earlier_.document().isElsewhere())
        recovery_->discard();
    else
        recovery_->keep({.image = storedImage(),
                         .file = earlier_.document().file().toStdString(),
                         .keyboard = KnownKeyboard::name()});
    if (!delay_.isActive())
        delay_.start();
}

void ScenesKeeper::flush() {
    delay_.stop();
    const auto kept = recovery_->flush();
    if (!kept && !isTroubleTold_)
        window_.notices().post({.source = Notice::Source::Recovery,
                                .kind = Notice::Kind::Error,
                                .text = shown(kept.error())});
    isTroubleTold_ = !kept;
}

void ScenesKeeper::offer() {
    if (recovery_->left().empty())
        return;
    const Recovery::Left& left = recovery_->left().front();
    const auto time =
        QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(left.kept));
    const QString when = QLocale().toString(time, tr("d MMMM yyyy, hh:mm"));
    const QString file = QFileInfo(shown(left.scenes.file)).fileName();
    const QString text =
        file.isEmpty()
            ? tr("The scenes edited on %1 were neither sent nor saved").arg(when)
            : tr("The scenes of %1, edited on %2, were neither sent nor saved").arg(file, when);
    window_.notices().post({.source = Notice::Source::Recovery,
                            .kind = Notice::Kind::Error,
                            .text = text,
                            .actions = {{tr("Bring Back"), [this, left] { bringBack(left); }},
                                        {tr("Forget"), [this, place = left.place] {
                                             recovery_->forget(place);
                                             offer();
                                         }}}});
}

// They are on the disk under this program's name before they are no more under the former one's.
void ScenesKeeper::bringBack(const Recovery::Left& left) {
    earlier_.bringBack(left.scenes.image, EarlierCommands::tr("Brought back the edited scenes"));
    earlier_.document().setUnsaved(shown(left.scenes.file));
    if (recovery_->flush())
        recovery_->forget(left.place);
    offer();
}

} // namespace scenewright
