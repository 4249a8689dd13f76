#include "editor/qt/Document.h"

#include "app/DeviceSession.h"

#include <QFileInfo>

#include <iterator>
#include <utility>

namespace scenewright {

namespace {

QString absolute(const QString& file) {
    return file.isEmpty() ? file : QFileInfo(file).absoluteFilePath();
}

} // namespace

Document::Document(MainWindow& window, History& history)
    : window_(window), history_(history), program_(window.windowTitle()), start_(storedImage()) {
    connect(&history, &History::changed, this, &Document::followHistory);
    connect(&window.commands(), &DeviceCommands::started, this,
            [this] { beforeCommand_ = storedImage(); });
    connect(&window.commands(), &DeviceCommands::readEnded, this, [this] {
        if (beforeCommand_ != storedImage())
            forget();
    });
    keyboard_ = KnownKeyboard::addObserver([this] { showTitle(); });
    showTitle();
}

const Document::Belonging& Document::current() const {
    return std::prev(since_.upper_bound(history_.version()))->second;
}

bool Document::isElsewhere() const {
    const BankImage image = storedImage();
    return image == start_ || image == KnownKeyboard::image() || image == current().held;
}

bool Document::show(const Result<StoreFiles::Opened>& outcome, const QString& done,
                    const QString& step) {
    window_.notices().postResult(Notice::Source::Files,
                                 outcome ? outcome->kept : failure(outcome.error()),
                                 outcome ? done : QString());
    if (!outcome)
        return false;
    history_.name(step);
    window_.showScenesAnew();
    emit replaced();
    return true;
}

void Document::opened(const QString& file) {
    begin({absolute(file), storedImage()});
}

void Document::setUnsaved(const QString& file) {
    begin({absolute(file), std::nullopt});
}

void Document::forget() {
    begin({});
}

void Document::saved(const QString& file) {
    const Belonging belonging{absolute(file), storedImage()};
    std::prev(since_.upper_bound(history_.version()))->second = belonging;
    for (auto& [version, other] : since_)
        if (other.file == belonging.file)
            other.held = belonging.held;
    showTitle();
    emit changed();
}

void Document::begin(Belonging belonging) {
    since_.insert_or_assign(history_.version(), std::move(belonging));
    showTitle();
    emit changed();
}

// A new step takes the place of those that could be done again.
void Document::followHistory() {
    const std::uint64_t version = history_.version();
    if (version > newest_) {
        since_.erase(since_.upper_bound(seen_), since_.end());
        newest_ = version;
    }
    seen_ = version;
    showTitle();
}

void Document::showTitle() {
    QString name = QFileInfo(file()).fileName();
    name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    //: The name of a file, its mark, and the name of the program.
    window_.setWindowTitle(name.isEmpty() ? program_ + QLatin1String("[*]")
                                          : tr("%1[*] – %2").arg(name, program_));
    window_.setWindowModified(file().isEmpty() ? !isElsewhere() : current().held != storedImage());
}

} // namespace scenewright
