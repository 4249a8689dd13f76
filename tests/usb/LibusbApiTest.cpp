#include "usb/LibusbApi.h"

#include "tests/usb/FakeLibusb.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

namespace scenewright {
namespace {

using testing::FakeDevice;
using testing::FakeEvent;
using testing::FakeInterface;
using testing::fakeLibusb;
using Bytes = std::vector<std::uint8_t>;
using Calls = std::vector<std::string>;
using Devices = std::vector<std::shared_ptr<LibusbDevice>>;

class LibusbApiTest : public ::testing::Test {
protected:
    LibusbApiTest() { fakeLibusb().reset(); }
    ~LibusbApiTest() override {
        handle.reset();
        EXPECT_TRUE(fakeLibusb().hasNothingOut());
    }

    Devices listed() {
        Devices list;
        EXPECT_EQ(api->devices(list), kResultSuccess);
        return list;
    }
    std::shared_ptr<LibusbDevice> only(FakeDevice device) {
        fakeLibusb().devices = {std::move(device)};
        return listed().at(0);
    }
    // With what the listing called forgotten.
    void open() {
        EXPECT_EQ(only({})->open(handle), kResultSuccess);
        fakeLibusb().calls.clear();
    }
    // {result, bytes moved}
    std::pair<ResultCode, std::size_t> read(std::span<std::uint8_t> room) {
        std::size_t moved = 99;
        const ResultCode result = handle->read(0x81, room, moved);
        return {result, moved};
    }
    std::pair<ResultCode, std::size_t> write(const Bytes& bytes) {
        std::size_t moved = 99;
        const ResultCode result = handle->write(0x02, bytes, moved);
        return {result, moved};
    }

    std::shared_ptr<LibusbApi> api = makeLibusbApi();
    std::unique_ptr<LibusbHandle> handle;
};

using Moved = std::pair<ResultCode, std::size_t>;

TEST_F(LibusbApiTest, ListsTheDevicesByBusAndAddress) {
    fakeLibusb().devices = {
        {.bus = 2, .address = 1, .vendor = 0x1209, .product = 0x0003},
        {.bus = 1, .address = 9, .vendor = 0x1209, .product = 0x0002},
        {.bus = 1, .address = 4, .vendor = 0x120A, .product = 0x0001},
    };
    std::vector<std::array<int, 4>> found;
    for (const auto& device : listed())
        found.push_back({device->bus(), device->address(), device->vendor(), device->product()});
    EXPECT_EQ(found, (std::vector<std::array<int, 4>>{
                         {1, 4, 0x120A, 1}, {1, 9, 0x1209, 2}, {2, 1, 0x1209, 3}}));
}

TEST_F(LibusbApiTest, TakesTheReferencesOverFromTheList) {
    fakeLibusb().devices.resize(2);
    const Devices list = listed();
    EXPECT_EQ(fakeLibusb().calls, Calls{"free list 0"});
    EXPECT_EQ(fakeLibusb().deviceReferences, 2);
}

TEST_F(LibusbApiTest, LeavesOutADeviceWithoutADescriptor) {
    fakeLibusb().devices = {{.descriptorResult = -1}, {.product = 0x0002}};
    const Devices list = listed();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0]->product(), 0x0002);
    EXPECT_EQ(fakeLibusb().deviceReferences, 1);
}

TEST_F(LibusbApiTest, AListingEndsWithItsContextWhenNothingIsKept) {
    fakeLibusb().devices.resize(2);
    EXPECT_EQ(listed().size(), 2U);
    EXPECT_TRUE(fakeLibusb().hasNothingOut());
}

TEST_F(LibusbApiTest, EachListingStartsAnew) {
    const auto first = only({});
    const auto second = listed().at(0);
    EXPECT_EQ(fakeLibusb().contexts, 2);
}

TEST_F(LibusbApiTest, TellsWhyTheLibraryDoesNotStart) {
    fakeLibusb().initResult = -99;
    Devices list;
    EXPECT_EQ(api->devices(list), kResultOther);
    EXPECT_TRUE(list.empty());
}

TEST_F(LibusbApiTest, TellsWhyThereIsNoList) {
    fakeLibusb().listResult = -11;
    Devices list;
    EXPECT_EQ(api->devices(list), kResultNoMemory);
    EXPECT_TRUE(list.empty());
}

TEST_F(LibusbApiTest, DescribesTheFirstAltsettingOfEachInterface) {
    const auto device = only({.interfaces = {
                                  {.number = 0, .interfaceClass = 1, .subClass = 1},
                                  {.number = 1,
                                   .alternateSetting = 2,
                                   .interfaceClass = 1,
                                   .subClass = 3,
                                   .protocol = 4,
                                   .endpoints = {{0x81, 2, 64, 0}, {0x02, 3, 512, 5}}},
                              }});
    std::vector<LibusbInterfaceDescriptor> list;
    ASSERT_EQ(device->interfaces(list), kResultSuccess);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(std::tuple(list[0].number, list[0].interfaceClass, list[0].subClass),
              std::tuple(0, 1, 1));
    EXPECT_TRUE(list[0].endpoints.empty());
    EXPECT_EQ(std::tuple(list[1].number, list[1].alternateSetting, list[1].interfaceClass,
                         list[1].subClass, list[1].protocol),
              std::tuple(1, 2, 1, 3, 4));
    std::vector<std::array<int, 4>> endpoints;
    for (const LibusbEndpoint& each : list[1].endpoints)
        endpoints.push_back({each.address, each.attributes, each.maxPacketSize, each.interval});
    EXPECT_EQ(endpoints, (std::vector<std::array<int, 4>>{{0x81, 2, 64, 0}, {0x02, 3, 512, 5}}));
}

TEST_F(LibusbApiTest, LeavesOutAnInterfaceWithoutAltsettings) {
    const auto device =
        only({.interfaces = {{.number = 0, .hasAltsettings = false}, {.number = 1}}});
    std::vector<LibusbInterfaceDescriptor> list;
    ASSERT_EQ(device->interfaces(list), kResultSuccess);
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].number, 1);
}

TEST_F(LibusbApiTest, ADeviceWithoutAConfigurationHasNoInterfaces) {
    const auto device = only({.interfaces = {{}}, .configurationResult = -5});
    std::vector<LibusbInterfaceDescriptor> list;
    EXPECT_EQ(device->interfaces(list), kResultNotFound);
    EXPECT_TRUE(list.empty());
}

TEST_F(LibusbApiTest, TellsWhyADeviceDoesNotOpen) {
    EXPECT_EQ(only({.openResult = -3})->open(handle), kResultAccess);
    EXPECT_EQ(handle, nullptr);
}

TEST_F(LibusbApiTest, AHandleKeepsItsDeviceAndTheLibrary) {
    open();
    EXPECT_EQ(fakeLibusb().handles, 1);
    EXPECT_EQ(fakeLibusb().deviceReferences, 1);
    EXPECT_EQ(fakeLibusb().contexts, 1);
}

TEST_F(LibusbApiTest, DriversAndClaimsGoToTheInterfaceThatIsNamed) {
    open();
    EXPECT_EQ(handle->detachDriver(1), kResultSuccess);
    EXPECT_EQ(handle->claim(2), kResultSuccess);
    EXPECT_EQ(handle->release(3), kResultSuccess);
    EXPECT_EQ(handle->attachDriver(4), kResultSuccess);
    EXPECT_EQ(handle->clearHalt(2), kResultSuccess);
    EXPECT_EQ(fakeLibusb().calls,
              (Calls{"detach 1", "claim 2", "release 3", "attach 4", "clear 2"}));
}

TEST_F(LibusbApiTest, DriversAndClaimsTellTheirErrors) {
    open();
    fakeLibusb().driverResult = -6;
    bool bound = true;
    EXPECT_EQ(handle->hasDriver(0, bound), kResultBusy);
    EXPECT_FALSE(bound);
    EXPECT_EQ(handle->detachDriver(0), kResultBusy);
    EXPECT_EQ(handle->claim(0), kResultBusy);
    EXPECT_EQ(handle->release(0), kResultBusy);
    EXPECT_EQ(handle->attachDriver(0), kResultBusy);
    EXPECT_EQ(handle->clearHalt(0), kResultBusy);
}

TEST_F(LibusbApiTest, TellsWhetherADriverHoldsAnInterface) {
    open();
    bool bound = false;
    fakeLibusb().driverResult = 1;
    EXPECT_EQ(handle->hasDriver(1, bound), kResultSuccess);
    EXPECT_TRUE(bound);
    fakeLibusb().driverResult = 0;
    EXPECT_EQ(handle->hasDriver(1, bound), kResultSuccess);
    EXPECT_FALSE(bound);
    EXPECT_EQ(fakeLibusb().calls, (Calls{"active 1", "active 1"}));
}

TEST_F(LibusbApiTest, AWriteTakesItsBytesToTheEndpointWithoutATimeLimit) {
    open();
    EXPECT_EQ(write({0x09, 0x9C, 0x01, 0x02}), (Moved{kResultSuccess, 4}));
    EXPECT_EQ(fakeLibusb().calls, (Calls{"write 02: 09 9c 01 02, 0 ms", "events, completed 0"}));
}

TEST_F(LibusbApiTest, AReadFillsTheRoomWithWhatComes) {
    open();
    fakeLibusb().events = {{.delivers = {7, 8, 9}}};
    std::array<std::uint8_t, 63> room{};
    EXPECT_EQ(read(room), (Moved{kResultSuccess, 3}));
    EXPECT_EQ(Bytes(room.begin(), room.begin() + 4), (Bytes{7, 8, 9, 0}));
    EXPECT_EQ(fakeLibusb().calls, (Calls{"read 81: 63 bytes, 0 ms", "events, completed 0"}));
}

TEST_F(LibusbApiTest, ATransferThatFailsTellsWhyAndHowFarItCame) {
    open();
    fakeLibusb().events = {{.status = 4, .moved = 2}};
    EXPECT_EQ(write({1, 2, 3, 4}), (Moved{kResultStall, 2}));
}

TEST_F(LibusbApiTest, EventsAreHandledUntilTheTransferIsDone) {
    open();
    fakeLibusb().events = {{.completes = false}, {.completes = false}, {.delivers = {5}}};
    std::array<std::uint8_t, 4> room{};
    EXPECT_EQ(read(room), (Moved{kResultSuccess, 1}));
    EXPECT_EQ(fakeLibusb().calls.size(), 4U);
}

TEST_F(LibusbApiTest, AnInterruptedRoundOfEventsCancelsNothing) {
    open();
    fakeLibusb().events = {{.result = -10, .completes = false}, {.delivers = {5}}};
    std::array<std::uint8_t, 4> room{};
    EXPECT_EQ(read(room), (Moved{kResultSuccess, 1}));
    EXPECT_EQ(fakeLibusb().calls,
              (Calls{"read 81: 4 bytes, 0 ms", "events, completed 0", "events, completed 0"}));
}

TEST_F(LibusbApiTest, ABusThatHandlesNoEventsCancelsTheTransfer) {
    open();
    fakeLibusb().events = {{.result = -1, .completes = false}, {.delivers = {5}}};
    std::array<std::uint8_t, 4> room{};
    EXPECT_EQ(read(room), (Moved{kResultCancelled, 0}));
    EXPECT_EQ(fakeLibusb().calls, (Calls{"read 81: 4 bytes, 0 ms", "events, completed 0", "cancel",
                                         "events, completed 0"}));
}

TEST_F(LibusbApiTest, ATransferThatIsRefusedMovesNothing) {
    open();
    fakeLibusb().submitResult = -4;
    EXPECT_EQ(write({1}), (Moved{kResultNoDevice, 0}));
    EXPECT_EQ(fakeLibusb().calls, Calls{"write 02: 01, 0 ms"});
    api->cancelTransfers();
    EXPECT_EQ(fakeLibusb().calls.size(), 1U) << "cancelled what was never in flight";
}

TEST_F(LibusbApiTest, ATransferThatCannotBeHadMovesNothing) {
    open();
    fakeLibusb().isOutOfMemory = true;
    EXPECT_EQ(write({1}), (Moved{kResultNoMemory, 0}));
    EXPECT_EQ(fakeLibusb().calls, Calls{});
}

TEST_F(LibusbApiTest, CancellingEndsTheTransferInFlight) {
    open();
    fakeLibusb().events = {{.completes = false, .meanwhile = [this] { api->cancelTransfers(); }},
                           {.delivers = {5}}};
    std::array<std::uint8_t, 4> room{};
    EXPECT_EQ(read(room), (Moved{kResultCancelled, 0}));
}

TEST_F(LibusbApiTest, AfterCancellingNoTransferStarts) {
    open();
    api->cancelTransfers();
    EXPECT_EQ(write({1}), (Moved{kResultCancelled, 0}));
    EXPECT_EQ(fakeLibusb().calls, Calls{});
}

TEST_F(LibusbApiTest, ATransferThatIsDoneIsNoneToCancel) {
    open();
    EXPECT_EQ(write({1}), (Moved{kResultSuccess, 1}));
    api->cancelTransfers();
    EXPECT_EQ(fakeLibusb().calls, (Calls{"write 02: 01, 0 ms", "events, completed 0"}));
}

} // namespace
} // namespace scenewright
