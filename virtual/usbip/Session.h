// One USB/IP connection, with no socket in it: bytes in, bytes out; and what all connections share.
//
// A connection asks for devices or imports one; then it carries transfers. Its end, for whatever
// reason, unplugs the device from that host. One thread.
#pragma once

#include "virtual/VirtualController.h"
#include "virtual/usbip/BackgroundFiles.h"
#include "virtual/usbip/BusDevice.h"

#include <memory>
#include <span>
#include <string>

namespace scenewright::usbip {

// How the kernel numbers the speeds of USB.
inline constexpr std::uint32_t kFullSpeed = 2;

// The one device that a server gives away.
struct ServerState {
    VirtualController& controller;
    BankSaver& saver;
    VirtualIdentity identity;
    LineSink trace;       // one line a transfer that ended; may be empty
    bool isTaken = false; // by a connection, which gives it back at its end
    Playing playing{};    // of the controller, by orders
};

// Device 2 on bus 1 under the bus id "1-1", for want of a bus.
[[nodiscard]] DeviceRecord recordOf(const VirtualIdentity& identity);
// The device as a transfer names it.
[[nodiscard]] std::uint32_t deviceNumberOf(const DeviceRecord& record);

// A transfer that has ended as one line of text:
//
//   12 ep2 out ok 4: 09 9c 01 02
//   13 ep0 in ok 18 (80 06 00 01 00 00 12 00): 12 01 10 01 ...
//   14 ep1 in stall 0
//   15 unlinked
//
// The transfer's number, endpoint, direction, how it ended (ok, stall, failed, overflow), the
// bytes carried, a control transfer's setup stage in parentheses, and the bytes.
[[nodiscard]] std::string traceLine(const Completion& completion);
// The transfer of this number was cancelled before it ended.
[[nodiscard]] std::string unlinkTraceLine(std::uint32_t sequence);

class Session {
public:
    // How a connection begins: with questions, or (handed to a kernel) attached already.
    enum class Start : std::uint8_t { Asking, Attached };
    // What is to become of the connection. When it is done or unplugged, what was put out is still
    // sent; a dropped one ends at once.
    enum class State : std::uint8_t { Open, Done, Dropped, Unplugged };

    // A client that does not take its answers is dropped when more bytes than these wait for it.
    static constexpr std::size_t kMaxUnsent = std::size_t{256} << 10U;

    // `server` must outlive the session. Attaching plugs the controller in anew.
    Session(ServerState& server, Start start);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    Session(Session&&) = delete;
    Session& operator=(Session&&) = delete;

    // Takes bytes in pieces of any size. Nothing once the session is not open any more.
    void receive(ByteView bytes);
    // As BusDevice::play(); false also while it is not attached.
    bool play(std::span<const Packet> packets);
    // What is to be sent, in order; the caller removes what it has sent.
    [[nodiscard]] Bytes& output() noexcept { return output_; }
    // Whether the output must wait: a host learns that a send has ended when it is kept.
    [[nodiscard]] bool isHeld() const { return isAttached() && server_.saver.isSaving(); }

    [[nodiscard]] State state() const noexcept { return state_; }
    [[nodiscard]] bool isAttached() const noexcept { return device_ != nullptr; }
    // Why it is dropped.
    [[nodiscard]] const std::string& error() const noexcept { return error_; }

private:
    // Each takes one message from the input; false when more bytes are needed.
    bool takeOperation();
    bool takeImport();
    bool takeCommand();
    bool takeSubmit(const SubmitCommand& command);
    void takeUnlink(const UnlinkCommand& command);
    void import(const std::string& busId);
    void attach();
    void detach();
    void answerCompletions();
    void send(const Bytes& message);
    bool drop(std::string error); // false
    [[nodiscard]] ByteView inputStart(std::size_t size) const {
        return ByteView(input_).first(size);
    }

    ServerState& server_;
    const DeviceRecord record_;
    std::unique_ptr<BusDevice> device_; // null while the connection has no device
    State state_ = State::Open;
    std::string error_;
    Bytes input_; // at most one message and what came with it
    Bytes output_;
};

} // namespace scenewright::usbip
