// Serves the virtual controller to hosts: over TCP, or to this machine's kernel.
//
// A loop over poll(), on the thread that calls run(). A connection that says something malformed is
// logged and dropped, and the others go on. SIGUSR1 plugs the controller into the kernel again
// after an unplug; SIGINT and SIGTERM end the loop. The signals must be blocked in every thread
// (blockServerSignals) before the server is made.
#pragma once

#include "virtual/usbip/Connection.h"
#include "virtual/usbip/Listener.h"
#include "virtual/usbip/Orders.h"

#include <list>
#include <optional>
#include <poll.h>
#include <span>

namespace scenewright::usbip {

void blockServerSignals();

class Server {
public:
    // `exported` must outlive the server. `log` gets a line for each thing worth knowing.
    Server(Exported& exported, LineSink log);

    // One of the two, before run(). Nothing, or one sentence.
    [[nodiscard]] std::optional<std::string> listen(std::string_view address);
    [[nodiscard]] std::optional<std::string> attach(std::uint32_t vhciPort);

    // Does what the lines of this descriptor say (Orders.h), and logs what it did. Before run();
    // the descriptor stays the caller's.
    void takeOrders(int descriptor) { orders_ = OrderLines(descriptor); }

    // Until a signal ends it; every connection is closed then. Nothing, or one sentence.
    [[nodiscard]] std::optional<std::string> run();

private:
    using Connections = std::list<Connection>;

    [[nodiscard]] std::vector<pollfd> pollSet();
    void serveConnections(std::span<const pollfd> set);
    void end(Connections::iterator connection);
    void acceptConnections();
    void makeRoom();
    // False when the signal is to end the server.
    bool takeSignal();
    void plugInAgain();
    void unplug();
    void obey(const std::string& line);
    [[nodiscard]] std::optional<std::string> attachAgain();

    Exported& exported_;
    LineSink log_;
    FileDescriptor signals_;
    Listener listener_;
    OrderLines orders_;
    std::optional<std::uint32_t> vhciPort_;
    Connections connections_;
};

} // namespace scenewright::usbip
