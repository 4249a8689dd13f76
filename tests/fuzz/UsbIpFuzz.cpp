// A USB/IP client that sends anything: every answer has the form that the protocol gives it, a
// transfer is answered once, and how the bytes are cut into pieces makes no difference.
//
// The first bytes of the input say how the session begins, what is wrong with the controller, and
// how long the pieces are; the rest is what the client sends.
#include "platform/Text.h"
#include "tests/fuzz/Checks.h"
#include "tests/fuzz/Input.h"
#include "virtual/usbip/Session.h"

#include <algorithm>
#include <map>
#include <set>
#include <variant>

namespace scenewright::fuzz {

namespace {

using usbip::Bytes;
using usbip::ByteView;
using usbip::Session;

constexpr std::size_t kFaultKinds = 7;
constexpr std::size_t kMaxFaults = 3;

struct Setting {
    Session::Start start = Session::Start::Asking;
    VirtualIdentity identity;
    FaultPlan faults;
    std::size_t piece = 1;
};

Setting settingFrom(Input& input) {
    Setting setting;
    setting.start = input.below(2) == 0 ? Session::Start::Asking : Session::Start::Attached;
    setting.identity.interfaces = static_cast<std::uint8_t>(1 + input.below(2));
    const std::size_t faults = input.below(kMaxFaults + 1);
    for (std::size_t i = 0; i < faults; ++i) {
        const auto kind = static_cast<Fault::Kind>(input.below(kFaultKinds));
        setting.faults.push_back({kind, input.u16()});
    }
    setting.piece = 1 + input.below(100);
    return setting;
}

struct Outcome {
    Bytes output;
    Session::State state = Session::State::Open;
    std::string error;
    std::vector<std::string> trace;
    BankImage bank{};

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

// The session over the client's bytes, in pieces of the given size.
Outcome outcomeOf(const Setting& setting, ByteView bytes, std::size_t piece) {
    Outcome outcome;
    BankImage bank{};
    for (std::size_t i = 0; i < bank.size(); ++i)
        bank.at(i) = static_cast<std::uint8_t>(i % 128);
    VirtualController controller(bank, setting.faults);
    usbip::BankSaver saver({}, {});
    usbip::ServerState state{controller, saver, setting.identity,
                             [&](std::string_view line) { outcome.trace.emplace_back(line); }};
    {
        Session session(state, setting.start);
        for (; !bytes.empty(); bytes = bytes.subspan(std::min(piece, bytes.size())))
            session.receive(bytes.first(std::min(piece, bytes.size())));
        outcome.output = session.output();
        outcome.state = session.state();
        outcome.error = session.error();
        check(state.isTaken == session.isAttached(), "who has the controller is not known");
    }
    check(!state.isTaken, "a session ended and kept the controller");
    outcome.bank = controller.bank();
    return outcome;
}

// What the client asked for, by sequence number; a number that it used twice is left out.
struct Asked {
    std::map<std::uint32_t, usbip::SubmitCommand> submits;
    std::set<std::uint32_t> repeated;
};

Asked askedBy(ByteView bytes) {
    Asked asked;
    while (bytes.size() >= usbip::kUrbHeaderSize) {
        const auto decoded = usbip::decodeCommand(bytes.first(usbip::kUrbHeaderSize));
        if (!decoded) {
            checkSentence(decoded.error());
            break;
        }
        bytes = bytes.subspan(usbip::kUrbHeaderSize);
        const auto* const submit = std::get_if<usbip::SubmitCommand>(&*decoded);
        const std::uint32_t sequence =
            std::visit([](const auto& command) { return command.sequence; }, *decoded);
        if (!asked.submits.emplace(sequence, submit ? *submit : usbip::SubmitCommand{}).second)
            asked.repeated.insert(sequence);
        if (submit && !submit->isIn)
            bytes = bytes.subspan(std::min<std::size_t>(submit->length, bytes.size()));
    }
    return asked;
}

// Takes one answer from the front of the output.
ByteView checkAnswer(ByteView output, const Asked& asked, std::set<std::uint32_t>& answered) {
    constexpr std::uint32_t kSubmitReply = 3;
    constexpr std::uint32_t kUnlinkReply = 4;
    check(output.size() >= usbip::kUrbHeaderSize, "an answer without a whole header");
    const std::uint32_t code = usbip::u32At(output, 0);
    const std::uint32_t sequence = usbip::u32At(output, 4);
    const auto status = static_cast<std::int32_t>(usbip::u32At(output, 20));
    const std::uint32_t moved = usbip::u32At(output, 24);
    output = output.subspan(usbip::kUrbHeaderSize);
    check(code == kSubmitReply || code == kUnlinkReply, "an answer of no kind");
    check(status == 0 || status == -32 || status == -71 || status == -75 || status == -104,
          "an answer of an unknown status");
    check(asked.submits.contains(sequence), "an answer to nothing");
    check(answered.insert(sequence).second, "a second answer");
    if (code == kUnlinkReply)
        return output;
    const usbip::SubmitCommand& submit = asked.submits.at(sequence);
    check(moved <= submit.length, "more carried than asked for");
    const std::size_t data = submit.isIn ? moved : 0;
    check(data <= output.size(), "an answer without all its data");
    return output.subspan(data);
}

// Answers to questions are checked by their sizes, those to transfers one by one.
void checkAnswers(const Setting& setting, const Outcome& outcome, ByteView bytes) {
    constexpr std::size_t kImportSize = usbip::kOperationHeaderSize + usbip::kBusIdSize;
    constexpr std::size_t kImportReplySize = 320;
    ByteView output(outcome.output);
    if (setting.start == Session::Start::Asking) {
        if (output.size() < kImportReplySize || usbip::u16At(output, 2) != 0x0003)
            return;
        bytes = bytes.subspan(kImportSize);
        output = output.subspan(kImportReplySize);
    }
    const Asked asked = askedBy(bytes);
    if (!asked.repeated.empty())
        return;
    std::set<std::uint32_t> answered;
    while (!output.empty())
        output = checkAnswer(output, asked, answered);
}

void checkOutcome(const Outcome& outcome) {
    check((outcome.state == Session::State::Dropped) == !outcome.error.empty(),
          "dropped without an error, or the other way round");
    if (!outcome.error.empty())
        checkSentence(outcome.error);
    for (const std::string& line : outcome.trace)
        check(readableText(line) == line, "unreadable bytes in a trace line");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright::fuzz;
    Input input(data, size);
    const Setting setting = settingFrom(input);
    const auto bytes = input.rest();
    Outcome whole = outcomeOf(setting, bytes, std::max<std::size_t>(bytes.size(), 1));
    if (faultIsPlanted())
        whole.output.push_back(0);
    checkOutcome(whole);
    checkAnswers(setting, whole, bytes);
    check(outcomeOf(setting, bytes, setting.piece) == whole, "pieces make a difference");
    return 0;
}
