#include "app/DeviceComparison.h"

#include "app/WindowAction.h"
#include "bank/Difference.h"
#include "protocol/SceneAction.h"
#include "protocol/SceneImage.h"
#include "protocol/SendJob.h"
#include "usb/Transport.h"

#include <algorithm>

namespace scenewright {

DeviceComparison compareWithDevice(const PopUpValue& lists) {
    if (SendJob::isRunning())
        return {};
    const SceneList held = SceneAction::GetSceneFromDevice();
    DeviceComparison comparison{
        .isConnected = !held.empty(), .tally = Transport::instance().tally(), .differences = {}};
    for (const Difference& difference : differences(lists, held, WindowAction::scenes()))
        comparison.differences.push_back(differenceWords(difference));
    return comparison;
}

std::uint32_t doubtfulBytes(const TransferTally& tally) {
    return std::min(std::max(tally.failedReads, tally.failedWrites),
                    static_cast<std::uint32_t>(kBankSize));
}

} // namespace scenewright
