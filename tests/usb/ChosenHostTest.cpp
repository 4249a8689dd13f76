#include "tests/usb/TransportFixture.h"
#include "usb/LibusbHost.h"

namespace scenewright::testing {
namespace {

class ChosenHostTest : public TransportFixture {
protected:
    void SetUp() override {
        TransportFixture::SetUp();
        script->devices = {{.name = "one", .port = "1-1"}, {.name = "two", .port = "1-2"}};
        Transport::instance().use(offerChosen(makeScriptedHost(script), [this] { return port; }),
                                  [](std::chrono::nanoseconds) {});
    }

    // The name of the device that discovery finds; empty for none.
    [[nodiscard]] static std::string found() {
        return InterfaceAction::FindDevice() ? Transport::instance().device()->name() : "";
    }

    std::optional<std::string> port;
};

TEST_F(ChosenHostTest, DiscoveryFindsTheOneThatIsOfferedNow) {
    const std::vector<std::pair<std::optional<std::string>, std::string>> rows{
        {std::nullopt, "one"}, {"1-2", "two"}, {"1-1", "one"}, {"1-3", ""}};
    for (const auto& [offered, name] : rows) {
        port = offered;
        EXPECT_EQ(found(), name) << offered.value_or("any");
    }
}

TEST_F(ChosenHostTest, TheOthersAreNotEvenLookedAt) {
    port = "1-2";
    ASSERT_EQ(found(), "two");
    EXPECT_EQ(script->callsOf({"prepare", "vendor", "product"}),
              (Texts{"prepare two", "vendor two", "product two"}));
}

TEST_F(ChosenHostTest, WhatTheBusRefusesIsRefused) {
    script->fail(UsbStep::ListDevices, kResultAccess);
    EXPECT_EQ(found(), "");
    EXPECT_EQ(Transport::instance().connectFailure, kResultAccess);
    forget();
    script->fail(UsbStep::MatchVendor, kResultNotSupported);
    EXPECT_EQ(found(), "");
    EXPECT_EQ(log.front(), "NO FOUND idVendor");
    script->storageResult = failure("full");
    EXPECT_EQ(Transport::instance().host()->storageResult().error(), "full");
}

} // namespace
} // namespace scenewright::testing
