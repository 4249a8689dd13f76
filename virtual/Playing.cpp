#include "virtual/Playing.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <iterator>
#include <span>
#include <sstream>
#include <string>
#include <utility>

namespace scenewright {

namespace {

using Kind = PlayOrder::Kind;
using std::chrono::milliseconds;

constexpr milliseconds kLongestSlide{600'000};

// How an order is said.
struct OrderRow {
    Kind kind;
    std::string_view verb;
    std::size_t values; // after the verb and, but for a scene, the control
    bool isTravel;      // of knobs and sliders; presses are of pads and keys
    std::string_view usage;
};
constexpr std::array kOrders{
    OrderRow{Kind::Scene, "scene", 1, false, "scene and a number from 1 to 4, as in scene 2"},
    OrderRow{Kind::Press, "press", 1, false,
             "press, a pad or key and a velocity from 1 to 127, as in press pad3 100"},
    OrderRow{Kind::Release, "release", 0, false, "release and a pad or key, as in release pad3"},
    OrderRow{Kind::Turn, "turn", 1, true,
             "turn, a knob or slider and a place from 0 to 127, as in turn knob1 64"},
    OrderRow{
        Kind::Slide, "slide", 3, true,
        "slide, a knob or slider, two places from 0 to 127 and a time of at most 600000ms, as in "
        "slide slider2 0 127 500ms"},
};

std::optional<std::int32_t> numberFrom(std::string_view text, std::int32_t least,
                                       std::int32_t most) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end || number < least || number > most)
        return std::nullopt;
    return number;
}

std::optional<std::int32_t> controlFrom(std::string_view text, bool isTravel) {
    using enum ControlKind;
    for (const ControlKind kind : isTravel ? std::array{Knob, Slider} : std::array{Pad, Key}) {
        const ControlRange& range = controlRange(kind);
        if (!text.starts_with(range.name))
            continue;
        if (const auto number = numberFrom(text.substr(range.name.size()), 1, range.count))
            return range.start + *number - 1;
    }
    return std::nullopt;
}

std::optional<milliseconds> timeFrom(std::string_view text) {
    constexpr std::string_view kUnit = "ms";
    if (!text.ends_with(kUnit))
        return std::nullopt;
    text.remove_suffix(kUnit.size());
    const auto count = numberFrom(text, 0, kLongestSlide.count());
    return count ? std::optional(milliseconds(*count)) : std::nullopt;
}

std::optional<PlayOrder> orderFrom(const OrderRow& row, std::span<const std::string> words) {
    PlayOrder order{.kind = row.kind};
    const bool isScene = row.kind == Kind::Scene;
    if (words.size() != row.values + (isScene ? 0 : 1))
        return std::nullopt;
    const auto number =
        isScene ? numberFrom(words[0], 1, kSceneCount) : controlFrom(words[0], row.isTravel);
    if (!number)
        return std::nullopt;
    order.number = *number;
    if (isScene)
        return order;
    for (std::size_t place = 1; place < std::min<std::size_t>(words.size(), 3); ++place) {
        const auto value = numberFrom(words[place], row.kind == Kind::Press ? 1 : 0, 127);
        if (!value)
            return std::nullopt;
        (place == 1 ? order.value : order.end) = static_cast<std::uint8_t>(*value);
    }
    if (row.kind == Kind::Slide) {
        const auto time = timeFrom(words[3]);
        if (!time)
            return std::nullopt;
        order.time = *time;
    }
    return order;
}

std::int32_t stepsOf(const PlayOrder& order) {
    return std::abs(order.end - order.value);
}

std::uint8_t placeOf(const PlayOrder& order, std::int32_t step) {
    return static_cast<std::uint8_t>(order.value + (order.end < order.value ? -step : step));
}

} // namespace

std::optional<Result<PlayOrder>> parsePlayOrder(std::string_view line) {
    std::istringstream stream{std::string(line)};
    const std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
    const auto* const row =
        std::ranges::find(kOrders, words.empty() ? "" : words.front(), &OrderRow::verb);
    if (row == kOrders.end())
        return std::nullopt;
    const auto order = orderFrom(*row, std::span(words).subspan(1));
    if (order)
        return *order;
    return failure(fmt::format("'{}' is no order: it must be {}", readableText(line), row->usage));
}

Packet packetOf(const MidiMessage& message) {
    // The code index number of a channel message is the high half of its status.
    return {static_cast<std::uint8_t>(message.status >> 4U), message.status, message.first,
            message.second};
}

Playing::Messages Playing::take(const PlayOrder& order, const BankImage& bank, PlayingTime now) {
    if (order.kind == Kind::Scene) {
        scene_ = order.number;
        return {};
    }
    std::erase_if(slides_, [&](const Slide& each) { return each.order.number == order.number; });
    switch (order.kind) {
    case Kind::Press:
        return play(bank, order.number, {Gesture::Kind::Press, order.value});
    case Kind::Release:
        return play(bank, order.number, {Gesture::Kind::Release, 0});
    case Kind::Turn:
        return play(bank, order.number, {Gesture::Kind::Move, order.value});
    case Kind::Slide:
        slides_.push_back({.order = order, .begin = now});
        break;
    case Kind::Scene:
        break;
    }
    return {};
}

Playing::Messages Playing::advance(const BankImage& bank, PlayingTime now) {
    Messages sent;
    for (Slide& slide : slides_)
        for (; slide.step <= stepsOf(slide.order) && timeOf(slide) <= now; ++slide.step)
            for (const MidiMessage& message :
                 play(bank, slide.order.number,
                      {Gesture::Kind::Move, placeOf(slide.order, slide.step)}))
                if (slide.last != message) {
                    slide.last = message;
                    sent.push_back(message);
                }
    std::erase_if(slides_, [](const Slide& each) { return each.step > stepsOf(each.order); });
    return sent;
}

Playing::Messages Playing::releaseAll() {
    slides_.clear();
    Messages sent;
    for (ControlState& state : states_)
        if (const auto ending = std::exchange(state.ending, std::nullopt))
            sent.push_back(*ending);
    return sent;
}

std::optional<PlayingTime> Playing::next() const {
    if (slides_.empty())
        return std::nullopt;
    return timeOf(*std::ranges::min_element(slides_, {}, &timeOf));
}

PlayingTime Playing::timeOf(const Slide& slide) {
    const std::int32_t steps = std::max(1, stepsOf(slide.order));
    return slide.begin + std::chrono::nanoseconds(slide.order.time) * slide.step / steps;
}

Playing::Messages Playing::play(const BankImage& bank, std::int32_t control, Gesture gesture) {
    const auto images = std::span(bank);
    const auto scene = sceneFrom(std::span<const std::uint8_t, kSceneImageSize>(
        images.subspan(static_cast<std::size_t>(scene_ - 1) * kSceneImageSize, kSceneImageSize)));
    return messagesOf(*scene, control, gesture, states_.at(static_cast<std::size_t>(control)));
}

} // namespace scenewright
