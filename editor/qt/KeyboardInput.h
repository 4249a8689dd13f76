// What the keyboards send, for whatever of the window wants to know it. The sequencer is open as
// long as anything does.
#pragma once

#include "app/KeyboardPorts.h"
#include "editor/qt/MainWindow.h"

#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace scenewright {

// The window outlives it. Main thread only.
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

} // namespace scenewright
