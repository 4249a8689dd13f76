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

struct MessageValueTest : ::testing::Test {
    MessageValue record;
    Lines lines;
};

TEST_F(MessageValueTest, KeepsEachOfThreeTextsAbsentBeforeItsFirstWrite) {
    EXPECT_EQ(record.Message(), std::nullopt);
    EXPECT_EQ(record.isReadFinish(), std::nullopt);
    EXPECT_EQ(record.isSendFinish(), std::nullopt);
    record.setMessage("readSceneData");
    record.setIsReadFinish("No");
    record.setIsSendFinish("Yes");
    EXPECT_EQ(record.Message(), "readSceneData");
    EXPECT_EQ(record.isReadFinish(), "No");
    EXPECT_EQ(record.isSendFinish(), "Yes");
}

TEST_F(MessageValueTest, ObserverIsToldEachWriteOfItsNameInOrderAndOfNoOther) {
    record.setMessage("before");
    std::vector<MessageValue::Subscription> observed;
    for (const char* name : {"Message", "isReadFinish", "isSendFinish", "message"})
        observed.push_back(record.addObserver(name, recordInto(lines)));
    EXPECT_TRUE(lines.empty()) << "registering makes no call";
    record.setMessage("one");
    record.setIsReadFinish("No");
    record.setMessage("two");
    record.setIsReadFinish("No"); // equal values are told again
    record.setIsSendFinish("Yes");
    record.setMessage(std::nullopt);
    EXPECT_EQ(lines, (Lines{"Message=one", "isReadFinish=No", "Message=two", "isReadFinish=No",
                            "isSendFinish=Yes", "Message=(absent)"}));
}

TEST_F(MessageValueTest, ObserversOfANameAreToldInTheOrderOfTheirRegistration) {
    const auto observed =
        record.addObserver("Message", [&](auto, const auto&) { lines.push_back("first"); });
    const auto alsoObserved =
        record.addObserver("Message", [&](auto, const auto&) { lines.push_back("second"); });
    record.setMessage("x");
    EXPECT_EQ(lines, (Lines{"first", "second"}));
}

TEST_F(MessageValueTest, ObserverIsToldOnTheThreadThatWrites) {
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

TEST_F(MessageValueTest, WritesOfAnObserverAreToldToEveryObserverInTheOrderOfTheWrites) {
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

TEST_F(MessageValueTest, WritesOfSeveralNamesKeepTheirOrderAndAreStoredAtOnce) {
    const auto writing = record.addObserver("Message", [&](auto, const auto&) {
        EXPECT_EQ(record.Message(), "one");
        record.setIsReadFinish("Yes");
        EXPECT_EQ(record.isReadFinish(), "Yes");
    });
    const auto message = record.addObserver("Message", recordInto(lines));
    const auto flag = record.addObserver("isReadFinish", recordInto(lines));
    record.setMessage("one");
    EXPECT_EQ(lines, (Lines{"Message=one", "isReadFinish=Yes"}));
}

TEST_F(MessageValueTest, WhatAnObserverThrowsLeavesTheWriterWhenAllAreTold) {
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

TEST_F(MessageValueTest, RecordGoesOnAfterAnObserverHasThrown) {
    auto throwing =
        record.addObserver("Message", [](auto, const auto&) { throw std::runtime_error("x"); });
    EXPECT_THROW(record.setMessage("one"), std::runtime_error);
    throwing.reset();
    const auto observed = record.addObserver("Message", recordInto(lines));
    record.setMessage("two");
    EXPECT_EQ(lines, Lines{"Message=two"});
}

TEST_F(MessageValueTest, ObservationEndsWithItsSubscription) {
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

TEST_F(MessageValueTest, SubscriptionMayOutliveTheRecord) {
    MessageValue::Subscription observed;
    {
        MessageValue shorter;
        observed = shorter.addObserver("Message", recordInto(lines));
        shorter.setMessage("one");
    }
    observed.reset();
    EXPECT_EQ(lines, Lines{"Message=one"});
}

TEST_F(MessageValueTest, ObserverMayEndItsOwnObservation) {
    int calls = 0;
    MessageValue::Subscription observed;
    observed = record.addObserver("Message", [&, text = std::string(100, 'x')](auto, const auto&) {
        observed.reset();
        calls += static_cast<int>(text.size()); // still there
    });
    record.setMessage("one");
    record.setMessage("two");
    EXPECT_EQ(calls, 100);
}

TEST_F(MessageValueTest, ObserverThatIsEndedByAnotherIsNotToldAnyMore) {
    MessageValue::Subscription later;
    const auto ending = record.addObserver("Message", [&](auto, const auto&) { later.reset(); });
    later = record.addObserver("Message", recordInto(lines));
    record.setMessage("one");
    EXPECT_TRUE(lines.empty());
}

TEST_F(MessageValueTest, ObservationBegunByAnObserverIsToldFromTheNextWriteOn) {
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

TEST(Progress, HasOneRecordFromTheFirstRequestUntilItIsForgotten) {
    Progress::forget();
    EXPECT_EQ(Progress::recordIfAny(), nullptr);
    const auto record = Progress::record();
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->Message(), std::nullopt);
    EXPECT_EQ(Progress::record(), record);
    EXPECT_EQ(Progress::recordIfAny(), record);
    Progress::forget();
    EXPECT_NE(Progress::record(), record);
    Progress::forget();
}

} // namespace

} // namespace scenewright
