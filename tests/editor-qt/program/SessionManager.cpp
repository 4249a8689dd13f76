#include "tests/editor-qt/program/SessionManager.h"

#include <gtest/gtest.h>

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>
#include <cstdlib>
#include <functional>
#include <span>
#include <utility>

namespace scenewright::testing {

namespace {

SessionManager& managerOf(SmPointer data) {
    return *static_cast<SessionManager*>(data);
}

int allow(char* /*host*/) {
    return True;
}

int registerClient(SmsConn client, SmPointer data, char* formerId) {
    std::free(formerId);
    const std::unique_ptr<char, decltype(&std::free)> id(SmsGenerateClientID(client), &std::free);
    SmsRegisterClientReply(client, id.get());
    managerOf(data).setClient(client);
    return True;
}

void setSaved(SmsConn /*client*/, SmPointer data, int /*isDone*/) {
    managerOf(data).setSaved();
}

void freeProperties(SmsConn /*client*/, SmPointer /*data*/, int count, SmProp** properties) {
    for (SmProp* property : std::span(properties, static_cast<std::size_t>(count)))
        SmFreeProperty(property);
    std::free(properties);
}

void freeTexts(SmsConn /*client*/, SmPointer /*data*/, int count, char** texts) {
    SmFreeReasons(count, texts);
}

void closeClient(SmsConn client, SmPointer data, int count, char** reasons) {
    freeTexts(client, data, count, reasons);
    managerOf(data).closeClient();
}

// The rest is received, as a manager must, and changes nothing.
int addClient(SmsConn /*client*/, SmPointer data, unsigned long* mask, SmsCallbacks* calls,
              char** /*why*/) {
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    *calls = {};
    calls->register_client = {&registerClient, data};
    calls->save_yourself_done = {&setSaved, data};
    calls->interact_request.callback = [](SmsConn, SmPointer, int) {};
    calls->interact_done.callback = [](SmsConn, SmPointer, int) {};
    calls->save_yourself_request.callback = [](SmsConn, SmPointer, int, int, int, int, int) {};
    calls->save_yourself_phase2_request.callback = [](SmsConn, SmPointer) {};
    calls->close_connection = {&closeClient, data};
    calls->set_properties.callback = &freeProperties;
    calls->delete_properties.callback = &freeTexts;
    calls->get_properties.callback = [](SmsConn, SmPointer) {};
    return True;
}

} // namespace

SessionManager::SessionManager() {
    IceSetIOErrorHandler([](IceConn) {}); // a client that is killed
    EXPECT_EQ(SmsInitialize("scenewright", "1", &addClient, this, &allow, 0, nullptr), True);
    EXPECT_EQ(IceListenForConnections(&places_, &listening_, 0, nullptr), True);
    const std::unique_ptr<char, decltype(&std::free)> names(
        IceComposeNetworkIdList(places_, listening_), &std::free);
    variable_ = names.get();
    for (IceListenObj place : std::span(listening_, static_cast<std::size_t>(places_))) {
        IceSetHostBasedAuthProc(place, &allow);
        follow(IceGetListenConnectionNumber(place), [this, place] {
            IceAcceptStatus status{};
            if (const IceConn client = IceAcceptConnection(place, &status))
                follow(IceConnectionNumber(client), [this, client] {
                    const auto received = IceProcessMessages(client, nullptr, nullptr);
                    if (received == IceProcessMessagesIOError)
                        closeClient();
                    return received == IceProcessMessagesSuccess;
                });
            return true;
        });
    }
}

SessionManager::~SessionManager() {
    sockets_.clear();
    closeClient();
    IceFreeListenObjs(places_, listening_);
}

void SessionManager::follow(int descriptor, const std::function<bool()>& read) {
    auto& socket = *sockets_.emplace_back(
        std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read));
    QObject::connect(&socket, &QSocketNotifier::activated, &socket,
                     [&socket, read] { socket.setEnabled(read()); });
}

void SessionManager::closeClient() {
    if (client_ == nullptr)
        return;
    const IceConn connection = SmsGetIceConnection(client_);
    SmsCleanUp(std::exchange(client_, nullptr));
    IceSetShutdownNegotiation(connection, False);
    IceCloseConnection(connection);
}

void SessionManager::endSession() {
    SmsSaveYourself(client_, SmSaveBoth, True, SmInteractStyleNone, True);
    IceFlush(SmsGetIceConnection(client_));
}

} // namespace scenewright::testing
