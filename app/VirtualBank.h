// The memory of the virtual controller as a bank file, in either form.
//
// Main thread; what it gives may be used on any.
#pragma once

#include "protocol/SceneImage.h"
#include "virtual/BankKeeper.h"

#include <optional>
#include <string>

namespace scenewright {

struct VirtualBank {
    BankImage image{};
    BankKeeper keeper; // keeps what is sent in the form that the file had
};

// What the file holds; the default scenes when there is no such file, to be kept in the form that
// its name asks for, or when the path is empty, and then nothing is kept. An image may hold any
// bytes, as a controller may. Nothing and `trouble`, one sentence, when the file cannot serve.
[[nodiscard]] std::optional<VirtualBank> openVirtualBank(const std::string& path,
                                                         std::optional<std::string>& trouble);

} // namespace scenewright
