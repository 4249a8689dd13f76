#include "editor/qt/ScenesKeeper.h"

#include "app/DeviceSession.h"
#include "editor/qt/QtHelpers.h"
#include "platform/Process.h"

#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>

#include <utility>

namespace scenewright {

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
    earlier_.bringBackEdited(left.scenes);
    if (recovery_->flush())
        recovery_->forget(left.place);
    offer();
}

} // namespace scenewright
