// The wire between the in-process host and the virtual controller: what all handles of a host
// share. Every operation may be called from any thread.
#pragma once

#include "virtual/BankKeeper.h"
#include "virtual/VirtualHost.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <span>

namespace scenewright {

class VirtualBus {
public:
    VirtualBus(std::shared_ptr<VirtualController> device, BankKeeper keeper,
               VirtualIdentity identity);

    [[nodiscard]] const VirtualIdentity& identity() const noexcept { return identity_; }
    [[nodiscard]] bool isPresent() const;

    // Exclusive use by `owner`, which is only compared; busy while another owner has it.
    ResultCode claim(const void* owner);
    void unclaim(const void* owner);

    // Both need the owner's claim.
    ResultCode write(const void* owner, std::span<const std::uint8_t> bytes);
    ResultCode read(const void* owner, std::span<std::uint8_t> room, std::size_t& delivered);

    void cancel();
    [[nodiscard]] std::optional<std::string> bankTrouble() const;

private:
    [[nodiscard]] std::optional<ResultCode> whyNoRead(const void* owner) const;

    mutable std::mutex mutex_; // guards all below but identity_
    std::condition_variable changed_;
    std::shared_ptr<VirtualController> device_;
    BankKeeper keeper_;
    const VirtualIdentity identity_;
    const void* owner_ = nullptr;
    bool isCancelled_ = false;
};

} // namespace scenewright
