// The system's USB layer: finding the controller, taking its second interface, and moving raw bytes
// over that interface's bulk pipes. It knows nothing of what the bytes mean.
//
// No instances; the state is Transport's. Failures are a false or null result and a diagnostic
// line; nothing throws. Order of calls: FindDevice; if true, CreateInterface; if true,
// openInterface and the transfers. One transaction at a time, on its own thread.
#pragma once

#include "usb/Transport.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace scenewright {

class InterfaceAction {
public:
    InterfaceAction() = delete;

    // Discovery and opening.

    // Looks for the first device of the platform whose vendor and product stand in project.plist,
    // and makes it the current device (null when there is none).
    static bool FindDevice();
    // Takes, opens and lists the current device's second interface as the current interface.
    static bool CreateInterface();
    // What matches devices by these ids; nothing when the platform cannot.
    [[nodiscard]] static std::optional<DeviceMatch>
    MyCreateUSBMatchingDictionaryWithVendorID_andProductID(std::int32_t vendorId,
                                                           std::int32_t productId);
    // `testSend` is ignored.
    [[nodiscard]] static std::shared_ptr<UsbDevice>
    MyFindMatchingDevicesWithTestSend(std::int32_t testSend);
    [[nodiscard]] static std::shared_ptr<InterfaceHandle>
    FindInterfacesWithDevice(UsbDevice& device);
    static void openInterface();
    static void closeInterface();
    // Closes and releases the current interface; the handle stays, stale.
    static void KillInterface();

    // The alternative search; nothing in the system calls it.
    [[nodiscard]] static std::shared_ptr<UsbDevice>
    MyFindMatchingDevicesWithDictionary(const DeviceMatch& match);
    [[nodiscard]] static std::shared_ptr<UsbDevice>
    MyStartDriverWithService(const std::shared_ptr<UsbDevice>& service);

    // Transfers, on the current interface.

    // Pauses one millisecond, then writes to pipe 2. A failed write gives the interface up.
    static ResultCode WriteToDeviceWithChar_andSize(const std::uint8_t* bytes, std::int32_t size);
    // The reads wait without limit for one transfer on pipe 1, of at most 63 bytes. Bytes beyond
    // what was delivered keep what an earlier read left. The view is valid until the next read.
    static std::span<const std::uint8_t, kReceiveBufferSize> ReadDataFromDevice();
    // Bytes 0 to 10 of the receive buffer, each as two lower-case hexadecimal digits.
    static std::vector<std::string> ReadVersionFromDevice();
    static void ReadFromDevice();
    // Byte 14 of the receive buffer, signed.
    static std::int32_t ReadValueFromDevice();
};

} // namespace scenewright
