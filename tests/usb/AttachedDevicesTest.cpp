#include "tests/support/TempFolder.h"
#include "usb/Devices.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <poll.h>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

namespace fs = std::filesystem;
using Access = AttachedDevice::Access;

// Folders like the kernel's, with one device each call of plugIn().
class AttachedDevicesTest : public ::testing::Test {
protected:
    AttachedDevicesTest() {
        fs::create_directories(folders.devices);
        fs::create_directories(folders.nodes / "001");
    }

    static void put(const fs::path& file, const std::string& line) {
        std::ofstream(file) << line << '\n';
    }
    // A keyboard with an audio control and a MIDI streaming interface that may be opened.
    [[nodiscard]] fs::path plugIn(const std::string& name = "1-1",
                                  const std::string& product = "0001",
                                  const std::string& address = "3") const {
        fs::path device = folders.devices / name;
        for (const auto& [interface, subClass] :
             std::map<std::string, std::string>{{":1.0", "01"}, {":1.1", "03"}}) {
            const fs::path folder = device / (name + interface);
            fs::create_directories(folder);
            put(folder / "bInterfaceClass", "01");
            put(folder / "bInterfaceSubClass", subClass);
        }
        for (const auto& [file, line] : std::map<std::string, std::string>{{"idVendor", "1209"},
                                                                           {"idProduct", product},
                                                                           {"busnum", "1"},
                                                                           {"devnum", address}})
            put(device / file, line);
        put(nodeOf(address), "");
        return device;
    }
    [[nodiscard]] fs::path nodeOf(const std::string& address) const {
        return folders.nodes / "001" / (std::string(3 - address.size(), '0') + address);
    }
    static void bind(const fs::path& device, const std::string& driver) {
        fs::create_symlink("../../../bus/usb/drivers/" + driver,
                           device / (device.filename().string() + ":1.1") / "driver");
    }
    [[nodiscard]] std::vector<AttachedDevice> listed() const { return attachedDevices(folders); }

    testing::TempFolder root;
    KernelFolders folders{root.path() / "sys", root.path() / "dev"};
};

TEST_F(AttachedDevicesTest, TellsWhereAndWhatADeviceIs) {
    const fs::path device = plugIn("1-1", "00ab", "12");
    put(device / "manufacturer", "Acme");
    put(device / "product", "Keys 25");
    put(device / "serial", "A17");
    const auto devices = listed();
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].bus, 1);
    EXPECT_EQ(devices[0].address, 12);
    EXPECT_EQ(devices[0].port, "1-1");
    EXPECT_EQ(devices[0].ids, (DeviceIds{0x1209, 0x00AB}));
    EXPECT_EQ(devices[0].maker, "Acme");
    EXPECT_EQ(devices[0].name, "Keys 25");
    EXPECT_EQ(devices[0].serial, "A17");
    EXPECT_TRUE(devices[0].hasMidiStreaming);
    EXPECT_EQ(devices[0].access, Access::Usable);
}

TEST_F(AttachedDevicesTest, ListsByBusThenAddress) {
    static_cast<void>(plugIn("1-1", "0001", "12"));
    static_cast<void>(plugIn("1-2", "0002", "3"));
    put(plugIn("2-1", "0003", "1") / "busnum", "2");
    std::vector<std::int32_t> products;
    for (const AttachedDevice& device : listed())
        products.push_back(device.ids.product);
    EXPECT_EQ(products, (std::vector<std::int32_t>{2, 1, 3}));
}

TEST_F(AttachedDevicesTest, ASystemWithoutUsbHasNone) {
    EXPECT_TRUE(listed().empty()) << "no device";
    folders.devices = root.path() / "nowhere";
    EXPECT_TRUE(listed().empty());
}

TEST_F(AttachedDevicesTest, MidiStreamingIsAnAudioInterfaceOfThatSubclass) {
    const fs::path interface = plugIn() / "1-1:1.1";
    using Kind = std::pair<std::string, std::string>;
    for (const auto& [kind, isOne] : std::map<Kind, bool>{{{"01", "03"}, true},
                                                          {{"01", "02"}, false},
                                                          {{"ff", "03"}, false},
                                                          {{"", ""}, false}}) {
        put(interface / "bInterfaceClass", kind.first);
        put(interface / "bInterfaceSubClass", kind.second);
        EXPECT_EQ(listed().at(0).hasMidiStreaming, isOne) << kind.first << ' ' << kind.second;
    }
}

TEST_F(AttachedDevicesTest, ADeviceWhoseNumbersAreNoneIsLeftOut) {
    const fs::path device = plugIn();
    for (const char* const file : {"busnum", "devnum", "idVendor", "idProduct"}) {
        std::string right;
        std::getline(std::ifstream(device / file), right);
        for (const std::string& wrong : {std::string("3x"), std::string(), std::string("-")}) {
            put(device / file, wrong);
            EXPECT_TRUE(listed().empty()) << file << ' ' << wrong;
        }
        put(device / file, right);
        EXPECT_EQ(listed().size(), 1U);
    }
}

TEST_F(AttachedDevicesTest, NamesHaveNoControlCharactersAndNoWrongBytes) {
    const std::vector<std::pair<std::string, std::string>> names{
        {"\x1B[2JAcme\x7F", "\uFFFD[2JAcme\uFFFD"},
        {"Tasten größer", "Tasten größer"},
        {std::string("\xC2\x9B") + "31mAcme", "\uFFFD\uFFFD31mAcme"},
        {"Keys\xFF", "Keys\uFFFD"},
        {std::string("Ac\0me", 5), "Ac\uFFFDme"},
        {"", ""}};
    const fs::path device = plugIn();
    EXPECT_EQ(listed().at(0).maker, "") << "silent";
    EXPECT_EQ(listed().at(0).serial, "") << "silent";
    for (const auto& [written, shown] : names) {
        put(device / "manufacturer", written);
        put(device / "product", written);
        put(device / "serial", written);
        EXPECT_EQ(listed().at(0).serial, shown);
        EXPECT_EQ(listed().at(0).maker, shown);
        EXPECT_EQ(listed().at(0).name, shown);
    }
}

TEST_F(AttachedDevicesTest, AProgramsClaimStandsInTheWayAndTheSoundDriverDoesNot) {
    bind(plugIn("1-1", "0001", "3"), "usbfs");
    bind(plugIn("1-2", "0001", "4"), "snd-usb-audio");
    EXPECT_EQ(listed().at(0).access, Access::Claimed);
    EXPECT_EQ(listed().at(1).access, Access::Usable);
}

// The superuser may open any node that is there, so the node is missing here.
TEST_F(AttachedDevicesTest, ANodeThatCannotBeOpenedIsAMatterOfPermission) {
    static_cast<void>(plugIn());
    fs::remove(nodeOf("3"));
    EXPECT_EQ(listed().at(0).access, Access::NoPermission);
}

TEST_F(AttachedDevicesTest, IsNamedByItsPortOrByASerialNumberThatItTells) {
    const AttachedDevice device{.port = "1-2.3", .serial = "A17"};
    for (const char* const name : {"1-2.3", "A17"})
        EXPECT_TRUE(device.isNamed(name)) << name;
    for (const char* const name : {"", "1-2", "a17"})
        EXPECT_FALSE(device.isNamed(name)) << name;
    EXPECT_FALSE(AttachedDevice{.port = "1-2"}.isNamed("")) << "silent";
}

// Where a system gives no events, not even a superuser's, it says so in one sentence.
TEST(DeviceMonitorTest, WaitsForEventsWithoutTakingTimeWhenThereAreNone) {
    auto monitor = DeviceMonitor::start();
    if (!monitor) {
        EXPECT_EQ(monitor.error(), "the system does not tell which devices come and go");
        return;
    }
    ::pollfd waited{.fd = monitor->descriptor(), .events = POLLIN, .revents = 0};
    EXPECT_GE(waited.fd, 0);
    monitor->drain();
    EXPECT_EQ(poll(&waited, 1, 0), 0) << "nothing is left after it";
}

// Cards as sysfs shows them: a link to the interface, whose device has the numbers.
class SoundCards : public ::testing::Test {
protected:
    void SetUp() override { fs::create_directories(sound); }
    void plug(const std::string& card, const std::string& device, const std::string& bus,
              const std::string& address) const {
        const fs::path place = fs::path(folder.file("devices")) / device;
        fs::create_directories(place / "interface");
        std::ofstream(place / "busnum") << bus << "\n";
        std::ofstream(place / "devnum") << address << "\n";
        fs::create_directories(sound / card);
        fs::create_symlink(place / "interface", sound / card / "device");
    }

    const testing::TempFolder folder;
    const fs::path sound = folder.file("sound");
};

TEST_F(SoundCards, CardIsFoundByBusAndAddress) {
    fs::create_directories(sound / "card0"); // of no USB device
    plug("card2", "1-1", "1", "4");
    plug("card11", "2-1", "2", "4");
    fs::create_directories(sound / "controlC2");
    plug("cardx", "3-1", "3", "4");
    EXPECT_EQ(soundCardOf(1, 4, sound), 2);
    EXPECT_EQ(soundCardOf(2, 4, sound), 11);
    EXPECT_EQ(soundCardOf(1, 5, sound), std::nullopt);
    EXPECT_EQ(soundCardOf(3, 4, sound), std::nullopt);
    EXPECT_EQ(soundCardOf(1, 4, sound / "none"), std::nullopt);
}

} // namespace
} // namespace scenewright
