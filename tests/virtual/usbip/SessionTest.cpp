#include "virtual/usbip/Session.h"

#include "tests/virtual/ControllerDriver.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace scenewright::usbip {
namespace {

using testing::countingBank;
using testing::dataPacket;

// What a host says to a server, built byte by byte.
const Bytes kDevicesRequest{0x01, 0x11, 0x80, 0x05, 0, 0, 0, 0};

Bytes importRequest(std::string_view busId) {
    Bytes message{0x01, 0x11, 0x80, 0x03, 0, 0, 0, 0};
    message.insert(message.end(), busId.begin(), busId.end());
    message.resize(40);
    return message;
}

void putNumber(Bytes& message, std::size_t offset, std::uint32_t value) {
    for (unsigned byte = 0; byte < 4; ++byte)
        message.at(offset + byte) = static_cast<std::uint8_t>(value >> (24U - 8U * byte));
}

// Code, number, device 2 of bus 1, direction, endpoint.
Bytes header(std::uint32_t code, std::uint32_t sequence, std::uint32_t direction,
             std::uint32_t endpoint) {
    Bytes message(48);
    putNumber(message, 0, code);
    putNumber(message, 4, sequence);
    putNumber(message, 8, 0x10002);
    putNumber(message, 12, direction);
    putNumber(message, 16, endpoint);
    return message;
}

Bytes inMessage(std::uint32_t sequence, std::uint32_t room) {
    auto message = header(1, sequence, 1, 1);
    putNumber(message, 24, room);
    return message;
}

Bytes outMessage(std::uint32_t sequence, const Bytes& bytes) {
    auto message = header(1, sequence, 0, 2);
    putNumber(message, 24, static_cast<std::uint32_t>(bytes.size()));
    message.insert(message.end(), bytes.begin(), bytes.end());
    return message;
}

Bytes unlinkMessage(std::uint32_t sequence, std::uint32_t target) {
    auto message = header(2, sequence, 0, 0);
    putNumber(message, 20, target);
    return message;
}

class SessionTest : public ::testing::Test {
protected:
    Session& open(Session::Start start = Session::Start::Attached) {
        return session.emplace(state, start);
    }
    Bytes answer(const Bytes& message) {
        session->receive(message);
        return std::exchange(session->output(), {});
    }
    // What is said of a message that is refused.
    std::string errorOf(const Bytes& message, Session::Start start = Session::Start::Attached) {
        session.reset();
        open(start).receive(message);
        EXPECT_EQ(session->state(), Session::State::Dropped);
        EXPECT_EQ(session->output(), Bytes{});
        return session->error();
    }

    VirtualController controller{countingBank()};
    BankSaver saver{{}, {}};
    std::vector<std::string> traced;
    ServerState state{
        controller, saver, {}, [this](std::string_view line) { traced.emplace_back(line); }};
    std::optional<Session> session;
};

TEST_F(SessionTest, DevicesRequestIsAnsweredAndEndsTheConnection) {
    open(Session::Start::Asking);
    const DeviceRecord record = recordOf({});
    EXPECT_EQ(answer(kDevicesRequest), encodeDevicesReply(std::span(&record, 1)));
    EXPECT_EQ(session->state(), Session::State::Done);
}

TEST_F(SessionTest, RecordIsThatOfTheDescriptors) {
    const DeviceRecord two = recordOf({.vendor = 0xABCD, .product = 0x1234});
    EXPECT_EQ(two.vendor, 0xABCD);
    EXPECT_EQ(two.product, 0x1234);
    EXPECT_EQ(two.busId, "1-1");
    EXPECT_EQ(two.speed, 2U);
    EXPECT_EQ(deviceNumberOf(two), 0x10002U);
    EXPECT_EQ(two.interfaces, (std::vector<std::array<std::uint8_t, 3>>{{1, 1, 0}, {1, 3, 0}}));
    EXPECT_EQ(recordOf({.interfaces = 1}).interfaces.size(), 1U);
}

TEST_F(SessionTest, ImportAttachesAndThenCarriesTransfers) {
    open(Session::Start::Asking);
    EXPECT_EQ(answer(importRequest("1-1")), encodeImportReply(OperationStatus::Ok, recordOf({})));
    EXPECT_TRUE(session->isAttached());
    EXPECT_EQ(answer(outMessage(9, {0x09, 0x9C, 0x01, 0x02})),
              encodeSubmitReply(9, UrbStatus::Ok, 4, {}));
}

TEST_F(SessionTest, ImportOfAnotherBusIdIsRefused) {
    open(Session::Start::Asking);
    EXPECT_EQ(answer(importRequest("1-2")), (Bytes{0x01, 0x11, 0, 3, 0, 0, 0, 4}));
    EXPECT_EQ(session->state(), Session::State::Done);
    EXPECT_FALSE(state.isTaken);
}

TEST_F(SessionTest, SecondImportIsBusyUntilTheFirstHasEnded) {
    open(Session::Start::Attached);
    {
        Session second(state, Session::Start::Asking);
        second.receive(importRequest("1-1"));
        EXPECT_EQ(second.output(), (Bytes{0x01, 0x11, 0, 3, 0, 0, 0, 2}));
        EXPECT_EQ(second.state(), Session::State::Done);
    }
    EXPECT_TRUE(state.isTaken) << "the second's end takes nothing from the first";
    session.reset();
    open(Session::Start::Asking);
    EXPECT_EQ(answer(importRequest("1-1")).size(), 320U);
}

TEST_F(SessionTest, AttachingPlugsTheControllerInAnew) {
    controller.receive(Bytes{0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x7E, 0x7D});
    open();
    EXPECT_EQ(answer(inMessage(5, 64)), Bytes{}) << "the former host's reply is gone";
}

TEST_F(SessionTest, MessagesMayComeByteByByte) {
    open(Session::Start::Asking);
    Bytes all = importRequest("1-1");
    for (const Bytes& message :
         {outMessage(1, {0x09, 0x9C, 0x01, 0x02}), outMessage(2, {0x09, 0x9C, 0x7E, 0x7D}),
          inMessage(3, 64), unlinkMessage(4, 77)})
        all.insert(all.end(), message.begin(), message.end());
    for (const std::uint8_t byte : all)
        session->receive(ByteView(&byte, 1));
    EXPECT_EQ(session->state(), Session::State::Open);
    EXPECT_EQ(session->output().size(), 320U + 48U + 48U + 48U + 12U + 48U);
    EXPECT_EQ(traced, (std::vector<std::string>{
                          "1 ep2 out ok 4: 09 9c 01 02", "2 ep2 out ok 4: 09 9c 7e 7d",
                          "3 ep1 in ok 12: 09 9c 01 02 09 9c 01 38 09 9c 00 01"}));
}

TEST_F(SessionTest, TruncatedMessageAtEachLengthWaitsForTheRest) {
    const Bytes import = importRequest("1-1");
    for (std::size_t size = 0; size < import.size(); ++size) {
        Session asking(state, Session::Start::Asking);
        asking.receive(ByteView(import).first(size));
        ASSERT_EQ(asking.state(), Session::State::Open) << size;
        ASSERT_EQ(asking.output(), Bytes{}) << size;
    }
    const Bytes out = outMessage(1, {0x09, 0x9C, 0x01, 0x02});
    for (std::size_t size = 0; size < out.size(); ++size) {
        Session attached(state, Session::Start::Attached);
        attached.receive(ByteView(out).first(size));
        ASSERT_EQ(attached.state(), Session::State::Open) << size;
        ASSERT_EQ(attached.output(), Bytes{}) << size;
    }
    EXPECT_EQ(traced, std::vector<std::string>{});
}

TEST_F(SessionTest, UnlinkedTransferIsAnsweredByTheUnlinkAlone) {
    open();
    answer(inMessage(5, 64));
    EXPECT_EQ(answer(unlinkMessage(6, 5)), encodeUnlinkReply(6, UrbStatus::Unlinked));
    EXPECT_EQ(answer(unlinkMessage(7, 5)), encodeUnlinkReply(7, UrbStatus::Ok));
    EXPECT_EQ(traced, std::vector<std::string>{"5 unlinked"});
}

TEST_F(SessionTest, MalformedMessagesAreToldAndEndTheConnection) {
    EXPECT_EQ(errorOf(Bytes(8, 0), Session::Start::Asking), "version 0000 of the protocol");
    EXPECT_EQ(errorOf({'G', 'E', 'T', ' ', '/', ' ', 'H', 'T'}, Session::Start::Asking),
              "version 4745 of the protocol");
    EXPECT_EQ(errorOf(importRequest(""), Session::Start::Asking),
              "an import request without a bus id");
    EXPECT_EQ(errorOf(Bytes(48, 0xFF)), "an unknown command 4294967295");
    Bytes other = inMessage(1, 64);
    other[11] = 3;
    EXPECT_EQ(errorOf(other), "a command for the device 65539");
    other = unlinkMessage(1, 2);
    other[9] = 0;
    EXPECT_EQ(errorOf(other), "a command for the device 2");
    Bytes huge = outMessage(1, {});
    huge[24] = 0x7F;
    EXPECT_EQ(errorOf(huge), "a transfer with the length 2130706432");
}

TEST_F(SessionTest, NothingIsTakenAfterTheEnd) {
    open(Session::Start::Asking);
    session->receive(Bytes(8, 0));
    session->receive(kDevicesRequest);
    EXPECT_EQ(session->output(), Bytes{});
    EXPECT_EQ(session->error(), "version 0000 of the protocol");
}

TEST_F(SessionTest, FloodOfWaitingTransfersEndsTheConnection) {
    open();
    for (std::uint32_t sequence = 0; sequence <= 256; ++sequence)
        session->receive(inMessage(sequence, 64));
    EXPECT_EQ(session->state(), Session::State::Dropped);
    EXPECT_EQ(session->error(), "more waiting transfers than the device has room for");
}

TEST_F(SessionTest, HostThatTakesNoAnswersIsDroppedAtTheLimit) {
    open();
    const Bytes ask = inMessage(1, 64);
    Bytes describe = ask;
    putNumber(describe, 16, 0); // endpoint 0: the configuration descriptor
    const Bytes setup{0x80, 6, 0, 2, 0, 0, 64, 0};
    std::copy(setup.begin(), setup.end(), describe.begin() + 40);
    while (session->state() == Session::State::Open) {
        ASSERT_LE(session->output().size(), Session::kMaxUnsent);
        session->receive(describe);
    }
    EXPECT_EQ(session->state(), Session::State::Dropped);
    EXPECT_EQ(session->error(), "its host does not take the answers");
    EXPECT_GT(session->output().size(), Session::kMaxUnsent - describe.size() - 128);
    EXPECT_LE(session->output().size(), Session::kMaxUnsent);
}

TEST_F(SessionTest, WhatItsHostLeftUnreadGoesWithIt) {
    open();
    answer(outMessage(1, {0x09, 0x9C, 0x01, 0x02}));
    answer(outMessage(2, {0x09, 0x9C, 0x7E, 0x7D}));
    EXPECT_EQ(controller.repliesWaiting(), 1U);
    session.reset();
    EXPECT_EQ(controller.repliesWaiting(), 0U);
}

TEST_F(SessionTest, UnplugAnswersTheWriteAndEndsTheConnection) {
    controller = VirtualController(countingBank(), {{Fault::Kind::Unplug, 0}});
    open();
    answer(outMessage(1, {0x09, 0x9C, 0x01, 0x02}));
    answer(outMessage(2, {0x09, 0x9C, 0x7E, 0x7D}));
    answer(outMessage(3, {0x09, 0x9C, 0x01, 0x04}));
    EXPECT_EQ(session->state(), Session::State::Open);
    EXPECT_EQ(answer(outMessage(4, {0x09, 0x9C, 0x01, 0x06})),
              encodeSubmitReply(4, UrbStatus::Ok, 4, {}));
    EXPECT_EQ(session->state(), Session::State::Unplugged);
    EXPECT_FALSE(state.isTaken) << "another may have it before the last answer is sent";
    session.reset();
    open();
    EXPECT_TRUE(controller.isPresent()) << "attaching plugs it in again";
}

} // namespace
} // namespace scenewright::usbip
