// A read or a send as a command needs it: with its progress line, waited for to its end, and with
// its trouble told.
#pragma once

#include "model/SceneValue.h"

#include <optional>
#include <string_view>

namespace scenewright {

// The four scenes that the controller holds, once every one of their bytes came from it. Otherwise
// nothing, and the trouble has been told; `consequence` says in it what was not done therefore ("no
// file was written").
[[nodiscard]] std::optional<SceneList> readController(std::string_view consequence);

// Whether every transfer went well; otherwise the trouble has been told.
[[nodiscard]] bool sendToController(SceneList scenes);

} // namespace scenewright
