#include "app/KnownKeyboard.h"

#include "app/DeviceSession.h"
#include "bank/BankFile.h"
#include "tests/app/KeyboardBench.h"

#include <gtest/gtest.h>

#include <tuple>

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
    }
};

TEST_F(KnownKeyboardTest, NothingIsKnownAtFirst) {
    EXPECT_FALSE(KnownKeyboard::image());
    EXPECT_EQ(KnownKeyboard::name(), "");
}

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

TEST_F(KnownKeyboardTest, ACleanReadIsWhatItHolds) {
    plugIn(filled(5));
    DeviceSession::read({});
    EXPECT_EQ(KnownKeyboard::image(), filled(5));
    EXPECT_EQ(KnownKeyboard::name(), "Keys");
}

TEST_F(KnownKeyboardTest, ACompareTellsWhatItHolds) {
    plugIn(filled(5));
    EXPECT_TRUE(DeviceSession::heldScenes().outcome.isDone());
    EXPECT_EQ(KnownKeyboard::image(), filled(5));
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

TEST_F(KnownKeyboardTest, TransfersThatFailedLeaveNothingKnown) {
    plugIn(filled(5));
    DeviceSession::read({});
    plugIn(filled(5), {{Fault::Kind::ShortTransfer, 0}});
    EXPECT_EQ(DeviceSession::heldScenes().outcome.end, End::Unreliable);
    EXPECT_FALSE(KnownKeyboard::image());
}

TEST_F(KnownKeyboardTest, AKeyboardThatIsNotThereStillHoldsWhatItHeld) {
    plugIn(filled(5));
    DeviceSession::read({});
    unplug();
    send();
    EXPECT_EQ(KnownKeyboard::image(), filled(5));
}

TEST_F(KnownKeyboardTest, TellsChangesAloneUntilTheObservationEnds) {
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

} // namespace

} // namespace scenewright
