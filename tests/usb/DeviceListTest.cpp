#include "usb/DeviceList.h"

#include "tests/usb/TransportFixture.h"

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
    list({{"4617", "1"}});
    EXPECT_EQ(pairs().size(), 1U);
    list({});
    EXPECT_TRUE(pairs().empty());
}

} // namespace
} // namespace scenewright::testing
