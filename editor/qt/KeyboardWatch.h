// Says at the foot of the window whether a listed keyboard is plugged in and can be used.
//
// It looks at what the kernel shows, opens nothing, and looks away while a transfer runs. Each
// change is a line of the log.
#pragma once

#include "usb/KeyboardPresence.h"

#include <QLabel>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace scenewright {

class KeyboardWatch final : public QLabel {
    Q_OBJECT

public:
    using Look = std::function<KeyboardPresence()>;
    // A plug is to be seen within a second.
    static constexpr std::chrono::milliseconds kInterval{700};

    // Without a `look` there is nothing to see: the controller is the virtual one.
    explicit KeyboardWatch(Look look, QWidget* parent = nullptr);

    // The kernel's devices, against the device list, which is read again when it has changed.
    [[nodiscard]] static Look kernelLook();

private:
    void look();
    void show(KeyboardPresence presence);

    Look look_;
    QTimer timer_;
    std::optional<KeyboardPresence> shown_;
};

} // namespace scenewright
