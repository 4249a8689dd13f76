#include "cli/Command.h"
#include "platform/ReadableText.h"

#include <fmt/format.h>

#include <cstdio>

namespace scenewright {

int complain(std::string_view sentence, int exitCode) {
    // A file's name or an argument in it may hold anything, a terminal's commands included.
    fmt::print(stderr, "scenewright-cli: {}\n", readableText(sentence));
    return exitCode;
}

} // namespace scenewright
