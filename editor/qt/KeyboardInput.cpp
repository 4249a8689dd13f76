#include "editor/qt/KeyboardInput.h"

#include "editor/qt/QtHelpers.h"

#include <utility>

namespace scenewright {

KeyboardInput::KeyboardInput(MainWindow& window)
    : QObject(&window), window_(window), open_([] { return openSequencer("Scenewright monitor"); }),
      keyboards_(&soundKeyboards) {}

void KeyboardInput::use(Open open, KeyboardConnections::Keyboards keyboards) {
    open_ = std::move(open);
    keyboards_ = std::move(keyboards);
}

bool KeyboardInput::listenFor(const QObject& who) {
    if (sequencer_ == nullptr && !open())
        return false;
    wanting_.insert(&who);
    return true;
}

void KeyboardInput::refuse(const QString& reason) {
    window_.notices().post(
        {.source = Notice::Source::Midi,
         .text = tr("The keyboard's port cannot be listened to: %1").arg(reason)});
}

void KeyboardInput::endFor(const QObject& who) {
    if (wanting_.erase(&who) == 0 || !wanting_.empty())
        return;
    close();
    tell({});
}

void KeyboardInput::listenAnew() {
    if (sequencer_ == nullptr)
        return;
    close();
    if (!open())
        tell({});
}

bool KeyboardInput::open() {
    auto opened = open_();
    if (!opened) {
        refuse(shown(opened.error()));
        return false;
    }
    sequencer_ = std::move(*opened);
    listener_ = std::make_unique<KeyboardListener>(
        *sequencer_, keyboards_, [this](const std::string& sentence) { tell(shown(sentence)); });
    if (sequencer_->descriptor() >= 0) {
        notifier_ =
            std::make_unique<QSocketNotifier>(sequencer_->descriptor(), QSocketNotifier::Read);
        connect(notifier_.get(), &QSocketNotifier::activated, this, &KeyboardInput::take);
    }
    if (!listener_->start())
        refuse(sentence_);
    return true;
}

void KeyboardInput::close() {
    if (notifier_) { // it may be what has led here
        notifier_->setEnabled(false);
        notifier_.release()->deleteLater();
    }
    listener_.reset();
    sequencer_.reset();
}

void KeyboardInput::take() {
    if (listener_ == nullptr)
        return;
    if (const auto messages = listener_->take(); !messages.empty())
        emit came(messages);
}

void KeyboardInput::tell(const QString& sentence) {
    sentence_ = sentence;
    emit told(this->sentence());
}

QString KeyboardInput::sentence() const {
    return sentence_.left(1).toUpper() + sentence_.mid(1);
}

} // namespace scenewright
