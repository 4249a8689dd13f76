// The virtual controller as a USB device: transfers are handed in, and come back when they end.
//
// An IN transfer waits until the controller has a reply for it, and can be taken back meanwhile; a
// reply waits until there is an IN transfer for it. Both have their limits. One thread at a time.
#pragma once

#include "virtual/VirtualHost.h"
#include "virtual/usbip/Protocol.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace scenewright::usbip {

// ---- What the virtual controller tells a host of itself: the descriptors of a USB MIDI keyboard.
//
// Audio control interface 0; MIDI streaming interface 1 with one embedded and one external jack
// each way, bulk IN first and bulk OUT second. Layouts are those of the USB 1.1, Audio 1.0 and MIDI
// 1.0 class documents. Pure functions; any thread.

inline constexpr std::uint8_t kInEndpoint = 1;  // address 0x81
inline constexpr std::uint8_t kOutEndpoint = 2; // address 0x02
inline constexpr std::uint8_t kConfigurationValue = 1;
inline constexpr std::uint16_t kDeviceRelease = 0x0100; // 1.00
inline constexpr std::uint8_t kMidiInterface = 1;

// Descriptor types of USB 1.1, table 9-5: in a descriptor, and in the request for one.
inline constexpr std::uint8_t kDeviceDescriptor = 1;
inline constexpr std::uint8_t kConfigurationDescriptor = 2;
inline constexpr std::uint8_t kStringDescriptor = 3;

[[nodiscard]] Bytes deviceDescriptor(const VirtualIdentity& identity);
// The configuration with all that belongs to it. One interface: the audio control alone.
[[nodiscard]] Bytes configurationDescriptor(const VirtualIdentity& identity);
// Index 0 lists the languages; 1 manufacturer, 2 product, 3 serial number. Nothing for another.
[[nodiscard]] std::optional<Bytes> stringDescriptor(std::uint8_t index);

// Endpoint 0: the requests by which a host learns what the device is and sets it up. A request that
// it does not know is answered with a stall, as a device does.
class ControlEndpoint {
public:
    // The controller must outlive the object; its halts are cleared here.
    ControlEndpoint(VirtualController& controller, VirtualIdentity identity);

    // The answer's data, at most what the request has room for, empty for a request without any;
    // nothing is a stall.
    [[nodiscard]] std::optional<Bytes> answer(const Setup& setup);

private:
    struct Request {
        std::uint8_t type; // direction, class and recipient
        std::uint8_t code;
        std::uint16_t value;
        std::uint16_t index;
        std::uint16_t length;
    };
    using Handler = std::optional<Bytes> (ControlEndpoint::*)(const Request&);
    struct Row {
        std::uint8_t type;
        std::uint8_t code;
        Handler handler;
    };
    static const std::vector<Row>& rows();

    std::optional<Bytes> getDescriptor(const Request& request);
    std::optional<Bytes> getConfiguration(const Request& request);
    std::optional<Bytes> setConfiguration(const Request& request);
    std::optional<Bytes> getInterface(const Request& request);
    std::optional<Bytes> setInterface(const Request& request);
    std::optional<Bytes> getStatus(const Request& request);
    std::optional<Bytes> getEndpointStatus(const Request& request);
    std::optional<Bytes> clearEndpointFeature(const Request& request);
    std::optional<Bytes> setAddress(const Request& request);
    void clearHalts();

    VirtualController& controller_;
    VirtualIdentity identity_;
    std::uint8_t configuration_ = 0;
};

// A transfer that has ended.
struct Completion {
    SubmitCommand command;
    UrbStatus status = UrbStatus::Ok;
    std::uint32_t moved = 0; // bytes
    Bytes data;              // what was carried, in either direction
};

class BusDevice {
public:
    // Called with the whole bank each time when a send has reached its end; may be empty.
    using SendEnded = std::function<void(const BankImage&)>;

    // The controller must outlive the object.
    BusDevice(VirtualController& controller, VirtualIdentity identity, SendEnded sendEnded = {});

    // Takes a transfer; `data` are the bytes of an OUT transfer. An error when a host leaves
    // more waiting than any driver does: then it is no host to go on with.
    [[nodiscard]] Result<void> submit(const SubmitCommand& command, ByteView data);
    // Takes a waiting transfer back; false when there is none of that number.
    bool unlink(std::uint32_t sequence);
    // Puts what is played on the bulk IN pipe, in one transfer for as many packets as one holds.
    // False, and it is dropped, unless a host waits for it: one that has asked for IN transfers
    // outside a conversation, and has neither taken one back nor begun a conversation since. A host
    // that takes a transfer back, or asks for a descriptor, has given its conversation up. False
    // also, and what there is no room for is dropped, when the host does not keep up.
    bool play(std::span<const Packet> packets);
    // The transfers that have ended, in the order of their ends.
    [[nodiscard]] std::vector<Completion> takeCompletions();

    // False once the controller has left the bus; then nothing completes any more.
    [[nodiscard]] bool isPresent() const noexcept { return controller_.isPresent(); }

private:
    void control(const SubmitCommand& command);
    void bulkOut(const SubmitCommand& command, ByteView data);
    void fill(); // gives waiting IN transfers what the controller has
    [[nodiscard]] std::optional<Bytes> nextIn();
    void stopListening();
    void complete(const SubmitCommand& command, UrbStatus status, std::uint32_t moved = 0,
                  Bytes data = {});

    VirtualController& controller_;
    SendEnded sendEnded_;
    std::uint32_t sendsSeen_;
    bool hasPipes_;
    ControlEndpoint control_;
    std::deque<SubmitCommand> waiting_; // IN transfers, oldest first
    bool isTalking_ = false;            // a conversation that the host has not given up
    bool isListening_ = false;
    std::deque<Bytes> played_; // transfers that wait for an IN transfer; empty unless it listens
    std::vector<Completion> completions_;
};

} // namespace scenewright::usbip
