// A program's standard streams, whatever they are connected to: a terminal that has stopped or
// gone, a pipe that nobody reads, a full disk, nothing at all.
//
// Translator for a person go to standard error and are dropped when they cannot be written; results
// go to standard output, and that they could not be written is an error. Any thread may call.
#pragma once

#include "platform/Result.h"

#include <string_view>

namespace scenewright {

// The first thing that a program does, before it opens anything. SIGPIPE and SIGXFSZ are ignored: a
// write that they would end fails instead. A closed descriptor of 0 to 2 gets a place holder, so
// that no file can be opened in its stead: reading 0 and writing 1 then fail, writing 2 does
// nothing.
void prepareProcess() noexcept;

// Writes to an open file what it takes, waiting at most half a second, and not at all once it has
// made the process wait in vain. Whether all was written. The flags that other processes share
// stay as they are. Safe in a signal handler; errno is kept.
bool writeOrDrop(int fd, std::string_view text) noexcept;

// The same to standard error.
void writeStandardError(std::string_view text) noexcept;

// One line on standard error, "PROGRAM: SENTENCE", made readable; dropped when it cannot be
// written.
void reportError(std::string_view program, std::string_view sentence) noexcept;

// Writes all of a result, waiting as long as it takes; gives 0 or errno's value.
[[nodiscard]] int writeFully(int fd, std::string_view text) noexcept;
// The same to standard output.
[[nodiscard]] Result<void> writeStandardOutput(std::string_view text);
// After the last result: some file systems say only now that something could not be written.
[[nodiscard]] Result<void> closeStandardOutput();

} // namespace scenewright
