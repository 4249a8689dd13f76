#include "model/MessageValue.h"
#include "protocol/Transactions.h"
#include "tests/protocol/DeviceBench.h"
#include "tests/protocol/TestScenes.h"
#include "usb/Transport.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace scenewright {
namespace {

using testing::Bytes;
using testing::Lines;

// Byte positions in a bank.
constexpr std::size_t kGlobalChannel = 12;
constexpr std::size_t kKeyChannel = 13;
constexpr std::size_t kBendSpeed = 14;

using ReadTransactionTest = testing::DeviceBench;

TEST_F(ReadTransactionTest, OutcomeCountsEveryTransferAndTheBytesThatScenesCannotHold) {
    controller.bank[0] = controller.bank[11] = 0xC3; // of a name: kept
    controller.bank[kGlobalChannel] = 0x80;
    controller.bank[kBendSpeed] = 0x7F; // the largest that a setting holds
    controller.bank[1011] = 0xFF;
    const ScenesRead read = readScenes(*Progress::record());
    EXPECT_EQ(read.scenes.size(), 4U);
    EXPECT_TRUE(read.outcome.isDone());
    EXPECT_EQ(read.outcome.stats.writes, 2U + 1U + 1012U + 1U);
    EXPECT_EQ(read.outcome.stats.reads, 1U + 1U + 1012U);
    EXPECT_EQ(read.outcome.replacedBytes, 2U);
}

TEST_F(ReadTransactionTest, OutcomeTellsTheFirstTransferThatFailed) {
    std::vector<ResultCode> results(20, kResultSuccess);
    results.push_back(kResultStall);
    script->answer("read", results);
    const ScenesRead read = readScenes(*Progress::record());
    EXPECT_EQ(read.outcome.end, Outcome::End::Unreliable);
    EXPECT_EQ(read.outcome.cause, kResultStall);
    EXPECT_EQ(read.outcome.stats.first->transfer, 20U);
    EXPECT_EQ(read.scenes.size(), 4U) << "it runs to its end all the same";
}

TEST_F(ReadTransactionTest, MessageTellsThePassAndTheByteOfEachExchange) {
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
    Lines expected{"read Time:4"};
    for (int pass = 1; pass <= 4; ++pass)
        for (int byte = 0; byte < 253; ++byte)
            expected.push_back("Time:" + std::to_string(pass) + "  Data:" + std::to_string(byte) +
                               "/253");
    expected.emplace_back("Read Scene Data Finish");
    EXPECT_EQ(messages, expected);
}

TEST_F(ReadTransactionTest, MessageOfAByteStandsBetweenItsRequestAndItsReply) {
    Lines before;
    const auto observed =
        Progress::record()->addObserver("Message", [&](auto, const MessageValue::Text& text) {
            if (text->starts_with("Time:"))
                before.push_back(script->calls.back());
        });
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
    EXPECT_EQ(before, Lines(1012, "write one/1 2 09 9c 01 06"));
}

TEST_F(ReadTransactionTest, FinishFlagsAreLeftAlone) {
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
    EXPECT_EQ(Progress::record()->isReadFinish(), std::nullopt);
    EXPECT_EQ(Progress::record()->isSendFinish(), std::nullopt);
}

// Of a reply's first packet, the sum of the last two bytes as nibbles, modulo 256; what is above
// 127 then is no setting.
TEST_F(ReadTransactionTest, AByteIsTheNibblesOfItsFirstPacket) {
    const std::vector<Bytes> replies{
        {0x00, 0xFF, 0x04, 0x02}, {0x09, 0x90, 0x04, 0x02, 0x09, 0x90, 0x07, 0x07},
        {0x09, 0x90, 0x01, 0x23}, {0x09, 0x90, 0x1F, 0x2F}, // 31 * 16 + 47 = 543
        {0x09, 0x90, 0x10, 0x05},                           // 16 * 16 + 5 = 261
        {0x09, 0x90, 0xFF, 0xFF},                           // 255 * 17 = 4335 = 239
    };
    for (std::size_t i = 0; i < replies.size(); ++i)
        controller.dataReplies[i / 2 * 253 + kGlobalChannel + i % 2] = replies[i];
    controller.dataReplies[0] = {0x09, 0x90, 0xFF, 0xFF};
    const SceneList scenes = SceneAction::GetSceneFromDevice();
    std::vector<std::int32_t> channels;
    for (const auto& scene : scenes) {
        channels.push_back(scene->commonValue()->GlobalMIDICh());
        channels.push_back(scene->commonValue()->PianoKeyCh());
    }
    EXPECT_EQ(channels, (std::vector<std::int32_t>{0x42, 0x42, 0x33, 31, 5, 0, 0, 0}));
    EXPECT_EQ(scenes[0]->commonValue()->SceneName()[0], '\xEF');
}

TEST_F(ReadTransactionTest, ShortReadKeepsTheFormerBytesOfTheBuffer) {
    controller.bank[kGlobalChannel] = 0x5A;
    controller.dataReplies[kKeyChannel] = {0x09, 0x90};
    controller.dataReplies[kBendSpeed] = {0x09, 0x90, 0x03};
    const auto scenes = SceneAction::GetSceneFromDevice();
    EXPECT_EQ(scenes[0]->commonValue()->PianoKeyCh(), 0x5A);
    EXPECT_EQ(scenes[0]->commonValue()->PitchBendSpeed(), 0x3A);
    EXPECT_EQ(Transport::instance().stats().failedReads, 2U);
}

TEST_F(ReadTransactionTest, FailedReadKeepsTheFormerByte) {
    controller.bank[kGlobalChannel] = 0x5A;
    controller.bank[kKeyChannel] = 0x11;
    // The handshake's and the start's reads, then the bytes before this one.
    std::vector<ResultCode> results(2 + kKeyChannel, kResultSuccess);
    results.push_back(kResultInputOutput);
    script->answer("read", results);
    const auto scenes = SceneAction::GetSceneFromDevice();
    ASSERT_EQ(scenes.size(), 4U);
    EXPECT_EQ(scenes[0]->commonValue()->PianoKeyCh(), 0x5A);
}

TEST_F(ReadTransactionTest, FailedWriteGivesTheInterfaceUpAndTheReadRunsToItsEnd) {
    controller.bank[11] = 0x41;
    // The handshake's and the start's writes, then those of bytes 0 to 11.
    std::vector<ResultCode> results(3 + 12, kResultSuccess);
    results.push_back(kResultNoDevice);
    script->answer("write", results);
    const auto scenes = SceneAction::GetSceneFromDevice();
    ASSERT_EQ(scenes.size(), 4U);
    EXPECT_EQ(script->callsOf({"write"}).size(), 16U);
    EXPECT_EQ(script->callsOf({"release"}).size(), 1U);
    EXPECT_EQ(scenes[3]->buttonValueArray()[19]->CB(), 0x41);
    EXPECT_EQ(messages.back(), "Read Scene Data Finish");
    EXPECT_EQ(pauses.size(), 1016U);
}

TEST_F(ReadTransactionTest, HandshakeIsRepeatedBeforeAnythingIsRead) {
    controller.wrongReplies = {{0x0B}, {0x0B}};
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
    const Lines packets = written();
    EXPECT_EQ(Lines(packets.begin(), packets.begin() + 7),
              (Lines{"09 9c 01 02", "09 9c 7e 7d", "09 9c 01 02", "09 9c 7e 7d", "09 9c 01 02",
                     "09 9c 7e 7d", "09 9c 01 04"}));
}

TEST_F(ReadTransactionTest, SecondReadTakesTheInterfaceAnew) {
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
    controller.bank[kGlobalChannel] = 3;
    EXPECT_EQ(SceneAction::GetSceneFromDevice()[0]->commonValue()->GlobalMIDICh(), 3);
    EXPECT_EQ(script->claimed, Lines{"one/1"});
}

class ReadStreams : public testing::DeviceBench {
protected:
    // One pass: the 253 exchanges of scene `pass`, from 1.
    void expectPass(testing::ExpectedStreams& expected, std::size_t pass) const {
        const std::string time = "第" + std::to_string(pass) + "次读接口---->";
        const auto image = std::span(controller.bank).subspan((pass - 1) * 253, 253);
        expected.say(time + "开始");
        for (const std::uint8_t byte : image) {
            expected.write({0x09, 0x9C, 0x01, 0x06});
            expected.readData({0x09, 0x90, static_cast<std::uint8_t>(byte >> 4U),
                               static_cast<std::uint8_t>(byte & 0x0FU)});
        }
        expected.say("tmp------>" + testing::dumpOf(image));
        expected.say(time + "结束");
    }

    // "index------>145:7" for each group of each scene.
    void expectGroups(testing::ExpectedStreams& expected) const {
        for (std::size_t scene = 0; scene < 4; ++scene)
            for (std::size_t group = 0; group < 4; ++group) {
                const std::size_t at = scene * 253 + 145 + group;
                expected.say("index------>" + std::to_string(at) + ":" +
                             std::to_string(controller.bank[at]));
            }
    }

    [[nodiscard]] testing::ExpectedStreams expectedStreams() const {
        testing::ExpectedStreams expected;
        expected.connect();
        expected.handshake(controller.handshakeReply);
        expected.write({0x09, 0x9C, 0x01, 0x04});
        expected.readData(controller.startReply);
        expected.say("09 9c 01 0a"); // 0x8A loses its high digit in the device's text list
        expected.say("读取次数---->4");
        expected.say("开始读取数据");
        for (std::size_t pass = 1; pass <= 4; ++pass)
            expectPass(expected, pass);
        expected.write({0x09, 0x9C, 0x01, 0x05});
        expected.say("读取数据结束");
        expected.say("解析数据----" + testing::dumpOf(controller.bank));
        expectGroups(expected);
        return expected;
    }
};

TEST_F(ReadStreams, HoldEveryLineOfAReadInOrder) {
    std::mt19937 random(3);
    controller.bank = testing::randomImages(random, 4);
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
    EXPECT_EQ(withoutMessages(), expectedStreams().events);
    EXPECT_EQ(pauses, std::vector<std::chrono::nanoseconds>(1016, std::chrono::milliseconds(1)));
}

} // namespace
} // namespace scenewright
