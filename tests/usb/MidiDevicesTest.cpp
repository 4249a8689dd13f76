#include "usb/MidiDevices.h"

#include "tests/support/TempFolder.h"
#include "tests/usb/ScriptedBus.h"

#include <gtest/gtest.h>

#include <fstream>

namespace scenewright::testing {
namespace {

class MidiDevicesTest : public ::testing::Test {
protected:
    void nameDevice(const std::string& folder, const std::string& address, const std::string& maker,
                    const std::string& name) {
        const auto path = folders.path() / folder;
        std::filesystem::create_directory(path);
        std::ofstream(path / "busnum") << "1\n";
        std::ofstream(path / "devnum") << address << '\n';
        std::ofstream(path / "manufacturer") << maker << '\n';
        std::ofstream(path / "product") << name << '\n';
    }
    std::vector<MidiDevice> listed() {
        std::vector<MidiDevice> devices;
        EXPECT_EQ(listMidiDevices(*makeScriptedBus(bus), devices, folders.path()), kResultSuccess);
        return devices;
    }

    std::shared_ptr<BusScript> bus = std::make_shared<BusScript>();
    TempFolder folders;
};

TEST_F(MidiDevicesTest, TellsWhereAndWhatADeviceIs) {
    nameDevice("1-2", "3", "Other", "Thing");
    nameDevice("1-1", "2", "Acme", "Keys 25");
    const auto devices = listed();
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].bus, 1);
    EXPECT_EQ(devices[0].address, 2);
    EXPECT_EQ(devices[0].vendor, 0x1209);
    EXPECT_EQ(devices[0].product, 0x0001);
    EXPECT_EQ(devices[0].maker, "Acme");
    EXPECT_EQ(devices[0].name, "Keys 25");
    EXPECT_EQ(devices[0].opening, kResultSuccess);
}

TEST_F(MidiDevicesTest, LeavesOutDevicesWithoutAMidiStreamingInterface) {
    bus->interfaces[1].subClass = 2;
    EXPECT_TRUE(listed().empty());
    bus->interfaces[1] = {.number = 1, .interfaceClass = 255, .subClass = 3};
    EXPECT_TRUE(listed().empty());
}

TEST_F(MidiDevicesTest, LeavesOutADeviceThatDoesNotTellItsInterfaces) {
    bus->isPlugged = false;
    EXPECT_TRUE(listed().empty());
}

TEST_F(MidiDevicesTest, OpensForAMomentAndDetachesNothing) {
    listed();
    EXPECT_EQ(bus->calls, (std::vector<std::string>{"open", "close"}));
}

TEST_F(MidiDevicesTest, SaysWhyADeviceCannotBeOpened) {
    bus->failures["open"] = kResultAccess;
    EXPECT_EQ(listed().at(0).opening, kResultAccess);
}

TEST_F(MidiDevicesTest, ASilentDeviceHasEmptyNames) {
    EXPECT_EQ(listed().at(0).maker, "");
    EXPECT_EQ(listed().at(0).name, "");
}

TEST_F(MidiDevicesTest, ControlCharactersOfANameAreNotPassedOn) {
    nameDevice("1-1", "2", "\x1B[2JAcme\x7F", "Tasten größer");
    EXPECT_EQ(listed().at(0).maker, "\uFFFD[2JAcme\uFFFD");
    EXPECT_EQ(listed().at(0).name, "Tasten größer");
}

TEST_F(MidiDevicesTest, ControlCharactersOfTwoBytesAndWrongBytesAreNotPassedOn) {
    nameDevice("1-1", "2",
               "\xC2\x9B"
               "31mAcme",
               "Keys\xFF");
    EXPECT_EQ(listed().at(0).maker, "\uFFFD\uFFFD31mAcme");
    EXPECT_EQ(listed().at(0).name, "Keys\uFFFD");
}

TEST_F(MidiDevicesTest, AZeroByteOfANameIsNotPassedOnEither) {
    nameDevice("1-1", "2", std::string("Ac\0me", 5), "Keys");
    EXPECT_EQ(listed().at(0).maker, "Ac\uFFFDme");
}

TEST_F(MidiDevicesTest, TheSameAddressOnAnotherBusIsAnotherDevice) {
    nameDevice("1-1", "2", "Other", "Thing");
    std::ofstream(folders.path() / "1-1" / "busnum") << "2\n";
    EXPECT_EQ(listed().at(0).name, "");
}

TEST_F(MidiDevicesTest, AListingThatFailsSaysWhy) {
    bus->failures["devices"] = kResultOther;
    std::vector<MidiDevice> devices;
    EXPECT_EQ(listMidiDevices(*makeScriptedBus(bus), devices, folders.path()), kResultOther);
}

} // namespace
} // namespace scenewright::testing
