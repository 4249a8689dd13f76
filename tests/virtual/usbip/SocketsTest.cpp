#include "virtual/usbip/Sockets.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sstream>
#include <sys/resource.h>
#include <sys/socket.h>

namespace scenewright::usbip {
namespace {

using scenewright::testing::TempFolder;

TEST(UsbipListener, AddressesAreNumbersAndAPort) {
    for (const char* good : {"127.0.0.1:3240", "0.0.0.0:0", "[::1]:65535", "[::]:1"})
        EXPECT_TRUE(Listener::isAddress(good)) << good;
    for (const char* bad : {"", ":", "127.0.0.1", "127.0.0.1:", ":3240", "127.0.0.1:65536",
                            "127.0.0.1:-1", "127.0.0.1: 1", "127.0.0.1:1x", "::1:3240", "[::1]",
                            "[]:1", "localhost:3240", "256.0.0.1:1"})
        EXPECT_FALSE(Listener::isAddress(bad)) << bad;
}

TEST(UsbipListener, FreePortIsChosenAndTold) {
    Listener listener;
    EXPECT_EQ(listener.descriptor(), -1);
    ASSERT_TRUE(listener.listen("127.0.0.1:0"));
    EXPECT_TRUE(listener.address().starts_with("127.0.0.1:"));
    EXPECT_NE(listener.address(), "127.0.0.1:0");
    EXPECT_FALSE(listener.accept()->isOpen()) << "nobody is there";
    EXPECT_EQ(Listener().listen(listener.address()).error(),
              "cannot listen at " + listener.address() + ": Address already in use");
}

FileDescriptor connectTo(const Listener& listener) {
    FileDescriptor client(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in where{};
    socklen_t size = sizeof where;
    auto* const address = reinterpret_cast<sockaddr*>(&where);
    EXPECT_EQ(::getsockname(listener.descriptor(), address, &size), 0);
    EXPECT_EQ(::connect(client.get(), address, size), 0);
    return client;
}

int optionOf(const FileDescriptor& socket, int level, int name) {
    int value = -1;
    socklen_t size = sizeof value;
    EXPECT_EQ(::getsockopt(socket.get(), level, name, &value, &size), 0);
    return value;
}

// A machine that lost its power says nothing, and would have the device for ever.
TEST(UsbipListener, HostThatLeftWithoutAWordIsGivenUpAfterTwoMinutes) {
    Listener listener;
    ASSERT_TRUE(listener.listen("127.0.0.1:0"));
    const FileDescriptor client = connectTo(listener);
    const auto socket = listener.accept();
    ASSERT_TRUE(socket && socket->isOpen());
    EXPECT_EQ(optionOf(*socket, SOL_SOCKET, SO_KEEPALIVE), 1);
    EXPECT_EQ(optionOf(*socket, IPPROTO_TCP, TCP_KEEPIDLE) +
                  optionOf(*socket, IPPROTO_TCP, TCP_KEEPINTVL) *
                      optionOf(*socket, IPPROTO_TCP, TCP_KEEPCNT),
              120);
    EXPECT_EQ(optionOf(*socket, IPPROTO_TCP, TCP_USER_TIMEOUT), 120'000);
}

TEST(UsbipListener, LackOfDescriptorsIsAnErrorAndTheConnectionGoesOnWaiting) {
    Listener listener;
    ASSERT_TRUE(listener.listen("127.0.0.1:0"));
    const FileDescriptor client = connectTo(listener);
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &none);
    const auto refused = listener.accept();
    ::setrlimit(RLIMIT_NOFILE, &before);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error(), EMFILE);
    const auto accepted = listener.accept();
    EXPECT_TRUE(accepted && accepted->isOpen());
}

TEST(Vhci, KernelIsToldPortSocketDeviceAndFullSpeed) {
    const TempFolder folder;
    scenewright::testing::writeBytes(folder.file("attach"), {});
    const Result<FileDescriptor> made = attachToKernel(3, 0x10002, folder.path());
    ASSERT_TRUE(made.has_value()) << made.error();
    const auto bytes = scenewright::testing::readBytes(folder.file("attach"));
    std::istringstream line(std::string(bytes.begin(), bytes.end()));
    int port = -1;
    int socket = -1;
    unsigned device = 0;
    int speed = -1;
    line >> port >> socket >> device >> speed;
    EXPECT_EQ(port, 3);
    EXPECT_GT(socket, 2);
    EXPECT_NE(socket, made->get());
    EXPECT_EQ(device, 65538U);
    EXPECT_EQ(speed, 2);
}

TEST(Vhci, MissingKernelModuleIsToldInOneSentence) {
    const TempFolder folder;
    const Result<FileDescriptor> made = attachToKernel(0, 1, folder.path());
    EXPECT_FALSE(made.has_value());
    EXPECT_EQ(made.error(), "cannot plug into port 0 of the kernel's virtual controller "
                            "(vhci_hcd): No such file or directory");
}

} // namespace
} // namespace scenewright::usbip
