// A desktop's session manager with one client, over the protocol that a desktop on X has for it.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <vector>

using SessionClient = struct _SmsConn*;
using SessionSocket = struct _IceListenObj*;

namespace scenewright::testing {

// Works while the event loop runs. One in the process.
class SessionManager {
public:
    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;
    SessionManager(SessionManager&&) = delete;
    SessionManager& operator=(SessionManager&&) = delete;

    // The line of the environment by which a program finds it.
    [[nodiscard]] QByteArray variable() const { return variable_; }
    [[nodiscard]] bool hasClient() const { return client_ != nullptr; }
    // The user logs out, and the client may ask nothing.
    void endSession();
    // The client has said that it has saved what it has.
    [[nodiscard]] bool isSaved() const { return isSaved_; }

    // For the callbacks of the protocol.
    void setClient(SessionClient client) { client_ = client; }
    void closeClient();
    void setSaved() { isSaved_ = true; }

private:
    // Until `read` says that nothing more will come.
    void follow(int descriptor, const std::function<bool()>& read);

    int places_ = 0; // where clients may connect
    SessionSocket* listening_ = nullptr;
    QByteArray variable_;
    SessionClient client_ = nullptr;
    bool isSaved_ = false;
    std::vector<std::unique_ptr<QSocketNotifier>> sockets_;
};

} // namespace scenewright::testing
