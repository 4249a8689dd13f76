// The transport over a scripted host, with both diagnostic streams caught, no real pause, and a
// list of supported devices of the test's own. script->events holds the host's calls and both
// streams in one order: "open one/1", "console Unable to ...", "log ...".
#pragma once

#include "platform/Diagnostics.h"
#include "platform/Resources.h"
#include "tests/support/TempFolder.h"
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
        text.append("<dict><key>VID</key><integer>")
            .append(vendor)
            .append("</integer><key>PID</key>")
            .append("<integer>")
            .append(product)
            .append("</integer></dict>");
    return text + "</array></plist>\n";
}

class TransportFixture : public ::testing::Test {
protected:
    using Texts = std::vector<std::string>;

    void SetUp() override {
        Resources::setFolder(folder_.path());
        list({{"4617", "1"}});
        Diagnostics::setConsole([this](std::string_view text) {
            console += text;
            script->note("console " + std::string(text));
        });
        Diagnostics::setLog([this](std::string_view line) {
            log.emplace_back(line);
            script->note("log " + std::string(line));
        });
        Transport::instance().use(makeScriptedHost(script), [this](std::chrono::nanoseconds pause) {
            pauses.push_back(pause);
            static_cast<void>(script->call("pause", ""));
        });
        forget();
    }

    void TearDown() override {
        Transport::instance().use(nullptr);
        Diagnostics::setConsole({});
        Diagnostics::setLog({});
        Resources::setFolder({});
    }

    void list(const std::vector<Listed>& devices) { listText(projectPlist(devices)); }
    // Every version of the file is as old as the others, so that none can be told by its time.
    void listText(const std::string& text) {
        const auto file = folder_.file("project.plist");
        std::ofstream(file) << text;
        std::filesystem::last_write_time(file, std::filesystem::file_time_type());
    }

    // Opens the first device's second interface and forgets how.
    void connect() {
        ASSERT_TRUE(InterfaceAction::FindDevice());
        ASSERT_TRUE(InterfaceAction::CreateInterface());
        forget();
    }
    void forget() {
        script->calls.clear();
        script->events.clear();
        console.clear();
        log.clear();
    }

    std::shared_ptr<HostScript> script = std::make_shared<HostScript>();
    std::string console;
    Texts log;
    std::vector<std::chrono::nanoseconds> pauses;

private:
    TempFolder folder_;
};

} // namespace scenewright::testing
