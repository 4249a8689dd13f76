#include "virtual/usbip/Listener.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <system_error>

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
    std::uint16_t port = 0;
    const auto [stop, error] =
        std::from_chars(address.data() + colon + 1, address.data() + address.size(), port);
    if (error != std::errc{} || stop != address.data() + address.size())
        return std::nullopt;
    return HostAndPort{std::string(host), std::to_string(port)};
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

void setFlag(int socket, int level, int option) {
    const int on = 1;
    setsockopt(socket, level, option, &on, sizeof on);
}

} // namespace

bool Listener::isAddress(std::string_view address) {
    return resolve(address) != nullptr;
}

std::optional<std::string> Listener::listen(std::string_view address) {
    const Addresses found = resolve(address);
    if (!found)
        return fmt::format("'{}' is no address to listen at: it must be like 127.0.0.1:3240",
                           address);
    FileDescriptor socket(
        ::socket(found->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    setFlag(socket.get(), SOL_SOCKET, SO_REUSEADDR);
    if (!socket.isOpen() || ::bind(socket.get(), found->ai_addr, found->ai_addrlen) != 0 ||
        ::listen(socket.get(), SOMAXCONN) != 0)
        return fmt::format("cannot listen at {}: {}", address,
                           std::generic_category().message(errno));
    socket_ = std::move(socket);
    return std::nullopt;
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

FileDescriptor Listener::accept() const {
    FileDescriptor connection(
        ::accept4(descriptor(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (connection.isOpen())
        setFlag(connection.get(), IPPROTO_TCP, TCP_NODELAY); // answers are small and awaited
    return connection;
}

} // namespace scenewright::usbip
