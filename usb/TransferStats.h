// What the transfers of one transaction did, counted beside a protocol that looks at no result.
#pragma once

#include "usb/ResultCode.h"

#include <cstdint>
#include <optional>

namespace scenewright {

struct TransferStats {
    struct Failure {
        bool isWrite = false;
        ResultCode code = kResultSuccess; // success for a read that was merely short
        std::uint32_t transfer = 0;       // which write or read of the transaction, from 0
        std::uint32_t versionReads = 0;   // how many version reads had been made before it
        friend bool operator==(const Failure&, const Failure&) = default;
    };

    std::uint32_t writes = 0;
    std::uint32_t failedWrites = 0;
    std::uint32_t reads = 0;
    std::uint32_t failedReads = 0;  // an error, or fewer bytes than one event packet
    std::uint32_t versionReads = 0; // those of the reads that asked for the version
    std::optional<Failure> first;

    [[nodiscard]] bool isClean() const noexcept { return failedWrites == 0 && failedReads == 0; }
    friend bool operator==(const TransferStats&, const TransferStats&) = default;
};

} // namespace scenewright
