#include "virtual/usbip/Listener.h"

#include <gtest/gtest.h>

namespace scenewright::usbip {
namespace {

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
    ASSERT_EQ(listener.listen("127.0.0.1:0"), std::nullopt);
    EXPECT_TRUE(listener.address().starts_with("127.0.0.1:"));
    EXPECT_NE(listener.address(), "127.0.0.1:0");
    EXPECT_FALSE(listener.accept().isOpen()) << "nobody is there";
    EXPECT_EQ(Listener().listen(listener.address()),
              "cannot listen at " + listener.address() + ": Address already in use");
}

} // namespace
} // namespace scenewright::usbip
