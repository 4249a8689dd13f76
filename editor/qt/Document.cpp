#include "editor/qt/Document.h"

#include "app/DeviceSession.h"

#include <QFileInfo>

namespace scenewright {

Document::Document(MainWindow& window, History& history)
    : window_(window), history_(history), program_(window.windowTitle()) {
    connect(&history, &History::changed, this, &Document::showMark);
    connect(&window.commands(), &DeviceCommands::started, this,
            [this] { beforeCommand_ = storedImage(); });
    connect(&window.commands(), &DeviceCommands::readEnded, this, [this] {
        if (beforeCommand_ != storedImage())
            forget();
    });
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

void Document::set(const QString& file) {
    change(QFileInfo(file).absoluteFilePath(), storedImage());
}

void Document::setUnsaved(const QString& file) {
    change(file.isEmpty() ? file : QFileInfo(file).absoluteFilePath(), std::nullopt);
}

void Document::forget() {
    change({}, std::nullopt);
}

void Document::change(const QString& file, const std::optional<BankImage>& held) {
    file_ = file;
    held_ = held;
    QString name = QFileInfo(file_).fileName();
    name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    //: The name of a file, its mark, and the name of the program.
    window_.setWindowTitle(name.isEmpty() ? program_ : tr("%1[*] – %2").arg(name, program_));
    showMark();
    emit changed();
}

void Document::showMark() {
    window_.setWindowModified(!file_.isEmpty() && held_ != storedImage());
}

} // namespace scenewright
