#include "virtual/BankFileStore.h"

#include "platform/AtomicFile.h"

namespace scenewright {

Result<void> BankFileStore::storeImage(const std::filesystem::path& file, const BankImage& bank) {
    return replaceFile(file, bank).map([](const Replaced&) {});
}

void BankFileStore::afterTransfer(const VirtualController& controller) {
    if (sendsKept_ == controller.sendsEnded())
        return;
    sendsKept_ = controller.sendsEnded();
    if (file_.empty())
        return;
    const auto stored = store_(file_, controller.bank());
    trouble_ = stored ? std::nullopt : std::optional(stored.error());
}

} // namespace scenewright
