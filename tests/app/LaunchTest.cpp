#include "app/Launch.h"

#include "platform/Diagnostics.h"
#include "platform/Resources.h"
#include "tests/support/TempFolder.h"
#include "usb/InterfaceAction.h"
#include "usb/Transport.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>

namespace scenewright::testing {

namespace {

// A device list of the user's own.
class LaunchTest : public ::testing::Test {
protected:
    LaunchTest() {
        Resources::setFolder(folder_.path());
        Diagnostics::setConsole([](std::string_view) {});
        Diagnostics::setLog([](std::string_view) {});
    }
    ~LaunchTest() override {
        Transport::instance().use(nullptr);
        Diagnostics::setConsole({});
        Diagnostics::setLog({});
        Resources::setFolder({});
    }

    void list(const std::string& entries) const {
        std::ofstream(folder_.file("project.plist"))
            << "<plist version=\"1.0\"><array>" << entries << "</array></plist>";
    }
    static std::string entry(int vendor, int product) {
        return "<dict><key>VID</key><integer>" + std::to_string(vendor) +
               "</integer><key>PID</key><integer>" + std::to_string(product) + "</integer></dict>";
    }

    static Result<void> connectVirtual() {
        LaunchOptions options;
        options.isVirtual = true;
        return connectHost(options).map([](const auto&) {});
    }

    TempFolder folder_;
};

} // namespace

TEST_F(LaunchTest, VirtualControllerIsFoundWhateverKeyboardsAreListed) {
    const std::array lists{entry(4617, 1), entry(4617, 2), entry(65535, 40000) + entry(1, 2),
                           "<dict><key>VID</key><string>x</string></dict>" + entry(0, 65535)};
    for (const std::string& entries : lists) {
        SCOPED_TRACE(entries);
        list(entries);
        ASSERT_TRUE(connectVirtual().has_value());
        EXPECT_TRUE(InterfaceAction::FindDevice());
    }
}

TEST_F(LaunchTest, VirtualControllerIsNotFoundWithAListThatHasNoKeyboard) {
    list("");
    ASSERT_TRUE(connectVirtual().has_value());
    EXPECT_FALSE(InterfaceAction::FindDevice());
}

} // namespace scenewright::testing
