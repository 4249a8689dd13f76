#include "virtual/VirtualController.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
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
    for (const FaultName& row : kFaultNames)
        if (row.name == name)
            return row.kind;
    return std::nullopt;
}

std::optional<std::uint32_t> countFrom(std::string_view digits) {
    std::uint32_t count = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, count);
    return error == std::errc{} && stop == end ? std::optional(count) : std::nullopt;
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
    const auto count =
        colon == std::string_view::npos ? std::nullopt : countFrom(text.substr(colon + 1));
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
    const auto found = std::find_if(faults_.begin(), faults_.end(),
                                    [kind](const Fault& fault) { return fault.kind == kind; });
    return found == faults_.end() ? std::nullopt : std::optional(found->count);
}

bool VirtualController::isFaultAt(Fault::Kind kind, std::uint32_t count) const {
    return std::find(faults_.begin(), faults_.end(), Fault{kind, count}) != faults_.end();
}

} // namespace scenewright
