#include "app/SendJournal.h"

#include "tests/app/KeyboardBench.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace scenewright {

namespace {

using End = Outcome::End;
using testing::filled;

SendJournal::Send sendOf(std::uint8_t byte, std::int64_t seconds = 1769903998) {
    return {.sent = filled(byte),
            .before = filled(1),
            .subject = "live.bank",
            .keyboard = "Keys",
            .begun = SendJournal::Clock::time_point(std::chrono::seconds(seconds))};
}

class SendJournalTest : public ::testing::Test {
protected:
    // As a process does that is killed while it sends.
    void beginAndDie(const SendJournal::Send& send) const {
        ASSERT_TRUE(journal.begin(send)); // what it gives is gone at once
    }

    testing::TempFolder folder;
    SendJournal journal{folder.path() / "sends"};
};

TEST_F(SendJournalTest, ASendThatDidNotEndIsFoundAsItWas) {
    SendJournal::Send unknownBefore = sendOf(3, 1769903999);
    unknownBefore.before.reset();
    EXPECT_TRUE(journal.unfinished().empty());
    beginAndDie(sendOf(2));
    beginAndDie(unknownBefore);
    const auto found = journal.unfinished();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].send, unknownBefore);
    EXPECT_EQ(found[1].send, sendOf(2));
}

TEST_F(SendJournalTest, HowManyScenesWereSentIsKnownAfterTheDeath) {
    SendJournal::Send send = sendOf(2);
    send.subject = R"("scenes": "0")"; // is no place to count in
    for (const std::size_t scenes : {0U, 1U, 4U}) {
        {
            const auto running = journal.begin(send);
            ASSERT_TRUE(running);
            running->note(scenes);
        }
        send.scenes = scenes;
        ASSERT_EQ(journal.unfinished().size(), 1U);
        EXPECT_EQ(journal.unfinished()[0].send, send);
        send.scenes = 0;
    }
}

TEST_F(SendJournalTest, ASendThatRunsIsNotFound) {
    const auto running = journal.begin(sendOf(2));
    ASSERT_TRUE(running);
    EXPECT_TRUE(journal.unfinished().empty());
    EXPECT_TRUE(std::filesystem::exists(
        folder.path() / "sends" / ("send-1769903998000-" + std::to_string(getpid()) + ".json")));
}

TEST_F(SendJournalTest, ASendOfAnotherProcessIsFoundOnceThatHasDied) {
    int pipes[2] = {};
    ASSERT_EQ(pipe(pipes), 0);
    const pid_t child = fork();
    if (child == 0) {
        const auto running = journal.begin(sendOf(2));
        char byte = running ? 1 : 0;
        static_cast<void>(write(pipes[1], &byte, 1));
        pause();
        _exit(0);
    }
    char byte = 0;
    ASSERT_EQ(read(pipes[0], &byte, 1), 1);
    EXPECT_EQ(byte, 1);
    EXPECT_TRUE(journal.unfinished().empty());
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(journal.unfinished().size(), 1U);
    close(pipes[0]);
    close(pipes[1]);
}

TEST_F(SendJournalTest, OnlyTransfersThatFailedLeaveItUnfinished) {
    for (const auto& [end, isLeft] : {std::pair{End::Done, false},
                                      {End::NotConnected, false},
                                      {End::NotStarted, false},
                                      {End::Unreliable, true},
                                      {End::Cancelled, true}}) {
        auto running = journal.begin(sendOf(2));
        ASSERT_TRUE(running);
        EXPECT_EQ(running->end({.end = end}), !isLeft) << static_cast<int>(end);
        EXPECT_EQ(journal.unfinished().size(), isLeft ? 1U : 0U) << static_cast<int>(end);
        journal.forgetAllOf("Keys");
        EXPECT_TRUE(journal.unfinished().empty());
    }
}

TEST_F(SendJournalTest, IsForgottenByItsKeyboardAlone) {
    beginAndDie(sendOf(2));
    journal.forgetAllOf("Other keys");
    EXPECT_FALSE(journal.unfinishedOf("Other keys"));
    ASSERT_TRUE(journal.unfinishedOf("Keys"));
    SendJournal::forget(*journal.unfinishedOf("Keys"));
    EXPECT_FALSE(journal.unfinishedOf("Keys"));
}

TEST_F(SendJournalTest, AKeyboardThatHoldsOneOfTheTwoBanksIsWhole) {
    BankImage mixed = filled(1);
    mixed.back() = 2;
    struct Row {
        BankImage held;
        const char* keyboard;
        bool isLeft;
    };
    for (const auto& [held, keyboard, isLeft] :
         {Row{filled(2), "Keys", false}, Row{filled(1), "Keys", false}, Row{mixed, "Keys", true},
          Row{filled(2), "Other keys", true}}) {
        beginAndDie(sendOf(2));
        journal.forgetSettled(keyboard, held);
        EXPECT_EQ(journal.unfinishedOf("Keys").has_value(), isLeft);
        journal.forgetAllOf("Keys");
    }
}

TEST_F(SendJournalTest, APartOfEachBankIsToldFromAnythingElse) {
    BankImage held = filled(1);
    held[500] = 2;
    EXPECT_TRUE(isPartOf(held, sendOf(2)));
    held[501] = 3;
    EXPECT_FALSE(isPartOf(held, sendOf(2)));
    SendJournal::Send send = sendOf(2);
    send.before.reset();
    EXPECT_TRUE(isPartOf(filled(2), send));
    EXPECT_FALSE(isPartOf(filled(1), send));
}

TEST_F(SendJournalTest, DamagedAndOtherFilesAreNoSends) {
    beginAndDie(sendOf(2));
    const auto file = journal.unfinished().front().file;
    const auto whole = testing::readBytes(file);
    for (const std::size_t size : {std::size_t{0}, whole.size() / 2, whole.size() - 3}) {
        testing::writeBytes(file, std::span(whole).first(size));
        EXPECT_TRUE(journal.unfinished().empty()) << size;
    }
    testing::writeBytes(file, whole);
    EXPECT_EQ(journal.unfinished().size(), 1U);
    std::filesystem::rename(file, folder.path() / "sends" / "notes.json");
    EXPECT_TRUE(journal.unfinished().empty());
}

TEST_F(SendJournalTest, AFolderThatCannotBeMadeIsTold) {
    testing::writeBytes(folder.file("sends"), {});
    const auto begun = journal.begin(sendOf(2));
    ASSERT_FALSE(begun);
    EXPECT_NE(begun.error().find(folder.file("sends")), std::string::npos) << begun.error();
    EXPECT_EQ(SendJournal(std::nullopt).begin(sendOf(2)).error(),
              "there is no home folder to keep them in");
}

TEST(SendJournalText, NamesTheFileAndTheTime) {
    setenv("TZ", "UTC", 1);
    tzset();
    SendJournal::Send send = sendOf(2);
    send.scenes = 2;
    EXPECT_EQ(unfinishedText(send),
              "The send of live.bank that was begun at 2026-01-31 23:59 did not end: 2 of 4 scenes "
              "were sent, and the keyboard may hold a part of each bank");
    send.subject.clear();
    EXPECT_EQ(
        unfinishedText(send),
        "The send that was begun at 2026-01-31 23:59 did not end: 2 of 4 scenes were sent, and "
        "the keyboard may hold a part of each bank");
    unsetenv("TZ");
    tzset();
}

} // namespace

} // namespace scenewright
