// What a host says to a USB/IP server, built byte by byte.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace scenewright::usbip {

inline const std::vector<std::uint8_t> kDevicesRequest{0x01, 0x11, 0x80, 0x05, 0, 0, 0, 0};

inline std::vector<std::uint8_t> importRequest(std::string_view busId) {
    std::vector<std::uint8_t> message{0x01, 0x11, 0x80, 0x03, 0, 0, 0, 0};
    message.insert(message.end(), busId.begin(), busId.end());
    message.resize(40);
    return message;
}

inline void putNumber(std::vector<std::uint8_t>& message, std::size_t offset, std::uint32_t value) {
    for (unsigned byte = 0; byte < 4; ++byte)
        message.at(offset + byte) = static_cast<std::uint8_t>(value >> (24U - 8U * byte));
}

// Code, number, device 2 of bus 1, direction, endpoint.
inline std::vector<std::uint8_t> header(std::uint32_t code, std::uint32_t sequence,
                                        std::uint32_t direction, std::uint32_t endpoint) {
    std::vector<std::uint8_t> message(48);
    putNumber(message, 0, code);
    putNumber(message, 4, sequence);
    putNumber(message, 8, 0x10002);
    putNumber(message, 12, direction);
    putNumber(message, 16, endpoint);
    return message;
}

inline std::vector<std::uint8_t> inMessage(std::uint32_t sequence, std::uint32_t room) {
    auto message = header(1, sequence, 1, 1);
    putNumber(message, 24, room);
    return message;
}

inline std::vector<std::uint8_t> outMessage(std::uint32_t sequence,
                                            const std::vector<std::uint8_t>& bytes) {
    auto message = header(1, sequence, 0, 2);
    putNumber(message, 24, static_cast<std::uint32_t>(bytes.size()));
    message.insert(message.end(), bytes.begin(), bytes.end());
    return message;
}

inline std::vector<std::uint8_t> unlinkMessage(std::uint32_t sequence, std::uint32_t target) {
    auto message = header(2, sequence, 0, 0);
    putNumber(message, 20, target);
    return message;
}

} // namespace scenewright::usbip
