// Stands in for the USB library below usb/: a test program that holds it calls this in the
// library's place, and a kernel below it. It does what a test tells it, counts what it has handed
// out, and notes what is used against the library's rules.
//
// The kernel behaves as Linux does: only a probe of the audio control interface binds the sound
// driver, which takes along the other audio interfaces that nobody holds; an interface that a
// driver or another program holds cannot be claimed; a closed device's claims are dropped. As the
// library does, it takes a second claim of the same handle for the first.
//
// One bus for the process; reset() it at the start of each case. The library's functions may be
// called by any thread, and a transfer is ended by the thread that submitted it.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
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
    std::uint8_t interfaceClass = 0;
    std::uint8_t subClass = 0;
    std::vector<FakeEndpoint> endpoints{};
    bool hasAltsettings = true;
};
struct FakeDevice {
    std::uint8_t bus = 1;
    std::uint8_t address = 2;
    std::uint16_t vendor = 0x1209;
    std::uint16_t product = 0x0001;
    std::vector<FakeInterface> interfaces{{.number = 0, .interfaceClass = 1, .subClass = 1},
                                          {.number = 1,
                                           .interfaceClass = 1,
                                           .subClass = 3,
                                           .endpoints = {{0x81, 2, 64, 0}, {0x02, 2, 64, 0}}}};
    std::vector<std::uint8_t> ports{2};
    int descriptorResult = 0; // libusb_error, as all results here
    int configurationResult = 0;
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

enum class Holder : std::uint8_t { Nobody, Driver, OtherProgram, Us };

struct FakeLibusb {
    std::vector<FakeDevice> devices{FakeDevice{}};
    std::map<int, Holder> holders{{0, Holder::Driver}, {1, Holder::Driver}}; // by interface number
    bool isPlugged = true;
    // By call, such as "init", "list", "alloc", "submit", "open", "detach 0" or "clear 81".
    std::map<std::string, int> failures{};
    // Each round takes the first; without one it ends the transfer, whole.
    std::deque<FakeEvent> events{};
    int eventsResult = 0; // of the rounds that have none
    // A read without an event waits until it is cancelled.
    bool readsWait = false;
    std::function<void()> whenReadWaits{};

    // What is handed out now.
    int contexts = 0;
    int deviceReferences = 0;
    int configurations = 0;
    int handles = 0;
    int transfers = 0;
    const void* claimer = nullptr; // the handle of what is held by us
    std::vector<std::string> misuses{};

    // What changes something: "open", "detach 1", "claim 1", "write 02: 09 9c, 0 ms",
    // "read 81: 63 bytes, 0 ms", "events", "cancel", "clear 81", "release 1", "attach 0", "close".
    std::vector<std::string> calls{};
    std::function<void(const std::string& call)> whenCalled{}; // told each of these as well

    [[nodiscard]] bool hasNothingOut() const {
        return contexts == 0 && deviceReferences == 0 && configurations == 0 && handles == 0 &&
               transfers == 0;
    }
    [[nodiscard]] std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }
    void reset() { *this = {}; }
};

FakeLibusb& fakeLibusb();

// Whether this thread is inside the library, whose own memory is not the caller's business.
[[nodiscard]] bool isInLibrary() noexcept;

} // namespace scenewright::testing
