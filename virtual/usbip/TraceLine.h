// A transfer that has ended as one line of text:
//
//   12 ep2 out ok 4: 09 9c 01 02
//   13 ep0 in ok 18 (80 06 00 01 00 00 12 00): 12 01 10 01 ...
//   14 ep1 in stall 0
//   15 unlinked
//
// The transfer's number, endpoint, direction, how it ended (ok, stall, failed, overflow), the
// bytes carried, a control transfer's setup stage in parentheses, and the bytes.
#pragma once

#include "virtual/usbip/BusDevice.h"

#include <string>

namespace scenewright::usbip {

[[nodiscard]] std::string traceLine(const Completion& completion);
// The transfer of this number was taken back before it ended.
[[nodiscard]] std::string unlinkTraceLine(std::uint32_t sequence);

} // namespace scenewright::usbip
