// The window and MIDI ports: what the keyboards send, what can be played into, and others'
// connections with the keyboard. The window outlives them. Main thread only.
#pragma once

#include "app/KeyboardPorts.h"
#include "app/ScenePlayer.h"
#include "editor/qt/MainWindow.h"

#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace scenewright {

// What the keyboards send, for whatever of the window wants to know it. The sequencer is open as
// long as anything does.
class KeyboardInput final : public QObject {
    Q_OBJECT

public:
    using Open = std::function<Result<std::unique_ptr<Sequencer>>()>;

    // Of the machine's sequencer and its keyboards, until it is told others.
    explicit KeyboardInput(MainWindow& window);

    // Before anything listens.
    void use(Open open, KeyboardConnections::Keyboards keyboards);
    void listenTo(KeyboardConnections::Keyboards keyboards) { keyboards_ = std::move(keyboards); }
    // Others of them may be the ones to listen to, and the former ones are not.
    void listenAnew();

    // False, and a notice says why, where nothing can be listened to.
    [[nodiscard]] bool listenFor(const QObject& who);
    void endFor(const QObject& who);

    // Which ports are listened to, or why one is not; empty while nothing is.
    [[nodiscard]] QString sentence() const;
    // Takes what has come in, as it does by itself when something has.
    void take();

signals:
    // In order, as many at once as have come in.
    void came(const std::vector<scenewright::MidiMessage>& messages);
    // The sentence is another.
    void told(const QString& sentence);

private:
    [[nodiscard]] bool open();
    void close();
    void tell(const QString& sentence);
    void refuse(const QString& reason);

    MainWindow& window_;
    Open open_;
    KeyboardConnections::Keyboards keyboards_;
    std::set<const QObject*> wanting_;
    QString sentence_; // as it follows a name or a colon
    std::unique_ptr<Sequencer> sequencer_;
    std::unique_ptr<KeyboardListener> listener_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

// Calls `slot` of `receiver`, as long as it is kept, when the descriptor can be read; null for -1.
template <typename Receiver, typename Slot>
[[nodiscard]] std::unique_ptr<QSocketNotifier> whenReadable(int descriptor, Receiver* receiver,
                                                            Slot slot) {
    if (descriptor < 0)
        return nullptr;
    auto notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, receiver, slot);
    return notifier;
}

// From here on what the virtual controller sends comes in.
void listenToVirtual(KeyboardInput& input);

// What is played into, and the scenes that are played.
class PlayOutput {
public:
    PlayOutput() = default;
    Q_DISABLE_COPY_MOVE(PlayOutput)
    virtual ~PlayOutput() = default;

    // As they are now.
    [[nodiscard]] virtual BankImage bank() = 0;
    // The error is one sentence.
    virtual Result<void> send(const MidiMessage& message) = 0;
    // "Playing scene 2 into ...".
    [[nodiscard]] virtual QString sentence(std::int32_t scene) const = 0;
    // To be waited on for reading, and then process() called; -1 where nothing is to be awaited.
    [[nodiscard]] virtual int descriptor() const { return -1; }
    // Whether what sounds is to end, because who heard its beginning has gone.
    virtual bool process() { return false; }
};

// A port of ours that other programs connect to; what is played are the scenes of the window.
[[nodiscard]] Result<std::unique_ptr<PlayOutput>>
openPlayPort(const KeyboardInput::Open& open = &PlayPort::openMachines);

// The virtual controller, and the scenes that it holds.
[[nodiscard]] std::unique_ptr<PlayOutput> makeVirtualOutput();

// Keeps others' connections with the keyboard's MIDI port across transactions and unplugs, and says
// once that they are interrupted.
class ConnectionKeeper final : public QObject {
    Q_OBJECT

public:
    ConnectionKeeper(MainWindow& window, KeyboardConnections connections);
    // Waits a moment for what is not made again yet.
    ~ConnectionKeeper() override;
    Q_DISABLE_COPY_MOVE(ConnectionKeeper)

private:
    void beforeTransaction();

    MainWindow& window_;
    KeyboardConnections connections_;
    std::unique_ptr<QSocketNotifier> notifier_;
    bool isTold_ = false;
};

} // namespace scenewright
