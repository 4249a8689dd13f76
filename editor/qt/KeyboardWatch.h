// Says at the foot of the window whether a listed keyboard is plugged in and can be used.
//
// It looks at what the kernel shows when the system tells that a device came or went, opens
// nothing, and looks away while a transfer runs.
#pragma once

#include "usb/AttachedDevices.h"

#include <QLabel>

#include <functional>
#include <optional>

namespace scenewright {

class KeyboardWatch final : public QLabel {
    Q_OBJECT

public:
    using Look = std::function<KeyboardPresence()>;

    // Without a `look` there is nothing to see: the controller is the virtual one.
    explicit KeyboardWatch(Look look, QWidget* parent = nullptr);

    // The kernel's devices, against the device list.
    [[nodiscard]] static Look kernelLook();
    // Looks each time the monitor has something to tell. Where none could be started, at the calls
    // of look() alone.
    void follow(Result<DeviceMonitor> monitor);

    void look();

private:
    Look look_;
    std::optional<DeviceMonitor> monitor_;
    std::optional<KeyboardPresence> shown_;
};

} // namespace scenewright
