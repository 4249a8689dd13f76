// Whole reads and sends against the virtual controller, in one process.
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/usb/TransportFixture.h"
#include "tests/virtual/ControllerDriver.h"
#include "virtual/VirtualHost.h"

#include <algorithm>
#include <random>

namespace scenewright::testing {
namespace {

constexpr std::size_t kNameBytes = 12;
constexpr std::size_t kSceneBytes = 253;

BankImage randomBank(unsigned seed, int highest) {
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> byte(0, highest);
    BankImage bank{};
    for (std::uint8_t& each : bank)
        each = static_cast<std::uint8_t>(byte(random));
    return bank;
}

// What a bank is after a read and a send: setting bytes above 127 read as 0, names are kept.
BankImage asKept(BankImage bank) {
    for (std::size_t index = 0; index < bank.size(); ++index)
        if (index % kSceneBytes >= kNameBytes && bank[index] > 127)
            bank[index] = 0;
    return bank;
}

class RoundTrip : public TransportFixture {
protected:
    void plugIn(const BankImage& bank, FaultPlan faults = {}) {
        Diagnostics::setConsole({}); // thousands of lines a transaction
        Diagnostics::setLog({});
        controller = std::make_shared<VirtualController>(bank, std::move(faults));
        Transport::instance().use(makeVirtualHost(controller), [](auto) {});
    }
    static SceneList read() { return SceneAction::GetSceneFromDevice(); }
    static void send(const SceneList& scenes) {
        SceneAction::SendSceneToDevice(scenes);
        SendJob::waitForEnd();
    }
    static BankImage imageOf(const SceneList& scenes) {
        BankImage bank{};
        auto place = bank.begin();
        for (const auto& scene : scenes) {
            const auto image = SceneAction::sceneToBytes(*scene);
            place = std::copy(image.begin(), image.end(), place);
        }
        EXPECT_EQ(place, bank.end());
        return bank;
    }

    std::shared_ptr<VirtualController> controller;
};

TEST_F(RoundTrip, RandomBanksAreReadSentAndReadTheSame) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE(seed);
        const BankImage bank = randomBank(seed, seed % 2 == 0 ? 127 : 255);
        plugIn(bank);
        const SceneList scenes = read();
        ASSERT_EQ(scenes.size(), 4U);
        ASSERT_EQ(imageOf(scenes), asKept(bank));
        send(scenes);
        ASSERT_EQ(controller->sendsEnded(), 1U);
        ASSERT_EQ(controller->bank(), asKept(bank));
        for (int round = 0; round < 2; ++round) {
            ASSERT_EQ(imageOf(read()), asKept(bank));
        }
        ASSERT_TRUE(Transport::instance().stats().isClean());
        plugIn(randomBank(seed + 100, 127));
        send(scenes);
        ASSERT_EQ(controller->bank(), asKept(bank)) << "every byte is replaced";
    }
}

TEST_F(RoundTrip, WrongHandshakesOnlyDelayARead) {
    const BankImage bank = randomBank(4, 127);
    plugIn(bank, {{Fault::Kind::WrongHandshake, 5}});
    EXPECT_EQ(imageOf(read()), bank);
    const TransferStats stats = Transport::instance().stats();
    EXPECT_EQ(stats.versionReads, 6U);
    EXPECT_EQ(stats.writes, 6U * 2U + 1U + 1012U + 1U);
    EXPECT_TRUE(stats.isClean());
}

TEST_F(RoundTrip, ShortTransferIsTakenAsDataAndCounted) {
    plugIn(randomBank(5, 127), {{Fault::Kind::ShortTransfer, 500}});
    EXPECT_EQ(read().size(), 4U);
    const TransferStats stats = Transport::instance().stats();
    EXPECT_EQ(stats.failedReads, 1U);
    ASSERT_TRUE(stats.first.has_value());
    // A version read, the answer to read start, then one read a byte.
    EXPECT_EQ(stats.first->transfer - stats.first->versionReads - 1, 500U);
}

TEST_F(RoundTrip, UnpluggingInAReadIsCountedAndAReadAfterPluggingInSucceeds) {
    const BankImage bank = randomBank(6, 127);
    for (const std::uint32_t byte : {0U, 500U, 1011U}) {
        plugIn(bank, {{Fault::Kind::Unplug, byte}});
        read();
        const TransferStats stats = Transport::instance().stats();
        ASSERT_TRUE(stats.first.has_value()) << byte;
        EXPECT_EQ(stats.first->code, kResultNoDevice);
        EXPECT_EQ(stats.first->transfer - stats.first->versionReads - 1, byte);
        EXPECT_EQ(read().size(), 0U) << "gone";
        controller->reset();
        EXPECT_EQ(imageOf(read()), bank);
    }
}

TEST_F(RoundTrip, UnpluggingInASendLeavesAWholeBlockAndSendingAgainRepairsIt) {
    plugIn(randomBank(8, 127));
    const SceneList scenes = read();
    const BankImage first = imageOf(scenes);
    const BankImage other = randomBank(9, 127);
    plugIn(other, {{Fault::Kind::Unplug, 600}});
    send(scenes);
    EXPECT_FALSE(Transport::instance().stats().isClean());
    BankImage half = other;
    std::copy_n(first.begin(), 512, half.begin());
    EXPECT_EQ(controller->bank(), half);
    controller->reset();
    send(scenes);
    EXPECT_EQ(controller->bank(), first);
}

TEST_F(RoundTrip, WritesThatFailEndNeitherJobNorProgram) {
    plugIn(randomBank(10, 127));
    const SceneList scenes = read();
    plugIn(randomBank(11, 127), {{Fault::Kind::FailedWrite, 100}});
    send(scenes);
    const TransferStats stats = Transport::instance().stats();
    EXPECT_EQ(stats.writes, 2U + 2U + 1024U);
    EXPECT_EQ(stats.failedWrites, 2U + 2U + 1024U - 100U);
    EXPECT_EQ(controller->blocksWritten(), 0U);
}

} // namespace
} // namespace scenewright::testing
