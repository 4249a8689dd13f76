#include "cli/ProgressLine.h"

#include <gtest/gtest.h>

namespace scenewright {

TEST(ProgressLine, TellsTheShareOfPacketsWritten) {
    EXPECT_EQ(progressText("Reading", 0, 1016, false), "Reading: 0 %");
    EXPECT_EQ(progressText("Reading", 508, 1016, false), "Reading: 50 %");
    EXPECT_EQ(progressText("Sending", 1028, 1028, false), "Sending: 100 %");
}

TEST(ProgressLine, TellsThatTheControllerIsWaitedFor) {
    EXPECT_EQ(progressText("Reading", 12, 1016, true),
              "Reading: 12 of 1016 packets, waiting for the controller (Ctrl+C stops)");
}

TEST(ProgressLine, MorePacketsThanAreNeededMeanThatTheHandshakeIsRepeated) {
    EXPECT_EQ(progressText("Sending", 1029, 1028, false),
              "Sending: the controller does not accept the handshake, trying again (Ctrl+C stops)");
}

} // namespace scenewright
