#include "tests/usb/TransportFixture.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <numeric>

namespace scenewright::testing {
namespace {

class Pipes : public TransportFixture {
protected:
    void SetUp() override {
        TransportFixture::SetUp();
        connect();
    }

    static ResultCode write(const std::vector<std::uint8_t>& bytes) {
        return InterfaceAction::WriteToDeviceWithChar_andSize(
            bytes.data(), static_cast<std::int32_t>(bytes.size()));
    }

    void reply(std::vector<std::uint8_t> bytes, ResultCode result = kResultSuccess) {
        script->replies.push_back({std::move(bytes), result});
    }

    // 64 bytes as the dump shows them: those given, then zeros.
    static std::string dump(const std::string& start) {
        std::string text = start;
        while (text.size() < 64 * 3)
            text += "00 ";
        return text;
    }

    static std::vector<std::uint8_t> counting(std::size_t size, std::uint8_t first) {
        std::vector<std::uint8_t> bytes(size);
        std::iota(bytes.begin(), bytes.end(), first);
        return bytes;
    }
};

TEST_F(Pipes, EveryWriteIsPrecededByOneMillisecondAndLogsItsDumpAndPrintsItsCount) {
    const std::array<std::uint8_t, 4> bytes{0x09, 0x90, 0x0F, 0x0F};
    for (const auto& [size, dumped] : {std::pair{4, "09 90 0f 0f "}, {0, ""}, {-3, ""}}) {
        forget();
        EXPECT_EQ(InterfaceAction::WriteToDeviceWithChar_andSize(bytes.data(), size), 0U);
        const std::string sent = dumped;
        EXPECT_EQ(
            script->events,
            (Texts{"pause", "log sleep(0.001)",
                   "write one/1 2" + (sent.empty() ? "" : " " + sent.substr(0, 11)), "log " + sent,
                   "console Wrote " + std::to_string(size) + " bytes to bulk endpoint\n"}));
    }
    EXPECT_EQ(pauses, std::vector<std::chrono::nanoseconds>(3, std::chrono::milliseconds(1)));
}

TEST_F(Pipes, FailedWriteIsPrintedThenGivesTheInterfaceUpThenComesTheUsual) {
    script->answer("write", {kResultStall});
    EXPECT_EQ(write({0x09, 0x9C, 0x01, 0x04}), kResultStall);
    EXPECT_EQ(script->events, (Texts{"pause", "log sleep(0.001)", "write one/1 2 09 9c 01 04",
                                     "console Unable to perform bulk write (5c57000a)\n",
                                     "close one/1", "release one/1", "log 09 9c 01 04 ",
                                     "console Wrote 4 bytes to bulk endpoint\n"}));
    ASSERT_NE(Transport::instance().interface(), nullptr);
    EXPECT_TRUE(Transport::instance().interface()->isStale());
}

TEST_F(Pipes, TransfersOnAStaleHandleReachNoHostUntilTheNextTransaction) {
    script->answer("write", {kResultNoDevice});
    write({0x01});
    forget();
    EXPECT_EQ(write({0x02}), kResultGivenUp);
    InterfaceAction::ReadFromDevice();
    EXPECT_EQ(script->calls, Texts{"pause"});
    EXPECT_EQ(console, "Unable to perform bulk write (5c570010)\n"
                       "Wrote 1 bytes to bulk endpoint\n"
                       "Read \"\" (0 bytes) from bulk endpoint\n");
    ASSERT_TRUE(InterfaceAction::FindDevice());
    ASSERT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_EQ(write({0x02}), kResultSuccess);
}

TEST_F(Pipes, TransfersBeforeAnyInterfaceFail) {
    Transport::instance().use(makeScriptedHost(script), [](auto) {});
    forget();
    EXPECT_EQ(write({0x02}), kResultNotOpen);
    EXPECT_EQ(InterfaceAction::ReadVersionFromDevice(), Texts(11, "00"));
    EXPECT_EQ(console, "Unable to perform bulk write (5c57000f)\n"
                       "Wrote 1 bytes to bulk endpoint\n"
                       "Read \"\" (0 bytes) from bulk endpoint\n");
}

TEST_F(Pipes, ReadsAskPipeOneForSixtyThreeBytes) {
    InterfaceAction::ReadFromDevice();
    InterfaceAction::ReadDataFromDevice();
    InterfaceAction::ReadVersionFromDevice();
    InterfaceAction::ReadValueFromDevice();
    EXPECT_EQ(script->calls, Texts(4, "read one/1 1 63"));
}

TEST_F(Pipes, DataReadLogsTheWholeBuffer) {
    reply({0x09, 0x90, 0x0A, 0x07});
    const auto view = InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(view[0], 0x09);
    EXPECT_EQ(view[3], 0x07);
    EXPECT_EQ(script->events, (Texts{"read one/1 1 63", "console Read 4 bytes from bulk endpoint\n",
                                     "log ReadDataFromDevice  " + dump("09 90 0a 07 ")}));
    EXPECT_EQ(log.at(0).size(), 20U + 64U * 3U);
}

TEST_F(Pipes, PlainReadPrintsTheBufferAsTextUpToItsFirstZero) {
    reply({'d', 'o', 'n', 'e'});
    InterfaceAction::ReadFromDevice();
    EXPECT_EQ(console, "Read \"done\" (4 bytes) from bulk endpoint\n");
    EXPECT_EQ(log, Texts{dump("64 6f 6e 65 ")});
    console.clear();
    reply({0x09, 0x9C, 0x00, 'x'});
    InterfaceAction::ReadFromDevice();
    EXPECT_EQ(console, "Read \"\x09\x9C\" (4 bytes) from bulk endpoint\n");
}

TEST_F(Pipes, VersionReadGivesElevenLowerCaseTextsOfAShortReplyToo) {
    reply({0x0B});
    EXPECT_EQ(InterfaceAction::ReadVersionFromDevice(),
              (Texts{"0b", "00", "00", "00", "00", "00", "00", "00", "00", "00", "00"}));
    forget();
    reply({0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x01, 0x38, 0xFF, 0xAB, 0x0D, 0x77});
    EXPECT_EQ(InterfaceAction::ReadVersionFromDevice(),
              (Texts{"09", "9c", "01", "02", "09", "9c", "01", "38", "ff", "ab", "0d"}));
    EXPECT_EQ(log, Texts{"readversion  " + dump("09 9c 01 02 09 9c 01 38 ff ab 0d 77 ")});
    EXPECT_EQ(console, "Read \"\x09\x9C\x01\x02\x09\x9C\x01\x38\xFF\xAB\x0D\x77\" (12 bytes) "
                       "from bulk endpoint\n");
}

TEST_F(Pipes, ValueReadIsByteFourteenSigned) {
    auto bytes = std::vector<std::uint8_t>(15, 0x00);
    bytes[14] = 0xFF;
    reply(bytes);
    EXPECT_EQ(InterfaceAction::ReadValueFromDevice(), -1);
    EXPECT_EQ(console, "Read 15 bytes from bulk endpoint\n");
    EXPECT_EQ(
        log, Texts{"ReadValueFromDevice " + dump("00 00 00 00 00 00 00 00 00 00 00 00 00 00 ff ")});
    bytes[14] = 0x7F;
    reply(bytes);
    EXPECT_EQ(InterfaceAction::ReadValueFromDevice(), 127);
    bytes[14] = 0x80;
    reply(bytes);
    EXPECT_EQ(InterfaceAction::ReadValueFromDevice(), -128);
}

TEST_F(Pipes, ShortReadKeepsWhatAnEarlierOneLeft) {
    reply(counting(20, 0x40));
    reply({0x01, 0x02, 0x03, 0x04});
    InterfaceAction::ReadDataFromDevice();
    forget();
    const auto view = InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(view[3], 0x04);
    EXPECT_EQ(view[4], 0x44);
    EXPECT_EQ(view[19], 0x53);
    EXPECT_EQ(view[20], 0x00);
    EXPECT_EQ(log, Texts{"ReadDataFromDevice  " +
                         dump("01 02 03 04 44 45 46 47 48 49 4a 4b 4c 4d 4e 4f 50 51 52 53 ")});
    EXPECT_EQ(InterfaceAction::ReadVersionFromDevice(),
              (Texts{"01", "02", "03", "04", "44", "45", "46", "47", "48", "49", "4a"}));
    EXPECT_EQ(InterfaceAction::ReadValueFromDevice(), 0x4E);
}

TEST_F(Pipes, LastByteOfTheBufferIsNeverWritten) {
    reply(counting(80, 0x80));
    const auto view = InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(view[62], 0xBE);
    EXPECT_EQ(view[63], 0x00);
    EXPECT_EQ(console, "Read 63 bytes from bulk endpoint\n");
}

TEST_F(Pipes, FailedReadSaysNothingButItsCountAndKeepsWhatItDidNotDeliver) {
    reply({0x09, 0x90, 0x01, 0x02});
    InterfaceAction::ReadDataFromDevice();
    forget();
    script->answer("read", {kResultNoDevice});
    const auto view = InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(view[2], 0x01);
    EXPECT_EQ(console, "Read 0 bytes from bulk endpoint\n");
    EXPECT_EQ(log, Texts{"ReadDataFromDevice  " + dump("09 90 01 02 ")});
    EXPECT_FALSE(Transport::instance().interface()->isStale());
    forget();
    reply({0x09, 0x90, 0x7F}, kResultStall);
    InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(console, "Read 3 bytes from bulk endpoint\n");
    EXPECT_EQ(log, Texts{"ReadDataFromDevice  " + dump("09 90 7f 02 ")});
}

TEST_F(Pipes, StreamsThatAreOffChangeNoResult) {
    Diagnostics::setConsole({});
    Diagnostics::setLog({});
    reply({0x09, 0x90, 0x01, 0x02});
    EXPECT_EQ(write({0x01}), kResultSuccess);
    EXPECT_EQ(InterfaceAction::ReadDataFromDevice()[2], 0x01);
    EXPECT_EQ(console, "");
    EXPECT_EQ(log, Texts{});
}

} // namespace
} // namespace scenewright::testing
