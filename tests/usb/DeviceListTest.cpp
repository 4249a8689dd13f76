#include "tests/usb/TransportFixture.h"
#include "usb/AttachedDevices.h"

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

} // namespace
} // namespace scenewright::testing
