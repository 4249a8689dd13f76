#include "virtual/usbip/Server.h"

#include "model/Midi.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <iterator>
#include <malloc.h>
#include <sstream>
#include <string_view>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <unistd.h>
#include <utility>

namespace scenewright::usbip {

namespace {

using std::chrono::milliseconds;

constexpr std::size_t kMaxConnections = 16;
constexpr std::size_t kMinConnections = 2; // one that has the controller and one that asks
// What the rest needs at most: three streams, signals, listener, trace, bank, the kernel's port.
constexpr std::size_t kOtherDescriptors = 14;
constexpr int kPortAttempts = 100;
constexpr milliseconds kPortPause{20};
constexpr milliseconds kListenPause{200}; // when the system has no room for a connection
constexpr milliseconds kNoTimeout = milliseconds::max();
constexpr milliseconds kSavingPause{100}; // in case that the end of a saving cannot be told
// The fixed places of the poll set; connections follow.
constexpr std::size_t kSignalPlace = 0;
constexpr std::size_t kListenerPlace = 1;
constexpr std::size_t kCommandsPlace = 2;
constexpr std::size_t kSaverPlace = 3;
constexpr std::size_t kFixedPlaces = 4;

// A hang-up ends the server unless whoever started it wants it to survive that (nohup).
sigset_t serverSignals() {
    sigset_t signals{};
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGUSR1})
        sigaddset(&signals, signal);
    struct sigaction hangUp {};
    if (::sigaction(SIGHUP, nullptr, &hangUp) == 0 && hangUp.sa_handler != SIG_IGN)
        sigaddset(&signals, SIGHUP);
    return signals;
}

std::size_t connectionLimit() {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 ||
        limit.rlim_cur >= kOtherDescriptors + kMaxConnections)
        return kMaxConnections;
    return std::max(kMinConnections + kOtherDescriptors, std::size_t{limit.rlim_cur}) -
           kOtherDescriptors;
}

Moment after(milliseconds time) {
    return std::chrono::steady_clock::now() + time;
}

bool isPast(Moment moment) {
    return std::chrono::steady_clock::now() >= moment;
}

} // namespace

void blockServerSignals() {
    const sigset_t signals = serverSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

Server::Server(ServerState& state, LineSink log)
    : state_(state), log_(std::move(log)), maxConnections_(connectionLimit()) {
    const sigset_t signals = serverSignals();
    signals_ = FileDescriptor(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

Result<void> Server::listen(std::string_view address) {
    if (auto listening = listener_.listen(address); !listening)
        return listening;
    log_(fmt::format("listening at {}", listener_.address()));
    return {};
}

Result<void> Server::attach(std::uint32_t vhciPort) {
    auto socket = attachToKernel(vhciPort, deviceNumberOf(recordOf(state_.identity)));
    if (!socket)
        return failure(std::move(socket.error()));
    vhciPort_ = vhciPort;
    connections_.emplace_back(std::move(*socket), state_, Session::Start::Attached);
    log_(fmt::format("plugged into port {}", vhciPort));
    return {};
}

Result<void> Server::run() {
    if (!signals_.isOpen())
        return failure("cannot wait for signals: too few descriptors");
    for (;;) {
        std::vector<pollfd> set = pollSet();
        if (::poll(set.data(), set.size(), pollTimeout()) < 0 && errno != EINTR)
            return failure(fmt::format("cannot wait for connections: {}", systemText()));
        if (set[kSignalPlace].revents != 0 && !takeSignal())
            break;
        if (set[kSaverPlace].revents != 0)
            state_.saver.acknowledge();
        serveConnections(std::span(set).subspan(kFixedPlaces));
        if (set[kListenerPlace].revents != 0)
            acceptConnections();
        if (set[kCommandsPlace].revents != 0)
            for (const Result<std::string>& line : commands_.take())
                execute(line.and_then(&parseCommand));
        if (plugIn_ && isPast(plugIn_->next))
            tryPlugIn();
        put(state_.playing.advance(state_.controller.bank(), std::chrono::steady_clock::now()));
    }
    connections_.clear();
    return {};
}

std::vector<pollfd> Server::pollSet() {
    if (listenAgain_ && isPast(*listenAgain_))
        listenAgain_.reset();
    std::vector<pollfd> set{{signals_.get(), POLLIN, 0},
                            {listenAgain_ ? -1 : listener_.descriptor(), POLLIN, 0},
                            {commands_.descriptor(), POLLIN, 0},
                            {state_.saver.descriptor(), POLLIN, 0}};
    for (Connection& connection : connections_)
        set.push_back(connection.place());
    return set;
}

int Server::pollTimeout() const {
    milliseconds timeout = kNoTimeout;
    if (listenAgain_)
        timeout = std::min(timeout, kListenPause);
    if (state_.saver.isSaving())
        timeout = std::min(timeout, kSavingPause);
    if (plugIn_)
        timeout = std::min(timeout, kPortPause);
    if (const auto next = state_.playing.next())
        timeout = std::min(
            timeout, std::max(milliseconds(0), std::chrono::ceil<milliseconds>(
                                                   *next - std::chrono::steady_clock::now())));
    return timeout == kNoTimeout ? -1 : static_cast<int>(timeout.count());
}

// The set has the connections in their order; ones made since have no place in it yet.
void Server::serveConnections(std::span<const pollfd> set) {
    auto connection = connections_.begin();
    for (const pollfd& place : set) {
        const auto next = std::next(connection);
        if (place.revents != 0 && !connection->serve(place.revents))
            end(connection);
        connection = next;
    }
}

void Server::end(Connections::iterator connection) {
    const Session& session = connection->session();
    if (session.state() == Session::State::Dropped)
        log_(fmt::format("dropped a connection: {}", session.error()));
    else if (session.state() == Session::State::Unplugged)
        log_("unplugged");
    else if (session.isAttached())
        log_("detached by its host");
    connections_.erase(connection);
    if (connections_.size() <= maxConnections_ / 2)
        isCrowdLogged_ = false;
    ::malloc_trim(0); // what a greedy client had is given back to the system
}

Server::Connections::iterator Server::find(bool isAttached) {
    return std::ranges::find(connections_, isAttached,
                             [](const Connection& each) { return each.session().isAttached(); });
}

// When there are too many, one a round: the others are served before the next has to go.
void Server::acceptConnections() {
    do {
        auto socket = listener_.accept();
        if (!socket)
            acceptFailed(socket.error());
        if (!socket || !socket->isOpen())
            return;
        if (connections_.size() >= maxConnections_ && !dropOldestAsking())
            return;
        connections_.emplace_back(std::move(*socket), state_, Session::Start::Asking);
    } while (connections_.size() < maxConnections_);
}

// A connection that ended while it waited is none; for the rest of them there is no room.
void Server::acceptFailed(int error) {
    static constexpr std::array kNoRoom{EMFILE, ENFILE, ENOBUFS, ENOMEM};
    if (std::ranges::find(kNoRoom, error) != kNoRoom.end() && !dropOldestAsking())
        listenAgain_ = after(kListenPause);
}

bool Server::dropOldestAsking() {
    const auto oldest = find(false);
    if (oldest == connections_.end())
        return false;
    if (!std::exchange(isCrowdLogged_, true))
        log_("dropped a connection: there are too many");
    connections_.erase(oldest);
    return true;
}

bool Server::takeSignal() {
    signalfd_siginfo info{};
    if (::read(signals_.get(), &info, sizeof info) != sizeof info)
        return true;
    if (info.ssi_signo != SIGUSR1)
        return false;
    plugInAgain();
    return true;
}

void Server::plugInAgain() {
    if (!vhciPort_) {
        log_("nothing to plug in: a host attaches the controller itself");
    } else if (state_.isTaken) {
        log_("nothing to plug in: the controller is plugged in");
    } else {
        plugIn_ = PlugIn{kPortAttempts, {}};
        tryPlugIn();
    }
}

void Server::tryPlugIn() {
    const auto attached = attach(*vhciPort_);
    plugIn_->next = after(kPortPause);
    if (attached || --plugIn_->attemptsLeft == 0)
        plugIn_.reset();
    if (!attached && !plugIn_)
        log_(attached.error());
}

void Server::unplug() {
    const auto attached = find(true);
    if (attached == connections_.end()) {
        log_("nothing to unplug: the controller is not plugged in");
        return;
    }
    connections_.erase(attached);
    log_("unplugged");
}

void Server::execute(const Result<ServerCommand>& command) {
    if (!command) {
        log_(command.error());
        return;
    }
    switch (command->kind) {
    case ServerCommand::Kind::Faults:
        state_.controller.order(command->faults);
        log_(fmt::format("{} faults ordered", command->faults.size()));
        break;
    case ServerCommand::Kind::Unplug:
        unplug();
        break;
    case ServerCommand::Kind::Plug:
        plugInAgain();
        break;
    case ServerCommand::Kind::Play:
        play(command->play);
        break;
    }
}

void Server::play(const PlayOrder& order) {
    const auto messages =
        state_.playing.take(order, state_.controller.bank(), std::chrono::steady_clock::now());
    if (order.kind == PlayOrder::Kind::Scene) {
        log_(fmt::format("plays scene {}", order.number));
    } else if (order.kind == PlayOrder::Kind::Slide) {
        log_("slides");
    } else {
        std::string played;
        for (const MidiMessage& message : messages)
            played += (played.empty() ? "" : "; ") + messageText(message, nullptr);
        log_(fmt::format("played {}{}", played.empty() ? "nothing" : played,
                         put(messages) ? "" : ", and nobody listens"));
    }
}

bool Server::put(const Playing::Messages& messages) {
    if (messages.empty())
        return true;
    std::vector<Packet> packets;
    std::ranges::transform(messages, std::back_inserter(packets), &packetOf);
    const auto attached = find(true);
    return attached != connections_.end() && attached->session().play(packets);
}

namespace {

constexpr std::string_view kCommands =
    "those are faults, unplug, plug, scene, press, release, turn and slide";

Result<ServerCommand> parseFaults(std::istream& words) {
    ServerCommand command;
    std::string word;
    while (words >> word) {
        const auto fault = parseFault(word);
        if (!fault)
            return failure(fault.error());
        command.faults.push_back(*fault);
    }
    return command;
}

} // namespace

Result<ServerCommand> parseCommand(std::string_view line) {
    std::istringstream words{std::string(line)};
    std::string verb;
    std::string rest;
    words >> verb;
    if (verb == "faults")
        return parseFaults(words);
    if (verb == "unplug" && !(words >> rest))
        return ServerCommand{.kind = ServerCommand::Kind::Unplug};
    if (verb == "plug" && !(words >> rest))
        return ServerCommand{.kind = ServerCommand::Kind::Plug};
    if (const auto order = parsePlayOrder(line))
        return order->map([](const PlayOrder& play) {
            return ServerCommand{.kind = ServerCommand::Kind::Play, .play = play};
        });
    return failure(fmt::format("'{}' is no order: {}", readableText(line), kCommands));
}

} // namespace scenewright::usbip
