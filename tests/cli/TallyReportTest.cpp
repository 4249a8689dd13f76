#include "cli/TallyReport.h"

#include <gtest/gtest.h>

namespace scenewright {

TEST(TallyReport, CleanTransactionsHaveNothingToReport) {
    TransferTally tally;
    tally.writes = 1016;
    tally.reads = 1014;
    EXPECT_EQ(readReport(tally, "no file was written"), std::nullopt);
    EXPECT_EQ(sendReport(tally), std::nullopt);
}

TEST(TallyReport, ReadNamesTheFirstByteThatDidNotCome) {
    TransferTally tally;
    tally.writes = 1016;
    tally.reads = 1014;
    tally.failedReads = 512;
    tally.first = TransferTally::Failure{false, kResultNoDevice, 2 + 500};
    EXPECT_EQ(readReport(tally, "no file was written"),
              "the read failed at byte 500 of 1012: the controller was unplugged "
              "(code 5c570005); 512 of 2030 transfers failed, so no file was "
              "written");
}

TEST(TallyReport, RepeatedHandshakesDoNotCountAsBytes) {
    TransferTally tally;
    tally.writes = 1022;
    tally.reads = 1017;
    tally.versionReads = 4;
    tally.failedReads = 1;
    tally.first = TransferTally::Failure{false, kResultSuccess, 4 + 1 + 10};
    EXPECT_EQ(readReport(tally, "no file was written"),
              "the read failed at byte 10 of 1012: the answer was too short (code 00000000); 1 of "
              "2039 transfers failed, so no file was written");
    tally.first = TransferTally::Failure{true, kResultInputOutput, 8 + 1 + 11};
    EXPECT_EQ(readReport(tally, "no file was written"),
              "the read failed at byte 11 of 1012: the USB transfer failed (code 5c570002); 1 of "
              "2039 transfers failed, so no file was written");
}

TEST(TallyReport, ReadThatFailsInItsHandshakeNamesNoByte) {
    TransferTally tally;
    tally.writes = 1;
    tally.failedWrites = 1;
    tally.first = TransferTally::Failure{true, kResultStall, 0};
    EXPECT_EQ(readReport(tally, "no file was written"),
              "the read failed before the first byte: the controller refused it (code 5c57000a); "
              "1 of 1 transfers failed, so no file was written");
}

TEST(TallyReport, ShortAnswerIsTold) {
    TransferTally tally;
    tally.reads = 3;
    tally.failedReads = 1;
    tally.first = TransferTally::Failure{false, kResultSuccess, 2};
    EXPECT_EQ(readReport(tally, "no file was written"),
              "the read failed at byte 0 of 1012: the answer was too short (code "
              "00000000); 1 of 3 transfers failed, so no file was written");
}

TEST(TallyReport, SendSaysThatSendingAgainRepairsIt) {
    TransferTally tally;
    tally.writes = 1028;
    tally.failedWrites = 3;
    tally.first = TransferTally::Failure{true, kResultGivenUp, 77};
    EXPECT_EQ(sendReport(tally),
              "the send failed at packet 77: the controller had been given up "
              "(code 5c570010); the controller may hold half a bank, and sending "
              "again repairs it");
}

TEST(TallyReport, ConnectionFailureIsToldFromTheMessage) {
    MessageValue message;
    EXPECT_FALSE(connectFailed(message));
    message.setMessage("Read Scene Data Finish");
    EXPECT_FALSE(connectFailed(message));
    message.setMessage("Could not connect to midi device");
    EXPECT_TRUE(connectFailed(message));
}

} // namespace scenewright
