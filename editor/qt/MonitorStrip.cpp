#include "editor/qt/MonitorStrip.h"

#include "app/TryRun.h"
#include "app/WindowAction.h"
#include "editor/ControlDescription.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/StripPlace.h"
#include "model/ControlOutput.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <utility>

namespace scenewright {

namespace {

constexpr int kPause = 40;     // milliseconds between two looks
constexpr int kLitFor = 400;   // milliseconds that a controller's control stays lit
constexpr int kTimeWidth = 96; // device-independent pixels
constexpr int kWordsWidth = 300;

} // namespace

void MonitorLines::append(std::vector<Line> lines) {
    if (lines.empty())
        return;
    const int surplus = rowCount() + static_cast<int>(lines.size()) - kMost;
    if (surplus >= rowCount()) {
        clear();
    } else if (surplus > 0) {
        beginRemoveRows({}, 0, surplus - 1);
        lines_.erase(lines_.begin(), lines_.begin() + surplus);
        endRemoveRows();
    }
    const std::size_t first = lines.size() > kMost ? lines.size() - kMost : 0;
    const int count = static_cast<int>(lines.size() - first);
    beginInsertRows({}, rowCount(), rowCount() + count - 1);
    std::move(lines.begin() + static_cast<std::ptrdiff_t>(first), lines.end(),
              std::back_inserter(lines_));
    endInsertRows();
}

void MonitorLines::clear() {
    beginResetModel();
    lines_.clear();
    endResetModel();
}

int MonitorLines::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int MonitorLines::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant MonitorLines::data(const QModelIndex& index, int role) const {
    const Line& line = lines_.at(static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole)
        return line.texts.at(static_cast<std::size_t>(index.column()));
    if (role == Qt::FontRole && !line.isExplained) {
        QFont font;
        font.setItalic(true);
        return font;
    }
    return {};
}

QVariant MonitorLines::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    const std::array<QString, kColumns> titles{tr("Time"), tr("Message"), tr("Sent by")};
    return titles.at(static_cast<std::size_t>(section));
}

MonitorStrip::MonitorStrip(MainWindow& window, KeyboardInput& input)
    : QFrame(&window), window_(window), input_(input) {
    setAccessibleName(tr("Monitor"));
    hide();
    action_ = window.menu().view().addAction(tr("&Monitor"));
    action_->setShortcut(QKeySequence(tr("Ctrl+M")));
    choose_ = window.menu().view().addAction(tr("Choose by &Touching"));
    for (QAction* action : {action_, choose_}) {
        action->setCheckable(true);
        connect(action, &QAction::toggled, this, [this, action] {
            if (!listen())
                action->setChecked(false);
        });
    }
    connect(action_, &QAction::toggled, this, &MonitorStrip::follow);
    connect(&input_, &KeyboardInput::came, this, &MonitorStrip::take);
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &MonitorStrip::show);
    dark_.setSingleShot(true);
    connect(&dark_, &QTimer::timeout, this, [this] { darken(std::exchange(lit_, {})); });
}

MonitorStrip::~MonitorStrip() = default;

void MonitorStrip::layOut() {
    auto& column = makeChild<QVBoxLayout>(this);
    column.setContentsMargins(0, 0, 0, 0);
    column.setSpacing(4);
    auto& bar = makeChild<QWidget>(this);
    bar.setAccessibleName(tr("Monitor"));
    auto& row = makeChild<QHBoxLayout>(&bar);
    row.setContentsMargins(0, 0, 0, 0);
    told_ = &makeChild<QLabel>(&bar);
    told_->setTextFormat(Qt::PlainText);
    told_->setText(input_.sentence());
    told_->setAccessibleName(tr("What is listened to"));
    auto& filter = makeChild<QLineEdit>(&bar);
    filter.setPlaceholderText(tr("Filter"));
    filter.setAccessibleName(tr("Filter"));
    filter.setClearButtonEnabled(true);
    row.addWidget(told_, 1);
    row.addWidget(&filter);
    const auto add = [&bar, &row](const QString& text, bool isCheckable) {
        auto& button = makeChild<QToolButton>(&bar);
        button.setText(text);
        button.setAccessibleName(text);
        button.setCheckable(isCheckable);
        row.addWidget(&button);
        return &button;
    };
    paused_ = add(tr("Pause"), true);
    all_ = add(tr("Clock Too"), true);
    const auto* const clear = add(tr("Clear"), false);
    const auto* const copyLines = add(tr("Copy"), false);
    column.addWidget(&bar);

    filtered_.setSourceModel(&lines_);
    filtered_.setFilterKeyColumn(-1);
    filtered_.setFilterCaseSensitivity(Qt::CaseInsensitive);
    view_ = &makeChild<QTreeView>(this);
    view_->setModel(&filtered_);
    view_->setAccessibleName(tr("What the keyboard sends"));
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setColumnWidth(MonitorLines::Time, kTimeWidth);
    view_->setColumnWidth(MonitorLines::Words, kWordsWidth);
    column.addWidget(view_);

    connect(&input_, &KeyboardInput::told, told_, &QLabel::setText);
    connect(&filter, &QLineEdit::textChanged, &filtered_,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(clear, &QToolButton::clicked, &lines_, &MonitorLines::clear);
    connect(copyLines, &QToolButton::clicked, this, &MonitorStrip::copy);
    connect(paused_, &QAbstractButton::toggled, this, &MonitorStrip::show);
}

void MonitorStrip::follow() {
    const bool isOn = action_->isChecked();
    if (isOn && view_ == nullptr)
        layOut();
    if (isOn)
        window_.strips().open(*this);
    else
        window_.strips().close(*this);
}

// As long as one of the two wants it.
bool MonitorStrip::listen() {
    if (action_->isChecked() || choose_->isChecked())
        return input_.listenFor(*this);
    input_.endFor(*this);
    darken(std::exchange(sounding_, {}));
    return true;
}

void MonitorStrip::take(const std::vector<MidiMessage>& messages) {
    if (!action_->isChecked() && !choose_->isChecked())
        return;
    const QTime now = QTime::currentTime();
    for (const MidiMessage& message : messages) {
        if (isFrequent(message) && (all_ == nullptr || !all_->isChecked()))
            continue;
        taken_.emplace_back(now, message);
        light(message);
        if (choose_->isChecked())
            chooseSender(message);
    }
    if (!taken_.empty() && !pause_.isActive())
        pause_.start(kPause);
}

void MonitorStrip::darken(const std::set<std::int32_t>& controls) {
    for (const std::int32_t control : controls)
        window_.picture().button(control)->setPlayed(false);
}

void MonitorStrip::show() {
    if (!action_->isChecked() || paused_->isChecked()) {
        // The latest of them are still shown when it goes on.
        if (taken_.size() > MonitorLines::kMost)
            taken_.erase(taken_.begin(), taken_.end() - MonitorLines::kMost);
        return;
    }
    std::vector<MonitorLines::Line> lines;
    lines.reserve(taken_.size());
    for (const auto& [time, message] : std::exchange(taken_, {}))
        lines.push_back(lineOf(message, time.toString(QStringLiteral("HH:mm:ss.zzz"))));
    const QScrollBar& bar = *view_->verticalScrollBar();
    const bool follows = bar.value() == bar.maximum();
    lines_.append(std::move(lines));
    if (follows)
        view_->scrollToBottom();
}

MonitorLines::Line MonitorStrip::lineOf(const MidiMessage& message, const QString& time) const {
    const auto lists = window_.view().pu();
    MonitorLines::Line line{
        .texts = {time,
                  shown(messageText(message, lists ? lists->pad_NoteNumber_Array() : Titles())),
                  QString()}};
    QStringList senders;
    const SceneList& scenes = WindowAction::scenes();
    const auto chosen = static_cast<std::size_t>(window_.view().sceneIndex());
    for (const std::int32_t control : controlsSending(*scenes.at(chosen), message))
        senders.append(shown(controlName(control)));
    line.isExplained = !senders.empty();
    for (std::size_t scene = 0; scene < scenes.size() && !line.isExplained; ++scene)
        if (!controlsSending(*scenes[scene], message).empty())
            senders.append(tr("scene %1?").arg(scene + 1));
    line.texts[MonitorLines::Senders] =
        senders.empty() ? tr("no control of the scenes") : senders.join(QLatin1String(", "));
    return line;
}

void MonitorStrip::light(const MidiMessage& message) {
    for (const std::int32_t control : controlsSending(*window_.view().sceneValue(), message)) {
        ControlButton& button = *window_.picture().button(control);
        const auto output = controlOutput(*window_.view().sceneValue(), control);
        const bool isNote = output && output->isNote;
        const bool isOff =
            message.kind() == kNoteOff || (message.kind() == kNoteOn && message.second == 0);
        button.setPlayed(!isNote || !isOff);
        if (output && output->isTravel && output->low != output->high)
            button.setTravel(std::clamp(static_cast<qreal>(message.second - output->low) /
                                            (output->high - output->low),
                                        0.0, 1.0));
        if (isNote) {
            sounding_.insert(control);
            continue;
        }
        lit_.insert(control);
        dark_.start(kLitFor);
    }
}

// Ties are gone through in turn: the one after the chosen control is next.
void MonitorStrip::chooseSender(const MidiMessage& message) {
    const bool isController = message.kind() == kController;
    if ((!isController && (message.kind() != kNoteOn || message.second == 0)) || isPopUpOpen())
        return;
    const bool isRest = isController && message.status == touch_.status &&
                        message.first == touch_.first &&
                        !touched_.hasExpired(TryRun::kPause.count());
    touch_ = message;
    touched_.start();
    const SceneValue& scene = *window_.view().sceneValue();
    auto senders = controlsSending(scene, message);
    std::erase_if(senders, [&](std::int32_t control) { // a pad that is let go
        const ControlOutput output = *controlOutput(scene, control);
        return isController && !output.isTravel && output.behavior == Behavior::Momentary &&
               message.second != output.high;
    });
    if (isRest || senders.empty())
        return;
    const std::int32_t chosen = window_.view().selectControl();
    const auto next = std::ranges::upper_bound(senders, chosen);
    window_.showControl(window_.view().sceneIndex(),
                        next == senders.end() ? senders.front() : *next);
}

void MonitorStrip::copy() const {
    QStringList lines;
    for (int row = 0; row < filtered_.rowCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < MonitorLines::kColumns; ++column)
            texts.append(filtered_.index(row, column).data().toString());
        lines.append(texts.join(QLatin1Char('\t')));
    }
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

} // namespace scenewright
