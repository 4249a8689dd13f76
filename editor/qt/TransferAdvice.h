// What went wrong among a command's transfers, in words for the player.
#pragma once

#include "usb/TransferTally.h"

#include <QString>

namespace scenewright {

// What failed among the transfers, and what to do; empty when none did.
[[nodiscard]] QString readAdvice(const TransferTally& tally);
[[nodiscard]] QString sendAdvice(const TransferTally& tally);

} // namespace scenewright
