#include "virtual/VirtualHost.h"

#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/support/TempFolder.h"
#include "tests/usb/TransportFixture.h"
#include "tests/virtual/ControllerDriver.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <future>
#include <random>

namespace scenewright::testing {
namespace {

class VirtualHostTest : public TransportFixture {
protected:
    void plugIn(FaultPlan faults = {}, VirtualIdentity identity = {},
                const std::string& bankFile = {}) {
        controller = std::make_shared<VirtualController>(countingBank(), std::move(faults));
        host = makeVirtualHost(controller, BankFileStore(bankFile), identity);
        Transport::instance().use(host, [](auto) {});
    }
    static bool connect() {
        return InterfaceAction::FindDevice() && InterfaceAction::CreateInterface();
    }
    static ResultCode write(const Bytes& bytes) {
        return InterfaceAction::WriteToDeviceWithChar_andSize(
            bytes.data(), static_cast<std::int32_t>(bytes.size()));
    }
    static void handshake() {
        write({0x09, 0x9C, 0x01, 0x02});
        write({0x09, 0x9C, 0x7E, 0x7D});
        InterfaceAction::ReadVersionFromDevice();
    }
    static void startReading() {
        handshake();
        write({0x09, 0x9C, 0x01, 0x04});
        InterfaceAction::ReadDataFromDevice();
    }
    static void startSending() {
        handshake();
        write({0x09, 0x9C, 0x01, 0x03});
        write({0x09, 0x9C, 0x00, 0x01});
        InterfaceAction::ReadFromDevice();
    }
    static ResultCode firstFailure() {
        const auto stats = Transport::instance().stats();
        return stats.first ? stats.first->code : kResultSuccess;
    }

    TempFolder folder;
    std::shared_ptr<VirtualController> controller;
    std::shared_ptr<VirtualHost> host;
};

TEST_F(VirtualHostTest, IsFoundTakenAndListedAsAMidiKeyboard) {
    plugIn();
    ASSERT_TRUE(connect());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n"
                       "list index:0 (vendor 4617, product 1)\n"
                       "get itInterface class 1, subclass 3\n"
                       "Interface has 2 endpoints\n"
                       "PipeRef 1:direction in,transfer type bulk, maxPacketSize 64\n"
                       "PipeRef 2:direction out,transfer type bulk, maxPacketSize 64\n");
}

TEST_F(VirtualHostTest, OtherIdentityOrTooFewInterfacesAreNotTaken) {
    plugIn({}, {.vendor = 0x1234, .product = 0x5678});
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(Transport::instance().connectFailure, kResultNotPlugged);
    plugIn({}, {.interfaces = 1});
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(Transport::instance().connectFailure, kResultNotFound);
    plugIn();
    EXPECT_EQ(host->devices({})->size(), 1U);
    EXPECT_EQ(host->devices({})->front()->port(), "") << "it is plugged in nowhere";
    EXPECT_EQ(host->devices({.vendor = 0x1209, .product = 0x0001})->size(), 1U);
    EXPECT_EQ(host->devices({.vendor = 0x1209, .product = 0x0002})->size(), 0U);
    EXPECT_EQ(host->devices({.vendor = 0x1208, .product = {}})->size(), 0U);
}

TEST_F(VirtualHostTest, SecondHandleIsBusyWhileTheFirstIsOpen) {
    plugIn();
    ASSERT_TRUE(connect());
    const auto second = Transport::instance().device()->interface(1);
    ASSERT_TRUE(second.has_value());
    EXPECT_EQ((*second)->open().error(), (UsbError{UsbStep::Open, kResultBusy}));
    EXPECT_TRUE(Transport::instance().interface()->open()) << "the holder may";
    InterfaceAction::closeInterface();
    EXPECT_TRUE((*second)->open());
    InterfaceAction::ReadFromDevice();
    EXPECT_EQ(firstFailure(), kResultNotOpen) << "it is closed";
    EXPECT_EQ(write({0x01}), kResultNotOpen);
}

TEST_F(VirtualHostTest, ACloseEndsAReadThatWaitsAndTheInterfaceCanBeOpenedAgainAtOnce) {
    plugIn();
    ASSERT_TRUE(connect());
    const auto interface = Transport::instance().interface();
    for (int round = 0; round < 20; ++round) {
        std::promise<void> isReading;
        auto read = std::async(std::launch::async, [&] {
            isReading.set_value();
            std::array<std::uint8_t, 63> room{};
            return interface->read(1, room);
        });
        isReading.get_future().wait();
        EXPECT_TRUE(interface->close());
        EXPECT_TRUE(interface->open());
        // One that came after the close waits on: the next close ends it.
        if (read.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
            EXPECT_TRUE(interface->close());
        }
        const ResultCode code = read.get().code;
        EXPECT_TRUE(code == kResultCancelled || code == kResultNotOpen) << code;
        EXPECT_TRUE(interface->open());
    }
}

TEST_F(VirtualHostTest, AWriteDoesNotWaitForAReadThatWaitsAndGivesItItsReply) {
    plugIn();
    ASSERT_TRUE(connect());
    auto read = std::async(std::launch::async, [] {
        std::array<std::uint8_t, 63> room{};
        return Transport::instance().interface()->read(1, room);
    });
    write({0x09, 0x9C, 0x01, 0x02});
    write({0x09, 0x9C, 0x7E, 0x7D});
    const UsbRead moved = read.get();
    EXPECT_EQ(moved.code, kResultSuccess);
    EXPECT_EQ(moved.delivered, 12U);
    write({0x09, 0x9C, 0x01, 0x04});
    std::array<std::uint8_t, 3> tooSmall{};
    EXPECT_EQ(Transport::instance().interface()->read(1, tooSmall).code, kResultOverflow);
}

TEST_F(VirtualHostTest, FailedAndStalledWritesHaveACode) {
    plugIn({{Fault::Kind::FailedWrite, 1}});
    ASSERT_TRUE(connect());
    EXPECT_EQ(write({0x09, 0x9C, 0x01, 0x02}), kResultSuccess);
    EXPECT_EQ(write({0x09, 0x9C, 0x7E, 0x7D}), kResultInputOutput);
    EXPECT_EQ(write({0x09, 0x9C, 0x7E, 0x7D}), kResultGivenUp);
    plugIn({{Fault::Kind::Stall, 1}});
    ASSERT_TRUE(connect());
    startSending();
    EXPECT_EQ(write(dataPacket(0x5A)), kResultSuccess);
    EXPECT_EQ(write(dataPacket(0x5A)), kResultStall);
}

TEST_F(VirtualHostTest, StallInAReadHasACodeAndEndsWhenTheInterfaceIsTakenAnew) {
    plugIn({{Fault::Kind::Stall, 0}});
    ASSERT_TRUE(connect());
    startReading();
    write({0x09, 0x9C, 0x01, 0x06});
    InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(firstFailure(), kResultStall);
    ASSERT_TRUE(connect());
    startReading();
    EXPECT_TRUE(Transport::instance().stats().isClean());
}

TEST_F(VirtualHostTest, UnpluggedControllerIsGoneUntilItIsPluggedInAgain) {
    plugIn({{Fault::Kind::Unplug, 0}});
    ASSERT_TRUE(connect());
    startReading();
    write({0x09, 0x9C, 0x01, 0x06});
    InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(firstFailure(), kResultNoDevice);
    EXPECT_EQ(write({0x09, 0x9C, 0x01, 0x06}), kResultNoDevice);
    EXPECT_FALSE(InterfaceAction::FindDevice());
    controller->reset();
    EXPECT_TRUE(connect());
}

TEST_F(VirtualHostTest, ControllerUnpluggedBetweenFindingAndTakingIsNotTaken) {
    plugIn({{Fault::Kind::Unplug, 0}});
    ASSERT_TRUE(InterfaceAction::FindDevice());
    ControllerDriver aside({{Fault::Kind::Unplug, 0}});
    aside.startReading();
    aside.readNext();
    *controller = aside.controller;
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(Transport::instance().connectFailure, kResultNoDevice);
}

TEST_F(VirtualHostTest, BankIsKeptInItsFileAfterACompletedSendOnly) {
    const std::string file = folder.file("bank");
    plugIn({}, {}, file);
    ASSERT_TRUE(connect());
    startSending();
    for (int packet = 0; packet < 511; ++packet)
        write(dataPacket(0x5A));
    EXPECT_FALSE(std::filesystem::exists(file));
    write(dataPacket(0x5A));
    const Bytes kept = readBytes(file);
    ASSERT_EQ(kept.size(), 1012U);
    EXPECT_EQ(kept[0], 0x5A);
    EXPECT_EQ(kept[511], 0x5A);
    EXPECT_EQ(kept[512], 0x00);
    EXPECT_TRUE(host->storageResult());
}

TEST_F(VirtualHostTest, BankThatCannotBeKeptIsToldUntilASendCanBe) {
    const std::string file = folder.file("missing/bank");
    plugIn({}, {}, file);
    ASSERT_TRUE(connect());
    const auto sendBlock = [] {
        startSending();
        ResultCode last = kResultOther;
        for (int packet = 0; packet < 512; ++packet)
            last = write(dataPacket(0x5A));
        return last;
    };
    EXPECT_TRUE(host->storageResult());
    EXPECT_EQ(sendBlock(), kResultSuccess) << "the transfers themselves went well";
    EXPECT_NE(host->storageResult().error().find(file), std::string::npos);

    ASSERT_TRUE(connect());
    EXPECT_EQ(sendBlock(), kResultSuccess);
    EXPECT_FALSE(host->storageResult()) << "still missing";

    std::filesystem::create_directory(folder.file("missing"));
    ASSERT_TRUE(connect());
    EXPECT_EQ(sendBlock(), kResultSuccess);
    EXPECT_TRUE(host->storageResult());
    EXPECT_EQ(readBytes(file).size(), 1012U);
}

TEST_F(VirtualHostTest, WhatIsPlayedReachesTheListenerBetweenTransactionsAlone) {
    constexpr Packet kOn{0x09, 0x99, 38, 100};
    plugIn();
    EXPECT_EQ(host->bank(), controller->bank());
    std::vector<Packet> heard;
    host->play(kOn); // nobody listens
    host->setListener([&](const Packet& packet) { heard.push_back(packet); });
    host->play(kOn);
    EXPECT_EQ(heard, std::vector{kOn});
    ASSERT_TRUE(connect());
    host->play(kOn);
    EXPECT_EQ(heard.size(), 1U);
    InterfaceAction::KillInterface();
    host->play(kOn);
    EXPECT_EQ(heard.size(), 2U);
    host->setListener(nullptr);
    host->play(kOn);
    EXPECT_EQ(heard.size(), 2U);
}

// Whole reads and sends against the virtual controller, in one process.

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
