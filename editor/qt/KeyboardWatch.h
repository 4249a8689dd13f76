// Says at the foot of the window whether the keyboard that is worked with is plugged in and can be
// used.
//
// It looks at what the kernel shows when the system tells that a device came or went, opens
// nothing, and looks away while a transfer runs.
#pragma once

#include "app/Keyboards.h"
#include "usb/AttachedDevices.h"

#include <QLabel>

#include <memory>
#include <optional>

namespace scenewright {

class KeyboardWatch final : public QLabel {
    Q_OBJECT

public:
    // Without `keyboards` there is nothing to see: the controller is the virtual one.
    explicit KeyboardWatch(std::shared_ptr<const Keyboards> keyboards, QWidget* parent = nullptr);

    // Looks each time the monitor has something to tell. Where none could be started, at the calls
    // of look() alone.
    void follow(Result<DeviceMonitor> monitor);

    void look();

signals:
    // What is plugged in may be something else now.
    void looked();

private:
    std::shared_ptr<const Keyboards> keyboards_;
    std::optional<DeviceMonitor> monitor_;
};

} // namespace scenewright
