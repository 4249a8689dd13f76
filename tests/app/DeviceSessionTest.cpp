#include "app/DeviceSession.h"

#include "bank/BankFile.h"
#include "model/MessageValue.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/app/KeyboardBench.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using End = Outcome::End;
using testing::filled;

class KnownKeyboardTest : public testing::KeyboardBench {
protected:
    KnownKeyboardTest() { WindowAction::getSceneValue(); }
    static void send() {
        DeviceSession::send({});
        SendJob::waitForEnd();
        MainQueue::pump(); // of one that has not started, the end waits there
    }
};

TEST_F(KnownKeyboardTest, FollowsHowATransactionEnded) {
    for (const auto& [end, isKnown, byte] : {std::tuple{End::Done, true, 2},
                                             {End::NotConnected, true, 1},
                                             {End::NotStarted, true, 1},
                                             {End::Unreliable, false, 0},
                                             {End::Cancelled, false, 0}}) {
        KnownKeyboard::set(filled(1), "Keys");
        KnownKeyboard::follow({.end = end}, filled(2));
        EXPECT_EQ(KnownKeyboard::image().has_value(), isKnown) << static_cast<int>(end);
        if (isKnown) {
            EXPECT_EQ(KnownKeyboard::image(), filled(static_cast<std::uint8_t>(byte)));
        }
    }
}

TEST_F(KnownKeyboardTest, HoldsWhatCleanTransfersTold) {
    plugIn(filled(5));
    EXPECT_TRUE(DeviceSession::heldScenes().outcome.isDone());
    EXPECT_EQ(KnownKeyboard::image(), filled(5));
    KnownKeyboard::forget();
    DeviceSession::read({});
    EXPECT_EQ(KnownKeyboard::image(), filled(5));
    EXPECT_EQ(KnownKeyboard::name(), "Keys");
    unplug();
    send();
    EXPECT_EQ(KnownKeyboard::image(), filled(5)) << "it still holds what it held";
    plugIn(filled(5), {{Fault::Kind::ShortTransfer, 0}});
    EXPECT_EQ(DeviceSession::heldScenes().outcome.end, End::Unreliable);
    EXPECT_FALSE(KnownKeyboard::image());
}

TEST_F(KnownKeyboardTest, ASendTellsWhatWasSentWhateverWasEditedMeanwhile) {
    plugIn(filled(5));
    const BankImage sent = storedImage();
    DeviceSession::send({});
    WindowAction::getSceneWithIndex(0)->commonValue()->setPitchBendSpeed(9);
    SendJob::waitForEnd();
    EXPECT_EQ(KnownKeyboard::image(), sent);
    EXPECT_NE(storedImage(), sent);
}

TEST_F(KnownKeyboardTest, TellsChangesAloneUntilTheObservationEnds) {
    EXPECT_FALSE(KnownKeyboard::image()) << "at first";
    EXPECT_EQ(KnownKeyboard::name(), "");
    int told = 0;
    auto observed = KnownKeyboard::addObserver([&told] { ++told; });
    KnownKeyboard::forget();
    EXPECT_EQ(told, 0);
    KnownKeyboard::set(filled(1), "Keys");
    KnownKeyboard::set(filled(1), "Keys");
    EXPECT_EQ(told, 1);
    KnownKeyboard::set(filled(1), "Other keys");
    KnownKeyboard::forget();
    EXPECT_EQ(told, 3);
    observed.reset();
    KnownKeyboard::set(filled(2), "Keys");
    EXPECT_EQ(told, 3);
}

class DeviceSessionTest : public ::testing::Test {
protected:
    void SetUp() override { WindowAction::getSceneValue(); }
    void TearDown() override {
        SendJob::waitForEnd();
        SendJob::join();
        Transport::instance().use(nullptr);
    }

    // The controller holds what the store holds now.
    void plugIn(FaultPlan faults = {}) {
        controller = std::make_shared<VirtualController>(encodeBank(WindowAction::scenes()),
                                                         std::move(faults));
        Transport::instance().use(makeVirtualHost(controller), [](std::chrono::nanoseconds) {});
    }
    static bool isReleased() {
        const auto interface = Transport::instance().interface();
        return interface && interface->isStale();
    }

    std::shared_ptr<VirtualController> controller;
    std::shared_ptr<PopUpValue> lists = WindowAction::InitializePopUp();
};

TEST_F(DeviceSessionTest, ReadGivesTheKeyboardBackAndTellsItsOutcome) {
    plugIn();
    std::optional<Outcome> outcome;
    DeviceSession::read([&](const Outcome& ended) {
        outcome = ended;
        EXPECT_TRUE(isReleased());
    });
    ASSERT_TRUE(outcome);
    EXPECT_TRUE(outcome->isDone());
}

TEST_F(DeviceSessionTest, WhatIsSetAroundIsCalledBeforeEachTransactionAndAfterTheRelease) {
    plugIn();
    std::vector<std::string> calls;
    DeviceSession::setAround(
        [&] { calls.push_back(controller->isConversing() ? "late" : "before"); },
        [&] { calls.push_back(isReleased() ? "after" : "too early"); });
    const auto note = [&calls](const Outcome& /*ended*/) { calls.emplace_back("ended"); };
    DeviceSession::read(note);
    static_cast<void>(DeviceSession::heldScenes());
    DeviceSession::send(note);
    MainQueue::pumpUntil([&calls] { return calls.back() == "ended" && calls.size() > 5; });
    DeviceSession::setAround({}, {});
    DeviceSession::read(note);
    EXPECT_EQ(calls, (std::vector<std::string>{"before", "after", "ended", "before", "after",
                                               "before", "after", "ended", "ended"}));
}

TEST_F(DeviceSessionTest, HeldScenesLeaveTheStoreAlone) {
    plugIn();
    WindowAction::readSceneData();
    EXPECT_FALSE(isReleased()) << "the store's own read leaves the interface open";
    const SceneList before = WindowAction::scenes();
    before[0]->commonValue()->setSceneName("EDITED");
    const ScenesRead held = DeviceSession::heldScenes();
    EXPECT_EQ(held.scenes.size(), 4U);
    EXPECT_EQ(WindowAction::scenes(), before);
    EXPECT_EQ(before[0]->commonValue()->SceneName(), "EDITED");
    EXPECT_TRUE(isReleased());
}

TEST_F(DeviceSessionTest, HeldScenesTellTheProgressRecordNothing) {
    std::vector<std::string> messages;
    const auto observed = Progress::record()->addObserver(
        "Message", [&](auto /*key*/, const MessageValue::Text& text) {
            messages.push_back(text.value_or(""));
        });
    for (const bool isPluggedIn : {true, false}) {
        if (isPluggedIn)
            plugIn();
        else
            Transport::instance().use(nullptr);
        EXPECT_EQ(DeviceSession::heldScenes().scenes.empty(), !isPluggedIn);
    }
    EXPECT_EQ(messages, std::vector<std::string>{});
}

TEST_F(DeviceSessionTest, HeldScenesAreNotAskedForDuringASend) {
    plugIn();
    DeviceSession::send({});
    const ScenesRead held = DeviceSession::heldScenes();
    EXPECT_EQ(held.outcome.end, Outcome::End::NotStarted);
    EXPECT_EQ(held.outcome.cause, kResultBusy);
    EXPECT_TRUE(held.scenes.empty());
}

TEST_F(DeviceSessionTest, ComparisonFindsTheSameOrWhatDiffersTheControllersValueFirst) {
    plugIn();
    EXPECT_TRUE(compareWithDevice(*lists, WindowAction::scenes()).isSame());
    EXPECT_TRUE(isReleased());
    WindowAction::scenes()[0]->buttonValueArray()[14]->setCR(12);
    const auto comparison = compareWithDevice(*lists, WindowAction::scenes());
    EXPECT_FALSE(comparison.isSame());
    ASSERT_EQ(comparison.differences.size(), 1U);
    const std::string words = differenceWords(comparison.differences[0]);
    EXPECT_TRUE(words.starts_with("Scene 1, Pad 3, Red: ")) << words;
    EXPECT_TRUE(words.ends_with(" -> 12")) << words;
}

TEST_F(DeviceSessionTest, NothingIsComparedWithAReadThatFailed) {
    WindowAction::scenes()[0]->buttonValueArray()[14]->setCR(12);
    Transport::instance().use(nullptr);
    EXPECT_EQ(compareWithDevice(*lists, WindowAction::scenes()).outcome.end,
              Outcome::End::NotConnected);
    plugIn({{Fault::Kind::ShortTransfer, 0}});
    const auto comparison = compareWithDevice(*lists, WindowAction::scenes());
    EXPECT_EQ(comparison.outcome.end, Outcome::End::Unreliable);
    EXPECT_TRUE(comparison.differences.empty());
    EXPECT_FALSE(comparison.isSame());
}

} // namespace
} // namespace scenewright

namespace scenewright {

namespace {

using End = Outcome::End;
using Operation = DeviceOperation;

constexpr std::array kOperations{Operation::ShowScenes, Operation::SaveScenes, Operation::Backup,
                                 Operation::Send,       Operation::Verify,     Operation::Compare,
                                 Operation::DryRun};

const std::string kPlugIn =
    "No keyboard of the device list is plugged in: plug it in, or see what 'scenewright-cli "
    "devices' says about yours";
const std::string kReplug =
    "The keyboard does not answer: unplug it, plug it in again and try again";

TransferStats whole() {
    TransferStats stats;
    stats.writes = 1016;
    stats.reads = 1014;
    stats.versionReads = 1;
    return stats;
}

TransferStats failedAt(std::uint32_t transfer, ResultCode code, bool isWrite = false) {
    TransferStats stats = whole();
    (isWrite ? stats.failedWrites : stats.failedReads) = 1;
    stats.first = TransferStats::Failure{.isWrite = isWrite, .code = code, .transfer = transfer};
    return stats;
}

Outcome unreliable(const TransferStats& stats) {
    return {.end = End::Unreliable, .cause = stats.first->code, .stats = stats};
}

// One line a sentence.
std::string written(const OutcomeText& text) {
    std::string lines = text.sentence;
    for (const std::string& detail : text.details)
        lines += (lines.empty() ? "" : "\n") + detail;
    return lines;
}

} // namespace

TEST(OutcomeText, WhatIsDoneNeedsNoWordsAndExitsWith0) {
    for (const Operation operation : kOperations) {
        const OutcomeText text = textOf(operation, {.end = End::Done, .stats = whole()});
        EXPECT_EQ(written(text), "");
        EXPECT_EQ(text.exitCode, 0);
    }
}

struct Row {
    Operation operation;
    Outcome outcome;
    std::string text;
};

class OutcomeTexts : public ::testing::TestWithParam<Row> {};

TEST_P(OutcomeTexts, EachOperationTellsItsEndWithConsequenceAndCure) {
    const OutcomeText text = textOf(GetParam().operation, GetParam().outcome);
    EXPECT_EQ(written(text), GetParam().text);
    EXPECT_EQ(text.exitCode, 1);
}

TEST(OutcomeText, WithoutAKeyboardEachOperationTellsItsConsequence) {
    for (const auto& [operation, consequence] : std::vector<std::pair<Operation, std::string>>{
             {Operation::ShowScenes, "default scenes are shown"},
             {Operation::SaveScenes, "no file was written"},
             {Operation::Backup, "there is no backup and nothing was sent"},
             {Operation::Send, "nothing was sent"},
             {Operation::Verify, "what was sent could not be checked"},
             {Operation::Compare, "nothing was compared"},
             {Operation::DryRun, "it is not known what would change"}}) {
        const OutcomeText text =
            textOf(operation, {.end = End::NotConnected, .cause = kResultNotPlugged});
        EXPECT_EQ(written(text),
                  "The keyboard could not be reached: " + consequence + "\n" + kPlugIn);
        EXPECT_EQ(text.exitCode, 1);
    }
}

constexpr ResultCode kFault = kResultInputOutput;

INSTANTIATE_TEST_SUITE_P(
    Unreliable, OutcomeTexts,
    ::testing::Values(
        Row{Operation::ShowScenes, unreliable(failedAt(502, kFault)),
            "1 of 2030 transfers failed, the first at byte 500 of 1012 (the USB transfer failed): "
            "1 of the 1012 bytes shown did not come from the keyboard\n" +
                kReplug},
        Row{Operation::SaveScenes, unreliable(failedAt(502, kResultSuccess)),
            "1 of 2030 transfers failed, the first at byte 500 of 1012 (the answer was too "
            "short): no file was written"},
        Row{Operation::SaveScenes, unreliable(failedAt(14, kResultStall, true)),
            "1 of 2030 transfers failed, the first at byte 11 of 1012 (the keyboard refused it): "
            "no file was written\n" +
                kReplug},
        Row{Operation::Backup, unreliable(failedAt(1, kResultTimeout)),
            "1 of 2030 transfers failed, the first before the first byte (the keyboard did not "
            "answer): there is no backup and nothing was sent\n" +
                kReplug},
        Row{Operation::Send, unreliable(failedAt(700, kFault, true)),
            "1 of 2030 transfers failed, the first at packet 700 (the USB transfer failed): the "
            "keyboard may hold half a bank, and sending again repairs it\n" +
                kReplug},
        Row{Operation::Send, unreliable(failedAt(3, kResultNoDevice)),
            "1 of 2030 transfers failed, the first at answer 3 (the keyboard was unplugged): the "
            "keyboard may hold half a bank, and sending again repairs it\n"
            "The keyboard was unplugged: plug it in and try again"},
        Row{Operation::Verify, unreliable(failedAt(2, kResultOverflow)),
            "1 of 2030 transfers failed, the first at byte 0 of 1012 (the answer was too long): "
            "what was sent could not be checked\n"
            "The keyboard answers with longer transfers than scenes have: check that it is the "
            "model that the device list names, and plug it in again"},
        Row{Operation::Compare, unreliable(failedAt(2, kResultNoMemory)),
            "1 of 2030 transfers failed, the first at byte 0 of 1012 (the system has no memory "
            "left): nothing was compared\n"
            "The system is short of memory or threads: close other programs and try again"},
        Row{Operation::DryRun, unreliable(failedAt(2, kResultSuccess)),
            "1 of 2030 transfers failed, the first at byte 0 of 1012 (the answer was too short): "
            "it is not known what would change"}));

INSTANTIATE_TEST_SUITE_P(
    OtherEnds, OutcomeTexts,
    ::testing::Values(
        Row{Operation::Send,
            {.end = End::NotStarted, .cause = kResultNoThread},
            "The transfer could not be started: nothing was sent\n"
            "The system is short of memory or threads: close other programs and try again"},
        Row{Operation::Compare,
            {.end = End::NotStarted, .cause = kResultBusy},
            "A send is still running: nothing was compared"},
        Row{Operation::Send,
            {.end = End::Cancelled, .cause = kResultCancelled, .stats = whole()},
            "The transfer was cancelled: the keyboard may hold half a bank, and sending again "
            "repairs it"},
        Row{Operation::SaveScenes,
            {.end = End::Cancelled, .cause = kResultGivenUp},
            "The transfer was cancelled: no file was written"},
        Row{Operation::Send,
            {.end = End::Unreliable, .cause = kResultNoMemory, .stats = whole()},
            "The program could not go on: the keyboard may hold half a bank, and sending again "
            "repairs it\n"
            "The system is short of memory or threads: close other programs and try again"},
        Row{Operation::Send,
            {.end = End::Done, .stats = whole(), .notKept = {"held.bank: no room"}},
            "held.bank: no room"},
        Row{Operation::SaveScenes,
            {.end = End::Done, .stats = whole(), .release = kResultNoDriver},
            "The keyboard's MIDI port did not come back: plug the keyboard in again"},
        Row{Operation::ShowScenes,
            {.end = End::NotConnected,
             .cause = kResultBusy,
             .release = kResultNoDriver,
             .notKept = {"a", "b"}},
            "The keyboard could not be reached: default scenes are shown\n"
            "Another program is using the keyboard: close it and try again\na\nb\n"
            "The keyboard's MIDI port did not come back: plug the keyboard in again"}));

TEST(OutcomeText, ValuesThatScenesCannotHoldAreToldAndNoFailure) {
    const OutcomeText text =
        textOf(Operation::SaveScenes, {.end = End::Done, .stats = whole(), .replacedBytes = 2});
    EXPECT_EQ(written(text), "The keyboard holds values above 127, which scenes cannot hold; read "
                             "as 0 instead: 2");
    EXPECT_EQ(text.exitCode, 0);
}

TEST(OutcomeText, RepeatedHandshakesDoNotCountAsBytes) {
    TransferStats stats = failedAt(4 + 1 + 10, kResultSuccess);
    stats.versionReads = 4;
    EXPECT_NE(textOf(Operation::SaveScenes, unreliable(stats)).sentence.find("at byte 10 of 1012"),
              std::string::npos);
    stats = failedAt(8 + 1 + 11, kFault, true);
    stats.versionReads = 4;
    EXPECT_NE(textOf(Operation::SaveScenes, unreliable(stats)).sentence.find("at byte 11 of 1012"),
              std::string::npos);
}

TEST(OutcomeText, AnExchangeThatFailedBothWaysIsOneByte) {
    TransferStats stats = failedAt(502, kFault);
    stats.failedReads = 512;
    stats.failedWrites = 511;
    EXPECT_EQ(unreliableBytes(stats), 512U);
    stats.failedReads = 1013; // with the handshake's
    EXPECT_EQ(unreliableBytes(stats), 1012U);
}

TEST(OutcomeText, EveryCureIsASentenceWithoutAFullStop) {
    for (ResultCode code = kResultOther; code <= kResultNoThread; ++code) {
        const std::string cure = causeAndCure(code);
        EXPECT_TRUE(std::isupper(static_cast<unsigned char>(cure.front()))) << cure;
        EXPECT_NE(cure.back(), '.') << cure;
    }
    EXPECT_NE(causeAndCure(kResultOther).find("(5c570001)"), std::string::npos);
}

TEST(OutcomeText, AComparisonTellsSameOrHowMuchDiffers) {
    EXPECT_EQ(comparisonText(Operation::Compare, 0), "The controller holds what you see");
    EXPECT_EQ(comparisonText(Operation::Compare, 3), "Settings that differ: 3");
    EXPECT_EQ(comparisonText(Operation::Verify, 0), "The controller holds what was sent");
    EXPECT_EQ(comparisonText(Operation::Verify, 3),
              "The controller does not hold what was sent; settings that differ: 3");
}

} // namespace scenewright
