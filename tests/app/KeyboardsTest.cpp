#include "app/Keyboards.h"

#include "platform/Resources.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace scenewright::testing {

namespace {

constexpr DeviceIds kListed{.vendor = 0x1209, .product = 0x0001};
constexpr DeviceIds kStrange{.vendor = 0x1209, .product = 0x0002};

AttachedDevice device(const std::string& port, const std::string& name,
                      const std::string& serial = {}, DeviceIds ids = kListed) {
    return {.bus = 1,
            .port = port,
            .ids = ids,
            .name = name,
            .serial = serial,
            .hasMidiStreaming = true};
}

class KeyboardsTest : public ::testing::Test {
protected:
    KeyboardsTest() {
        std::ofstream(folder_.file("project.plist"))
            << "<plist version=\"1.0\"><array>" + deviceListLines(kListed) + "</array></plist>";
        Resources::setFolder(folder_.path());
    }
    ~KeyboardsTest() override { Resources::setFolder({}); }

    // The port of the one in use; "none" without.
    [[nodiscard]] std::string used() const {
        const auto found = keyboards.inUse();
        return found ? found->device.port : "none";
    }
    [[nodiscard]] std::string checked() const {
        const auto result = keyboards.checkChosen();
        return result ? "there" : result.error();
    }

    std::vector<AttachedDevice> plugged{device("1-1", "Keys"), device("1-2", "Keys", "A17")};
    Keyboards keyboards{{}, [this] { return plugged; }};

private:
    TempFolder folder_;
};

struct Choice {
    const char* chosen;
    const char* used;
    std::optional<std::string> offered;
};

TEST_F(KeyboardsTest, TheChosenOneAloneIsUsedAndWithoutAChoiceTheFirst) {
    for (const Choice& row : {Choice{"", "1-1", std::nullopt}, Choice{"1-2", "1-2", "1-2"},
                              Choice{"A17", "1-2", "1-2"}, Choice{"1-3", "none", "1-3"}}) {
        keyboards.choose(row.chosen);
        EXPECT_EQ(used(), row.used) << row.chosen;
        EXPECT_EQ(keyboards.offeredPort(), row.offered) << row.chosen;
    }
}

TEST_F(KeyboardsTest, AChosenOneThatIsUnpluggedIsNotReplacedByAnother) {
    keyboards.choose("1-2");
    plugged.pop_back();
    EXPECT_EQ(used(), "none");
    EXPECT_EQ(keyboards.presence(), KeyboardPresence::Unplugged);
    EXPECT_EQ(keyboards.name(), "");
}

TEST_F(KeyboardsTest, OnlyAListedDeviceIsUsed) {
    plugged = {device("1-1", "Drum", {}, kStrange), device("1-2", "Keys")};
    EXPECT_EQ(used(), "1-2");
    keyboards.choose("1-1");
    EXPECT_EQ(used(), "none");
}

TEST_F(KeyboardsTest, AllAreTheMidiDevicesAndWhatTheListHas) {
    plugged = {device("1-1", "Keys"), device("1-2", "Drum", {}, kStrange),
               device("1-3", "Mouse", {}, kStrange), device("1-4", "Keys")};
    plugged[2].hasMidiStreaming = false;
    plugged[3].hasMidiStreaming = false;
    std::string seen;
    for (const PluggedDevice& each : keyboards.all())
        seen += each.device.port + (each.isListed ? " listed" : "") +
                (each.isInUse ? " in use\n" : "\n");
    EXPECT_EQ(seen, "1-1 listed in use\n1-2\n1-4 listed\n");
}

TEST_F(KeyboardsTest, ThePresenceIsThatOfTheOneInUse) {
    for (const auto& [access, presence] :
         {std::pair{AttachedDevice::Access::NoPermission, KeyboardPresence::NoPermission},
          std::pair{AttachedDevice::Access::Claimed, KeyboardPresence::Claimed},
          std::pair{AttachedDevice::Access::Usable, KeyboardPresence::Usable}}) {
        plugged[0].access = access;
        EXPECT_EQ(keyboards.presence(), presence);
    }
    plugged[1].access = AttachedDevice::Access::Claimed;
    keyboards.choose("A17");
    EXPECT_EQ(keyboards.presence(), KeyboardPresence::Claimed);
}

TEST_F(KeyboardsTest, TheNameHasThePortWhereAnotherHasTheSameName) {
    keyboards.choose("1-2");
    EXPECT_EQ(keyboards.name(), "Keys (1-2)");
    plugged[0].name = "Other";
    EXPECT_EQ(keyboards.name(), "Keys");
    plugged[1].name.clear();
    EXPECT_EQ(keyboards.name(), "1209:0001");
    plugged[1].maker = "Acme";
    EXPECT_EQ(keyboards.name(), "Acme");
}

TEST_F(KeyboardsTest, AChoiceIsRememberedByTheSerialNumberIfThatTellsItApart) {
    EXPECT_EQ(keyboards.lastingName(plugged[0]), "1-1");
    EXPECT_EQ(keyboards.lastingName(plugged[1]), "A17");
    plugged[0].serial = "A17";
    EXPECT_EQ(keyboards.lastingName(plugged[0]), "1-1");
}

TEST_F(KeyboardsTest, AmongSeveralWithoutAChoiceTheOneInUseIsTold) {
    EXPECT_EQ(keyboards.tacitChoice(), "2 keyboards are plugged in, and 1-1 (Keys) is used; "
                                       "--device chooses another one: 1-2 (Keys, serial number "
                                       "A17)");
    keyboards.choose("1-2");
    EXPECT_EQ(keyboards.tacitChoice(), std::nullopt);
    keyboards.choose({});
    plugged[0].ids = kStrange;
    EXPECT_EQ(keyboards.tacitChoice(), std::nullopt);
    plugged = {};
    EXPECT_EQ(keyboards.tacitChoice(), std::nullopt);
}

TEST_F(KeyboardsTest, AChoiceThatIsNotThereSaysWhatIs) {
    plugged.push_back(device("1-4", "Drum", {}, kStrange));
    for (const auto& [chosen, sentence] : std::vector<std::pair<std::string, std::string>>{
             {"", "there"},
             {"1-1", "there"},
             {"A17", "there"},
             {"1-3", "There is no keyboard 1-3; plugged in: 1-1 (Keys), 1-2 (Keys, serial number "
                     "A17)"},
             {"1-4", "1-4 (Drum): the device is not in the list of keyboards; 'scenewright-cli "
                     "devices --add 1-4' adds it"},
             {"\x1B[2J", "There is no keyboard \uFFFD[2J; plugged in: 1-1 (Keys), 1-2 (Keys, "
                         "serial number A17)"}}) {
        keyboards.choose(chosen);
        EXPECT_EQ(checked(), sentence);
    }
    plugged[0].serial = "A17";
    keyboards.choose("A17");
    EXPECT_EQ(checked(), "There are several with the serial number A17; name one by its port: 1-1 "
                         "(Keys, serial number A17), 1-2 (Keys, serial number A17)");
    plugged.clear();
    keyboards.choose("1-1");
    EXPECT_EQ(checked(), "There is no keyboard 1-1, and no other one of the list");
}

constexpr const char* kRulesHead =
    "# Lets the user who sits at the computer use the keyboards of Scenewright's device list.\n"
    "# Install as /etc/udev/rules.d/70-scenewright.rules: the name must sort before 73, where\n"
    "# the tag \"uaccess\" is acted on. Then plug the keyboard in again.\n";

std::string rule(const std::string& vendor, const std::string& product) {
    return R"(ACTION!="remove", SUBSYSTEM=="usb", ENV{DEVTYPE}=="usb_device", ATTR{idVendor}==")" +
           vendor + R"(", ATTR{idProduct}==")" + product + "\", TAG+=\"uaccess\"\n";
}

TEST(UdevRules, EachDeviceHasOneRule) {
    const std::vector<DeviceIds> devices{{0x1209, 0x0001}, {0x1209, 0x0001}, {0xFFFF, 0x00AB}};
    EXPECT_EQ(udevRules(devices), kRulesHead + rule("1209", "0001") + rule("ffff", "00ab"));
}

TEST(AccessCommand, AProgramsPathIsOneWordOfTheShell) {
    const std::string rest = " udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules";
    EXPECT_EQ(accessCommand("scenewright-cli"), "scenewright-cli" + rest);
    EXPECT_EQ(accessCommand("/opt/a-b_1.0/scenewright-cli"), "/opt/a-b_1.0/scenewright-cli" + rest);
    EXPECT_EQ(accessCommand("/my music/it's/$1"), R"('/my music/it'\''s/$1')" + rest);
}

} // namespace

} // namespace scenewright::testing
