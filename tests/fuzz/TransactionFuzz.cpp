// A read or a send against a controller, and a USB system, that answer what the input orders. What
// was read is what was delivered, what was sent is what the scenes encode to, or the outcome says
// what went wrong; and the interface is given back.
#include "app/DeviceSession.h"
#include "bank/BankFile.h"
#include "model/MessageValue.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/fuzz/Checks.h"
#include "tests/fuzz/Input.h"
#include "tests/protocol/FakeController.h"
#include "usb/Transport.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace scenewright::fuzz {

namespace {

using testing::Bytes;
using testing::FakeController;
using testing::HostScript;

constexpr int kMaxOrders = 24;
constexpr std::size_t kLongestReply = 70; // longer than any read asks for
// A handshake is repeated for ever; this is more writes than the longest ordered transaction makes.
constexpr std::size_t kPatience = 1400;

// Thrown out of a handshake that would not end.
struct OutOfPatience {};

constexpr std::array<const char*, 9> kSteps{"canMatch",  "devices",       "prepare",
                                            "interface", "open",          "close",
                                            "release",   "endpointCount", "pipeProperties"};
// Steps whose exceptions the transport is to catch.
constexpr std::array<const char*, 5> kRaisingSteps{"canMatch", "devices", "prepare", "vendor",
                                                   "product"};
constexpr auto kUsbSteps = static_cast<std::size_t>(UsbStep::Release) + 1;

constexpr ResultCode kFirstCode = kResultOther;
constexpr std::size_t kCodes = kResultCancelled - kResultOther + 1;

ResultCode codeFrom(Input& input) {
    return kFirstCode + static_cast<ResultCode>(input.below(kCodes));
}

Bytes bytesFrom(Input& input) {
    const auto bytes = input.bytes(input.below(kLongestReply));
    return {bytes.begin(), bytes.end()};
}

void answerOnce(HostScript& script, const char* step, std::size_t after, ResultCode code) {
    std::vector<ResultCode> codes(after, kResultSuccess);
    codes.push_back(code);
    script.answer(step, codes);
}

void orderPipes(HostScript& script, Input& input) {
    auto& interfaces = script.devices.front().interfaces;
    interfaces.resize(input.below(4));
    for (auto& interface : interfaces) {
        interface.kind = {input.u8(), input.u8()};
        interface.pipes.resize(input.u8());
        for (PipeProperties& pipe : interface.pipes)
            pipe = {input.u8(), input.u8(), input.u8(), input.u16(), input.u8()};
    }
}

Bytes& replyOf(FakeController& controller, std::size_t which) {
    const std::array<Bytes*, 4> replies{&controller.handshakeReply, &controller.startReply,
                                        &controller.countReply, &controller.blockReply};
    return *replies.at(which);
}

void orderUsb(HostScript& script, Input& input) {
    switch (input.below(6)) {
    case 0:
        return orderPipes(script, input);
    case 1:
        script.devices.front().vendor = input.u16();
        script.devices.front().product = input.u16();
        return;
    case 2:
        return script.fail(static_cast<UsbStep>(input.below(kUsbSteps)), codeFrom(input));
    case 3:
        return script.raise(kRaisingSteps[input.below(kRaisingSteps.size())]);
    default:
        const char* const step = kSteps[input.below(kSteps.size())];
        return answerOnce(script, step, input.below(4), codeFrom(input));
    }
}

void orderReplies(HostScript& script, FakeController& controller, Input& input) {
    switch (input.below(6)) {
    case 0:
        controller.wrongReplies.push_back(bytesFrom(input));
        return;
    case 1: {
        Bytes& reply = replyOf(controller, input.below(4));
        reply = bytesFrom(input);
        return;
    }
    case 2: {
        const std::size_t position = input.u16() % kBankSize;
        controller.dataReplies[position] = bytesFrom(input);
        return;
    }
    case 3: {
        const std::size_t after = input.u16() % kPatience;
        return answerOnce(script, "read", after, codeFrom(input));
    }
    case 4: {
        const std::size_t after = input.u16() % kPatience;
        return answerOnce(script, "write", after, codeFrom(input));
    }
    default:
        const Bytes pattern = bytesFrom(input);
        for (std::size_t i = 0; i < controller.bank.size() && !pattern.empty(); ++i)
            controller.bank[i] = pattern[i % pattern.size()];
        return;
    }
}

// One run: the orders, the transaction, and what the transport's buffer held at each write.
class Run {
public:
    explicit Run(Input& input) : isSend_(input.below(2) == 1) {
        for (int i = 0; i < kMaxOrders && !input.isUsedUp(); ++i) {
            if (input.below(2) == 0)
                orderUsb(*script_, input);
            else
                orderReplies(*script_, controller_, input);
        }
        Progress::record()->setMessage("");
        Transport::instance().use(testing::makeScriptedHost(script_),
                                  [this](std::chrono::nanoseconds) { beforeWrite(); });
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    Run(Run&&) = delete;
    Run& operator=(Run&&) = delete;
    ~Run() {
        Transport::instance().use(nullptr);
        check(script_->claimed.empty(), "an interface was not given back");
    }

    void carryOut() {
        try {
            if (isSend_)
                send();
            else
                read();
        } catch (const OutOfPatience&) {
            // What a user does to a keyboard that never answers.
            Transport::instance().shutDown();
        }
        checkSentence(causeAndCure(Transport::instance().connectFailure));
    }

private:
    // Before the n-th write the buffer holds the answer to the one before.
    void beforeWrite() {
        const auto& buffer = Transport::instance().buffer;
        delivered_.push_back(static_cast<std::uint8_t>(buffer[2] * 16U + buffer[3]));
        if (delivered_.size() > kPatience && std::this_thread::get_id() == mainThread_)
            throw OutOfPatience();
    }

    // Success is told of what is done alone, and of anything else what happened.
    static void checkText(DeviceOperation operation, const Outcome& outcome) {
        const OutcomeText text = textOf(operation, outcome);
        check(text.exitCode != 0 || text.sentence.empty(), "success with a reason");
        check(text.exitCode == 0 || !text.sentence.empty() || !text.details.empty(),
              "failed without a reason");
        check(text.exitCode != 0 || outcome.stats.isClean(), "success with a failed transfer");
        if (!text.sentence.empty())
            checkSentence(text.sentence);
        for (const std::string& detail : text.details)
            checkSentence(detail);
    }

    void read() {
        const ScenesRead read = readScenes(*Progress::record());
        checkText(DeviceOperation::SaveScenes, read.outcome);
        const bool isConnected = read.outcome.end != Outcome::End::NotConnected;
        check(isConnected == !read.scenes.empty(), "scenes without a connection, or none with one");
        if (!isConnected)
            return;
        check(read.scenes.size() == 4, "not four scenes");
        const TransferStats& stats = read.outcome.stats;
        check(stats.writes == delivered_.size(), "a write was not counted");
        // The last write is the end of the read, and before each other came an answer.
        BankImage expected{};
        std::copy(delivered_.end() - kBankSize, delivered_.end(), expected.begin());
        BankImage image = encodeBank(read.scenes);
        if (faultIsPlanted())
            image.back() ^= 1U;
        check(image == encodeBank(parseScenes(expected)), "not what was delivered was read");
        check(stats.isClean() == (read.outcome.end == Outcome::End::Done), "not told how it went");
        if (stats.isClean() && controller_.dataReplies.empty())
            check(std::ranges::equal(expected, controller_.bank), "not what is there was read");
    }

    void send() {
        const SceneList scenes = parseScenes(controller_.bank);
        std::optional<Outcome> told;
        sendScenes(scenes, Progress::record(), [&told](const Outcome& outcome) { told = outcome; });
        MainQueue::pumpUntil([&] { return told.has_value(); });
        SendJob::waitForEnd();
        SendJob::join();
        checkText(DeviceOperation::Send, *told);
        if (told->end == Outcome::End::NotConnected)
            return;
        check(Progress::record()->Message() == "Send Scene Data Finish:100%:Success",
              "the end of a send is not told");
        check(script_->claimed.empty(), "a send ended and kept the interface");
        if (told->stats.failedWrites == 0)
            checkSent(encodeBank(scenes));
    }

    void checkSent(const BankImage& image) {
        Bytes expected(image.begin(), image.end());
        expected.resize(1024, 0xFF); // the fill of two whole blocks
        if (faultIsPlanted())
            expected.pop_back();
        check(controller_.received() == expected, "not what is to be sent was sent");
    }

    bool isSend_;
    std::thread::id mainThread_ = std::this_thread::get_id();
    std::shared_ptr<HostScript> script_ = std::make_shared<HostScript>();
    FakeController controller_{script_};
    std::vector<std::uint8_t> delivered_;
};

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright::fuzz;
    static_cast<void>(defaultScenes()); // the list of devices is the tree's own
    Input input(data, size);
    Run(input).carryOut();
    return 0;
}
