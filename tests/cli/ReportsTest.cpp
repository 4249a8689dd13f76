#include "cli/Reports.h"

#include "app/DeviceSession.h"
#include "protocol/SceneImage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <vector>

namespace scenewright {

namespace {

Titles titles(std::vector<std::string> list) {
    return std::make_shared<const std::vector<std::string>>(std::move(list));
}

// A scene whose every byte is its offset modulo 4, named LIVE.
std::shared_ptr<SceneValue> sceneOfOffsets() {
    SceneImage image{};
    for (std::size_t offset = 0; offset < image.size(); ++offset)
        image[offset] = static_cast<std::uint8_t>(offset % 4);
    std::ranges::fill_n(image.begin(), 12, std::uint8_t{0});
    std::ranges::copy(std::string("LIVE"), image.begin());
    return parseScenes(image).front();
}

std::string linesFrom(const std::string& text, const std::string& start, int count) {
    std::istringstream lines(text.substr(text.find("\n" + start) + 1));
    std::string part;
    for (std::string line; count > 0 && std::getline(lines, line); --count)
        part += line + "\n";
    return part;
}

TEST(SceneTable, ValuesStandUnderTheirTitlesInColumnsAsWideAsNeeded) {
    PopUpValue lists;
    lists.setKnob_Enable_Array(titles({"Off", "On"}));
    lists.setKnob_CCNumber_Array(titles({"0", "1", "2", "one hundred"}));
    // Offsets 149..152 Enable, 153..156 number, 157..160 right, 161..164 left value.
    EXPECT_EQ(linesFrom(sceneTable(lists, *sceneOfOffsets(), 1), "Knob", 6),
              "Knob  Enabled  CC number    Right  Left\n"
              "                            value  value\n"
              "1     On       1            (1)    (1)\n"
              "2     (2)      2            (2)    (2)\n"
              "3     (3)      one hundred  (3)    (3)\n"
              "4     Off      0            (0)    (0)\n");
}

TEST(SceneTable, WideCharactersOfATitleCountOnce) {
    PopUpValue lists;
    lists.setGroup_MIDIChannel_Array(titles({"é♯", "b", "c", "d"}));
    const std::string table = linesFrom(sceneTable(lists, *sceneOfOffsets(), 1), "Group", 6);
    EXPECT_NE(table.find("4      é♯\n"), std::string::npos) << table;
}

TEST(SceneTable, EveryControlHasItsLineBelowNumberAndName) {
    const std::string text = sceneTable(PopUpValue(), *sceneOfOffsets(), 2);
    EXPECT_TRUE(text.starts_with("Scene 2: LIVE\n\n")) << "without its fill";
    EXPECT_EQ(std::ranges::count(linesFrom(text, "Key  ", 28), '\n'), 28);
    EXPECT_NE(text.find("\n25   "), std::string::npos);
}

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

TEST(DeviceTable, TellsWhatIsPluggedInAndHowItIsAdded) {
    EXPECT_EQ(deviceTable({}), "No USB device with a MIDI streaming interface is plugged in.\n");
    EXPECT_EQ(deviceTable({{kKeyboard}}), "Bus 001 Device 004: 1209:0001 Acme Keys 25\n"
                                          "  port: 1-2\n"
                                          "  listed: yes\n"
                                          "  can be opened: yes\n");
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

TEST(DeviceTable, JsonHasTheSameForProgramsWithCauseAndLines) {
    EXPECT_EQ(deviceJson({}), "[]\n");
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
