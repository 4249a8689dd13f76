#include "cli/DeviceReport.h"

#include "app/OutcomeText.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

const DeviceListPlace kList{.devices = {{0x1209, 0x0001}},
                            .inUse = "/usr/share/scenewright/project.plist",
                            .userOwn = "/home/me/.config/scenewright/project.plist"};

const AttachedDevice kKeyboard{.bus = 1,
                               .address = 4,
                               .ids = {.vendor = 0x1209, .product = 0x0001},
                               .maker = "Acme",
                               .name = "Keys 25"};

AttachedDevice strangeKeyboard() {
    AttachedDevice device = kKeyboard;
    device.ids.product = 0x0002;
    device.maker = "";
    return device;
}

TEST(DeviceTable, SaysThatNothingIsPluggedIn) {
    EXPECT_EQ(deviceTable({}, kList),
              "No USB device with a MIDI streaming interface is plugged in.\n");
    EXPECT_EQ(deviceJson({}, kList), "[]\n");
}

TEST(DeviceTable, AListedDeviceIsReadyForUse) {
    EXPECT_EQ(deviceTable({{kKeyboard}}, kList), "Bus 001 Device 004: 1209:0001 Acme Keys 25\n"
                                                 "  listed: yes\n"
                                                 "  can be opened: yes\n");
}

TEST(DeviceTable, ADeviceThatIsNotListedComesWithTheLinesToAdd) {
    EXPECT_EQ(deviceTable({{strangeKeyboard()}}, kList),
              "Bus 001 Device 004: 1209:0002 - Keys 25\n"
              "  listed: no\n"
              "  To add it, first copy /usr/share/scenewright/project.plist\n"
              "  to /home/me/.config/scenewright/project.plist, then\n"
              "  put these lines before the line </array>:\n"
              "\n"
              "    <dict>\n"
              "        <key>VID</key> <integer>4617</integer>\n"
              "        <key>PID</key> <integer>2</integer>\n"
              "    </dict>\n"
              "\n"
              "  can be opened: yes\n");
}

TEST(DeviceTable, WhereTheLinesGoFollowsFromTheListsThatThereAre) {
    const std::string inUse = kList.inUse.string();
    const std::string own = kList.userOwn.string();
    for (const auto& [list, help] :
         {std::pair{DeviceListPlace{{}, own, own}, "open " + own + " and\n"},
          std::pair{DeviceListPlace{{}, {}, own}, "open " + own + " and\n"},
          std::pair{DeviceListPlace{{}, inUse, {}},
                    "copy " + inUse + " to a folder that you name with --resources and\n"}})
        EXPECT_NE(
            deviceTable({{strangeKeyboard()}}, list)
                .find("  To add it, " + help + "  put these lines before the line </array>:\n"),
            std::string::npos)
            << help;
}

TEST(DeviceTable, ADeviceThatCannotBeOpenedSaysWhy) {
    AttachedDevice device = kKeyboard;
    device.access = AttachedDevice::Access::NoPermission;
    EXPECT_EQ(deviceTable({{device}}, kList), "Bus 001 Device 004: 1209:0001 Acme Keys 25\n"
                                              "  listed: yes\n"
                                              "  can be opened: no. " +
                                                  causeAndCure(kResultAccess) + ".\n");
    device.access = AttachedDevice::Access::Claimed;
    EXPECT_TRUE(deviceTable({{device}}, kList).ends_with("  can be opened: yes\n"));
}

TEST(DeviceTable, JsonHasTheSameForPrograms) {
    EXPECT_EQ(deviceJson({{kKeyboard}}, kList), R"([
  {
    "bus": 1,
    "address": 4,
    "vendorId": 4617,
    "productId": 1,
    "manufacturer": "Acme",
    "name": "Keys 25",
    "listed": true,
    "canOpen": true,
    "cause": null,
    "linesToAdd": null
  }
]
)");
}

TEST(DeviceTable, JsonTellsCauseAndLines) {
    AttachedDevice device = strangeKeyboard();
    device.access = AttachedDevice::Access::NoPermission;
    device.name = "\xFF";
    const std::string json = deviceJson({{device}}, kList);
    for (const char* part :
         {"\"canOpen\": false,\n    \"cause\": \"You have no permission to use the keyboard: ",
          "\"linesToAdd\": \"    <dict>\\n        <key>VID</key> <integer>4617</integer>\\n        "
          "<key>PID</key> <integer>2</integer>\\n    </dict>\\n\"",
          "\"name\": \"\xEF\xBF\xBD\""})
        EXPECT_NE(json.find(part), std::string::npos) << part << json;
}

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

} // namespace
} // namespace scenewright
