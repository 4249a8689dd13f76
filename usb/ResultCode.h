// The 32-bit result codes of the transport, printed as "%08x". 0 is success; every other outcome
// has a value of its own. The high half marks the codes as this system's.
#pragma once

#include <cstdint>

namespace scenewright {

using ResultCode = std::uint32_t;

inline constexpr ResultCode kResultSuccess = 0x00000000;
inline constexpr ResultCode kResultOther = 0x5C570001;       // the platform gave no better reason
inline constexpr ResultCode kResultInputOutput = 0x5C570002; // the bus failed
inline constexpr ResultCode kResultInvalid = 0x5C570003;     // a parameter the platform refuses
inline constexpr ResultCode kResultAccess = 0x5C570004;      // the user has no permission
inline constexpr ResultCode kResultNoDevice = 0x5C570005;    // unplugged
inline constexpr ResultCode kResultNotFound = 0x5C570006;    // no such interface or pipe
inline constexpr ResultCode kResultBusy = 0x5C570007;        // another program holds it
inline constexpr ResultCode kResultTimeout = 0x5C570008;
inline constexpr ResultCode kResultOverflow = 0x5C570009; // the device sent more than asked for
inline constexpr ResultCode kResultStall = 0x5C57000A;    // the pipe is halted
inline constexpr ResultCode kResultInterrupted = 0x5C57000B;
inline constexpr ResultCode kResultNoMemory = 0x5C57000C;
inline constexpr ResultCode kResultNotSupported = 0x5C57000D;
inline constexpr ResultCode kResultShort = 0x5C57000E;      // a write that moved a part only
inline constexpr ResultCode kResultNotOpen = 0x5C57000F;    // the interface is closed
inline constexpr ResultCode kResultGivenUp = 0x5C570010;    // the handle is stale
inline constexpr ResultCode kResultCancelled = 0x5C570011;  // the interface was closed meanwhile
inline constexpr ResultCode kResultNotPlugged = 0x5C570012; // no device of the list is attached
inline constexpr ResultCode kResultNoDriver = 0x5C570013;   // the kernel's driver did not come back
inline constexpr ResultCode kResultNoList = 0x5C570015;     // project.plist cannot be read
inline constexpr ResultCode kResultNoThread = 0x5C570014;   // the system has no thread to send on

} // namespace scenewright
