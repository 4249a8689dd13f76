// A keyboard that can be plugged in, on a transport without pauses.
#pragma once

#include "app/DeviceSession.h"
#include "protocol/Transactions.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace scenewright::testing {

[[nodiscard]] inline BankImage filled(std::uint8_t byte) {
    BankImage image{};
    image.fill(byte);
    return image;
}

// Its name is "Keys"; nothing is known of it before and after a test.
class KeyboardBench : public ::testing::Test {
protected:
    KeyboardBench() {
        KnownKeyboard::setNaming([] { return std::string("Keys"); });
    }
    ~KeyboardBench() override {
        SendJob::waitForEnd();
        SendJob::join();
        unplug();
        KnownKeyboard::forget();
        KnownKeyboard::setNaming({});
    }
    KeyboardBench(const KeyboardBench&) = delete;
    KeyboardBench& operator=(const KeyboardBench&) = delete;

    void plugIn(const BankImage& held, FaultPlan faults = {}) {
        controller = std::make_shared<VirtualController>(held, std::move(faults));
        Transport::instance().use(makeVirtualHost(controller), [](std::chrono::nanoseconds) {});
    }
    void unplug() {
        controller.reset();
        Transport::instance().use(nullptr);
    }

    std::shared_ptr<VirtualController> controller;
};

} // namespace scenewright::testing
