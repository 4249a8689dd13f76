// What went wrong with a transaction, in words for the person who started it.
#pragma once

#include "model/MessageValue.h"
#include "usb/Transport.h"

#include <optional>
#include <string>
#include <string_view>

namespace scenewright {

// Whether the last command ended without reaching the controller.
[[nodiscard]] bool connectFailed(const MessageValue& message);

// Says so on standard error, with cause and cure where they are known; returns the exit code.
int complainOfConnection();

// Says cause and cure of the first failed transfer on standard error; nothing for an answer that
// was merely short, as the reports below say all there is to it.
void complainOfTransfers(const TransferTally& tally);

// One sentence when not every transfer of a read went well: what failed, and at which byte.
// Nothing when all that was read came from the controller. It ends with `consequence`: "so no file
// was written".
[[nodiscard]] std::optional<std::string> readReport(const TransferTally& tally,
                                                    std::string_view consequence);

// The same for a send.
[[nodiscard]] std::optional<std::string> sendReport(const TransferTally& tally);

} // namespace scenewright
