#include "cli/Command.h"

#include <fmt/format.h>

#include <cstdio>

namespace scenewright {

int complain(std::string_view sentence, int exitCode) {
    fmt::print(stderr, "scenewright-cli: {}\n", sentence);
    return exitCode;
}

} // namespace scenewright
