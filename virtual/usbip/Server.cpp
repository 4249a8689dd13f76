#include "virtual/usbip/Server.h"

#include "virtual/usbip/Vhci.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <span>
#include <string_view>
#include <sys/signalfd.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

namespace scenewright::usbip {

namespace {

constexpr std::size_t kMaxConnections = 16;
constexpr int kPortAttempts = 100;
constexpr std::chrono::milliseconds kPortPause{20};
// The fixed places of the poll set; connections follow.
constexpr std::size_t kSignalPlace = 0;
constexpr std::size_t kListenerPlace = 1;
constexpr std::size_t kOrdersPlace = 2;
constexpr std::size_t kFixedPlaces = 3;

sigset_t serverSignals() {
    sigset_t signals{};
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGUSR1})
        sigaddset(&signals, signal);
    return signals;
}

} // namespace

void blockServerSignals() {
    const sigset_t signals = serverSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

Server::Server(Exported& exported, LineSink log) : exported_(exported), log_(std::move(log)) {
    const sigset_t signals = serverSignals();
    signals_ = FileDescriptor(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

std::optional<std::string> Server::listen(std::string_view address) {
    if (auto trouble = listener_.listen(address))
        return trouble;
    log_(fmt::format("listening at {}", listener_.address()));
    return std::nullopt;
}

std::optional<std::string> Server::attach(std::uint32_t vhciPort) {
    VhciConnection made = attachToKernel(vhciPort, deviceNumberOf(recordOf(exported_.identity)));
    if (!made.socket.isOpen())
        return made.trouble;
    vhciPort_ = vhciPort;
    connections_.emplace_back(std::move(made.socket), exported_, Session::Start::Attached);
    log_(fmt::format("plugged into port {}", vhciPort));
    return std::nullopt;
}

std::optional<std::string> Server::run() {
    for (;;) {
        std::vector<pollfd> set = pollSet();
        if (::poll(set.data(), set.size(), -1) < 0 && errno != EINTR)
            return fmt::format("cannot wait for connections: {}",
                               std::generic_category().message(errno));
        if (set[kSignalPlace].revents != 0 && !takeSignal())
            break;
        serveConnections(std::span(set).subspan(kFixedPlaces));
        if (set[kListenerPlace].revents != 0)
            acceptConnections();
        if (set[kOrdersPlace].revents != 0)
            for (const std::string& line : orders_.take())
                obey(line);
    }
    connections_.clear();
    return std::nullopt;
}

std::vector<pollfd> Server::pollSet() {
    std::vector<pollfd> set{{signals_.get(), POLLIN, 0},
                            {listener_.descriptor(), POLLIN, 0},
                            {orders_.descriptor(), POLLIN, 0}};
    for (Connection& connection : connections_)
        set.push_back({connection.descriptor(), connection.events(), 0});
    return set;
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
    if (session.state() == Session::State::Malformed)
        log_(fmt::format("dropped a connection: {}", session.trouble()));
    else if (session.state() == Session::State::Unplugged)
        log_("unplugged");
    else if (session.isAttached())
        log_("detached by its host");
    connections_.erase(connection);
}

void Server::acceptConnections() {
    for (auto socket = listener_.accept(); socket.isOpen(); socket = listener_.accept()) {
        makeRoom();
        connections_.emplace_back(std::move(socket), exported_, Session::Start::Asking);
    }
}

// The oldest of those that only ask has had its time.
void Server::makeRoom() {
    if (connections_.size() < kMaxConnections)
        return;
    const auto oldest =
        std::find_if(connections_.begin(), connections_.end(),
                     [](const Connection& each) { return !each.session().isAttached(); });
    log_("dropped a connection: there are too many");
    connections_.erase(oldest);
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
    } else if (exported_.isTaken) {
        log_("nothing to plug in: the controller is plugged in");
    } else if (const auto trouble = attachAgain()) {
        log_(*trouble);
    }
}

void Server::unplug() {
    const auto attached = std::ranges::find_if(
        connections_, [](const Connection& each) { return each.session().isAttached(); });
    if (attached == connections_.end()) {
        log_("nothing to unplug: the controller is not plugged in");
        return;
    }
    connections_.erase(attached);
    log_("unplugged");
}

void Server::obey(const std::string& line) {
    std::string trouble;
    const auto order = parseOrder(line, trouble);
    if (!order) {
        log_(trouble);
        return;
    }
    switch (order->kind) {
    case Order::Kind::Faults:
        exported_.controller.order(order->faults);
        log_(fmt::format("{} faults ordered", order->faults.size()));
        break;
    case Order::Kind::Unplug:
        unplug();
        break;
    case Order::Kind::Plug:
        plugInAgain();
        break;
    }
}

// After an unplug the kernel takes a moment to free the port.
std::optional<std::string> Server::attachAgain() {
    auto trouble = attach(*vhciPort_);
    for (int attempt = 1; trouble && attempt < kPortAttempts; ++attempt) {
        std::this_thread::sleep_for(kPortPause);
        trouble = attach(*vhciPort_);
    }
    return trouble;
}

} // namespace scenewright::usbip
