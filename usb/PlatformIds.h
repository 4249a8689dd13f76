// The names and identifiers by which the platform's USB service is asked for things.
//
// The identifiers are the platform's published ones; the transport passes them through the seam,
// and a host that has no use for them ignores them.
#pragma once

#include "usb/UsbHost.h"

#include <cstdint>
#include <string_view>

namespace scenewright::ids {

// The class of service that is a USB device, and the two numbers that narrow it.
inline constexpr std::string_view kDeviceClass = "IOUSBDevice";
inline constexpr std::string_view kVendorKey = "idVendor";
inline constexpr std::string_view kProductKey = "idProduct";

// Plug-in types.
inline constexpr UsbIdentifier kIOUSBDeviceUserClientTypeID{
    0x9D, 0xC7, 0xB7, 0x80, 0x9E, 0xC0, 0x11, 0xD4, 0xA5, 0x4F, 0x00, 0x0A, 0x27, 0x05, 0x28, 0x61};
inline constexpr UsbIdentifier kIOUSBInterfaceUserClientTypeID{
    0x2D, 0x97, 0x86, 0xC6, 0x9E, 0xF3, 0x11, 0xD4, 0xAD, 0x51, 0x00, 0x0A, 0x27, 0x05, 0x28, 0x61};

// What every plug-in is asked as.
inline constexpr UsbIdentifier kIOCFPlugInInterfaceID{
    0xC2, 0x44, 0xE8, 0x58, 0x10, 0x9C, 0x11, 0xD4, 0x91, 0xD4, 0x00, 0x50, 0xE4, 0xC6, 0x42, 0x6F};

// The versions of the handles that a plug-in is queried for.
inline constexpr UsbIdentifier kDeviceInterface{0x56, 0xAD, 0x08, 0x9D, 0x87, 0x8D, 0x4B, 0xEA,
                                                0xA1, 0xF5, 0x2C, 0x8D, 0xC4, 0x3E, 0x8A, 0x98};
inline constexpr UsbIdentifier kInterfaceInterface{0x87, 0x52, 0x66, 0x3B, 0xC0, 0x7B, 0x4B, 0xAE,
                                                   0x95, 0x84, 0x22, 0x03, 0x2F, 0xAB, 0x9C, 0x5A};
// The version that the alternative search asks for.
inline constexpr UsbIdentifier kDriverDeviceInterface{
    0x39, 0x61, 0x04, 0xF7, 0x94, 0x3D, 0x48, 0x93, 0x90, 0xF1, 0x69, 0xBD, 0x6C, 0xF5, 0xC2, 0xEB};

[[nodiscard]] constexpr const UsbIdentifier& plugInTypeIdentifier(PlugInType type) {
    return type == PlugInType::Device ? kIOUSBDeviceUserClientTypeID
                                      : kIOUSBInterfaceUserClientTypeID;
}

} // namespace scenewright::ids
