// A USB bus in place of libusb: devices with descriptors, a kernel with a sound driver, and a
// record of every call that changes something.
//
// The kernel behaves as Linux does: only a probe of the audio control interface binds the sound
// driver, which takes along the other audio interfaces that nobody holds; an interface that a
// driver or another program holds cannot be claimed.
//
// calls holds, in order: open, detach 1, detach 0, claim 1, write 02 4, read 81 63, clear 81,
// release 1, attach 0, close, cancel.
#pragma once

#include "usb/LibusbApi.h"

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace scenewright::testing {

enum class Holder : std::uint8_t { Nobody, Driver, OtherProgram, Us };

struct BusReply {
    std::vector<std::uint8_t> bytes;
    ResultCode result = kResultSuccess;
};

// What the bus and all that it handed out share; a test reads and writes it freely.
struct BusScript {
    std::vector<LibusbInterfaceDescriptor> interfaces{
        {.number = 0, .interfaceClass = 1, .subClass = 1},
        {.number = 1,
         .interfaceClass = 1,
         .subClass = 3,
         .endpoints = {{.address = 0x81, .attributes = 2, .maxPacketSize = 64, .interval = 0},
                       {.address = 0x02, .attributes = 2, .maxPacketSize = 64, .interval = 0}}}};
    std::vector<std::uint16_t> products{0x0001}; // one device each, all of vendor 0x1209
    std::vector<Holder> holders{Holder::Driver, Holder::Driver};
    bool isPlugged = true;
    std::deque<BusReply> replies;
    std::size_t writesShortBy = 0;

    std::map<std::string, ResultCode> failures; // by call, such as "open" or "detach 0"
    std::vector<std::string> calls;

    // Records the call and gives its scripted failure, or kResultNoDevice when unplugged.
    ResultCode call(const std::string& name);
};

[[nodiscard]] std::shared_ptr<LibusbApi> makeScriptedBus(std::shared_ptr<BusScript> script);

} // namespace scenewright::testing
