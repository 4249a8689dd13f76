#include "virtual/usbip/ControlEndpoint.h"

#include "tests/virtual/ControllerDriver.h"

namespace scenewright::usbip {
namespace {

using testing::ControllerDriver;
using Pipe = VirtualController::Pipe;

class Control : public ::testing::Test {
protected:
    std::optional<Bytes> ask(const usbip::Setup& setup) { return endpoint.answer(setup); }

    ControllerDriver driver{{{Fault::Kind::Stall, 0}}};
    ControlEndpoint endpoint{driver.controller, {}};

    void haltIn() {
        driver.startReading();
        driver.readNext();
        ASSERT_TRUE(driver.controller.isHalted(Pipe::In));
    }
};

TEST_F(Control, DeviceDescriptorIsCutToTheRequestedLength) {
    EXPECT_EQ(ask({0x80, 6, 0, 1, 0, 0, 64, 0}), deviceDescriptor({}));
    EXPECT_EQ(ask({0x80, 6, 0, 1, 0, 0, 8, 0}), (Bytes{18, 1, 0x10, 0x01, 0, 0, 0, 64}));
    EXPECT_EQ(ask({0x80, 6, 0, 1, 0, 0, 0, 0}), Bytes{});
}

TEST_F(Control, ConfigurationDescriptor) {
    EXPECT_EQ(ask({0x80, 6, 0, 2, 0, 0, 0xFF, 0xFF}), configurationDescriptor({}));
    EXPECT_EQ(ask({0x80, 6, 0, 2, 0, 0, 9, 0})->size(), 9U);
    EXPECT_EQ(ask({0x80, 6, 1, 2, 0, 0, 9, 0}), std::nullopt) << "there is one configuration";
}

TEST_F(Control, Strings) {
    EXPECT_EQ(ask({0x80, 6, 0, 3, 0, 0, 255, 0}), (Bytes{4, 3, 9, 4}));
    EXPECT_EQ(ask({0x80, 6, 3, 3, 9, 4, 255, 0}), stringDescriptor(3));
    EXPECT_EQ(ask({0x80, 6, 4, 3, 9, 4, 255, 0}), std::nullopt);
}

TEST_F(Control, OtherDescriptorsStall) {
    EXPECT_EQ(ask({0x80, 6, 0, 6, 0, 0, 10, 0}), std::nullopt) << "device qualifier";
    EXPECT_EQ(ask({0x80, 6, 0, 7, 0, 0, 10, 0}), std::nullopt);
    EXPECT_EQ(ask({0x80, 6, 0, 0, 0, 0, 10, 0}), std::nullopt);
    EXPECT_EQ(ask({0x81, 6, 0, 0x22, 0, 0, 10, 0}), std::nullopt) << "a report";
}

TEST_F(Control, ConfigurationIsSetAndTold) {
    EXPECT_EQ(ask({0x80, 8, 0, 0, 0, 0, 1, 0}), Bytes{0});
    EXPECT_EQ(ask({0x00, 9, 1, 0, 0, 0, 0, 0}), Bytes{});
    EXPECT_EQ(ask({0x80, 8, 0, 0, 0, 0, 1, 0}), Bytes{1});
    EXPECT_EQ(ask({0x00, 9, 2, 0, 0, 0, 0, 0}), std::nullopt);
    EXPECT_EQ(ask({0x00, 9, 0, 1, 0, 0, 0, 0}), std::nullopt) << "256 is not 0";
    EXPECT_EQ(ask({0x80, 8, 0, 0, 0, 0, 1, 0}), Bytes{1});
    EXPECT_EQ(ask({0x00, 9, 0, 0, 0, 0, 0, 0}), Bytes{});
    EXPECT_EQ(ask({0x80, 8, 0, 0, 0, 0, 1, 0}), Bytes{0});
}

TEST_F(Control, InterfacesHaveTheirFirstSettingAlone) {
    EXPECT_EQ(ask({0x81, 10, 0, 0, 1, 0, 1, 0}), Bytes{0});
    EXPECT_EQ(ask({0x81, 10, 0, 0, 2, 0, 1, 0}), std::nullopt);
    EXPECT_EQ(ask({0x01, 11, 0, 0, 1, 0, 0, 0}), Bytes{});
    EXPECT_EQ(ask({0x01, 11, 1, 0, 1, 0, 0, 0}), std::nullopt);
    EXPECT_EQ(ask({0x01, 11, 0, 0, 2, 0, 0, 0}), std::nullopt);
}

TEST_F(Control, OneInterfaceDeviceHasNoSecond) {
    ControlEndpoint one(driver.controller, {.interfaces = 1});
    EXPECT_EQ(one.answer({0x01, 11, 0, 0, 0, 0, 0, 0}), Bytes{});
    EXPECT_EQ(one.answer({0x01, 11, 0, 0, 1, 0, 0, 0}), std::nullopt);
}

TEST_F(Control, StatusTellsOfHalts) {
    EXPECT_EQ(ask({0x80, 0, 0, 0, 0, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x81, 0, 0, 0, 1, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x81, 0, 2, 0}), (Bytes{0, 0}));
    haltIn();
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x81, 0, 2, 0}), (Bytes{1, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x02, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x00, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x80, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x83, 0, 2, 0}), std::nullopt);
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x01, 0, 2, 0}), std::nullopt);
}

TEST_F(Control, HaltIsClearedOnItsOwnEndpointAlone) {
    haltIn();
    EXPECT_EQ(ask({0x02, 1, 0, 0, 0x02, 0, 0, 0}), Bytes{});
    EXPECT_TRUE(driver.controller.isHalted(Pipe::In));
    EXPECT_EQ(ask({0x02, 1, 1, 0, 0x81, 0, 0, 0}), std::nullopt) << "another feature";
    EXPECT_EQ(ask({0x02, 1, 0, 0, 0x82, 0, 0, 0}), std::nullopt);
    EXPECT_TRUE(driver.controller.isHalted(Pipe::In));
    EXPECT_EQ(ask({0x02, 1, 0, 0, 0x81, 0, 0, 0}), Bytes{});
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
}

TEST_F(Control, SettingConfigurationOrInterfaceClearsHalts) {
    haltIn();
    EXPECT_EQ(ask({0x01, 11, 0, 0, 0, 0, 0, 0}), Bytes{});
    EXPECT_TRUE(driver.controller.isHalted(Pipe::In)) << "interface 0 has no pipes";
    EXPECT_EQ(ask({0x01, 11, 0, 0, 1, 0, 0, 0}), Bytes{});
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
    driver.controller.reset();
    haltIn();
    ask({0x00, 9, 1, 0, 0, 0, 0, 0});
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
}

TEST_F(Control, AddressIsAcknowledged) {
    EXPECT_EQ(ask({0x00, 5, 7, 0, 0, 0, 0, 0}), Bytes{});
}

TEST_F(Control, UnknownClassAndVendorRequestsStall) {
    EXPECT_EQ(ask({0x21, 1, 0, 1, 0, 0, 2, 0}), std::nullopt) << "audio class";
    EXPECT_EQ(ask({0xC0, 0, 0, 0, 0, 0, 2, 0}), std::nullopt) << "vendor";
    EXPECT_EQ(ask({0x00, 3, 1, 0, 0, 0, 0, 0}), std::nullopt) << "set feature";
    EXPECT_EQ(ask({0x00, 7, 0, 1, 0, 0, 18, 0}), std::nullopt) << "set descriptor";
    EXPECT_EQ(ask({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}), std::nullopt);
}

} // namespace
} // namespace scenewright::usbip
