// How each of the programs begins, and how it ends when nobody has caught an exception.
//
// Part of the programs alone: their linking installs a handler, before any object of theirs is
// made, that tells in one sentence what would otherwise end them by a signal: an exception in the
// making of such an object, in a thread, or where none may pass. They then end with
// kExitUnexpected.
#pragma once

#include <exception>
#include <string_view>

namespace scenewright {

inline constexpr int kExitUnexpected = 2;

// What the exception means to a person. Refers to `error` or to a text that stays.
[[nodiscard]] std::string_view sentenceOf(const std::exception& error) noexcept;

// Prepares the process and runs the program; gives its exit code. An exception is told in one
// sentence on standard error.
int runProgram(std::string_view name, int (*run)(int, char**), int argc, char** argv) noexcept;

} // namespace scenewright
