#include "app/SafeSend.h"

#include "app/DeviceSession.h"
#include "bank/BankFile.h"
#include "platform/MainQueue.h"
#include "tests/app/KeyboardBench.h"
#include "tests/support/TempFolder.h"
#include "usb/Transport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <iterator>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using Answer = SafeSend::Answer;
using End = Outcome::End;
using testing::filled;
using Question = SafeSend::Question;
using Questions = std::vector<Question>;

class SafeSendTest : public testing::KeyboardBench {
protected:
    SafeSendTest() {
        WindowAction::setScenes(readBankImage(filled(2)).value());
        plugIn(filled(1));
    }

    // Sends, and waits for the end; a question gets the answer.
    SafeSend::Ended send(SafeSend::Request request = {}, Answer answer = Answer::Send) {
        std::optional<SafeSend::Ended> ended;
        asked.clear();
        request.subject = "live.bank";
        request.ask = [&](const SafeSend::Asked& question, const SafeSend::Answered& answered) {
            asked.push_back(question.question);
            answered(answer);
        };
        request.ended = [&](const SafeSend::Ended& told) { ended = told; };
        SafeSend::run(stores, std::move(request));
        MainQueue::pumpUntil([&] { return ended.has_value(); });
        return *ended;
    }
    [[nodiscard]] std::vector<BankImage> kept() const {
        std::vector<BankImage> images;
        for (const auto& entry : stores.earlier.list())
            images.push_back(entry.image);
        return images;
    }
    using Images = std::vector<BankImage>;

    testing::TempFolder folder;
    SendStores stores{.earlier = EarlierScenes(folder.path() / "backups"),
                      .journal = SendJournal(folder.path() / "sends")};
    Questions asked;
};

TEST_F(SafeSendTest, WhatTheKeyboardHeldIsKeptAndToldOf) {
    const auto ended = send();
    EXPECT_TRUE(ended.outcome.value().isDone());
    EXPECT_EQ(ended.others, filled(1));
    EXPECT_EQ(controller->bank(), filled(2));
    EXPECT_EQ(kept(), Images{filled(1)});
    EXPECT_EQ(stores.earlier.list()[0].occasion,
              (EarlierScenes::Occasion{EarlierScenes::Reason::Send, "live.bank", "Keys"}));
    EXPECT_TRUE(stores.journal.unfinished().empty());
    EXPECT_EQ(asked, Questions{});
    EXPECT_EQ(KnownKeyboard::image(), filled(2));
}

TEST_F(SafeSendTest, OthersAreToldOfUnlessTheyWereKnownAreTheSameOrDefaultScenes) {
    const SceneList before = WindowAction::scenes();
    const BankImage defaults = encodeBank(WindowAction::defaultScenes());
    struct Row {
        const char* name;
        BankImage held;
        bool isKnown;
        Images kept;
    };
    for (const Row& row :
         {Row{"known", filled(1), true, {filled(1)}}, Row{"the same", filled(2), false, {}},
          Row{"nobody's work", defaults, false, {}}}) {
        SCOPED_TRACE(row.name);
        std::filesystem::remove_all(folder.path() / "backups");
        plugIn(row.held);
        KnownKeyboard::forget();
        if (row.isKnown) {
            EXPECT_TRUE(DeviceSession::heldScenes().outcome.isDone());
        }
        EXPECT_FALSE(send().others);
        EXPECT_EQ(kept(), row.kept);
        EXPECT_EQ(controller->sendsEnded(), 1U);
        EXPECT_EQ(WindowAction::scenes(), before) << "the read leaves the store alone";
    }
}

// What the scenes are, what is known, whether the keyboard is read, what it holds, and whether that
// asks.
TEST_F(SafeSendTest, ANewWindowsScenesOverOthersAskFirst) {
    struct Row {
        const char* name;
        bool isUntouched;
        bool isKnown;
        bool readsFirst;
        std::uint8_t held;
        Questions asked;
    };
    for (const auto& [name, isUntouched, isKnown, readsFirst, held, questions] :
         {Row{"others", true, false, true, 1, {Question::OtherScenes}},
          Row{"others that are known", true, true, true, 1, {Question::OtherScenes}},
          Row{"the same", true, false, true, 2, {}},
          Row{"scenes of the user's", false, false, true, 1, {}},
          Row{"not read and unknown", true, false, false, 1, {Question::OtherScenes}},
          Row{"not read, known to be others", true, true, false, 1, {Question::OtherScenes}},
          Row{"not read, known to be the same", true, true, false, 2, {}},
          Row{"not read, scenes of the user's", false, false, false, 1, {}}}) {
        for (const Answer answer : {Answer::Send, Answer::ReadFirst, Answer::Cancel}) {
            plugIn(filled(held));
            KnownKeyboard::forget();
            if (isKnown)
                KnownKeyboard::set(filled(held), "Keys");
            const bool isSent = questions.empty() || answer == Answer::Send;
            const auto ended = send({.readsFirst = readsFirst, .isUntouched = isUntouched}, answer);
            EXPECT_EQ(asked, questions) << name;
            EXPECT_EQ(ended.outcome.has_value(), isSent) << name;
            EXPECT_EQ(ended.wantsRead, !isSent && answer == Answer::ReadFirst) << name;
            EXPECT_EQ(controller->sendsEnded(), isSent ? 1U : 0U) << name;
        }
    }
}

TEST_F(SafeSendTest, AKeyboardThatCouldNotBeReadIsAskedAbout) {
    for (const Answer answer : {Answer::Send, Answer::Cancel}) {
        plugIn(filled(1), {{Fault::Kind::ShortTransfer, 100}});
        const auto ended = send({}, answer);
        EXPECT_EQ(asked, Questions{Question::NotRead});
        EXPECT_EQ(ended.outcome.has_value(), answer == Answer::Send);
        EXPECT_FALSE(ended.others);
    }
    EXPECT_EQ(kept(), Images{});
}

TEST_F(SafeSendTest, WhatCannotBeKeptIsAskedAboutOnce) {
    testing::writeBytes(folder.file("sends"), {});
    EXPECT_FALSE(send({.readsFirst = false}, Answer::Cancel).outcome);
    EXPECT_EQ(asked, Questions{Question::NotKept}) << "the journal alone";
    testing::writeBytes(folder.file("backups"), {});
    EXPECT_FALSE(send({}, Answer::Cancel).outcome);
    EXPECT_EQ(asked, Questions{Question::NotKept});
    EXPECT_EQ(controller->sendsEnded(), 0U);
    EXPECT_TRUE(send().outcome.value().isDone());
    EXPECT_EQ(asked, Questions{Question::NotKept});
}

TEST_F(SafeSendTest, WithoutAKeyboardAndAtTheEndOfTheProgramTheSendTellsSo) {
    unplug();
    EXPECT_EQ(send().outcome.value().end, End::NotConnected);
    EXPECT_EQ(asked, Questions{});
    EXPECT_TRUE(stores.journal.unfinished().empty());
    plugIn(filled(1));
    Transport::instance().shutDown();
    EXPECT_EQ(send().outcome.value().end, End::Cancelled);
    EXPECT_TRUE(stores.journal.unfinished().empty());
}

TEST_F(SafeSendTest, WhatIsThrownTakesTheEntryOfASendAwayThatHasNotBegun) {
    const auto entries = [this] {
        return std::ranges::distance(std::filesystem::directory_iterator(folder.path() / "sends"));
    };
    for (const bool isBegun : {false, true}) {
        SafeSend::Request request{.readsFirst = false};
        request.sending = [isBegun](const std::function<void()>& step) {
            if (isBegun)
                step();
            throw std::bad_alloc();
        };
        EXPECT_THROW(SafeSend::run(stores, std::move(request)), std::bad_alloc);
        EXPECT_EQ(entries(), isBegun ? 1 : 0);
        SendJob::waitForEnd();
        EXPECT_EQ(controller->sendsEnded(), isBegun ? 1U : 0U);
        EXPECT_EQ(entries(), 0);
    }
}

class BrokenSend : public SafeSendTest {
protected:
    // 500 of the bytes that are sent arrive; a read was before it.
    void breakOff() {
        EXPECT_TRUE(DeviceSession::heldScenes().outcome.isDone());
        controller->order({{Fault::Kind::Unplug, 1012 + 600}});
        EXPECT_EQ(send().outcome.value().end, End::Unreliable);
        ASSERT_TRUE(stores.journal.unfinishedOf("Keys"));
        controller->reset(); // plugged in again
    }
};

TEST_F(BrokenSend, IsUnfinishedWithBothBanksUntilAnotherHasEnded) {
    breakOff();
    const auto unfinished = stores.journal.unfinishedOf("Keys");
    EXPECT_EQ(unfinished->send.sent, filled(2));
    EXPECT_EQ(unfinished->send.before, filled(1));
    EXPECT_EQ(unfinished->send.subject, "live.bank");
    EXPECT_EQ(unfinished->send.scenes, 2U);
    EXPECT_NE(controller->bank(), filled(1));
    EXPECT_NE(controller->bank(), filled(2));
    const auto ended = send();
    EXPECT_TRUE(ended.outcome.value().isDone());
    EXPECT_FALSE(ended.others) << "what was left halfway is nobody's";
    EXPECT_EQ(controller->bank(), filled(2));
    EXPECT_EQ(kept(), Images{filled(1)});
    EXPECT_TRUE(stores.journal.unfinished().empty());
}

TEST_F(BrokenSend, StaysAsItIsWhenTheNextReachesNothing) {
    breakOff();
    unplug();
    EXPECT_EQ(send().outcome.value().end, End::NotConnected);
    EXPECT_EQ(stores.journal.unfinishedOf("Keys").value().send.before, filled(1));
}

TEST_F(BrokenSend, TwiceRemembersWhatWasThereBeforeBoth) {
    breakOff();
    WindowAction::setScenes(readBankImage(filled(3)).value());
    controller->order({{Fault::Kind::Unplug, 1012 + 600}});
    EXPECT_EQ(send().outcome.value().end, End::Unreliable);
    ASSERT_EQ(stores.journal.unfinished().size(), 1U);
    EXPECT_EQ(stores.journal.unfinished()[0].send.sent, filled(3));
    EXPECT_EQ(stores.journal.unfinished()[0].send.before, filled(1));
}

} // namespace

} // namespace scenewright
