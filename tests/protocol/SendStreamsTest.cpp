// Every packet of a send, and every line that it owes to the two diagnostic streams.
#include "platform/MainQueue.h"
#include "protocol/SceneImage.h"
#include "protocol/Transactions.h"
#include "tests/protocol/ExpectedStreams.h"
#include "tests/protocol/TestScenes.h"

#include <array>
#include <cstdio>
#include <string>

namespace scenewright {
namespace {

using testing::Bytes;

class SendStreams : public testing::DeviceTest {
protected:
    // Sends `bank`, and runs the main queue's tasks only when the job's thread is through, so that
    // the order of the lines is one only.
    void sendBank(const Bytes& bank) {
        const SceneList scenes = parseScenes(bank);
        script->events.clear();
        SceneAction::SendSceneToDevice(scenes);
        SendJob::join();
        MainQueue::pump();
    }

    static std::string format(const char* format, unsigned position, unsigned byte, unsigned high,
                              unsigned low) {
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), format, position, byte, high, low);
        return text.data();
    }

    static void expectPosition(testing::ExpectedStreams& expected, const Bytes& bank,
                               std::size_t position) {
        const bool isData = position < bank.size();
        const unsigned byte = isData ? bank[position] : 0x00;
        const unsigned high = isData ? byte >> 4U : 0x0F;
        const unsigned low = isData ? byte & 0x0FU : 0x0F;
        expected.say(
            format("%u %02x    09,90,%02x,%02x", static_cast<unsigned>(position), byte, high, low));
        expected.write(
            {0x09, 0x90, static_cast<std::uint8_t>(high), static_cast<std::uint8_t>(low)});
    }

    void expectBlock(testing::ExpectedStreams& expected, const Bytes& bank,
                     std::size_t block) const {
        for (std::size_t i = 0; i < 512; ++i)
            expectPosition(expected, bank, block * 512 + i);
        const std::string time = "第" + std::to_string(block + 1) + "次读接口---->";
        expected.say(time + "开始");
        expected.read(controller.blockReply);
        expected.say(time + "结束");
    }

    [[nodiscard]] testing::ExpectedStreams expectedStreams(const Bytes& bank) const {
        testing::ExpectedStreams expected;
        expected.say(testing::dumpOf(bank));
        expected.connect();
        expected.handshake(controller.handshakeReply);
        expected.write({0x09, 0x9C, 0x01, 0x03});
        expected.say("发送次数---->2");
        expected.write({0x09, 0x9C, 0x00, 0x02});
        expected.say("writeTime：09,9c,00,02");
        expected.read(controller.countReply);
        expectBlock(expected, bank, 0);
        expectBlock(expected, bank, 1);
        for (const char* const line : {"ing", "ing", "100", "Finish"})
            expected.say(line);
        expected.events.insert(expected.events.end(), {"close one/1", "release one/1"});
        return expected;
    }
};

TEST_F(SendStreams, HoldEveryLineOfASendInOrder) {
    std::mt19937 random(5);
    const Bytes bank = testing::randomImages(random, 4);
    sendBank(bank);
    EXPECT_EQ(withoutMessages(), expectedStreams(bank).events);
}

} // namespace
} // namespace scenewright
