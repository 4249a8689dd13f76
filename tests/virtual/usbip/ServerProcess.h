// The built scenewright-virtual, running, and a host that speaks to it over TCP.
#pragma once

#include "platform/Process.h"
#include "tests/support/Limits.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace scenewright::usbip {

// Started listening at a free port of the loopback; killed at its end if it still runs.
class ServerProcess {
public:
    explicit ServerProcess(const std::vector<std::string>& arguments);
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    [[nodiscard]] std::uint16_t port() const { return port_; }
    void signal(int number) const;
    // The next line on its standard error, or an empty one when none comes.
    std::string nextLine();
    // Writes to its standard input; gives the next line on its standard error.
    std::string order(std::string_view text);
    void endOrders() { orders_ = FileDescriptor(); }
    // The exit status; 128 and the signal's number when a signal ended it.
    int waitForEnd();

private:
    pid_t process_ = -1;
    FileDescriptor orders_; // its standard input
    FileDescriptor errors_;
    std::string unread_;
    std::uint16_t port_ = 0;
};

// One connection. Every read gives up after kLimit.
class Client {
public:
    explicit Client(std::uint16_t port);
    void send(const std::vector<std::uint8_t>& bytes) const;
    // Exactly so many bytes, or fewer when the connection ends.
    [[nodiscard]] std::vector<std::uint8_t> receive(std::size_t size) const;
    // Whether the server has closed the connection.
    [[nodiscard]] bool hasEnded() const { return receive(1).empty(); }

    // Imports the device; then the two ways of a bulk transfer, by the next number.
    void import() const;
    // The status of the write.
    std::int32_t write(const std::vector<std::uint8_t>& bytes);
    std::vector<std::uint8_t> read() {
        listen();
        return heard();
    }
    void listen(); // asks for a read
    [[nodiscard]] std::vector<std::uint8_t> heard() const;
    std::vector<std::uint8_t> ask(const std::vector<std::uint8_t>& bytes) {
        write(bytes);
        return read();
    }

private:
    FileDescriptor socket_;
    std::uint32_t sequence_ = 0;
};

inline Client attach(const ServerProcess& server) {
    Client host(server.port());
    host.import();
    return host;
}

// A server with its host.
struct Attached {
    explicit Attached(const std::vector<std::string>& arguments) : server(arguments) {}
    ServerProcess server;
    Client host = attach(server);
};

} // namespace scenewright::usbip
