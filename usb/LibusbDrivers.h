// The kernel drivers that have to leave an audio device's interfaces so that a program can take one
// of them, and their way back.
//
// The sound driver of a MIDI keyboard binds to the audio control interface and takes the MIDI
// streaming interface along; only a probe of the former brings the latter back. So drivers leave
// from the highest interface down and are brought back from the lowest up, and an interface that
// the probe of a lower one has taken along is left alone.
#pragma once

#include "usb/LibusbApi.h"

#include <span>
#include <vector>

namespace scenewright {

class DetachedDrivers {
public:
    // For `target` and every audio interface of `interfaces`. `handle` must outlive the object.
    DetachedDrivers(LibusbHandle& handle, std::uint8_t target,
                    std::span<const LibusbInterfaceDescriptor> interfaces);

    // Brings the drivers back, checks that they are, and logs the interfaces that stay without one.
    ~DetachedDrivers();
    DetachedDrivers(const DetachedDrivers&) = delete;
    DetachedDrivers& operator=(const DetachedDrivers&) = delete;
    DetachedDrivers(DetachedDrivers&&) = delete;
    DetachedDrivers& operator=(DetachedDrivers&&) = delete;

    // Detaches what is bound; may be called again. A failure leaves those detached that went first.
    ResultCode detach();

    // Says that the target could be claimed, so that nobody else was using it: audio interfaces
    // that had no driver at the beginning were left without by a program that was killed, and get
    // theirs at the end too.
    void adoptOrphans();

private:
    struct Interface {
        std::uint8_t number = 0;
        bool isAudio = false;
        bool comesBack = false; // a driver is to be bound at the end
    };

    [[nodiscard]] bool isBound(const Interface& interface) const;
    [[nodiscard]] bool isMissing(const Interface& interface) const;
    void bringBack();

    LibusbHandle& handle_;
    std::vector<Interface> group_; // by number, lowest first
};

} // namespace scenewright
