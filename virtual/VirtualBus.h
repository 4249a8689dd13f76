// The wire between the in-process host and the virtual controller: what all handles of a host
// share. Every operation may be called from any thread.
#pragma once

#include "virtual/BankFileStore.h"
#include "virtual/VirtualHost.h"

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>

namespace scenewright {

class VirtualBus {
public:
    VirtualBus(std::shared_ptr<VirtualController> device, BankFileStore keeper,
               VirtualIdentity identity);

    [[nodiscard]] const VirtualIdentity& identity() const noexcept { return identity_; }
    [[nodiscard]] bool isPresent() const;

    // Exclusive use by `owner`, which is only compared; busy while another owner has it.
    ResultCode claim(const void* owner);
    // Ends a read of the owner, and returns when it has ended.
    void unclaim(const void* owner);

    // Both need the owner's claim.
    ResultCode write(const void* owner, std::span<const std::uint8_t> bytes);
    // Ends with kResultCancelled when the owner gives its claim up meanwhile.
    UsbRead read(const void* owner, std::span<std::uint8_t> room);

    [[nodiscard]] std::optional<std::string> storageError() const;

private:
    // Nothing as long as there is a reason to wait.
    [[nodiscard]] std::optional<UsbRead> tryRead(const void* owner, std::span<std::uint8_t> room);

    mutable std::mutex mutex_; // guards all below but identity_
    std::condition_variable changed_;
    std::shared_ptr<VirtualController> device_;
    BankFileStore keeper_;
    const VirtualIdentity identity_;
    const void* owner_ = nullptr;
    int reads_ = 0; // going on now
};

} // namespace scenewright
