#include "usb/KeyboardPresence.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <string>
#include <unistd.h>

namespace scenewright {

namespace {

namespace fs = std::filesystem;

constexpr std::array kList{DeviceIds{0x1209, 0x0001}, DeviceIds{0x1209, 0x000A}};

// Folders like the kernel's, with one device each call of plugIn().
class KeyboardPresenceTest : public ::testing::Test {
protected:
    KeyboardPresenceTest() {
        fs::create_directories(folders.devices);
        fs::create_directories(folders.nodes / "001");
    }

    static void put(const fs::path& file, const std::string& line) {
        std::ofstream(file) << line << '\n';
    }
    fs::path plugIn(const std::string& name, const std::string& product,
                    const std::string& address) {
        const fs::path device = folders.devices / name;
        fs::create_directories(device / (name + ":1.1"));
        put(device / "idVendor", "1209");
        put(device / "idProduct", product);
        put(device / "busnum", "1");
        put(device / "devnum", address);
        return device;
    }
    void giveNode(const std::string& name) const { put(folders.nodes / "001" / name, ""); }
    [[nodiscard]] KeyboardPresence presence() const { return keyboardPresence(kList, folders); }

    testing::TempFolder root;
    KernelFolders folders{root.path() / "sys", root.path() / "dev"};
};

TEST_F(KeyboardPresenceTest, NothingIsPluggedIn) {
    EXPECT_EQ(presence(), KeyboardPresence::Unplugged);
}

TEST_F(KeyboardPresenceTest, ASystemWithoutUsbHasNone) {
    folders.devices = root.path() / "nowhere";
    EXPECT_EQ(presence(), KeyboardPresence::Unplugged);
}

TEST_F(KeyboardPresenceTest, AnotherDeviceIsNone) {
    plugIn("1-1", "0002", "3");
    giveNode("003");
    EXPECT_EQ(presence(), KeyboardPresence::Unplugged);
}

TEST_F(KeyboardPresenceTest, AListedOneIsUsable) {
    plugIn("1-1", "000a", "3");
    giveNode("003");
    EXPECT_EQ(presence(), KeyboardPresence::Usable);
}

TEST_F(KeyboardPresenceTest, BusAndAddressAreDecimalNumbers) {
    plugIn("1-1", "0001", "19");
    giveNode("019");
    EXPECT_EQ(presence(), KeyboardPresence::Usable);
}

TEST_F(KeyboardPresenceTest, ANodeThatCannotBeOpenedIsAMatterOfPermission) {
    plugIn("1-1", "0001", "12"); // not even there: the superuser may open any that is
    EXPECT_EQ(presence(), KeyboardPresence::NoPermission);
}

TEST_F(KeyboardPresenceTest, AnInterfaceThatAProgramHasIsClaimed) {
    const fs::path device = plugIn("1-1", "0001", "3");
    giveNode("003");
    fs::create_symlink("../../../bus/usb/drivers/usbfs", device / "1-1:1.1" / "driver");
    EXPECT_EQ(presence(), KeyboardPresence::Claimed);
}

TEST_F(KeyboardPresenceTest, TheSoundDriverDoesNotStandInTheWay) {
    const fs::path device = plugIn("1-1", "0001", "3");
    giveNode("003");
    fs::create_symlink("../../../bus/usb/drivers/snd-usb-audio", device / "1-1:1.1" / "driver");
    EXPECT_EQ(presence(), KeyboardPresence::Usable);
}

TEST_F(KeyboardPresenceTest, OfSeveralTheMostUsableCounts) {
    plugIn("1-1", "0001", "3");
    plugIn("1-2", "0001", "4");
    giveNode("004");
    EXPECT_EQ(presence(), KeyboardPresence::Usable);
}

TEST_F(KeyboardPresenceTest, NumbersThatAreNoneAreNoDevice) {
    const fs::path device = plugIn("1-1", "0001", "3");
    giveNode("003");
    put(device / "devnum", "3x");
    EXPECT_EQ(presence(), KeyboardPresence::Unplugged);
    put(device / "devnum", "3");
    put(device / "idVendor", "");
    EXPECT_EQ(presence(), KeyboardPresence::Unplugged);
}

} // namespace

} // namespace scenewright
