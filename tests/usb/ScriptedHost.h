// A USB host that does what a test tells it to, and records every step it was asked for.
//
// Each step has a name; calls holds, in order, the name and what it was called with:
//
//   serviceMatching IOUSBDevice             addNumber idVendor=4617
//   matchingServices IOUSBDevice            nextService one | nextService none
//   makePlugIn one device CLIENT PLUGIN     releaseService one
//   queryDevice one IDENTIFIER              releasePlugIn one
//   vendor one                              product one
//   interfaceIterator one ffff ffff ffff ffff
//   makePlugIn one/1 interface CLIENT PLUGIN
//   queryInterface one/1 IDENTIFIER         interfaceClass one/1
//   open one/1                              close one/1
//   endpointCount one/1                     pipeProperties one/1 2
//   write one/1 2 09 9c 01 02               read one/1 1 63
//   releaseInterface one/1                  releaseDevice one
//   releaseIterator IOUSBDevice             cancelTransfers
//
// Identifiers are 32 hexadecimal digits. What a step returns is scripted by its name.
#pragma once

#include "usb/UsbHost.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace scenewright::testing {

struct ScriptedInterface {
    std::uint8_t interfaceClass = 1;
    std::uint8_t subClass = 3;
    std::vector<PipeProperties> pipes{
        {.direction = 1, .number = 1, .transferType = 2, .maxPacketSize = 64, .interval = 0},
        {.direction = 0, .number = 2, .transferType = 2, .maxPacketSize = 64, .interval = 0}};
};

struct ScriptedDevice {
    std::string name = "one";
    std::uint16_t vendor = 0x1209;
    std::uint16_t product = 0x0001;
    std::vector<ScriptedInterface> interfaces = std::vector<ScriptedInterface>(2);
};

struct ScriptedReply {
    std::vector<std::uint8_t> bytes; // cut to the room of the read
    ResultCode result = kResultSuccess;
};

// What the host and all that it handed out share; a test reads and writes it freely.
struct HostScript {
    std::vector<ScriptedDevice> devices{ScriptedDevice{}};
    std::deque<ScriptedReply> replies;
    // What a read does without a reply; without this, it returns kResultTimeout at once.
    std::function<ResultCode()> whenNoReply;
    std::function<void()> onCancel;
    // By step: what happens while the step is taken, before it gives its outcome.
    std::map<std::string, std::function<void()>> meanwhile;
    // Told the bytes of every write that succeeded; may append replies.
    std::function<void(std::span<const std::uint8_t>)> onWrite;

    std::vector<std::string> calls;

    // The n-th call of `step` from now on returns the n-th code; later calls succeed.
    void answer(const std::string& step, const std::vector<ResultCode>& codes);
    // The next call of `step` succeeds but gives null (or false, or no dictionary).
    void giveNothing(const std::string& step);
    // addNumber() fails for `key`.
    void refuseNumber(const std::string& key) { refusedNumber = key; }
    // The next call of `step` throws std::runtime_error.
    void raise(const std::string& step);

    // The calls whose step is one of `steps`, in order.
    [[nodiscard]] std::vector<std::string> callsOf(const std::vector<std::string>& steps) const;
    // Every packet written, as "09 9c 01 02".
    [[nodiscard]] std::vector<std::string> written() const;

    // For the host: records the call and gives its outcome.
    struct Outcome {
        ResultCode result = kResultSuccess;
        bool givesNothing = false;
    };
    Outcome call(const std::string& step, const std::string& details);

    std::string refusedNumber;
    std::vector<std::string> claimed; // the interfaces open now; a second handle gets kResultBusy

private:
    std::map<std::string, std::deque<ResultCode>> codes_;
    std::map<std::string, int> nothings_;
    std::map<std::string, int> raises_;
};

// A host over `script`, which outlives it and all that it handed out.
[[nodiscard]] std::shared_ptr<UsbHost> makeScriptedHost(std::shared_ptr<HostScript> script);

} // namespace scenewright::testing
