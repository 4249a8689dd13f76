#include "editor/qt/PlayBar.h"

#include "editor/qt/QtHelpers.h"
#include "editor/qt/StripPlace.h"
#include "model/SceneValue.h"

#include <QApplication>
#include <QGridLayout>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <utility>

namespace scenewright {

namespace {

constexpr qreal kWholeTravel = 127;
constexpr qreal kTravelStep = 4 / kWholeTravel; // of a key
constexpr int kVelocityStep = 20;
constexpr int kLargestVelocity = 127;
constexpr std::int32_t kOctave = 12; // semitones
// X tells of a held key now and then that it was let go of and pressed at the same time. The second
// may come later than the first.
constexpr std::chrono::milliseconds kRepeatGap{20};

enum class Part { Note, Pad, Octave, Velocity, Travel };

// A key by its place on the keyboard, so that a row is a row whatever the layout is; by its letter
// on a layout for English where a system tells no place that is known here.
struct ComputerKey {
    std::uint32_t place; // the kernel's key code and 8, as X and Wayland tell it
    int letter;
    Part part;
    std::int32_t number; // semitones or pads from the first, or steps
};
// The middle row of letters has the white keys, the row above it the black ones.
constexpr std::array kKeys{
    ComputerKey{38, Qt::Key_A, Part::Note, 0},
    ComputerKey{25, Qt::Key_W, Part::Note, 1},
    ComputerKey{39, Qt::Key_S, Part::Note, 2},
    ComputerKey{26, Qt::Key_E, Part::Note, 3},
    ComputerKey{40, Qt::Key_D, Part::Note, 4},
    ComputerKey{41, Qt::Key_F, Part::Note, 5},
    ComputerKey{28, Qt::Key_T, Part::Note, 6},
    ComputerKey{42, Qt::Key_G, Part::Note, 7},
    ComputerKey{29, Qt::Key_Y, Part::Note, 8},
    ComputerKey{43, Qt::Key_H, Part::Note, 9},
    ComputerKey{30, Qt::Key_U, Part::Note, 10},
    ComputerKey{44, Qt::Key_J, Part::Note, 11},
    ComputerKey{45, Qt::Key_K, Part::Note, 12},
    ComputerKey{32, Qt::Key_O, Part::Note, 13},
    ComputerKey{46, Qt::Key_L, Part::Note, 14},
    ComputerKey{33, Qt::Key_P, Part::Note, 15},
    ComputerKey{47, Qt::Key_Semicolon, Part::Note, 16},
    ComputerKey{48, Qt::Key_Apostrophe, Part::Note, 17},
    ComputerKey{10, Qt::Key_1, Part::Pad, 0},
    ComputerKey{11, Qt::Key_2, Part::Pad, 1},
    ComputerKey{12, Qt::Key_3, Part::Pad, 2},
    ComputerKey{13, Qt::Key_4, Part::Pad, 3},
    ComputerKey{14, Qt::Key_5, Part::Pad, 4},
    ComputerKey{15, Qt::Key_6, Part::Pad, 5},
    ComputerKey{16, Qt::Key_7, Part::Pad, 6},
    ComputerKey{17, Qt::Key_8, Part::Pad, 7},
    ComputerKey{52, Qt::Key_Z, Part::Octave, 0},
    ComputerKey{53, Qt::Key_X, Part::Octave, 1},
    ComputerKey{54, Qt::Key_C, Part::Velocity, -1},
    ComputerKey{55, Qt::Key_V, Part::Velocity, 1},
    ComputerKey{20, Qt::Key_Minus, Part::Travel, -1},
    ComputerKey{21, Qt::Key_Equal, Part::Travel, 1},
};

const ComputerKey* computerKey(const QKeyEvent& event) {
    const auto* found = std::ranges::find(kKeys, event.nativeScanCode(), &ComputerKey::place);
    if (found == kKeys.end())
        found = std::ranges::find(kKeys, event.key(), &ComputerKey::letter);
    return found == kKeys.end() ? nullptr : found;
}

// What stays the same until the key is let go of.
std::uint32_t identityOf(const QKeyEvent& event) {
    return event.nativeScanCode() != 0 ? event.nativeScanCode()
                                       : static_cast<std::uint32_t>(event.key());
}

bool isPlain(const QKeyEvent& event) {
    return !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

} // namespace

PlayBar::PlayBar(MainWindow& window) : QFrame(&window), window_(window) {
    using Kind = PlayOrder::Kind;
    setProperty("panel", true);
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(tr("Playing"));
    hide();
    for (std::int32_t control = 1; control < kControlIndexEnd; ++control) {
        const ControlButton* const button = window.picture().button(control);
        connect(button, &QAbstractButton::pressed, this,
                [this, control] { play(Kind::Press, control, velocity_); });
        connect(button, &QAbstractButton::released, this,
                [this, control] { play(Kind::Release, control); });
        connect(button, &ControlButton::turned, this,
                [this, control](qreal share) { turn(control, share); });
    }
    released_.setSingleShot(true);
    connect(&released_, &QTimer::timeout, this, &PlayBar::playReleased);
    connect(&window, &MainWindow::refreshed, this, &PlayBar::follow);
    connect(&window.commands(), &DeviceCommands::started, this, &PlayBar::releaseAll);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (!takesKeys(now))
            releaseAll();
    });
}

PlayBar::~PlayBar() {
    stop();
}

QAction& PlayBar::add(const QString& title, Open open) {
    auto& action = makeChild<QAction>(title, this);
    action.setCheckable(true);
    connect(&action, &QAction::toggled, this, [this, &action, open = std::move(open)](bool isOn) {
        if (isOn)
            start(action, open);
        else if (action_ == &action)
            stop();
    });
    return action;
}

void PlayBar::layOut() {
    auto& room = makeChild<QGridLayout>(this);
    room.setContentsMargins(14, 4, 6, 4);
    where_ = &makeChild<SpokenText>(this);
    where_->setProperty("role", "heading");
    keys_ = &makeChild<SpokenText>(this);
    keys_->setProperty("role", "hint");
    last_ = &makeChild<NoticeText>(this);
    auto& end = makeButton(tr("Stop Playing"), this);
    end.setProperty("main", true);
    connect(&end, &QPushButton::clicked, this, &PlayBar::stop);
    room.addWidget(where_, 0, 0);
    room.addWidget(keys_, 1, 0);
    room.addWidget(last_, 2, 0);
    room.addWidget(&end, 0, 1, 2, 1);
    room.setColumnStretch(0, 1);
    room.setRowStretch(3, 1);
}

void PlayBar::start(QAction& action, const Open& open) {
    stop();
    auto opened = open();
    if (!opened) {
        window_.notices().post(
            {.source = Notice::Source::Midi,
             .text = tr("The scene cannot be played: %1").arg(shown(opened.error()))});
        return action.setChecked(false);
    }
    if (where_ == nullptr)
        layOut();
    action_ = &action;
    output_ = std::move(*opened);
    player_ = std::make_unique<ScenePlayer>([this] { return output_->bank(); },
                                            [this](const MidiMessage& message) { send(message); });
    notifier_ = whenReadable(output_->descriptor(), this, &PlayBar::process);
    setPicturePlays(true);
    qApp->installEventFilter(this);
    last_->clear();
    scene_ = -1;
    window_.strips().open(*this);
    follow();
    window_.picture().takeKeyboard();
}

void PlayBar::stop() {
    QAction* const action = std::exchange(action_, nullptr);
    if (action == nullptr)
        return;
    qApp->removeEventFilter(this);
    releaseAll();
    notifier_.reset();
    player_.reset();
    output_.reset();
    setPicturePlays(false);
    window_.strips().close(*this);
    action->setChecked(false);
}

void PlayBar::setPicturePlays(bool plays) {
    for (std::int32_t control = 1; control < kControlIndexEnd; ++control)
        window_.picture().button(control)->setPlays(plays);
}

// The scene that is shown is the one that is played.
void PlayBar::follow() {
    if (player_ == nullptr || scene_ == window_.view().sceneIndex())
        return;
    releaseAll();
    scene_ = window_.view().sceneIndex();
    player_->play({.kind = PlayOrder::Kind::Scene, .number = scene_ + 1});
    showState();
}

void PlayBar::process() {
    if (output_->process())
        releaseAll();
    showState();
}

void PlayBar::releaseAll() {
    if (player_ == nullptr)
        return;
    player_->releaseAll();
    held_.clear();
    for (std::int32_t control = 1; control < kControlIndexEnd; ++control)
        window_.picture().button(control)->setPlayed(false);
}

void PlayBar::play(PlayOrder::Kind kind, std::int32_t control, int value) {
    if (player_ == nullptr)
        return;
    player_->play({.kind = kind, .number = control, .value = static_cast<std::uint8_t>(value)});
    if (kind != PlayOrder::Kind::Turn)
        window_.picture().button(control)->setPlayed(kind == PlayOrder::Kind::Press);
}

void PlayBar::turn(std::int32_t control, qreal share) {
    if (player_ == nullptr)
        return;
    ControlButton& button = *window_.picture().button(control);
    const qreal former = button.travel().value_or(0);
    const qreal travel = std::clamp(former + share, 0.0, 1.0);
    button.setTravel(travel);
    if (const auto place = std::lround(travel * kWholeTravel);
        place != std::lround(former * kWholeTravel))
        play(PlayOrder::Kind::Turn, control, static_cast<int>(place));
}

void PlayBar::send(const MidiMessage& message) {
    const auto sent = output_->send(message);
    const auto lists = window_.view().pu();
    last_->setText(
        shown(sent ? messageText(message, lists ? lists->pad_NoteNumber_Array() : Titles())
                   : sent.error()));
    last_->setToolTip(last_->text());
}

bool PlayBar::eventFilter(QObject* watched, QEvent* event) {
    const auto* const key = dynamic_cast<const QKeyEvent*>(event);
    if (watched == &window_ && event->type() == QEvent::WindowDeactivate)
        releaseAll();
    if (key == nullptr || !qobject_cast<QWidget*>(watched))
        return false;
    if (event->type() == QEvent::KeyRelease)
        return release(*key);
    if (!takesKeys(watched) || !isPlain(*key))
        return false;
    const bool isOurs = key->key() == Qt::Key_Escape || computerKey(*key) != nullptr;
    if (isOurs && event->type() == QEvent::ShortcutOverride)
        event->accept(); // no shortcut of the window's
    if (isOurs && event->type() == QEvent::KeyPress)
        press(*key);
    return isOurs;
}

// Those alone that do nothing with letters.
bool PlayBar::takesKeys(const QObject* watched) const {
    const auto* const widget = qobject_cast<const QWidget*>(watched);
    return widget != nullptr && widget->window() == &window_ &&
           (widget == &window_ || qobject_cast<const QAbstractButton*>(widget) != nullptr ||
            window_.picture().isAncestorOf(widget)) &&
           !isPopUpOpen();
}

void PlayBar::press(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape)
        return stop();
    const ComputerKey& key = *computerKey(event);
    switch (key.part) {
    case Part::Note:
    case Part::Pad: {
        const ControlRange& range =
            controlRange(key.part == Part::Pad ? ControlKind::Pad : ControlKind::Key);
        const std::int32_t control =
            range.start + key.number + (key.part == Part::Pad ? 0 : octave_ * kOctave);
        if (event.isAutoRepeat() || control >= range.end() || isStillHeld(event))
            return;
        held_[identityOf(event)] = {.control = control};
        return play(PlayOrder::Kind::Press, control, velocity_);
    }
    case Part::Octave:
        octave_ = key.number;
        break;
    case Part::Velocity:
        velocity_ = std::clamp(velocity_ + key.number * kVelocityStep, 1, kLargestVelocity);
        break;
    case Part::Travel:
        if (const auto* at = qobject_cast<ControlButton*>(window_.focusWidget());
            at != nullptr && (at->kind() == ControlKind::Knob || at->kind() == ControlKind::Slider))
            turn(at->tag(), key.number * kTravelStep);
        return;
    }
    showState();
}

bool PlayBar::isStillHeld(const QKeyEvent& event) {
    const auto held = held_.find(identityOf(event));
    if (held == held_.end())
        return false;
    if (held->second.releasedAt == 0 || held->second.releasedAt == event.timestamp()) {
        held->second.releasedAt = 0;
        return true;
    }
    playReleased();
    return false;
}

// Wherever the keyboard is by now.
bool PlayBar::release(const QKeyEvent& event) {
    const auto held = held_.find(identityOf(event));
    if (held == held_.end() || event.isAutoRepeat())
        return held != held_.end();
    held->second.releasedAt = std::max<std::uint64_t>(event.timestamp(), 1);
    if (event.timestamp() == 0) // the system tells no time
        playReleased();
    else if (!released_.isActive())
        released_.start(kRepeatGap);
    return true;
}

void PlayBar::playReleased() {
    std::erase_if(held_, [this](const auto& each) {
        if (each.second.releasedAt == 0)
            return false;
        play(PlayOrder::Kind::Release, each.second.control);
        return true;
    });
}

void PlayBar::showState() {
    where_->say(output_->sentence(scene_ + 1));
    keys_->say(tr("Rows from A and W: keys, octave %1 (Z, X)   1–8: pads   velocity %2 (C, V)   "
                  "−, =: knob or slider")
                   .arg(octave_ + 1)
                   .arg(velocity_));
}

} // namespace scenewright
