// The files that one command names, looked at together before the first of them is opened: what is
// read must not be overwritten under another option's name. Files are compared by what they are on
// the disk, whatever their names.
#pragma once

#include "platform/Result.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace scenewright {

// The descriptor that a name stands for: /dev/stdin, /dev/fd/3, /proc/self/fd/3, and links to such.
[[nodiscard]] std::optional<int> namedDescriptor(const std::string& name);

enum class FileUse : std::uint8_t {
    Read,     // before anything is replaced
    Replaced, // after all was read, by a file that is whole
    Written,  // while others are still needed
    Appended, // as the program goes on, emptied first; several streams may share one
};

struct NamedFile {
    std::string name; // a path, or "-" for standard input if it is read, else standard output
    FileUse use = FileUse::Read;
    std::string subject; // how the error begins when this file is written: "--log m.bank: it"
    std::string content; // what the file is to the command: "the bank that is to be shown"
};

// An error, "SUBJECT would overwrite CONTENT", if two of them are one file and one would be lost.
// The earlier one in the list is the subject when both are written.
[[nodiscard]] Result<void> checkNamedFiles(std::span<const NamedFile> files);

} // namespace scenewright
