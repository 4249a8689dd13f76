// A USB host that does what a test tells it to, and records every step it was asked for.
//
// Each step is a function of the seam and has its name; calls holds, in order, the name and what it
// was called with:
//
//   canMatch 1209 0001 | canMatch any any   devices any any
//   prepare one                             vendor one               product one
//   interface one 1                         interfaceClass one/1     open one/1
//   endpointCount one/1                     pipeProperties one/1 2
//   write one/1 2 09 9c 01 02               read one/1 1 63
//   close one/1                             release one/1
//
// What a step gives is scripted by its name; a name that is no step's is refused. Like the seam,
// one thread at a time uses it, but for close().
#pragma once

#include "usb/UsbHost.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace scenewright::testing {

struct ScriptedInterface {
    InterfaceClass kind{.code = 1, .subClass = 3};
    std::vector<PipeProperties> pipes{
        {.direction = 1, .number = 1, .transferType = 2, .maxPacketSize = 64, .interval = 0},
        {.direction = 0, .number = 2, .transferType = 2, .maxPacketSize = 64, .interval = 0}};
};

struct ScriptedDevice {
    std::string name = "one";
    std::string port{};
    std::uint16_t vendor = 0x1209;
    std::uint16_t product = 0x0001;
    std::vector<ScriptedInterface> interfaces = std::vector<ScriptedInterface>(2);
};

struct ScriptedReply {
    std::vector<std::uint8_t> bytes; // cut to the room of the read
    ResultCode result = kResultSuccess;
};

// What the host and all that it handed out share; a test reads and writes it freely while no other
// thread uses the host.
struct HostScript {
    std::vector<ScriptedDevice> devices{ScriptedDevice{}};
    std::deque<ScriptedReply> replies;
    // What a read does without a reply; without this, it returns kResultTimeout at once.
    std::function<ResultCode()> whenNoReply;
    // A read without a reply waits until its interface is closed, and is cancelled then.
    bool readsWait = false;
    // By step: what happens while the step is taken, before it gives its outcome.
    std::map<std::string, std::function<void()>> meanwhile;
    // Told the bytes of every write that succeeded; may append replies.
    std::function<void(std::span<const std::uint8_t>)> onWrite;
    Result<void> storageResult;

    std::vector<std::string> calls;
    // The calls, and whatever else a test notes: what came before what.
    std::vector<std::string> events;

    // The n-th call of `step` from now on returns the n-th code; later calls succeed.
    void answer(const std::string& step, const std::vector<ResultCode>& codes);
    // The same for one call, where a function of the seam can fail at several steps.
    void fail(UsbStep step, ResultCode code);
    // The next call of `step` throws std::runtime_error.
    void raise(const std::string& step);

    // The calls whose step is one of `steps`, in order.
    [[nodiscard]] std::vector<std::string> callsOf(const std::vector<std::string>& steps) const;
    // Every packet written, as "09 9c 01 02".
    [[nodiscard]] std::vector<std::string> written() const;

    // Any thread.
    void note(const std::string& event);

    // For the host: records the call and gives its outcome.
    UsbResult<void> call(const std::string& step, const std::string& details);

    std::vector<std::string> claimed; // the interfaces open now; a second handle gets kResultBusy

    // Guards what is above for the host, which may be closed by another thread.
    std::mutex mutex;

private:
    std::map<std::string, std::deque<UsbError>> errors_;
    std::map<std::string, int> raises_;
};

// A host over `script`, which outlives it and all that it handed out.
[[nodiscard]] std::shared_ptr<UsbHost> makeScriptedHost(std::shared_ptr<HostScript> script);

} // namespace scenewright::testing
