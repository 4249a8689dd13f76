// Every line that a read owes to the two diagnostic streams.
#include "protocol/Transactions.h"
#include "tests/protocol/ExpectedStreams.h"
#include "tests/protocol/TestScenes.h"

#include <chrono>
#include <string>
#include <vector>

namespace scenewright {
namespace {

using testing::Bytes;
using testing::Lines;

class ReadStreams : public testing::DeviceTest {
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
