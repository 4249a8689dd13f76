// How a text of the program reaches a person: as it is written here, or in their language.
#pragma once

#include <string>

namespace scenewright {

// Texts may hold printf places, which the words for them keep. Any thread, unless a caller says
// otherwise.
using Words = std::string (*)(const char* text);

[[nodiscard]] inline std::string asWritten(const char* text) {
    return text;
}

} // namespace scenewright
