// The ground of the tests that talk to a device: the transport's, with a fake controller behind the
// scripted host, a pause that is only counted, and what the progress record tells.
#pragma once

#include "model/MessageValue.h"
#include "tests/protocol/FakeController.h"
#include "tests/support/NoMoreThreads.h"
#include "tests/usb/TransportFixture.h"

#include <functional>
#include <string>
#include <vector>

namespace scenewright::testing {

using Lines = std::vector<std::string>;

class DeviceTest : public TransportFixture {
protected:
    void SetUp() override;
    // Waits for a send job that the test left running.
    void TearDown() override;

    // The host's calls and both streams, in the order in which they came.
    [[nodiscard]] Lines withoutMessages() const;
    // The log and the messages as they came: "log TEXT", "message TEXT".
    [[nodiscard]] Lines told() const;
    // The packets written, "09 9c 01 02" each.
    [[nodiscard]] Lines written() const { return script->written(); }

    FakeController controller{script};
    // Called on each pause, on the thread that pauses; the pauses are counted in any case.
    std::function<void()> onPause;
    Lines messages; // every text of the progress record's Message

private:
    MessageValue::Subscription observed_;
};

} // namespace scenewright::testing
