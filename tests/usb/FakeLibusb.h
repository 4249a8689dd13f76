// Stands in for the USB library below usb/LibusbApi.cpp: a test program that holds it calls this in
// the library's place. It does what a test tells it, and counts what it has handed out.
//
// One bus for the process; reset() it at the start of each case. One thread.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace scenewright::testing {

// Endpoint and altsetting as their descriptors have them.
struct FakeEndpoint {
    std::uint8_t address = 0;
    std::uint8_t attributes = 0;
    std::uint16_t maxPacketSize = 0;
    std::uint8_t interval = 0;
};
struct FakeInterface {
    std::uint8_t number = 0;
    std::uint8_t alternateSetting = 0;
    std::uint8_t interfaceClass = 0;
    std::uint8_t subClass = 0;
    std::uint8_t protocol = 0;
    std::vector<FakeEndpoint> endpoints{};
    bool hasAltsettings = true;
};
struct FakeDevice {
    std::uint8_t bus = 1;
    std::uint8_t address = 1;
    std::uint16_t vendor = 0x1209;
    std::uint16_t product = 0x0001;
    std::vector<FakeInterface> interfaces{};
    int descriptorResult = 0; // libusb_error, as all results here
    int configurationResult = 0;
    int openResult = 0;
};

// One round of event handling: what it returns, and how it ends the transfer in flight, if it does.
struct FakeEvent {
    int result = 0;
    bool completes = true;
    int status = 0; // libusb_transfer_status
    std::vector<std::uint8_t> delivers{};
    int moved = -1; // the bytes moved; -1: all that were asked for, or all that it delivers
    std::function<void()> meanwhile{};
};

struct FakeLibusb {
    std::vector<FakeDevice> devices{};
    int initResult = 0;
    int listResult = 0;
    bool isOutOfMemory = false; // no transfer is to be had
    int submitResult = 0;
    int driverResult = 0; // of the six calls about drivers, claims and halts
    std::deque<FakeEvent> events{};

    // What is handed out now.
    int contexts = 0;
    int deviceReferences = 0;
    int configurations = 0;
    int handles = 0;
    int transfers = 0;

    // "claim 1", "write 02: 09 9c", "read 81: 64 without limit", "cancel" ...
    std::vector<std::string> calls{};

    [[nodiscard]] bool hasNothingOut() const {
        return contexts == 0 && deviceReferences == 0 && configurations == 0 && handles == 0 &&
               transfers == 0;
    }
    void reset() { *this = {}; }
};

FakeLibusb& fakeLibusb();

} // namespace scenewright::testing
