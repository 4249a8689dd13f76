// A read or a send as a command needs it: with its progress line, waited for to its end, and with
// what went wrong reported on standard error.
#pragma once

#include "app/OutcomeText.h"
#include "model/SceneValue.h"
#include "protocol/SceneImage.h"

#include <optional>
#include <string>

namespace scenewright {

struct ControllerRead {
    // The four scenes that the controller holds, if every one of their bytes came from it.
    std::optional<SceneList> scenes;
    int exitCode = 0; // of the outcome; may tell of an error after a read that went well
};

// `operation` says what the read is for.
[[nodiscard]] ControllerRead readController(DeviceOperation operation);

struct SendOrder {
    SceneList scenes;
    std::string subject{};             // the file that they come from; empty if it is none
    bool keepsCopy = true;             // of what the controller holds, among the earlier scenes
    std::optional<BankImage> before{}; // what it holds, where that was read before
};

// Gives the exit code; 0 when every transfer went well and was kept. Nothing is sent when a copy is
// to be kept and cannot be.
[[nodiscard]] int sendToController(SendOrder order);

} // namespace scenewright
