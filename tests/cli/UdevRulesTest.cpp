#include "cli/UdevRules.h"

#include <gtest/gtest.h>

#include <vector>

namespace scenewright {
namespace {

constexpr const char* kHead =
    "# Lets the user who sits at the computer use the keyboards of Scenewright's device list.\n"
    "# Install as /etc/udev/rules.d/70-scenewright.rules: the name must sort before 73, where\n"
    "# the tag \"uaccess\" is acted on. Then plug the keyboard in again.\n";

constexpr const char* kRule =
    "ACTION!=\"remove\", SUBSYSTEM==\"usb\", ENV{DEVTYPE}==\"usb_device\", "
    "ATTR{idVendor}==\"1209\", ATTR{idProduct}==\"0001\", TAG+=\"uaccess\"\n";

TEST(UdevRules, EachDeviceHasOneRule) {
    const std::vector<DeviceIds> devices{{0x1209, 0x0001}, {0xFFFF, 0x00AB}};
    EXPECT_EQ(udevRules(devices),
              std::string(kHead) + kRule +
                  "ACTION!=\"remove\", SUBSYSTEM==\"usb\", ENV{DEVTYPE}==\"usb_device\", "
                  "ATTR{idVendor}==\"ffff\", ATTR{idProduct}==\"00ab\", TAG+=\"uaccess\"\n");
}

TEST(UdevRules, ADeviceThatIsListedTwiceHasOneRule) {
    const std::vector<DeviceIds> devices{{0x1209, 0x0001}, {0x1209, 0x0001}};
    EXPECT_EQ(udevRules(devices), std::string(kHead) + kRule);
}

TEST(UdevRules, IdsThatNoDeviceCanHaveAreLeftOut) {
    const std::vector<DeviceIds> devices{{-1, 1}, {0x10000, 1}, {1, -1}, {1, 0x10000}};
    EXPECT_EQ(udevRules(devices), kHead);
}

} // namespace
} // namespace scenewright
