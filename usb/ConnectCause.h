// Why the keyboard could not be used, and what helps, in one sentence for the person in front of
// it, in their language. The messages of the transport itself stay as they are; this stands beside
// them.
#pragma once

#include "usb/ResultCode.h"

#include <string>

namespace scenewright {

// For a device that was matched but not taken, or a transfer that failed: the code of the first
// step that failed.
[[nodiscard]] std::string causeAndCure(ResultCode failure);

// For the last transaction, by what the transport keeps of it; also says when no listed keyboard
// is plugged in.
[[nodiscard]] std::string connectCause();

} // namespace scenewright
