#include "app/OutcomeText.h"
#include "cli/Reports.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

const PluggedDevice kKeyboard{.device = {.bus = 1,
                                         .address = 4,
                                         .port = "1-2",
                                         .ids = {.vendor = 0x1209, .product = 0x0001},
                                         .maker = "Acme",
                                         .name = "Keys 25"},
                              .isListed = true};

PluggedDevice strangeKeyboard() {
    PluggedDevice plugged = kKeyboard;
    plugged.isListed = false;
    plugged.device.ids.product = 0x0002;
    plugged.device.maker = "";
    plugged.device.serial = "A17";
    return plugged;
}

TEST(DeviceTable, SaysThatNothingIsPluggedIn) {
    EXPECT_EQ(deviceTable({}), "No USB device with a MIDI streaming interface is plugged in.\n");
    EXPECT_EQ(deviceJson({}), "[]\n");
}

TEST(DeviceTable, AListedDeviceIsReadyForUse) {
    EXPECT_EQ(deviceTable({{kKeyboard}}), "Bus 001 Device 004: 1209:0001 Acme Keys 25\n"
                                          "  port: 1-2\n"
                                          "  listed: yes\n"
                                          "  can be opened: yes\n");
}

TEST(DeviceTable, ADeviceThatIsNotListedComesWithTheCommandThatAddsIt) {
    EXPECT_EQ(deviceTable({{strangeKeyboard()}}),
              "Bus 001 Device 004: 1209:0002 - Keys 25\n"
              "  port: 1-2, serial number: A17\n"
              "  listed: no. 'scenewright-cli devices --add 1-2' adds it.\n"
              "  can be opened: yes\n");
}

TEST(DeviceTable, ADeviceThatCannotBeOpenedSaysWhy) {
    PluggedDevice plugged = kKeyboard;
    plugged.device.access = AttachedDevice::Access::NoPermission;
    EXPECT_TRUE(deviceTable({{plugged}})
                    .ends_with("  can be opened: no. " + causeAndCure(kResultAccess) + ".\n"));
    plugged.device.access = AttachedDevice::Access::Claimed;
    EXPECT_TRUE(deviceTable({{plugged}}).ends_with("  can be opened: yes\n"));
}

TEST(DeviceTable, JsonHasTheSameForPrograms) {
    EXPECT_EQ(deviceJson({{kKeyboard}}), R"([
  {
    "bus": 1,
    "address": 4,
    "port": "1-2",
    "serial": null,
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
    PluggedDevice plugged = strangeKeyboard();
    plugged.device.access = AttachedDevice::Access::NoPermission;
    plugged.device.name = "\xFF";
    const std::string json = deviceJson({{plugged}});
    for (const char* part :
         {"\"serial\": \"A17\"",
          "\"canOpen\": false,\n    \"cause\": \"You have no permission to use the keyboard: ",
          "\"linesToAdd\": \"    <dict>\\n        <key>VID</key> <integer>4617</integer>\\n        "
          "<key>PID</key> <integer>2</integer>\\n    </dict>\\n\"",
          "\"name\": \"\xEF\xBF\xBD\""})
        EXPECT_NE(json.find(part), std::string::npos) << part << json;
}

} // namespace
} // namespace scenewright
