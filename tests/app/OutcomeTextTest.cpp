#include "app/DeviceSession.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

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
