#include "tests/support/TempFolder.h"
#include "tests/usb/TransportFixture.h"
#include "usb/Devices.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

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
