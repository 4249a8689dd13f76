#include "editor/qt/Document.h"

#include "app/DeviceSession.h"
#include "app/WindowAction.h"
#include "editor/qt/QtHelpers.h"

#include <QDir>
#include <QFileInfo>
#include <QUndoCommand>

#include <algorithm>
#include <iterator>
#include <memory>
#include <tuple>
#include <utility>

namespace scenewright {

namespace {

const QString kFilesKey = QStringLiteral("recent");
const QString kFolderKey = QStringLiteral("folder");

QString absolute(const QString& file) {
    return file.isEmpty() ? file : QFileInfo(file).absoluteFilePath();
}

} // namespace

// A step whose changes have been made when it is pushed.
class History::Step final : public QUndoCommand {
public:
    // Steps with the same `run` whose changes come of the same popup become one; 0 for none.
    Step(History& history, SceneChanges changes, const QString& name, std::uint64_t from,
         std::uint64_t run)
        : history_(history), changes_(std::move(changes)), from_(from), to_(history.version_),
          run_(run) {
        setText(name.isEmpty() ? shown(changes_.title()) : name);
    }

    void undo() override { history_.write(changes_, SceneChanges::Side::Before, from_); }
    void redo() override {
        if (std::exchange(isMade_, false))
            return;
        history_.write(changes_, SceneChanges::Side::After, to_);
    }

    [[nodiscard]] int id() const override { return run_ == 0 ? -1 : 1; }
    bool mergeWith(const QUndoCommand* other) override {
        const auto& later = static_cast<const Step&>(*other);
        const SettingPlace* const mine = changes_.chosen();
        const SettingPlace* const its = later.changes_.chosen();
        if (later.run_ != run_ || mine == nullptr || its == nullptr ||
            mine->setting != its->setting)
            return false;
        changes_.append(later.changes_);
        to_ = later.to_;
        setObsolete(changes_.isEmpty());
        if (changes_.isEmpty())
            history_.version_ = from_; // back where the run began
        else
            setText(shown(changes_.title()));
        return true;
    }

private:
    History& history_;
    SceneChanges changes_;
    std::uint64_t from_; // versions
    std::uint64_t to_;
    std::uint64_t run_;
    bool isMade_ = true;
};

History::History(MainWindow& window) : window_(window) {
    steps_.setUndoLimit(kSteps);
    connectAction({.action = undo_,
                   .keys = tr("Ctrl+Z"),
                   .plain = tr("&Undo"),
                   .named = tr("&Undo %1"),
                   .command = &QUndoStack::undo,
                   .textChanged = &QUndoStack::undoTextChanged,
                   .canChanged = &QUndoStack::canUndoChanged});
    connectAction({.action = redo_,
                   .keys = tr("Ctrl+Shift+Z"),
                   .plain = tr("Re&do"),
                   .named = tr("Re&do %1"),
                   .command = &QUndoStack::redo,
                   .textChanged = &QUndoStack::redoTextChanged,
                   .canChanged = &QUndoStack::canRedoChanged});
    connect(&window_, &MainWindow::refreshed, this, &History::record);
    connect(&window_.choice(), &ControlChoice::changed, this, [this] { ++run_; });
    reading_ = WindowAction::getMessageValue()->addObserver(
        "isReadFinish", [this](std::string_view, const MessageValue::Text& value) {
            if (value == "No")
                name(tr("Read"));
        });
    take();
}

void History::connectAction(const Entry& entry) {
    QAction* const action = &entry.action;
    action->setShortcut(QKeySequence(entry.keys));
    action->setText(entry.plain);
    action->setEnabled(false);
    connect(action, &QAction::triggered, &steps_, entry.command);
    connect(&steps_, entry.canChanged, action, &QAction::setEnabled);
    connect(&steps_, entry.textChanged, action,
            [action, plain = entry.plain, named = entry.named](const QString& step) {
                action->setText(step.isEmpty() ? plain : named.arg(inMenu(step)));
            });
}

void History::forget() {
    steps_.clear();
    take();
    emit changed();
}

void History::take() {
    scenes_ = copyOfStored();
    image_ = storedImage();
}

void History::record() {
    const QString given = std::exchange(name_, {});
    const std::pair now{window_.view().sceneIndex(), window_.view().selectControl()};
    if (std::pair{scene_, chosen_} != now)
        ++run_;
    std::tie(scene_, chosen_) = now;
    if (storedImage() == image_)
        return;
    auto changes = SceneChanges::between(*window_.view().pu(), scenes_, WindowAction::scenes());
    take();
    const std::uint64_t from = std::exchange(version_, ++newest_);
    const std::uint64_t run = given.isEmpty() ? run_ : 0;
    steps_.push(std::make_unique<Step>(*this, std::move(changes), given, from, run).release());
    emit changed();
}

void History::write(const SceneChanges& changes, SceneChanges::Side side, std::uint64_t version) {
    changes.write(side, WindowAction::scenes());
    take();
    version_ = version;
    ++run_; // what is chosen from here on is no part of what was before
    show(changes);
    emit changed();
}

void History::show(const SceneChanges& changes) {
    const std::vector<SettingPlace> places = changes.places();
    const std::int32_t scene = window_.view().sceneIndex();
    const auto isHere = [scene](const SettingPlace& place) { return place.scene == scene; };
    const ControlSelection& chosen = window_.choice().selection();
    if (std::ranges::any_of(places, [&](const SettingPlace& place) {
            return isHere(place) && chosen.has(controlIndexOf(place));
        }))
        return window_.showControl(scene, chosen.chosen());
    auto at = std::ranges::find_if(places, isHere);
    if (at == places.end())
        at = places.begin();
    window_.showControl(at->scene, controlIndexOf(*at));
}

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

void Document::overwritten(const QString& file) {
    for (auto& [version, belonging] : since_)
        if (belonging.file == absolute(file))
            belonging.held.reset();
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

QStringList RecentFiles::list() {
    QStringList existing;
    for (const QString& file : programSettings().value(kFilesKey).toStringList())
        if (QFileInfo::exists(file))
            existing.append(file);
    return existing.mid(0, kMax);
}

void RecentFiles::add(const QString& file) {
    const QString whole = QFileInfo(file).absoluteFilePath();
    QStringList files = list();
    files.removeAll(whole);
    files.prepend(whole);
    programSettings().setValue(kFilesKey, files.mid(0, kMax));
    setFolderOf(whole);
}

QString RecentFiles::folder() {
    const QString kept = programSettings().value(kFolderKey).toString();
    return QFileInfo(kept).isDir() ? kept : QDir::homePath();
}

void RecentFiles::setFolderOf(const QString& file) {
    programSettings().setValue(kFolderKey, QFileInfo(file).absolutePath());
}

} // namespace scenewright
