// The memory of the virtual controller as a bank file, in either form.
//
// Main thread; what it gives may be used on any.
#pragma once

#include "platform/Result.h"
#include "protocol/SceneImage.h"
#include "virtual/VirtualHost.h"

#include <string>

namespace scenewright {

struct VirtualBank {
    BankImage image{};
    BankFileStore keeper; // keeps what is sent in the form that the file had
};

// What the file holds; the default scenes when there is no such file, to be kept in the form that
// its name asks for, or when the path is empty, and then nothing is kept. An image may hold any
// bytes, as a controller may. An error when the file cannot serve; and, with `needsLists`, when a
// list that is used cannot: the default scenes are zeros without theirs, JSON has no titles.
[[nodiscard]] Result<VirtualBank> openVirtualBank(const std::string& path, bool needsLists);

} // namespace scenewright
