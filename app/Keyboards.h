// Which keyboards are plugged in, and which of them is worked with: the chosen one alone, or
// without a choice the first that discovery finds.
//
// Nothing is opened. Main thread only. At the end, the rules for udev that let the user at the seat
// open them.
#pragma once

#include "platform/Text.h"
#include "usb/Devices.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {

enum class KeyboardPresence : std::uint8_t { Unplugged, NoPermission, Claimed, Usable };

// A USB MIDI device, or what else the list has.
struct PluggedDevice {
    AttachedDevice device;
    bool isListed = false;
    bool isInUse = false; // the one that is worked with

    // As it calls itself, or its maker; its ids when it is silent.
    [[nodiscard]] std::string name() const;
    // "1-2 (Keys 25)", or "1-2 (Keys 25, serial number A17)".
    [[nodiscard]] std::string description() const;
};

class Keyboards {
public:
    using Look = std::function<std::vector<AttachedDevice>()>;

    // `chosen` as for choose().
    explicit Keyboards(
        std::string chosen = {}, Look look = [] { return attachedDevices(); })
        : chosen_(std::move(chosen)), look_(std::move(look)) {}

    // A port, "1-2.3", or a serial number; empty for the first one.
    void choose(std::string portOrSerial) { chosen_ = std::move(portOrSerial); }
    [[nodiscard]] const std::string& chosen() const { return chosen_; }

    // All that are plugged in, by bus and address.
    [[nodiscard]] std::vector<PluggedDevice> all() const;
    [[nodiscard]] std::optional<PluggedDevice> inUse() const;
    // What a choice is remembered by: the serial number, unless it is none or another's too.
    [[nodiscard]] std::string lastingName(const AttachedDevice& device) const;

    // Of the one in use.
    [[nodiscard]] KeyboardPresence presence() const;
    // With its port where another of the same name is plugged in; empty for none.
    [[nodiscard]] std::string name() const;
    // For offerChosen().
    [[nodiscard]] std::optional<std::string> offeredPort() const;

    // Where several of the list are plugged in and none was chosen: which one is used, and how to
    // choose, in one sentence.
    [[nodiscard]] std::optional<std::string> tacitChoice() const;
    // Whether the chosen one is there, and the only one of that name. The error is one sentence,
    // which says what else there is.
    [[nodiscard]] Result<void> checkChosen() const;

private:
    std::string chosen_;
    Look look_;
};

// Where the rules go; the name must sort before 73, where the tag "uaccess" is acted on.
inline constexpr const char* kAccessRulesFile = "/etc/udev/rules.d/70-scenewright.rules";

// What a person without polkit types; `program` is the name or the path of scenewright-cli.
[[nodiscard]] std::string accessCommand(std::string_view program);

// One rule a device, repeated ones once, in the order of the list. Comments at the top say where
// the rules go.
[[nodiscard]] std::string udevRules(std::span<const DeviceIds> devices);

} // namespace scenewright
