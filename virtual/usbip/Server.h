// Serves the virtual controller to hosts: over TCP, or to this machine's kernel.
//
// A loop over poll(), on the thread that calls run(), which never waits anywhere else. A connection
// that says something malformed or takes no answers is logged and dropped, and the others go on.
// There are as many connections as the limit of descriptors allows with some to spare, at most 16;
// then each new one takes the place of the oldest that only asks. SIGUSR1 plugs the controller into
// the kernel again after an unplug; SIGINT, SIGTERM and SIGHUP end the loop. The signals must be
// blocked in every thread (blockServerSignals) before the server is made.
#pragma once

#include "platform/Process.h"
#include "platform/Text.h"
#include "virtual/VirtualController.h"
#include "virtual/usbip/Session.h"
#include "virtual/usbip/Sockets.h"

#include <chrono>
#include <cstdint>
#include <list>
#include <optional>
#include <poll.h>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright::usbip {

void blockServerSignals();

// What is done to the controller while it runs, said in lines of text: "faults KIND:N ..." (in
// place of those there are; none after the word ends them), "unplug", "plug", and what
// parsePlayOrder() reads.
struct ServerCommand {
    enum class Kind : std::uint8_t { Faults, Unplug, Plug, Play };
    Kind kind = Kind::Faults;
    FaultPlan faults{};
    PlayOrder play{};
    friend bool operator==(const ServerCommand&, const ServerCommand&) = default;
};

[[nodiscard]] Result<ServerCommand> parseCommand(std::string_view line);

class Server {
public:
    // `state` must outlive the server. `log` gets a line for each thing worth knowing.
    Server(ServerState& state, LineSink log);

    // One of the two, before run().
    [[nodiscard]] Result<void> listen(std::string_view address);
    [[nodiscard]] Result<void> attach(std::uint32_t vhciPort);

    // Executes what the lines of this descriptor say (parseCommand), and logs what it did. Before
    // run(); the descriptor stays the caller's.
    void takeCommands(int descriptor) { commands_ = LineReader(descriptor); }

    // Until a signal ends it; every connection is closed then.
    [[nodiscard]] Result<void> run();

private:
    using Connections = std::list<Connection>;

    [[nodiscard]] std::vector<pollfd> pollSet();
    [[nodiscard]] int pollTimeout() const; // milliseconds, -1 for none
    void serveConnections(std::span<const pollfd> set);
    void end(Connections::iterator connection);
    // The oldest that has the controller, or that only asks; the end when there is none.
    Connections::iterator find(bool isAttached);
    void acceptConnections();
    void acceptFailed(int error);
    // False when every connection has the controller.
    bool dropOldestAsking();
    // False when the signal is to end the server.
    bool takeSignal();
    void plugInAgain();
    void tryPlugIn();
    void unplug();
    void execute(const Result<ServerCommand>& command);
    void play(const PlayOrder& order);
    // False when nobody listens.
    bool put(const Playing::Messages& messages);

    // The kernel takes a moment to free its port after an unplug.
    struct PlugIn {
        int attemptsLeft;
        Moment next;
    };

    ServerState& state_;
    LineSink log_;
    FileDescriptor signals_;
    Listener listener_;
    std::optional<Moment> listenAgain_; // until then no connection can be accepted
    LineReader commands_;
    std::optional<std::uint32_t> vhciPort_;
    std::optional<PlugIn> plugIn_;
    std::size_t maxConnections_;
    bool isCrowdLogged_ = false;
    Connections connections_;
};

} // namespace scenewright::usbip
