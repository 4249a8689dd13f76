#include "cli/Command.h"
#include "platform/StandardStreams.h"

namespace scenewright {

int reportError(std::string_view sentence, int exitCode) {
    reportError("scenewright-cli", sentence);
    return exitCode;
}

} // namespace scenewright
