// Where the diagnostic streams can go: the program's own streams, or a file that the user names.
//
// No sink throws, nor waits for a reader for longer than half a second: what cannot be written is
// dropped.
#pragma once

#include "platform/Diagnostics.h"
#include "platform/Result.h"

#include <string>

namespace scenewright {

// Console text to an open descriptor, as it stands. The caller keeps it open.
[[nodiscard]] Diagnostics::Sink consoleSink(int fd);

// Log lines, each ended by one line feed; a line feed inside a line is written as \n.
[[nodiscard]] Diagnostics::Sink logSink(int fd);

// Empties or makes the file, or takes the descriptor that it stands for ('-' is standard error),
// and hands the stream over to it. On error the stream stays as it is;
// a pipe that nobody reads is one.
[[nodiscard]] Result<void> sendConsoleTo(const std::string& name);
[[nodiscard]] Result<void> sendLogTo(const std::string& name);

// Turns both streams off and closes their files. The error is the first file that was not written
// whole since it was opened. Main thread, once no other thread writes.
[[nodiscard]] Result<void> endDiagnostics();

} // namespace scenewright
