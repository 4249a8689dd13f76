// Where the diagnostic streams can go: the program's own streams, or a file that the user names.
#pragma once

#include "platform/Diagnostics.h"

#include <cstdio>
#include <optional>
#include <string>

namespace scenewright {

// Console text to `file`, as it stands, flushed a piece. The caller keeps `file` open.
[[nodiscard]] Diagnostics::Sink consoleSink(std::FILE* file);

// Log lines to `file`, each ended by one line feed; a line feed inside a line is written as \n.
[[nodiscard]] Diagnostics::Sink logSink(std::FILE* file);

// Opens `name` for writing ('-' is standard error) and hands the stream over to it; the sink owns
// the file. On failure the stream stays as it is and one sentence says why.
[[nodiscard]] std::optional<std::string> sendConsoleTo(const std::string& name);
[[nodiscard]] std::optional<std::string> sendLogTo(const std::string& name);

} // namespace scenewright
