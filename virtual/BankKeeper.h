// Keeps what was sent to a virtual controller in a file.
#pragma once

#include "virtual/VirtualController.h"

#include <filesystem>
#include <optional>
#include <string>

namespace scenewright {

class BankKeeper {
public:
    // An empty path keeps nothing.
    explicit BankKeeper(std::filesystem::path file) : file_(std::move(file)) {}

    // Writes the bank, whole or not at all, when a send has ended since the last call; a failure is
    // logged. To be called after every transfer that the controller received.
    void afterTransfer(const VirtualController& controller);

    // The sentence of the last send that could not be kept.
    [[nodiscard]] const std::optional<std::string>& trouble() const noexcept { return trouble_; }

private:
    std::filesystem::path file_;
    std::uint32_t sendsKept_ = 0;
    std::optional<std::string> trouble_;
};

} // namespace scenewright
