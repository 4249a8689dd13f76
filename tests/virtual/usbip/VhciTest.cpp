#include "virtual/usbip/Vhci.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace scenewright::usbip {
namespace {

using scenewright::testing::TempFolder;

TEST(Vhci, KernelIsToldPortSocketDeviceAndFullSpeed) {
    const TempFolder folder;
    scenewright::testing::writeBytes(folder.file("attach"), {});
    const VhciConnection made = attachToKernel(3, 0x10002, folder.path());
    ASSERT_TRUE(made.socket.isOpen()) << made.trouble;
    const auto bytes = scenewright::testing::readBytes(folder.file("attach"));
    std::istringstream line(std::string(bytes.begin(), bytes.end()));
    int port = -1;
    int socket = -1;
    unsigned device = 0;
    int speed = -1;
    line >> port >> socket >> device >> speed;
    EXPECT_EQ(port, 3);
    EXPECT_GT(socket, 2);
    EXPECT_NE(socket, made.socket.get());
    EXPECT_EQ(device, 65538U);
    EXPECT_EQ(speed, 2);
}

TEST(Vhci, MissingKernelModuleIsToldInOneSentence) {
    const TempFolder folder;
    const VhciConnection made = attachToKernel(0, 1, folder.path());
    EXPECT_FALSE(made.socket.isOpen());
    EXPECT_EQ(made.trouble, "cannot plug into port 0 of the kernel's virtual controller "
                            "(vhci_hcd): No such file or directory");
}

} // namespace
} // namespace scenewright::usbip
