// The ground of the tests that talk to a device: a scripted host that lists one supported device, a
// fake controller behind it, a pause that does not wait, and everything the system said.
#pragma once

#include "model/MessageValue.h"
#include "tests/protocol/FakeController.h"
#include "tests/support/NoMoreThreads.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace scenewright::testing {

using Lines = std::vector<std::string>;

class DeviceTest : public ::testing::Test {
protected:
    DeviceTest();
    // Waits for a send job that the test left running.
    ~DeviceTest() override;

    // Finds the device and takes its interface, as a transaction does before its handshake.
    void takeInterface();

    // The host's calls and both streams, in the order in which they came.
    [[nodiscard]] Lines withoutMessages() const;
    // The packets written, "09 9c 01 02" each.
    [[nodiscard]] Lines written() const { return script->written(); }

    std::shared_ptr<HostScript> script = std::make_shared<HostScript>();
    FakeController controller{script};
    // Called on each pause, on the thread that pauses; the pauses are counted in any case.
    std::function<void()> onPause;

    Lines log;      // system-log lines
    Lines console;  // pieces of console text
    Lines messages; // every text of the progress record's Message
    Lines events;   // log lines and messages as they came: "log TEXT", "message TEXT"
    std::vector<std::chrono::nanoseconds> pauses;

private:
    TempFolder resources_;
    MessageValue::Subscription observed_;
};

} // namespace scenewright::testing
