// Reads the image form of a bank. Stricter than the parse of what a controller sent, which takes a
// byte from 0x80 up as 0: a file must say what it means.
#pragma once

#include "bank/BankContent.h"

#include <cstdint>
#include <span>

namespace scenewright {

// Four scenes, for exactly 1012 bytes; logs nothing.
[[nodiscard]] BankContent readBankImage(std::span<const std::uint8_t> bytes);

} // namespace scenewright
