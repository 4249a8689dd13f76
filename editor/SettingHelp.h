// What each setting does, in a sentence or two for the person who asks "What's this?".
#pragma once

#include "model/Setting.h"

#include <string>

namespace scenewright {

// In the person's language; never empty.
[[nodiscard]] std::string settingHelp(const Setting& setting);

} // namespace scenewright
