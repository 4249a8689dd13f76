#include "tests/protocol/DeviceTest.h"

#include "model/MessageValue.h"
#include "platform/Diagnostics.h"
#include "platform/MainQueue.h"
#include "platform/Resources.h"
#include "protocol/Transactions.h"
#include "usb/InterfaceAction.h"

#include <fstream>

namespace scenewright::testing {

DeviceTest::DeviceTest() {
    std::ofstream(resources_.file("project.plist"))
        << R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><array><dict>)"
           "<key>VID</key><integer>4617</integer><key>PID</key><integer>1</integer>"
           "</dict></array></plist>";
    Resources::setFolder(resources_.path());
    Transport::instance().use(makeScriptedHost(script), [this](std::chrono::nanoseconds pause) {
        pauses.push_back(pause);
        if (onPause)
            onPause();
    });
    Diagnostics::setLog([this](std::string_view line) {
        log.emplace_back(line);
        events.push_back("log " + std::string(line));
        script->note(events.back());
    });
    Diagnostics::setConsole([this](std::string_view text) {
        console.emplace_back(text);
        script->note("console " + std::string(text));
    });
    Progress::forget();
    observed_ =
        Progress::record()->addObserver("Message", [this](auto, const MessageValue::Text& text) {
            messages.push_back(text.value());
            events.push_back("message " + text.value());
            script->note(events.back());
        });
}

DeviceTest::~DeviceTest() {
    SendJob::waitForEnd();
    SendJob::join();
    Diagnostics::setLog({});
    Diagnostics::setConsole({});
    Transport::instance().use(nullptr);
    Progress::forget();
    Resources::setFolder({});
}

Lines DeviceTest::withoutMessages() const {
    Lines lines = script->events;
    std::erase_if(lines, [](const std::string& line) { return line.starts_with("message "); });
    return lines;
}

void DeviceTest::takeInterface() {
    ASSERT_TRUE(InterfaceAction::FindDevice());
    ASSERT_TRUE(InterfaceAction::CreateInterface());
    log.clear();
    console.clear();
    script->calls.clear();
}

} // namespace scenewright::testing
