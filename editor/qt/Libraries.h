// The program's licence, and the libraries that it was built with.
#pragma once

#include <span>

namespace scenewright {

struct Library {
    const char* name;
    const char* version;
    const char* licence;
};

[[nodiscard]] std::span<const Library> libraries();
[[nodiscard]] const char* licenceText();

} // namespace scenewright
