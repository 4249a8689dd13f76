#include "model/MessageValue.h"

#include <gtest/gtest.h>

#include <thread>
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
    record.addObserver("Message", recordInto(lines));
    record.addObserver("isReadFinish", recordInto(lines));
    record.setMessage("one");
    record.setIsReadFinish("No");
    record.setMessage("two");
    record.setIsReadFinish("Yes");
    EXPECT_EQ(lines, (Lines{"Message=one", "isReadFinish=No", "Message=two", "isReadFinish=Yes"}));
}

TEST(MessageValue, EqualValuesAreToldAgain) {
    MessageValue record;
    Lines lines;
    record.addObserver("isReadFinish", recordInto(lines));
    record.setIsReadFinish("Yes");
    record.setIsReadFinish("Yes");
    EXPECT_EQ(lines, (Lines{"isReadFinish=Yes", "isReadFinish=Yes"}));
}

TEST(MessageValue, RegisteringMakesNoCall) {
    MessageValue record;
    record.setMessage("before");
    Lines lines;
    record.addObserver("Message", recordInto(lines));
    EXPECT_TRUE(lines.empty());
}

TEST(MessageValue, SendFlagIsObservableToo) {
    MessageValue record;
    Lines lines;
    record.addObserver("isSendFinish", recordInto(lines));
    record.setIsSendFinish("No");
    EXPECT_EQ(lines, (Lines{"isSendFinish=No"}));
}

TEST(MessageValue, ObserverOfAnotherNameIsNotTold) {
    MessageValue record;
    Lines lines;
    record.addObserver("Message", recordInto(lines));
    record.addObserver("message", recordInto(lines));
    record.setIsSendFinish("No");
    record.setIsReadFinish("No");
    EXPECT_TRUE(lines.empty());
}

TEST(MessageValue, ObserverSeesTheRecordAlreadyChanged) {
    MessageValue record;
    MessageValue::Text seen;
    record.addObserver("Message", [&](std::string_view, const auto&) { seen = record.Message(); });
    record.setMessage("now");
    EXPECT_EQ(seen, "now");
}

TEST(MessageValue, ObserversOfANameAreToldInTheOrderOfTheirRegistration) {
    MessageValue record;
    Lines lines;
    record.addObserver("Message", [&](auto, const auto&) { lines.push_back("first"); });
    record.addObserver("Message", [&](auto, const auto&) { lines.push_back("second"); });
    record.setMessage("x");
    EXPECT_EQ(lines, (Lines{"first", "second"}));
}

TEST(MessageValue, ObserverIsToldOnTheThreadThatWrites) {
    MessageValue record;
    std::thread::id told;
    record.addObserver("Message", [&](auto, const auto&) { told = std::this_thread::get_id(); });
    std::thread::id writer;
    std::thread thread([&] {
        writer = std::this_thread::get_id();
        record.setMessage("x");
    });
    thread.join();
    EXPECT_EQ(told, writer);
}

TEST(MessageValue, ObserverMayWriteTheSameTextAndEachObserverIsToldEachWrite) {
    MessageValue record;
    Lines lines;
    record.addObserver("Message", [&](std::string_view, const MessageValue::Text& value) {
        if (value == "one")
            record.setMessage("two");
    });
    record.addObserver("Message", recordInto(lines));
    record.setMessage("one");
    EXPECT_EQ(lines, (Lines{"Message=two", "Message=one"}));
    EXPECT_EQ(record.Message(), "two");
}

TEST(MessageValue, ObserverMayAddObserversThatAreToldFromTheNextWriteOn) {
    MessageValue record;
    Lines lines;
    record.addObserver("Message", [&](std::string_view, const MessageValue::Text& value) {
        for (int i = 0; i < 100 && value == "one"; ++i)
            record.addObserver("Message", recordInto(lines));
    });
    record.setMessage("one");
    EXPECT_TRUE(lines.empty());
    record.setMessage("two");
    EXPECT_EQ(lines, Lines(100, "Message=two"));
}

TEST(MessageValue, WritingAbsentIsTold) {
    MessageValue record;
    Lines lines;
    record.setMessage("x");
    record.addObserver("Message", recordInto(lines));
    record.setMessage(std::nullopt);
    EXPECT_EQ(lines, (Lines{"Message=(absent)"}));
}

} // namespace
} // namespace scenewright
