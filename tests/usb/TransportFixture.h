// The transport over a scripted host, with both diagnostic streams caught, no real pause, and a
// list of supported devices of the test's own.
#pragma once

#include "platform/Diagnostics.h"
#include "platform/Resources.h"
#include "tests/usb/ScriptedHost.h"
#include "usb/InterfaceAction.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {

// One element of project.plist: vendor, product.
using Listed = std::pair<std::string, std::string>;

inline std::string projectPlist(const std::vector<Listed>& devices) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><array>";
    for (const auto& [vendor, product] : devices)
        text += "<dict><key>VID</key><integer>" + vendor + "</integer><key>PID</key><integer>" +
                product + "</integer></dict>";
    return text + "</array></plist>\n";
}

class TransportFixture : public ::testing::Test {
protected:
    using Texts = std::vector<std::string>;

    void SetUp() override {
        std::string name = (std::filesystem::temp_directory_path() / "scenewright-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
        Resources::setFolder(folder_);
        list({{"4617", "1"}});
        Diagnostics::setConsole([this](std::string_view text) { console += text; });
        Diagnostics::setLog([this](std::string_view line) { log.emplace_back(line); });
        Transport::instance().use(makeScriptedHost(script), [this](std::chrono::nanoseconds pause) {
            pauses.push_back(pause);
            script->calls.emplace_back("pause");
        });
        script->calls.clear();
    }

    void TearDown() override {
        Transport::instance().use(nullptr);
        Diagnostics::setConsole({});
        Diagnostics::setLog({});
        Resources::setFolder({});
        std::filesystem::remove_all(folder_);
    }

    void list(const std::vector<Listed>& devices) { listText(projectPlist(devices)); }
    // Changes the list without its file's time.
    void relist(const std::vector<Listed>& devices) {
        const auto written = std::filesystem::last_write_time(folder_ / "project.plist");
        list(devices);
        std::filesystem::last_write_time(folder_ / "project.plist", written);
    }
    void listText(const std::string& text) { std::ofstream(folder_ / "project.plist") << text; }

    // Opens the first device's second interface and forgets how.
    void connect() {
        ASSERT_TRUE(InterfaceAction::FindDevice());
        ASSERT_TRUE(InterfaceAction::CreateInterface());
        forget();
    }
    void forget() {
        script->calls.clear();
        console.clear();
        log.clear();
    }

    std::shared_ptr<HostScript> script = std::make_shared<HostScript>();
    std::string console;
    Texts log;
    std::vector<std::chrono::nanoseconds> pauses;

private:
    std::filesystem::path folder_;
};

} // namespace scenewright::testing
