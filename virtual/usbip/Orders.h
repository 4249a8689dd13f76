// What is done to the controller while it runs, said in lines of text: "faults KIND:N ..." (in
// place of those there are; none after the word ends them), "unplug", "plug".
#pragma once

#include "virtual/Fault.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright::usbip {

struct Order {
    enum class Kind : std::uint8_t { Faults, Unplug, Plug };
    Kind kind = Kind::Faults;
    FaultPlan faults;
    friend bool operator==(const Order&, const Order&) = default;
};

// Nothing, and one sentence in `trouble`, for a line that is no order.
[[nodiscard]] std::optional<Order> parseOrder(std::string_view line, std::string& trouble);

// The lines that come from a descriptor, which stays the caller's.
class OrderLines {
public:
    // -1 gives none ever.
    explicit OrderLines(int descriptor = -1) : descriptor_(descriptor) {}

    // To be waited for; -1 once the lines have ended.
    [[nodiscard]] int descriptor() const noexcept { return descriptor_; }
    // The lines that are whole, after one read; blocks unless the descriptor is ready.
    [[nodiscard]] std::vector<std::string> take();

private:
    int descriptor_;
    std::string begun_; // a line whose end has not come
};

} // namespace scenewright::usbip
