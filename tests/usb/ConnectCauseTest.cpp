#include "usb/ConnectCause.h"

#include "tests/usb/TransportFixture.h"

#include <gtest/gtest.h>

#include <set>

namespace scenewright {
namespace {

TEST(ConnectCause, APermissionComesWithTheRuleAndItsPlace) {
    EXPECT_EQ(causeAndCure(kResultAccess),
              "You have no permission to use the keyboard: install the rule with "
              "'scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules', "
              "then plug the keyboard in again");
}

TEST(ConnectCause, CausesAreToldApart) {
    const std::set<std::string> sentences{
        causeAndCure(kResultAccess),   causeAndCure(kResultBusy),    causeAndCure(kResultNoDevice),
        causeAndCure(kResultNotFound), causeAndCure(kResultTimeout), causeAndCure(kResultOther)};
    EXPECT_EQ(sentences.size(), 6U);
}

TEST(ConnectCause, ADeviceThatWentIsToBePluggedIn) {
    EXPECT_EQ(causeAndCure(kResultNoDevice),
              "The keyboard was unplugged: plug it in and try again");
}

TEST(ConnectCause, ADeviceWithoutTheInterfaceMayBeAnotherModel) {
    EXPECT_EQ(causeAndCure(kResultNotFound),
              "The keyboard lacks the second USB interface that scenes travel on: check that it is "
              "the model that the device list names, and plug it in again");
}

TEST(ConnectCause, ASilentKeyboardIsToBePluggedInAnew) {
    for (const ResultCode code : {kResultTimeout, kResultStall, kResultInputOutput})
        EXPECT_EQ(causeAndCure(code),
                  "The keyboard does not answer: unplug it, plug it in again and try again");
}

TEST(ConnectCause, AnswersThatAreTooLongMayBeAnotherModels) {
    EXPECT_EQ(causeAndCure(kResultOverflow),
              "The keyboard answers with longer transfers than scenes have: check that it is the "
              "model that the device list names, and plug it in again");
}

TEST(ConnectCause, AnUnexpectedFailureShowsItsCode) {
    EXPECT_EQ(causeAndCure(kResultNoMemory),
              "The USB system refused to work with the keyboard (5c57000c): plug it in again, at "
              "another socket if that does not help");
}

using ConnectCauseOfTransaction = testing::TransportFixture;

TEST_F(ConnectCauseOfTransaction, SaysThatNoKeyboardIsPluggedIn) {
    script->devices.clear();
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(connectCause(), "No keyboard of the device list is plugged in: plug it in, or see "
                              "what 'scenewright-cli devices' says about yours");
}

TEST_F(ConnectCauseOfTransaction, SaysThatAnotherProgramHoldsTheInterface) {
    script->answer("open", {kResultBusy});
    ASSERT_TRUE(InterfaceAction::FindDevice());
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(connectCause(), "Another program is using the keyboard: close it and try again");
}

TEST_F(ConnectCauseOfTransaction, SaysThatTheBusCouldNotBeListed) {
    script->answer("matchingServices", {kResultAccess});
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(connectCause(), causeAndCure(kResultAccess));
}

} // namespace
} // namespace scenewright
