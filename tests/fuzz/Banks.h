// What holds of every bank that was read, whichever form it had.
#pragma once

#include "bank/BankFile.h"
#include "tests/fuzz/Checks.h"

#include <cstdint>
#include <span>

namespace scenewright::fuzz {

// Reads the bytes as a bank: refused whole and in one sentence, or taken, and then the same bank in
// either form that it is written in.
void checkBank(std::span<const std::uint8_t> bytes);

} // namespace scenewright::fuzz
