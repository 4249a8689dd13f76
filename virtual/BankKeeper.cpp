#include "virtual/BankKeeper.h"

#include "platform/WholeFile.h"

namespace scenewright {

std::optional<std::string> BankKeeper::storeImage(const std::filesystem::path& file,
                                                  const BankImage& bank) {
    return writeWholeFile(file, bank);
}

void BankKeeper::afterTransfer(const VirtualController& controller) {
    if (sendsKept_ == controller.sendsEnded())
        return;
    sendsKept_ = controller.sendsEnded();
    if (file_.empty())
        return;
    trouble_ = store_(file_, controller.bank());
}

} // namespace scenewright
