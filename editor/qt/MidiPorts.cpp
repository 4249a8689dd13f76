#include "editor/qt/MidiPorts.h"

#include "app/DeviceSession.h"
#include "app/ScenePlayer.h"
#include "editor/qt/PlayBar.h"
#include "editor/qt/QtHelpers.h"

#include <QStringList>

#include <cstdint>
#include <utility>

namespace scenewright {

namespace {

class PortOutput final : public PlayOutput {
public:
    explicit PortOutput(std::unique_ptr<Sequencer> sequencer) : port_(std::move(sequencer)) {}

    [[nodiscard]] BankImage bank() override { return storedImage(); }
    Result<void> send(const MidiMessage& message) override { return port_.send(message); }
    [[nodiscard]] QString sentence(std::int32_t scene) const override {
        QStringList names;
        for (const std::string& name : port_.listeners())
            names.append(shown(name));
        const QString port =
            QStringLiteral("%1 (%2)").arg(QLatin1String(PlayPort::kName), shown(port_.address()));
        return names.isEmpty() ? PlayBar::tr("Playing scene %1: connect a program to the port %2")
                                     .arg(scene)
                                     .arg(port)
                               : PlayBar::tr("Playing scene %1 into %3, through the port %2")
                                     .arg(scene)
                                     .arg(port, names.join(QLatin1String(", ")));
    }
    [[nodiscard]] int descriptor() const override { return port_.descriptor(); }
    bool process() override { return port_.process(); }

private:
    PlayPort port_;
};

class VirtualOutput final : public PlayOutput {
public:
    [[nodiscard]] BankImage bank() override { return VirtualPort::bank(); }
    Result<void> send(const MidiMessage& message) override {
        VirtualPort::play(message);
        return {};
    }
    [[nodiscard]] QString sentence(std::int32_t scene) const override {
        return PlayBar::tr("Playing scene %1 as the virtual controller holds it").arg(scene);
    }
};

} // namespace

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
    notifier_ = whenReadable(sequencer_->descriptor(), this, &KeyboardInput::take);
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

Result<std::unique_ptr<PlayOutput>> openPlayPort(const KeyboardInput::Open& open) {
    auto opened = open();
    if (!opened)
        return failure(opened.error());
    return std::make_unique<PortOutput>(std::move(*opened));
}

std::unique_ptr<PlayOutput> makeVirtualOutput() {
    return std::make_unique<VirtualOutput>();
}

void listenToVirtual(KeyboardInput& input) {
    const auto ready = [&input] {
        QMetaObject::invokeMethod(&input, &KeyboardInput::take, Qt::QueuedConnection);
    };
    input.use([ready] { return VirtualPort::listen(ready); }, &VirtualPort::keyboards);
}

ConnectionKeeper::ConnectionKeeper(MainWindow& window, KeyboardConnections connections)
    : window_(window), connections_(std::move(connections)) {
    DeviceSession::setAround([this] { beforeTransaction(); },
                             [this] { connections_.afterTransaction(); });
    notifier_ = whenReadable(connections_.descriptor(), this, [this] { connections_.process(); });
}

ConnectionKeeper::~ConnectionKeeper() {
    DeviceSession::setAround({}, {});
    connections_.restore(KeyboardConnections::kLimit);
}

void ConnectionKeeper::beforeTransaction() {
    connections_.beforeTransaction();
    if (connections_.count() == 0 || std::exchange(isTold_, true))
        return;
    window_.notices().post(
        {.source = Notice::Source::Midi,
         .kind = Notice::Kind::Done,
         .text = tr("Programs that are connected to the keyboard's MIDI port hear "
                    "nothing for a second; then they are connected again.")});
    window_.repaint(); // a read blocks the window from here on
}

} // namespace scenewright
