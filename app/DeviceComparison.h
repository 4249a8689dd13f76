// What the controller holds beside what the scene store holds, without touching the store.
#pragma once

#include "editor/options/PopUpValue.h"
#include "usb/TransferTally.h"

#include <cstdint>
#include <string>
#include <vector>

namespace scenewright {

struct DeviceComparison {
    bool isConnected = false; // else nothing was read
    TransferTally tally;      // of the read: one that is not clean compared doubtful bytes
    std::vector<std::string> differences; // in words, "Scene 1, Pad 3, Type: CC -> Note",
                                          // the controller's value first
    [[nodiscard]] bool isSame() const {
        return isConnected && tally.isClean() && differences.empty();
    }
};

// Reads the controller's scenes; blocks until the read has ended. Not connected, with nothing
// touched, while a send runs. Main thread.
[[nodiscard]] DeviceComparison compareWithDevice(const PopUpValue& lists);

// How many of the 1012 bytes of a read may not have come from the controller: an exchange is one
// write and one read, of which both may have failed.
[[nodiscard]] std::uint32_t doubtfulBytes(const TransferTally& tally);

} // namespace scenewright
