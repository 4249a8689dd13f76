#include "app/DeviceSession.h"

#include "bank/BankFile.h"
#include "model/MessageValue.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/app/KeyboardBench.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <chrono>
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
