// What reading a bank's bytes gives, whichever form they have.
#pragma once

#include "model/SceneValue.h"

#include <optional>
#include <string>
#include <string_view>

namespace scenewright {

// No scene when `trouble` says in one phrase what is wrong and where, as in
// "scenes[1].pads[3].CR is missing". The scenes are what a read of the same image gives.
struct BankContent {
    SceneList scenes;
    std::optional<std::string> trouble;
};

// The phrase for a setting without a value: `found` is what stands at its place instead.
[[nodiscard]] std::string notAValue(std::string_view place, std::string_view found);

} // namespace scenewright
