// Endpoint 0 of the virtual controller: the requests by which a host learns what it is and sets it
// up. A request that it does not know is answered with a stall, as a device does.
#pragma once

#include "virtual/usbip/Descriptors.h"
#include "virtual/usbip/Urb.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace scenewright::usbip {

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

    std::optional<Bytes> describe(const Request& request);
    std::optional<Bytes> tellConfiguration(const Request& request);
    std::optional<Bytes> setConfiguration(const Request& request);
    std::optional<Bytes> tellInterface(const Request& request);
    std::optional<Bytes> setInterface(const Request& request);
    std::optional<Bytes> tellStatus(const Request& request);
    std::optional<Bytes> tellEndpointStatus(const Request& request);
    std::optional<Bytes> clearEndpointFeature(const Request& request);
    std::optional<Bytes> acknowledge(const Request& request);
    void clearHalts();

    VirtualController& controller_;
    VirtualIdentity identity_;
    std::uint8_t configuration_ = 0;
};

} // namespace scenewright::usbip
