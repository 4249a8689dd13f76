// Keeps what was sent to a virtual controller in a file.
#pragma once

#include "platform/Result.h"
#include "virtual/VirtualController.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace scenewright {

class BankFileStore {
public:
    // Writes a bank to a file, whole or not at all. Called on the thread that made the transfer.
    using Store =
        std::function<Result<void>(const std::filesystem::path& file, const BankImage& bank)>;
    [[nodiscard]] static Result<void> storeImage(const std::filesystem::path& file,
                                                 const BankImage& bank);

    // An empty path keeps nothing.
    explicit BankFileStore(std::filesystem::path file, Store store = &storeImage)
        : file_(std::move(file)), store_(std::move(store)) {}

    // Stores the bank when a send has ended since the last call. To be called after every transfer
    // that the controller received.
    void afterTransfer(const VirtualController& controller);

    // The sentence of the last send that could not be kept.
    [[nodiscard]] const std::optional<std::string>& trouble() const noexcept { return trouble_; }

private:
    std::filesystem::path file_;
    Store store_;
    std::uint32_t sendsKept_ = 0;
    std::optional<std::string> trouble_;
};

} // namespace scenewright
