#include "model/MessageValue.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using Lines = std::vector<std::string>;

// An observer that writes "key=value" into `lines`, "key=(absent)" for an absent value.
MessageValue::Observer recordInto(Lines& lines) {
    return [&lines](std::string_view key, const MessageValue::Text& value) {
        lines.push_back(std::string(key) + "=" + value.value_or("(absent)"));
    };
}

TEST(MessageValue, AllThreeTextsAreAbsentBeforeTheFirstWrite) {
    const MessageValue record;
    EXPECT_EQ(record.Message(), std::nullopt);
    EXPECT_EQ(record.isReadFinish(), std::nullopt);
    EXPECT_EQ(record.isSendFinish(), std::nullopt);
}

TEST(MessageValue, KeepsWhatWasWritten) {
    MessageValue record;
    record.setMessage("readSceneData");
    record.setIsReadFinish("No");
    record.setIsSendFinish("Yes");
    EXPECT_EQ(record.Message(), "readSceneData");
    EXPECT_EQ(record.isReadFinish(), "No");
    EXPECT_EQ(record.isSendFinish(), "Yes");
}

TEST(MessageValue, ObserverIsToldEachWriteOfItsNameInOrder) {
    MessageValue record;
    Lines lines;
    const auto observed = record.addObserver("Message", recordInto(lines));
    const auto alsoObserved = record.addObserver("isReadFinish", recordInto(lines));
    record.setMessage("one");
    record.setIsReadFinish("No");
    record.setMessage("two");
    record.setIsReadFinish("Yes");
    EXPECT_EQ(lines, (Lines{"Message=one", "isReadFinish=No", "Message=two", "isReadFinish=Yes"}));
}

TEST(MessageValue, EqualValuesAreToldAgain) {
    MessageValue record;
    Lines lines;
    const auto observed = record.addObserver("isReadFinish", recordInto(lines));
    record.setIsReadFinish("Yes");
    record.setIsReadFinish("Yes");
    EXPECT_EQ(lines, (Lines{"isReadFinish=Yes", "isReadFinish=Yes"}));
}

TEST(MessageValue, RegisteringMakesNoCall) {
    MessageValue record;
    record.setMessage("before");
    Lines lines;
    const auto observed = record.addObserver("Message", recordInto(lines));
    EXPECT_TRUE(lines.empty());
}

TEST(MessageValue, SendFlagIsObservableToo) {
    MessageValue record;
    Lines lines;
    const auto observed = record.addObserver("isSendFinish", recordInto(lines));
    record.setIsSendFinish("No");
    EXPECT_EQ(lines, (Lines{"isSendFinish=No"}));
}

TEST(MessageValue, ObserverOfAnotherNameIsNotTold) {
    MessageValue record;
    Lines lines;
    const auto observed = record.addObserver("Message", recordInto(lines));
    const auto alsoObserved = record.addObserver("message", recordInto(lines));
    record.setIsSendFinish("No");
    record.setIsReadFinish("No");
    EXPECT_TRUE(lines.empty());
}

TEST(MessageValue, ObserverSeesTheRecordAlreadyChanged) {
    MessageValue record;
    MessageValue::Text seen;
    const auto observed = record.addObserver(
        "Message", [&](std::string_view, const auto&) { seen = record.Message(); });
    record.setMessage("now");
    EXPECT_EQ(seen, "now");
}

TEST(MessageValue, ObserversOfANameAreToldInTheOrderOfTheirRegistration) {
    MessageValue record;
    Lines lines;
    const auto observed =
        record.addObserver("Message", [&](auto, const auto&) { lines.push_back("first"); });
    const auto alsoObserved =
        record.addObserver("Message", [&](auto, const auto&) { lines.push_back("second"); });
    record.setMessage("x");
    EXPECT_EQ(lines, (Lines{"first", "second"}));
}

TEST(MessageValue, ObserverIsToldOnTheThreadThatWrites) {
    MessageValue record;
    std::thread::id told;
    const auto observed = record.addObserver(
        "Message", [&](auto, const auto&) { told = std::this_thread::get_id(); });
    std::thread::id writer;
    std::thread thread([&] {
        writer = std::this_thread::get_id();
        record.setMessage("x");
    });
    thread.join();
    EXPECT_EQ(told, writer);
}

TEST(MessageValue, WritesOfAnObserverAreToldToEveryObserverInTheOrderOfTheWrites) {
    MessageValue record;
    Lines before;
    Lines after;
    const auto first = record.addObserver("Message", recordInto(before));
    const auto writing = record.addObserver("Message", [&](auto, const MessageValue::Text& value) {
        if (value == "one") {
            record.setMessage("two");
            record.setMessage("three");
        }
    });
    const auto last = record.addObserver("Message", recordInto(after));
    record.setMessage("one");
    const Lines all{"Message=one", "Message=two", "Message=three"};
    EXPECT_EQ(before, all);
    EXPECT_EQ(after, all);
}

TEST(MessageValue, WritesOfSeveralNamesKeepTheirOrder) {
    MessageValue record;
    Lines lines;
    const auto writing =
        record.addObserver("Message", [&](auto, const auto&) { record.setIsReadFinish("Yes"); });
    const auto message = record.addObserver("Message", recordInto(lines));
    const auto flag = record.addObserver("isReadFinish", recordInto(lines));
    record.setMessage("one");
    EXPECT_EQ(lines, (Lines{"Message=one", "isReadFinish=Yes"}));
}

TEST(MessageValue, WriteOfAnObserverIsStoredAtOnce) {
    MessageValue record;
    MessageValue::Text stored;
    const auto observed = record.addObserver("Message", [&](auto, const auto&) {
        record.setIsReadFinish("Yes");
        stored = record.isReadFinish();
    });
    record.setMessage("one");
    EXPECT_EQ(stored, "Yes");
}

TEST(MessageValue, WhatAnObserverThrowsLeavesTheWriterWhenAllAreTold) {
    MessageValue record;
    Lines lines;
    const auto throwing = record.addObserver("Message", [&](auto, const MessageValue::Text& value) {
        if (value == "one")
            record.setMessage("two");
        throw std::runtime_error(value.value());
    });
    const auto observed = record.addObserver("Message", recordInto(lines));
    try {
        record.setMessage("one");
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "one");
    }
    EXPECT_EQ(lines, (Lines{"Message=one", "Message=two"}));
}

TEST(MessageValue, RecordGoesOnAfterAnObserverHasThrown) {
    MessageValue record;
    Lines lines;
    auto throwing =
        record.addObserver("Message", [](auto, const auto&) { throw std::runtime_error("x"); });
    EXPECT_THROW(record.setMessage("one"), std::runtime_error);
    throwing.end();
    const auto observed = record.addObserver("Message", recordInto(lines));
    record.setMessage("two");
    EXPECT_EQ(lines, Lines{"Message=two"});
}

TEST(MessageValue, ObservationEndsWithItsSubscription) {
    MessageValue record;
    Lines lines;
    {
        const auto observed = record.addObserver("Message", recordInto(lines));
        record.setMessage("one");
    }
    record.setMessage("two");
    auto moved = record.addObserver("Message", recordInto(lines));
    const auto kept = std::move(moved);
    record.setMessage("three");
    EXPECT_EQ(lines, (Lines{"Message=one", "Message=three"}));
}

TEST(MessageValue, SubscriptionMayOutliveTheRecord) {
    Lines lines;
    MessageValue::Subscription observed;
    {
        MessageValue record;
        observed = record.addObserver("Message", recordInto(lines));
        record.setMessage("one");
    }
    observed.end();
    EXPECT_EQ(lines, Lines{"Message=one"});
}

TEST(MessageValue, ObserverMayEndItsOwnObservation) {
    MessageValue record;
    int calls = 0;
    MessageValue::Subscription observed;
    observed = record.addObserver("Message", [&, text = std::string(100, 'x')](auto, const auto&) {
        observed.end();
        calls += static_cast<int>(text.size()); // still there
    });
    record.setMessage("one");
    record.setMessage("two");
    EXPECT_EQ(calls, 100);
}

TEST(MessageValue, ObserverThatIsEndedByAnotherIsNotToldAnyMore) {
    MessageValue record;
    Lines lines;
    MessageValue::Subscription later;
    const auto ending = record.addObserver("Message", [&](auto, const auto&) { later.end(); });
    later = record.addObserver("Message", recordInto(lines));
    record.setMessage("one");
    EXPECT_TRUE(lines.empty());
}

TEST(MessageValue, ObservationBegunByAnObserverIsToldFromTheNextWriteOn) {
    MessageValue record;
    Lines lines;
    std::vector<MessageValue::Subscription> begun;
    const auto observed = record.addObserver("Message", [&](auto, const MessageValue::Text& value) {
        for (int i = 0; i < 100 && value == "one"; ++i)
            begun.push_back(record.addObserver("Message", recordInto(lines)));
        if (value == "one")
            record.setMessage("two");
    });
    record.setMessage("one");
    EXPECT_EQ(lines, Lines(100, "Message=two"));
}

TEST(MessageValue, WritingAbsentIsTold) {
    MessageValue record;
    Lines lines;
    record.setMessage("x");
    const auto observed = record.addObserver("Message", recordInto(lines));
    record.setMessage(std::nullopt);
    EXPECT_EQ(lines, (Lines{"Message=(absent)"}));
}

class ProgressTest : public ::testing::Test {
protected:
    ProgressTest() { Progress::forget(); }
    ~ProgressTest() override { Progress::forget(); }
};

TEST_F(ProgressTest, ThereIsNoRecordBeforeTheFirstRequest) {
    EXPECT_EQ(Progress::recordIfAny(), nullptr);
}

TEST_F(ProgressTest, EveryRequestGivesTheSameRecord) {
    const auto record = Progress::record();
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(Progress::record(), record);
    EXPECT_EQ(Progress::recordIfAny(), record);
}

TEST_F(ProgressTest, FreshRecordHasNoTexts) {
    EXPECT_EQ(Progress::record()->Message(), std::nullopt);
}

TEST_F(ProgressTest, ForgettingMakesANewRecord) {
    const auto former = Progress::record();
    Progress::forget();
    EXPECT_NE(Progress::record(), former);
}

} // namespace

} // namespace scenewright
