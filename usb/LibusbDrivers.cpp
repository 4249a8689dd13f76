#include "usb/LibusbDrivers.h"

#include "platform/Diagnostics.h"

#include <algorithm>
#include <exception>

namespace scenewright {

DetachedDrivers::DetachedDrivers(LibusbHandle& handle, std::uint8_t target,
                                 std::span<const LibusbInterfaceDescriptor> interfaces)
    : handle_(handle) {
    for (const LibusbInterfaceDescriptor& interface : interfaces) {
        const bool isAudio = interface.interfaceClass == kAudioClass;
        if (isAudio || interface.number == target)
            group_.push_back({interface.number, isAudio, false});
    }
    std::ranges::sort(group_, {}, &Interface::number);
}

DetachedDrivers::~DetachedDrivers() {
    try {
        bringBack();
    } catch (const std::exception&) {
        // Only a log line can fail, and then there is nowhere to say so.
        return;
    }
}

void DetachedDrivers::adoptOrphans() {
    for (Interface& interface : group_)
        interface.comesBack = interface.comesBack || interface.isAudio;
}

bool DetachedDrivers::isBound(const Interface& interface) const {
    bool bound = false;
    return handle_.hasDriver(interface.number, bound) == kResultSuccess && bound;
}

// An interface whose device has gone misses nothing.
bool DetachedDrivers::isMissing(const Interface& interface) const {
    bool bound = false;
    return interface.comesBack && handle_.hasDriver(interface.number, bound) == kResultSuccess &&
           !bound;
}

ResultCode DetachedDrivers::detach() {
    for (std::size_t left = group_.size(); left > 0; --left) {
        Interface& interface = group_[left - 1];
        if (!isBound(interface))
            continue;
        interface.comesBack = true;
        const ResultCode result = handle_.detachDriver(interface.number);
        if (result != kResultSuccess && result != kResultNotFound)
            return result;
    }
    return kResultSuccess;
}

void DetachedDrivers::bringBack() {
    if (std::ranges::none_of(group_,
                             [this](const Interface& interface) { return isMissing(interface); }))
        return;
    // A driver that was bound meanwhile would keep its probe from taking the others along.
    detach();
    for (const Interface& interface : group_)
        if (isMissing(interface))
            handle_.attachDriver(interface.number);
    for (const Interface& interface : group_)
        if (isMissing(interface))
            Diagnostics::log("Interface %d has no kernel driver again", interface.number);
}

} // namespace scenewright
