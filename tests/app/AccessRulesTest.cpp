#include "app/AccessRules.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace scenewright {
namespace {

constexpr const char* kRulesHead =
    "# Lets the user who sits at the computer use the keyboards of Scenewright's device list.\n"
    "# Install as /etc/udev/rules.d/70-scenewright.rules: the name must sort before 73, where\n"
    "# the tag \"uaccess\" is acted on. Then plug the keyboard in again.\n";

std::string rule(const std::string& vendor, const std::string& product) {
    return R"(ACTION!="remove", SUBSYSTEM=="usb", ENV{DEVTYPE}=="usb_device", ATTR{idVendor}==")" +
           vendor + R"(", ATTR{idProduct}==")" + product + "\", TAG+=\"uaccess\"\n";
}

TEST(UdevRules, EachDeviceThatCanExistHasOneRule) {
    const std::vector<DeviceIds> devices{{-1, 1}, {0x1209, 0x0001}, {0x10000, 1}, {0x1209, 0x0001},
                                         {1, -1}, {0xFFFF, 0x00AB}, {1, 0x10000}};
    EXPECT_EQ(udevRules(devices), kRulesHead + rule("1209", "0001") + rule("ffff", "00ab"));
}

TEST(AccessCommand, AProgramsPathIsOneWordOfTheShell) {
    const std::string rest = " udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules";
    EXPECT_EQ(accessCommand("scenewright-cli"), "scenewright-cli" + rest);
    EXPECT_EQ(accessCommand("/opt/a-b_1.0/scenewright-cli"), "/opt/a-b_1.0/scenewright-cli" + rest);
    EXPECT_EQ(accessCommand("/my music/it's/$1"), R"('/my music/it'\''s/$1')" + rest);
}

} // namespace
} // namespace scenewright
