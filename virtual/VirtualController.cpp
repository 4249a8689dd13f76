#include "virtual/VirtualController.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <utility>

namespace scenewright {

namespace {

struct FaultName {
    std::string_view name;
    Fault::Kind kind;
};

constexpr std::array<FaultName, 7> kFaultNames{{{"handshake", Fault::Kind::WrongHandshake},
                                                {"silent", Fault::Kind::NoAnswer},
                                                {"short", Fault::Kind::ShortTransfer},
                                                {"nibble", Fault::Kind::WrongNibble},
                                                {"write", Fault::Kind::FailedWrite},
                                                {"unplug", Fault::Kind::Unplug},
                                                {"stall", Fault::Kind::Stall}}};

std::optional<Fault::Kind> kindNamed(std::string_view name) {
    const auto* const row = std::ranges::find(kFaultNames, name, &FaultName::name);
    return row == kFaultNames.end() ? std::nullopt : std::optional(row->kind);
}

// What the controller answers; the host looks only at the first 8 bytes of the handshake reply.
constexpr std::array<std::uint8_t, 12> kHandshakeAnswer{0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C,
                                                        0x01, 0x38, 0x09, 0x9C, 0x00, 0x01};
constexpr std::size_t kWrongFirstByte = 0;      // a reply that is wrong from its first byte
constexpr std::size_t kWrongSecondArgument = 7; // one that is wrong in its last checked byte
constexpr std::uint8_t kNoNoteOn = 0x0B;        // code index 11, a control change
constexpr std::uint8_t kWrongArgument = 0x39;

constexpr std::size_t kShortTransferSize = 2;
constexpr std::uint8_t kNibbleOverflow = 0x10;

VirtualController::Transfer transferOf(const Packet& packet) {
    return {packet.begin(), packet.end()};
}

bool isCommand(const Packet& packet) {
    return packet[0] == kCableZeroNoteOn && packet[1] == kCommandStatus;
}

bool isData(const Packet& packet) {
    return packet[0] == kCableZeroNoteOn && packet[1] == kDataStatus;
}

std::uint8_t byteOf(const Packet& packet) {
    return static_cast<std::uint8_t>(packet[2] * 16U + packet[3]);
}

} // namespace

Result<Fault> parseFault(std::string_view text) {
    const auto colon = text.find(':');
    const auto kind = kindNamed(text.substr(0, colon));
    if (!kind)
        return failure(fmt::format("'{}' is no fault: it must be handshake:N, silent:N, short:N, "
                                   "nibble:N, write:N, unplug:N or stall:N",
                                   readableText(text)));
    const auto count = colon == std::string_view::npos
                           ? std::nullopt
                           : numberFrom<std::uint32_t>(text.substr(colon + 1));
    if (!count)
        return failure(
            fmt::format("'{}' is no fault: a number from 0 to 4294967295 must follow '{}:'",
                        readableText(text), text.substr(0, colon)));
    return Fault{*kind, *count};
}

VirtualController::VirtualController(const BankImage& bank, FaultPlan faults)
    : bank_(bank), faults_(std::move(faults)) {}

VirtualController::WriteResult VirtualController::receive(std::span<const std::uint8_t> transfer) {
    if (!isPresent_)
        return WriteResult::Gone;
    if (now_.isOutHalted)
        return WriteResult::Halted;
    if (const auto limit = faultCount(Fault::Kind::FailedWrite);
        limit && now_.counts.packets >= *limit)
        return WriteResult::Failed;
    if (transfer.size() % kPacketSize != 0)
        return WriteResult::Taken;
    for (; !transfer.empty(); transfer = transfer.subspan(kPacketSize)) {
        Packet packet;
        std::copy_n(transfer.begin(), kPacketSize, packet.begin());
        ++now_.counts.packets;
        take(packet);
        if (now_.isOutHalted)
            return WriteResult::Halted;
    }
    return WriteResult::Taken;
}

std::optional<VirtualController::Transfer> VirtualController::nextReply() {
    if (now_.isInHalted || now_.replies.empty())
        return std::nullopt;
    Transfer transfer = std::move(now_.replies.front());
    now_.replies.pop_front();
    return transfer;
}

bool VirtualController::isHalted(Pipe pipe) const noexcept {
    return pipe == Pipe::In ? now_.isInHalted : now_.isOutHalted;
}

bool VirtualController::isConversing() const noexcept {
    return now_.state != State::Idle || !now_.replies.empty() || now_.isSilent;
}

void VirtualController::clearHalt(Pipe pipe) noexcept {
    (pipe == Pipe::In ? now_.isInHalted : now_.isOutHalted) = false;
}

void VirtualController::reset() {
    isPresent_ = true;
    now_ = {};
}

void VirtualController::order(FaultPlan faults) {
    faults_ = std::move(faults);
    now_.counts = {};
}

void VirtualController::take(const Packet& packet) {
    if (packet == packets::kHandshakeRequest) {
        now_.replies.clear();
        now_.isSilent = false;
        now_.state = State::Requested;
    } else if (now_.state == State::Announcing && isCommand(packet)) {
        takeBlockCount(packet);
    } else if (now_.state == State::Receiving && isData(packet)) {
        takeData(packet);
    } else {
        takeCommand(packet);
    }
}

void VirtualController::takeCommand(const Packet& packet) {
    if (now_.state == State::Requested && packet == packets::kHandshakeConfirm) {
        answerHandshake();
    } else if (now_.state == State::Ready && packet == packets::kReadStart) {
        now_.state = State::Reading;
        now_.readPosition = 0;
        reply(transferOf(packet));
    } else if (now_.state == State::Ready && packet == packets::kSendStart) {
        now_.state = State::Announcing;
    } else if (now_.state == State::Reading && packet == packets::kReadNext) {
        answerReadNext();
    } else if (now_.state == State::Reading && packet == packets::kReadEnd) {
        now_.state = State::Idle;
    }
}

void VirtualController::takeBlockCount(const Packet& packet) {
    now_.blocksDue = byteOf(packet);
    now_.blocksDone = 0;
    now_.block.clear();
    now_.state = now_.blocksDue > 0 ? State::Receiving : State::Idle;
    reply(transferOf(packet));
}

void VirtualController::takeData(const Packet& packet) {
    if (!carryDataByte(Pipe::Out))
        return;
    now_.block.push_back(byteOf(packet));
    if (now_.block.size() == kBlockPackets)
        endBlock();
}

// Memory is written a block at a time; what lies past its end is fill.
void VirtualController::endBlock() {
    const std::size_t start = now_.blocksDone * kBlockPackets;
    const std::size_t size =
        start < bank_.size() ? std::min(kBlockPackets, bank_.size() - start) : 0;
    if (size > 0) {
        std::copy_n(now_.block.begin(), size, bank_.begin() + static_cast<std::ptrdiff_t>(start));
        ++blocksWritten_;
    }
    now_.block.clear();
    ++now_.blocksDone;
    if (now_.blocksDone == now_.blocksDue) {
        now_.state = State::Idle;
        ++sendsEnded_;
    }
    reply({kCableZeroNoteOn, kCommandStatus, 0x00, static_cast<std::uint8_t>(now_.blocksDone)});
}

void VirtualController::answerHandshake() {
    Transfer answer(kHandshakeAnswer.begin(), kHandshakeAnswer.end());
    const std::uint32_t handshake = now_.counts.handshakes++;
    now_.state = State::Ready;
    if (handshake < faultCount(Fault::Kind::WrongHandshake).value_or(0)) {
        // The two ways of being wrong take turns.
        if (handshake % 2 == 0)
            answer[kWrongSecondArgument] = kWrongArgument;
        else
            answer[kWrongFirstByte] = kNoNoteOn;
        now_.state = State::Idle;
    }
    reply(std::move(answer));
}

void VirtualController::answerReadNext() {
    if (!carryDataByte(Pipe::In))
        return;
    const bool isInside = now_.readPosition < bank_.size();
    Packet packet = isInside ? packets::data(bank_[now_.readPosition]) : packets::kFill;
    ++now_.readPosition;
    const std::uint32_t dataReply = now_.counts.dataReplies++;
    if (isFaultAt(Fault::Kind::WrongNibble, dataReply))
        packet[3] = packet[3] | kNibbleOverflow;
    Transfer transfer = transferOf(packet);
    if (isFaultAt(Fault::Kind::ShortTransfer, dataReply))
        transfer.resize(kShortTransferSize);
    reply(std::move(transfer));
}

void VirtualController::reply(Transfer transfer) {
    const auto limit = faultCount(Fault::Kind::NoAnswer);
    if (limit && now_.counts.repliesQueued >= *limit) {
        now_.isSilent = true;
        return;
    }
    ++now_.counts.repliesQueued;
    now_.replies.push_back(std::move(transfer));
}

bool VirtualController::carryDataByte(Pipe pipe) {
    const std::uint32_t dataByte = now_.counts.dataBytes++;
    if (isFaultAt(Fault::Kind::Unplug, dataByte)) {
        std::erase(faults_, Fault{Fault::Kind::Unplug, dataByte});
        isPresent_ = false;
        now_.replies.clear();
        return false;
    }
    if (isFaultAt(Fault::Kind::Stall, dataByte)) {
        (pipe == Pipe::In ? now_.isInHalted : now_.isOutHalted) = true;
        return false;
    }
    return true;
}

std::optional<std::uint32_t> VirtualController::faultCount(Fault::Kind kind) const {
    const auto found = std::ranges::find(faults_, kind, &Fault::kind);
    return found == faults_.end() ? std::nullopt : std::optional(found->count);
}

bool VirtualController::isFaultAt(Fault::Kind kind, std::uint32_t count) const {
    return std::ranges::find(faults_, Fault{kind, count}) != faults_.end();
}

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLongestSlide{600'000};

// How an order is said.
struct OrderRow {
    PlayOrder::Kind kind;
    std::string_view verb;
    std::size_t values; // after the verb and, but for a scene, the control
    bool isTravel;      // of knobs and sliders; presses are of pads and keys
    std::string_view usage;
};
constexpr std::array kOrders{
    OrderRow{PlayOrder::Kind::Scene, "scene", 1, false,
             "scene and a number from 1 to 4, as in scene 2"},
    OrderRow{PlayOrder::Kind::Press, "press", 1, false,
             "press, a pad or key and a velocity from 1 to 127, as in press pad3 100"},
    OrderRow{PlayOrder::Kind::Release, "release", 0, false,
             "release and a pad or key, as in release pad3"},
    OrderRow{PlayOrder::Kind::Turn, "turn", 1, true,
             "turn, a knob or slider and a place from 0 to 127, as in turn knob1 64"},
    OrderRow{
        PlayOrder::Kind::Slide, "slide", 3, true,
        "slide, a knob or slider, two places from 0 to 127 and a time of at most 600000ms, as in "
        "slide slider2 0 127 500ms"},
};

std::optional<std::int32_t> controlFrom(std::string_view text, bool isTravel) {
    using enum ControlKind;
    for (const ControlKind kind : isTravel ? std::array{Knob, Slider} : std::array{Pad, Key}) {
        const ControlRange& range = controlRange(kind);
        if (!text.starts_with(range.name))
            continue;
        if (const auto number = numberWithin(text.substr(range.name.size()), 1, range.count))
            return range.start + *number - 1;
    }
    return std::nullopt;
}

std::optional<milliseconds> timeFrom(std::string_view text) {
    constexpr std::string_view kUnit = "ms";
    if (!text.ends_with(kUnit))
        return std::nullopt;
    text.remove_suffix(kUnit.size());
    const auto count = numberWithin<std::int32_t>(text, 0, kLongestSlide.count());
    return count ? std::optional(milliseconds(*count)) : std::nullopt;
}

std::optional<PlayOrder> orderFrom(const OrderRow& row, std::span<const std::string> words) {
    PlayOrder order{.kind = row.kind};
    const bool isScene = row.kind == PlayOrder::Kind::Scene;
    if (words.size() != row.values + (isScene ? 0 : 1))
        return std::nullopt;
    const auto number =
        isScene ? numberWithin(words[0], 1, kSceneCount) : controlFrom(words[0], row.isTravel);
    if (!number)
        return std::nullopt;
    order.number = *number;
    if (isScene)
        return order;
    for (std::size_t place = 1; place < std::min<std::size_t>(words.size(), 3); ++place) {
        const auto value =
            numberWithin(words[place], row.kind == PlayOrder::Kind::Press ? 1 : 0, 127);
        if (!value)
            return std::nullopt;
        (place == 1 ? order.value : order.end) = static_cast<std::uint8_t>(*value);
    }
    if (row.kind == PlayOrder::Kind::Slide) {
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
    if (order.kind == PlayOrder::Kind::Scene) {
        scene_ = order.number;
        return {};
    }
    std::erase_if(slides_, [&](const Slide& each) { return each.order.number == order.number; });
    switch (order.kind) {
    case PlayOrder::Kind::Press:
        return play(bank, order.number, {Gesture::Kind::Press, order.value});
    case PlayOrder::Kind::Release:
        return play(bank, order.number, {Gesture::Kind::Release, 0});
    case PlayOrder::Kind::Turn:
        return play(bank, order.number, {Gesture::Kind::Move, order.value});
    case PlayOrder::Kind::Slide:
        slides_.push_back({.order = order, .begin = now});
        break;
    case PlayOrder::Kind::Scene:
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
