// What a device operation did, in words for the person who asked for it: the one place where window
// and command line get their sentences, cures and exit codes from.
//
// In the person's language, as platform/Text.h has it. Sentences end without a full stop.
#pragma once

#include "protocol/Connection.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

enum class DeviceOperation : std::uint8_t {
    ShowScenes, // a read into the window
    SaveScenes, // a read into a file
    Backup,     // a read before a send, into a file
    Send,
    Verify,  // a read after a send
    Compare, // a read beside what is there
    DryRun,  // a read in place of a send
};

struct OutcomeText {
    // What happened and what follows from it; empty when everything is done.
    std::string sentence;
    // What helps, and what else went wrong; a sentence each.
    std::vector<std::string> details;
    // 0 only when everything is done and kept.
    int exitCode = 0;

    // All of it, with this between; empty when there is nothing to say.
    [[nodiscard]] std::string joined(std::string_view between) const;
};

[[nodiscard]] OutcomeText textOf(DeviceOperation operation, const Outcome& outcome);

// What a comparison found, for Verify and Compare.
[[nodiscard]] std::string comparisonText(DeviceOperation operation, std::size_t differences);

// Why a device cannot be used, and what helps, by the code of the first step that failed.
[[nodiscard]] std::string causeAndCure(ResultCode failure);

// How many of the 1012 bytes of a read may not have come from the controller: an exchange is one
// write and one read, of which both may have failed.
[[nodiscard]] std::uint32_t unreliableBytes(const TransferStats& stats);

} // namespace scenewright
