#include "tests/protocol/DeviceTest.h"

#include "protocol/Transactions.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string_view>

namespace scenewright::testing {

namespace {

constexpr std::string_view kMessage = "message ";

} // namespace

void DeviceTest::SetUp() {
    TransportFixture::SetUp();
    Transport::instance().use(makeScriptedHost(script), [this](std::chrono::nanoseconds pause) {
        pauses.push_back(pause);
        if (onPause)
            onPause();
    });
    Progress::forget();
    observed_ =
        Progress::record()->addObserver("Message", [this](auto, const MessageValue::Text& text) {
            messages.push_back(text.value());
            script->note(std::string(kMessage) + text.value());
        });
}

void DeviceTest::TearDown() {
    SendJob::waitForEnd();
    SendJob::join();
    TransportFixture::TearDown();
    Progress::forget();
}

Lines DeviceTest::withoutMessages() const {
    Lines lines = script->events;
    std::erase_if(lines, [](const std::string& line) { return line.starts_with(kMessage); });
    return lines;
}

Lines DeviceTest::told() const {
    Lines lines;
    std::ranges::copy_if(script->events, std::back_inserter(lines), [](const std::string& line) {
        return line.starts_with("log ") || line.starts_with(kMessage);
    });
    return lines;
}

} // namespace scenewright::testing
