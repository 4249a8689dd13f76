#include "virtual/usbip/Orders.h"

#include "platform/ReadableText.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <sstream>
#include <unistd.h>
#include <utility>

namespace scenewright::usbip {

namespace {

constexpr std::size_t kMostLetters = 4096; // of a line; what is longer is no order

std::optional<Order> parseFaults(std::istream& words, std::string& trouble) {
    Order order{Order::Kind::Faults, {}};
    std::string word;
    while (words >> word) {
        const auto fault = parseFault(word, trouble);
        if (!fault)
            return std::nullopt;
        order.faults.push_back(*fault);
    }
    return order;
}

} // namespace

std::optional<Order> parseOrder(std::string_view line, std::string& trouble) {
    std::istringstream words{std::string(line)};
    std::string verb;
    std::string rest;
    words >> verb;
    if (verb == "faults")
        return parseFaults(words, trouble);
    if (verb == "unplug" && !(words >> rest))
        return Order{Order::Kind::Unplug, {}};
    if (verb == "plug" && !(words >> rest))
        return Order{Order::Kind::Plug, {}};
    trouble = fmt::format("'{}' is no order: those are faults, unplug and plug",
                          readableText(line.substr(0, kMostLetters)));
    return std::nullopt;
}

std::vector<std::string> OrderLines::take() {
    std::array<char, kMostLetters> room{};
    const ssize_t count = ::read(descriptor_, room.data(), room.size());
    if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN))
        descriptor_ = -1;
    std::vector<std::string> lines;
    for (ssize_t place = 0; place < count; ++place) {
        const char letter = room[static_cast<std::size_t>(place)];
        if (letter == '\n')
            lines.push_back(std::exchange(begun_, {}));
        else if (begun_.size() < kMostLetters)
            begun_ += letter;
    }
    return lines;
}

} // namespace scenewright::usbip
