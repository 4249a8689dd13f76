#include "virtual/usbip/Sockets.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>

namespace scenewright::usbip {

namespace {

struct HostAndPort {
    std::string host;
    std::string port;
};

std::optional<HostAndPort> split(std::string_view address) {
    const auto colon = address.rfind(':');
    if (colon == std::string_view::npos || colon == 0 || colon + 1 == address.size())
        return std::nullopt;
    std::string_view host = address.substr(0, colon);
    const bool isBracketed = host.size() > 2 && host.front() == '[' && host.back() == ']';
    if (isBracketed)
        host = host.substr(1, host.size() - 2);
    else if (host.find(':') != std::string_view::npos)
        return std::nullopt;
    // The resolver takes a port modulo 65536.
    const auto port = numberFrom<std::uint16_t>(address.substr(colon + 1));
    if (!port)
        return std::nullopt;
    return HostAndPort{std::string(host), std::to_string(*port)};
}

using Addresses = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

// Null when the text is no address in numbers.
Addresses resolve(std::string_view address) {
    const auto where = split(address);
    if (!where)
        return {nullptr, &freeaddrinfo};
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV | AI_PASSIVE;
    addrinfo* found = nullptr;
    if (getaddrinfo(where->host.c_str(), where->port.c_str(), &hints, &found) != 0)
        found = nullptr;
    return {found, &freeaddrinfo};
}

// A host that left without a word (its machine lost power, its network) is given up after two
// minutes, and so is one that is there and takes no answers.
constexpr int kIdleSeconds = 60;
constexpr int kProbeSeconds = 10;
constexpr int kProbes = 6;
constexpr int kUnsentMilliseconds = 120'000;
constexpr int kSendBuffer = 65536; // bytes that the system keeps for a client that takes nothing

struct SocketOption {
    int level;
    int name;
    int value;
};
constexpr std::array<SocketOption, 7> kConnectionOptions{{
    {IPPROTO_TCP, TCP_NODELAY, 1}, // answers are small and awaited
    {SOL_SOCKET, SO_KEEPALIVE, 1},
    {IPPROTO_TCP, TCP_KEEPIDLE, kIdleSeconds},
    {IPPROTO_TCP, TCP_KEEPINTVL, kProbeSeconds},
    {IPPROTO_TCP, TCP_KEEPCNT, kProbes},
    {IPPROTO_TCP, TCP_USER_TIMEOUT, kUnsentMilliseconds},
    {SOL_SOCKET, SO_SNDBUF, kSendBuffer},
}};

void setOption(int socket, const SocketOption& option) {
    ::setsockopt(socket, option.level, option.name, &option.value, sizeof option.value);
}

tl::unexpected<std::string> portError(std::uint32_t port, int error) {
    return failure(fmt::format("cannot plug into port {} of the kernel's virtual controller "
                               "(vhci_hcd): {}",
                               port, systemText(error)));
}

constexpr std::size_t kReadSize = 16384;

bool wouldBlock() {
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

} // namespace

bool Listener::isAddress(std::string_view address) {
    return resolve(address) != nullptr;
}

Result<void> Listener::listen(std::string_view address) {
    const Addresses found = resolve(address);
    if (!found)
        return failure(fmt::format(
            "'{}' is no address to listen at: it must be like 127.0.0.1:3240", address));
    FileDescriptor socket(
        ::socket(found->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    setOption(socket.get(), {SOL_SOCKET, SO_REUSEADDR, 1});
    if (!socket.isOpen() || ::bind(socket.get(), found->ai_addr, found->ai_addrlen) != 0 ||
        ::listen(socket.get(), SOMAXCONN) != 0)
        return failure(fmt::format("cannot listen at {}: {}", address, systemText()));
    socket_ = std::move(socket);
    return {};
}

std::string Listener::address() const {
    sockaddr_storage where{};
    socklen_t size = sizeof where;
    std::array<char, NI_MAXHOST> host{};
    std::array<char, NI_MAXSERV> port{};
    // The socket interface takes every kind of address by its common beginning.
    auto* const begin = reinterpret_cast<sockaddr*>(&where);
    if (getsockname(descriptor(), begin, &size) != 0 ||
        getnameinfo(begin, size, host.data(), host.size(), port.data(), port.size(),
                    NI_NUMERICHOST | NI_NUMERICSERV) != 0)
        return {};
    const std::string name(host.data());
    return (where.ss_family == AF_INET6 ? '[' + name + ']' : name) + ':' + port.data();
}

Result<FileDescriptor, int> Listener::accept() const {
    FileDescriptor connection(
        ::accept4(descriptor(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!connection.isOpen() && errno != EAGAIN)
        return failure(int{errno});
    if (connection.isOpen())
        for (const SocketOption& option : kConnectionOptions)
            setOption(connection.get(), option);
    return connection;
}

Result<FileDescriptor> attachToKernel(std::uint32_t port, std::uint32_t device,
                                      const std::filesystem::path& folder) {
    std::array<int, 2> pair{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair.data()) != 0)
        return portError(port, errno);
    FileDescriptor ours(pair[0]);
    const FileDescriptor theirs(pair[1]);
    const FileDescriptor attach(::open((folder / "attach").c_str(), O_WRONLY | O_CLOEXEC));
    if (!attach.isOpen())
        return portError(port, errno);
    // The kernel takes the socket over by its number in this process.
    const std::string line = fmt::format("{} {} {} {}", port, theirs.get(), device, kFullSpeed);
    if (::write(attach.get(), line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        return portError(port, errno);
    ::fcntl(ours.get(), F_SETFL, O_NONBLOCK);
    return ours;
}

pollfd Connection::place() {
    if (session_.isHeld())
        return {-1, 0, 0};
    short events = session_.state() == Session::State::Open ? POLLIN : 0;
    if (!session_.output().empty())
        events = static_cast<short>(events | POLLOUT);
    return {socket_.get(), events, 0};
}

bool Connection::serve(short events) {
    if ((events & (POLLERR | POLLNVAL)) != 0)
        return false;
    if ((events & (POLLIN | POLLHUP)) != 0 && !readSome())
        return false;
    if (!session_.output().empty() && !session_.isHeld() && !writeSome())
        return false;
    switch (session_.state()) {
    case Session::State::Open:
        return true;
    case Session::State::Done:
    case Session::State::Unplugged:
        return !session_.output().empty();
    case Session::State::Dropped:
        break;
    }
    return false;
}

bool Connection::readSome() {
    std::array<std::uint8_t, kReadSize> bytes{};
    const ssize_t count = ::recv(socket_.get(), bytes.data(), bytes.size(), 0);
    if (count < 0)
        return wouldBlock();
    session_.receive(ByteView(bytes).first(static_cast<std::size_t>(count)));
    return count > 0;
}

bool Connection::writeSome() {
    Bytes& output = session_.output();
    const ssize_t count = ::send(socket_.get(), output.data(), output.size(), MSG_NOSIGNAL);
    if (count < 0)
        return wouldBlock();
    output.erase(output.begin(), output.begin() + count);
    return true;
}

} // namespace scenewright::usbip
