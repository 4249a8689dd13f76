#include "tests/virtual/usbip/ServerProcess.h"

#include "tests/virtual/usbip/Messages.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace scenewright::usbip {

namespace {

constexpr std::string_view kListening = "scenewright-virtual: listening at 127.0.0.1:";

bool isReadable(int descriptor) {
    pollfd place{descriptor, POLLIN, 0};
    const auto patience = std::chrono::duration_cast<std::chrono::milliseconds>(testing::kLimit);
    return ::poll(&place, 1, static_cast<int>(patience.count())) == 1;
}

pid_t spawn(std::vector<std::string> command, int orders, int errors) {
    std::vector<char*> arguments;
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, orders, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);
    pid_t process = -1;
    const int error =
        ::posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error("cannot start " + command[0]);
    return process;
}

} // namespace

ServerProcess::ServerProcess(const std::vector<std::string>& arguments) {
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (::pipe2(in.data(), O_CLOEXEC) != 0 || ::pipe2(out.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    orders_ = FileDescriptor(in[1]);
    errors_ = FileDescriptor(out[0]);
    const FileDescriptor itsInput(in[0]);
    const FileDescriptor itsErrors(out[1]);
    std::vector<std::string> command{SCENEWRIGHT_BINARY_DIR "/bin/scenewright-virtual", "--listen",
                                     "127.0.0.1:0"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    process_ = spawn(command, itsInput.get(), itsErrors.get());
    const std::string line = nextLine();
    if (!line.starts_with(kListening))
        throw std::runtime_error("not listening: " + line);
    port_ = static_cast<std::uint16_t>(std::stoi(line.substr(kListening.size())));
}

ServerProcess::~ServerProcess() {
    if (process_ < 0)
        return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
}

void ServerProcess::signal(int number) const {
    ::kill(process_, number);
}

std::string ServerProcess::order(std::string_view text) {
    if (::write(orders_.get(), text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        throw std::runtime_error("the server takes no orders");
    return nextLine();
}

std::string ServerProcess::nextLine() {
    auto end = unread_.find('\n');
    while (end == std::string::npos && isReadable(errors_.get())) {
        std::array<char, 512> bytes{};
        const ssize_t count = ::read(errors_.get(), bytes.data(), bytes.size());
        if (count <= 0)
            return {};
        unread_.append(bytes.data(), static_cast<std::size_t>(count));
        end = unread_.find('\n');
    }
    if (end == std::string::npos)
        return {};
    std::string line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return line;
}

int ServerProcess::waitForEnd() {
    const auto limit = std::chrono::steady_clock::now() + testing::kLimit;
    int status = 0;
    while (::waitpid(process_, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > limit)
            throw std::runtime_error("the server does not end");
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

Client::Client(std::uint16_t port) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in where{};
    where.sin_family = AF_INET;
    where.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    where.sin_port = htons(port);
    if (::connect(socket_.get(), reinterpret_cast<const sockaddr*>(&where), sizeof where) != 0)
        throw std::runtime_error("cannot connect");
}

void Client::send(const std::vector<std::uint8_t>& bytes) const {
    ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

std::vector<std::uint8_t> Client::receive(std::size_t size) const {
    std::vector<std::uint8_t> bytes(size);
    std::size_t have = 0;
    while (have < size && isReadable(socket_.get())) {
        const ssize_t count = ::recv(socket_.get(), bytes.data() + have, size - have, 0);
        if (count <= 0)
            break;
        have += static_cast<std::size_t>(count);
    }
    bytes.resize(have);
    return bytes;
}

void Client::import() const {
    send(importRequest("1-1"));
    if (receive(320).size() != 320)
        throw std::runtime_error("no device");
}

std::int32_t Client::write(const std::vector<std::uint8_t>& bytes) {
    send(outMessage(++sequence_, bytes));
    const auto reply = receive(48);
    if (reply.size() != 48)
        throw std::runtime_error("no answer to a write");
    return static_cast<std::int32_t>(std::uint32_t{reply[20]} << 24U |
                                     std::uint32_t{reply[21]} << 16U |
                                     std::uint32_t{reply[22]} << 8U | reply[23]);
}

void Client::listen() {
    send(inMessage(++sequence_, 64));
}

std::vector<std::uint8_t> Client::heard() const {
    const auto reply = receive(48);
    return reply.size() == 48 ? receive(reply[27]) : std::vector<std::uint8_t>{};
}

} // namespace scenewright::usbip
