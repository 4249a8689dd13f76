#include "usb/Devices.h"

#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"
#include "tests/usb/TransportFixture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <poll.h>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
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

// In a process of its own without the superuser's rights, who may open any node that is there.
TEST_F(AttachedDevicesTest, ANodeThatCannotBeReadAndWrittenIsAMatterOfPermission) {
    constexpr uid_t kNobody = 65534;
    static_cast<void>(plugIn());
    fs::permissions(root.path(), fs::perms{0755});
    const auto isUsable = [this] {
        return testing::runForked([this](int /*output*/) {
                   if (geteuid() == 0 && setuid(kNobody) != 0)
                       return -1;
                   return listed().at(0).access == Access::Usable ? 1 : 0;
               })
            .exitCode;
    };
    for (const auto& [mode, expected] :
         std::map<unsigned, int>{{0, 0}, {0444, 0}, {0222, 0}, {0666, 1}}) {
        fs::permissions(nodeOf("3"), fs::perms{mode});
        EXPECT_EQ(isUsable(), expected) << std::oct << mode;
    }
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

TEST(DeviceMonitorTest, SaysThatItCannotStart) {
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &none);
    const auto monitor = DeviceMonitor::start();
    ::setrlimit(RLIMIT_NOFILE, &before);
    ASSERT_FALSE(monitor.has_value());
    EXPECT_EQ(monitor.error(), "the system does not tell which devices come and go");
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

namespace scenewright::testing {
namespace {

using DeviceListTest = TransportFixture;

std::vector<std::pair<std::int32_t, std::int32_t>> pairs() {
    std::vector<std::pair<std::int32_t, std::int32_t>> found;
    for (const DeviceIds& ids : deviceList())
        found.emplace_back(ids.vendor, ids.product);
    return found;
}

TEST_F(DeviceListTest, HoldsThePairsOfTheFileInTheirOrder) {
    list({{"4617", "1"}, {"4617", "2"}, {"65535", "0"}});
    EXPECT_EQ(pairs(), (std::vector<std::pair<std::int32_t, std::int32_t>>{
                           {0x1209, 1}, {0x1209, 2}, {0xFFFF, 0}}));
}

TEST_F(DeviceListTest, IsReadAnewEachTime) {
    for (const std::int32_t product : {1, 2, 3}) {
        list({{"4617", std::to_string(product)}});
        EXPECT_EQ(pairs(), (std::vector<std::pair<std::int32_t, std::int32_t>>{{0x1209, product}}));
    }
}

TEST_F(DeviceListTest, EntriesWithoutAWholePairAreNone) {
    const auto pairOf = [](const std::string& vendor, const std::string& product) {
        return "<dict><key>VID</key>" + vendor + "<key>PID</key>" + product + "</dict>";
    };
    const std::string one = "<integer>1</integer>";
    std::string entries = "<dict/><string>x</string><integer>1</integer><array/>"
                          "<dict><key>VID</key>" +
                          one + "</dict><dict><key>PID</key>" + one + "</dict>";
    for (const char* none :
         {"<integer>-1</integer>", "<integer>65536</integer>", "<string/>", "<string>x1</string>",
          "<string>65536</string>", "<true/>", "<data/>", "<array/>", "<real>nan</real>"})
        entries += pairOf(none, one) + pairOf(one, none);
    entries += pairOf("<integer>0</integer>", "<integer>65535</integer>") +
               pairOf("<string> 12 and more</string>", "<real>13.5</real>");
    listText("<plist version=\"1.0\"><array>" + entries + "</array></plist>");
    EXPECT_EQ(pairs(), (std::vector<std::pair<std::int32_t, std::int32_t>>{{0, 65535}, {12, 13}}));
}

// The user's own list beside the one that came with the program, which has one keyboard.
class OwnDeviceListTest : public ::testing::Test {
protected:
    OwnDeviceListTest() { ::setenv("XDG_CONFIG_HOME", home_.path().c_str(), 1); }
    ~OwnDeviceListTest() override {
        Resources::setFolder({});
        ::unsetenv("XDG_CONFIG_HOME");
    }

    [[nodiscard]] std::filesystem::path own() const {
        return home_.path() / "scenewright/project.plist";
    }
    void write(const std::string& text) const {
        std::filesystem::create_directories(own().parent_path());
        std::ofstream(own()) << text;
    }
    [[nodiscard]] std::string text() const {
        std::ostringstream all;
        all << std::ifstream(own()).rdbuf();
        return all.str();
    }
    // What adding says; "added" when it does.
    static std::string add(std::int32_t product) {
        const auto added = addToDeviceList({.vendor = 0x1209, .product = product});
        return added ? "added" : added.error();
    }

    using Pairs = std::vector<std::pair<std::int32_t, std::int32_t>>;

private:
    TempFolder home_;
};

TEST_F(OwnDeviceListTest, StandsBeforeTheOneThatCameWithTheProgram) {
    EXPECT_EQ(pairs(), (Pairs{{0x1209, 1}}));
    write(projectPlist({{"1", "2"}, {"3", "4"}}));
    EXPECT_EQ(pairs(), (Pairs{{1, 2}, {3, 4}, {0x1209, 1}}));
}

TEST_F(OwnDeviceListTest, AGivenFoldersListTakesThePlaceOfBoth) {
    write(projectPlist({{"1", "2"}}));
    const TempFolder given;
    Resources::setFolder(given.path());
    EXPECT_EQ(pairs(), (Pairs{{1, 2}, {0x1209, 1}})) << "a folder without a list";
    std::ofstream(given.file("project.plist")) << projectPlist({{"5", "6"}});
    EXPECT_EQ(pairs(), (Pairs{{5, 6}}));
    EXPECT_EQ(add(7), own().string() + ": the keyboard stands there now, but another list is used");
}

TEST_F(OwnDeviceListTest, OneThatIsDamagedIsAnError) {
    write("no list");
    EXPECT_EQ(readDeviceEntries().error(),
              "Cannot read " + own().string() + ": it is not a property list");
    EXPECT_EQ(pairs(), Pairs{});
}

TEST_F(OwnDeviceListTest, IsMadeByTheFirstKeyboardThatIsAdded) {
    EXPECT_EQ(add(2), "added");
    EXPECT_EQ(text(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<plist version=\"1.0\">\n"
                      "<array>\n"
                      "    <dict>\n"
                      "        <key>VID</key> <integer>4617</integer>\n"
                      "        <key>PID</key> <integer>2</integer>\n"
                      "    </dict>\n"
                      "</array>\n"
                      "</plist>\n");
    EXPECT_EQ(pairs(), (Pairs{{0x1209, 2}, {0x1209, 1}}));
}

TEST_F(OwnDeviceListTest, KeepsWhatStandsInIt) {
    const std::string head = "<plist version=\"1.0\"><!-- mine --><array>";
    write(head + "</array></plist>");
    EXPECT_EQ(add(2), "added");
    EXPECT_EQ(add(3), "added");
    EXPECT_EQ(text(), head + deviceListLines({0x1209, 2}) + deviceListLines({0x1209, 3}) +
                          "</array></plist>");
}

TEST_F(OwnDeviceListTest, OneThatCannotBeAddedToStaysAsItIs) {
    for (const std::string list :
         {"", "no list", "bplist00", "<plist version=\"1.0\"><array/></plist>",
          "<plist version=\"1.0\"><array/><!-- </array> --></plist>",
          "<plist version=\"1.0\"><dict><key>a</key><array></array></dict></plist>"}) {
        write(list);
        EXPECT_EQ(add(2), own().string() + ": it is not a list that a program can add to") << list;
        EXPECT_EQ(text(), list);
    }
}

TEST_F(OwnDeviceListTest, WhereItCannotBeWrittenTheErrorNamesIt) {
    std::filesystem::create_directories(own());
    EXPECT_NE(add(2).find(own().string()), std::string::npos) << add(2);
    ::setenv("XDG_CONFIG_HOME", "", 1);
    const char* const home = std::getenv("HOME");
    const std::string former = home == nullptr ? "" : home;
    ::unsetenv("HOME");
    EXPECT_EQ(add(2), "There is no home folder for a list of keyboards of your own");
    ::setenv("HOME", former.c_str(), 1);
}

} // namespace
} // namespace scenewright::testing
