#include "virtual/usbip/Connection.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <poll.h>
#include <sys/socket.h>

namespace scenewright::usbip {

namespace {

constexpr std::size_t kReadSize = 16384;
// A host that sends and does not read is not listened to beyond this.
constexpr std::size_t kMaxUnsent = std::size_t{1} << 20U;

bool wouldBlock() {
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

} // namespace

short Connection::events() {
    short events = 0;
    if (!session_.output().empty())
        events = POLLOUT;
    if (session_.state() == Session::State::Open && session_.output().size() < kMaxUnsent)
        events = static_cast<short>(events | POLLIN);
    return events;
}

bool Connection::serve(short events) {
    if ((events & (POLLERR | POLLNVAL)) != 0)
        return false;
    if ((events & (POLLIN | POLLHUP)) != 0 && !readSome())
        return false;
    if (!session_.output().empty() && !writeSome())
        return false;
    return session_.state() == Session::State::Open || !session_.output().empty();
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
