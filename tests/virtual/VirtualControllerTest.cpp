#include "virtual/VirtualController.h"

#include "tests/virtual/ControllerDriver.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {
namespace {

using std::chrono::milliseconds;
using Kind = Fault::Kind;
using Lines = std::vector<std::string>;

TEST(VirtualController, HandshakeOfOneOrTwoTransfersIsAnsweredInOneOfThreePackets) {
    ControllerDriver driver;
    EXPECT_EQ(driver.write({0x09, 0x9C, 0x01, 0x02}), WriteResult::Taken);
    EXPECT_EQ(driver.reply(), kNothing) << "the confirm is due first";
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x7E, 0x7D}), kHandshakeReply);
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x7E, 0x7D}), kHandshakeReply);
}

TEST(VirtualController, NothingIsAnsweredBeforeAHandshake) {
    ControllerDriver driver;
    for (const std::uint8_t code : Bytes{0x04, 0x06, 0x03})
        EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, code}), kNothing);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x00, 0x02}), kNothing);
    driver.sendBytes(0x11, 512);
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.controller.bank(), countingBank());
}

TEST(VirtualController, ReadNextGivesTheBankInNibbles) {
    BankImage bank = countingBank();
    bank[0] = 0xA7;
    bank[1] = 0x00;
    bank[2] = 0xFF;
    ControllerDriver driver({}, bank);
    driver.handshake();
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x04}).size(), 4U) << "read start";
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x0A, 0x07}));
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x00, 0x00}));
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x0F, 0x0F}));
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x00, 0x03}));
    for (unsigned index = 4; index < 1011; ++index)
        ASSERT_EQ(driver.readNext(), dataPacket(index % 128)) << index;
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x07, 0x03})); // 1011 modulo 128
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x0F, 0x0F})) << "past the end is fill";
}

TEST(VirtualController, ReadEndIsNotAnsweredAndAsksForANewHandshake) {
    ControllerDriver driver;
    driver.startReading();
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x05}), kNothing);
    EXPECT_EQ(driver.readNext(), kNothing);
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0)) << "from the beginning again";
}

TEST(VirtualController, EachBlockIsAnsweredAndPutInMemoryAtItsEnd) {
    ControllerDriver driver;
    driver.handshake();
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x03}), kNothing) << "send start";
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x00, 0x02}).size(), 4U);
    driver.sendBytes(0x5A, 511);
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.controller.bank(), countingBank());
    driver.sendBytes(0x5A, 1);
    EXPECT_EQ(driver.reply().size(), 4U);
    EXPECT_EQ(driver.controller.blocksWritten(), 1U);
    EXPECT_EQ(driver.controller.bank()[0], 0x5A);
    EXPECT_EQ(driver.controller.bank()[511], 0x5A);
    EXPECT_EQ(driver.controller.bank()[512], 0x00) << "512 modulo 128: not written yet";

    driver.sendBytes(0x33, 500);
    driver.sendBytes(0xFF, 11);
    EXPECT_EQ(driver.controller.sendsEnded(), 0U);
    driver.sendBytes(0xFF, 1);
    EXPECT_EQ(driver.reply().size(), 4U);
    EXPECT_EQ(driver.controller.bank()[512], 0x33);
    EXPECT_EQ(driver.controller.bank()[1011], 0x33);
    EXPECT_EQ(driver.controller.blocksWritten(), 2U);
    EXPECT_EQ(driver.controller.sendsEnded(), 1U);
}

TEST(VirtualController, OneBlockLeavesTheRestOfTheBankAndNeedsANewHandshakeAfterIt) {
    ControllerDriver driver;
    driver.startSending(1);
    driver.sendBytes(0xFF, 512);
    EXPECT_EQ(driver.reply().size(), 4U);
    EXPECT_EQ(driver.controller.bank()[511], 0xFF);
    EXPECT_EQ(driver.controller.bank()[512], 0x00);
    EXPECT_EQ(driver.controller.sendsEnded(), 1U);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x04}), kNothing);
}

TEST(VirtualController, BlocksPastTheMemoryAreAnsweredAndDropped) {
    ControllerDriver driver;
    driver.startSending(17);
    for (unsigned block = 0; block < 17; ++block) {
        driver.sendBytes(block, 512);
        ASSERT_EQ(driver.reply().size(), 4U) << block;
    }
    EXPECT_EQ(driver.controller.blocksWritten(), 2U);
    EXPECT_EQ(driver.controller.bank()[0], 0);
    EXPECT_EQ(driver.controller.bank()[1011], 1);
    EXPECT_EQ(driver.controller.sendsEnded(), 1U);
}

TEST(VirtualController, SendOfNoBlocksEndsAtOnce) {
    ControllerDriver driver;
    EXPECT_EQ(driver.startSending(0).size(), 4U);
    driver.sendBytes(0x11, 512);
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.controller.bank(), countingBank());
}

TEST(VirtualController, HandshakeRequestStartsOverInTheMiddleOfARead) {
    ControllerDriver driver;
    driver.startReading();
    driver.readNext();
    driver.write({0x09, 0x9C, 0x01, 0x06}); // a reply that nobody fetches
    EXPECT_EQ(driver.handshake(), kHandshakeReply);
    EXPECT_EQ(driver.reply(), kNothing);
    driver.ask({0x09, 0x9C, 0x01, 0x04});
    EXPECT_EQ(driver.readNext(), dataPacket(0));
}

// A count of 18 blocks has the bytes of a handshake request. The memory holds 2.
TEST(VirtualController, HandshakeRequestStartsOverInPlaceOfABlockCountAndInTheMiddleOfABlock) {
    ControllerDriver driver;
    driver.handshake();
    driver.write({0x09, 0x9C, 0x01, 0x03});
    EXPECT_EQ(driver.handshake(), kHandshakeReply);
    driver.startSending(2);
    driver.sendBytes(0x77, 100);
    EXPECT_EQ(driver.startSending(1).size(), 4U);
    driver.sendBytes(0x66, 511);
    EXPECT_EQ(driver.controller.bank(), countingBank()) << "the 100 do not count";
    driver.sendBytes(0x66, 1);
    EXPECT_EQ(driver.controller.bank()[0], 0x66);
}

TEST(VirtualController, PacketsOutOfPlaceAreIgnored) {
    ControllerDriver driver;
    driver.startReading();
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x03}), kNothing) << "send start while reading";
    EXPECT_EQ(driver.ask(dataPacket(5)), kNothing);
    EXPECT_EQ(driver.ask({0x0B, 0xB0, 0x01, 0x06}), kNothing);
    EXPECT_EQ(driver.ask({0x19, 0x9C, 0x01, 0x06}), kNothing) << "another cable";
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    driver.startSending(1);
    driver.sendBytes(0x21, 256);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x06}), kNothing) << "read next while sending";
    driver.sendBytes(0x21, 256);
    EXPECT_EQ(driver.reply().size(), 4U);
}

TEST(VirtualController, TransfersOfBrokenPacketsAreTakenAndIgnored) {
    ControllerDriver driver;
    for (const Bytes& bytes : {Bytes{}, Bytes{0x09}, Bytes{0x09, 0x9C}, Bytes{0x09, 0x9C, 0x01},
                               Bytes{0x09, 0x9C, 0x01, 0x02, 0x09}}) {
        EXPECT_EQ(driver.write(bytes), WriteResult::Taken);
        EXPECT_EQ(driver.ask({0x09, 0x9C, 0x7E, 0x7D}), kNothing) << bytes.size();
    }
}

TEST(VirtualController, ResetKeepsTheBankAndForgetsTheConversation) {
    ControllerDriver driver;
    driver.startSending(2);
    driver.sendBytes(0x5A, 512);
    driver.controller.reset();
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.controller.bank()[0], 0x5A);
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0x5A));
}

TEST(VirtualControllerFaults, FirstHandshakeRepliesAreWrongInTurnThenRight) {
    ControllerDriver driver({{Kind::WrongHandshake, 3}});
    Bytes wrongArgument = kHandshakeReply;
    wrongArgument[7] = 0x39;
    Bytes wrongStart = kHandshakeReply;
    wrongStart[0] = 0x0B;
    EXPECT_EQ(driver.handshake(), wrongArgument);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x04}), kNothing) << "no handshake, no read";
    EXPECT_EQ(driver.handshake(), wrongStart);
    EXPECT_EQ(driver.handshake(), wrongArgument);
    EXPECT_EQ(driver.handshake(), kHandshakeReply);
}

TEST(VirtualControllerFaults, SilenceFromTheBeginningOrAfterSomeReplies) {
    ControllerDriver silent({{Kind::NoAnswer, 0}});
    EXPECT_EQ(silent.handshake(), kNothing);
    ControllerDriver driver({{Kind::NoAnswer, 3}}); // handshake, read start, one byte
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    EXPECT_EQ(driver.readNext(), kNothing);
    EXPECT_EQ(driver.handshake(), kNothing);
    EXPECT_TRUE(driver.controller.isPresent());
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
}

TEST(VirtualControllerFaults, OneReplyIsShortOrHasANibbleAboveFifteen) {
    ControllerDriver driver({{Kind::ShortTransfer, 1}, {Kind::WrongNibble, 5}});
    driver.startReading();
    for (unsigned index = 0; index < 8; ++index)
        EXPECT_EQ(driver.readNext(), index == 1   ? (Bytes{0x09, 0x90})
                                     : index == 5 ? (Bytes{0x09, 0x90, 0x00, 0x15})
                                                  : dataPacket(index))
            << index;
}

TEST(VirtualControllerFaults, WritesFailAfterSomePacketsAndDoNothing) {
    ControllerDriver driver({{Kind::FailedWrite, 2}});
    EXPECT_EQ(driver.handshake(), kHandshakeReply);
    EXPECT_EQ(driver.write({0x09, 0x9C, 0x01, 0x04}), WriteResult::Failed);
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.write({0x09, 0x9C, 0x01, 0x02}), WriteResult::Failed);
}

TEST(VirtualControllerFaults, UnplugInASendLeavesTheBlockUnwritten) {
    ControllerDriver driver({{Kind::Unplug, 600}});
    driver.startSending(2);
    driver.sendBytes(0x5A, 512);
    driver.reply();
    EXPECT_EQ(driver.sendBytes(0x5A, 88), WriteResult::Taken);
    driver.sendBytes(0x5A, 1);
    EXPECT_FALSE(driver.controller.isPresent());
    EXPECT_EQ(driver.controller.blocksWritten(), 1U);
    EXPECT_EQ(driver.controller.bank()[600], 600 % 128);
}

TEST(VirtualControllerFaults, EachUnplugInAReadTakesTheControllerAwayOnce) {
    ControllerDriver driver({{Kind::Unplug, 0}, {Kind::Unplug, 2}});
    driver.startReading();
    EXPECT_EQ(driver.readNext(), kNothing);
    ASSERT_FALSE(driver.controller.isPresent());
    EXPECT_EQ(driver.write({0x09, 0x9C, 0x01, 0x02}), WriteResult::Gone);
    driver.controller.reset();
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    EXPECT_EQ(driver.readNext(), dataPacket(1));
    EXPECT_TRUE(driver.controller.isPresent());
    EXPECT_EQ(driver.readNext(), kNothing);
    driver.controller.reset();
    driver.startReading();
    for (unsigned index = 0; index < 3; ++index)
        EXPECT_EQ(driver.readNext(), dataPacket(index));
}

TEST(VirtualControllerFaults, StallInAReadHaltsTheInPipeUntilCleared) {
    ControllerDriver driver({{Kind::Stall, 1}});
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    EXPECT_EQ(driver.readNext(), kNothing);
    EXPECT_TRUE(driver.controller.isHalted(Pipe::In));
    EXPECT_FALSE(driver.controller.isHalted(Pipe::Out));
    EXPECT_EQ(driver.handshake(), kNothing) << "halted";
    driver.controller.clearHalt(Pipe::In);
    EXPECT_EQ(driver.reply(), kHandshakeReply);
}

TEST(VirtualControllerFaults, StallInASendHaltsTheOutPipe) {
    ControllerDriver driver({{Kind::Stall, 3}});
    driver.startSending(1);
    EXPECT_EQ(driver.sendBytes(0x5A, 3), WriteResult::Taken);
    EXPECT_EQ(driver.sendBytes(0x5A, 1), WriteResult::Halted);
    EXPECT_TRUE(driver.controller.isHalted(Pipe::Out));
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
    driver.controller.clearHalt(Pipe::Out);
    EXPECT_EQ(driver.sendBytes(0x5A, 1), WriteResult::Taken);
}

TEST(VirtualControllerFaults, OrderedFaultsTakeTheFormerOnesPlaceAndCountFromThere) {
    ControllerDriver driver({{Kind::ShortTransfer, 2}});
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    driver.controller.order({{Kind::ShortTransfer, 3}});
    for (unsigned index = 1; index < 4; ++index)
        EXPECT_EQ(driver.readNext(), dataPacket(index)) << index;
    EXPECT_EQ(driver.readNext().size(), 2U);
}

TEST(VirtualControllerFaults, ResetStartsTheCountsOver) {
    ControllerDriver driver({{Kind::WrongHandshake, 1}, {Kind::ShortTransfer, 0}});
    for (int round = 0; round < 2; ++round) {
        EXPECT_NE(driver.handshake(), kHandshakeReply);
        driver.startReading();
        EXPECT_EQ(driver.readNext().size(), 2U);
        driver.controller.reset();
    }
}

void expectRefused(const std::string& text, const std::string& shown, const std::string& reason) {
    const auto fault = parseFault(text);
    EXPECT_EQ(fault ? "none" : fault.error(), "'" + shown + "' is no fault: " + reason);
}

const std::string kKinds = "it must be handshake:N, silent:N, short:N, nibble:N, write:N, unplug:N "
                           "or stall:N";
const std::string kCount = "a number from 0 to 4294967295 must follow 'stall:'";

TEST(Fault, EveryKindIsReadByItsName) {
    for (const auto& [text, fault] : {std::pair{"handshake:3", Fault{Kind::WrongHandshake, 3}},
                                      {"silent:0", {Kind::NoAnswer, 0}},
                                      {"short:7", {Kind::ShortTransfer, 7}},
                                      {"nibble:1011", {Kind::WrongNibble, 1011}},
                                      {"write:12", {Kind::FailedWrite, 12}},
                                      {"unplug:500", {Kind::Unplug, 500}},
                                      {"stall:4294967295", {Kind::Stall, 4294967295U}}})
        EXPECT_EQ(parseFault(text), fault) << text;
}

TEST(Fault, UnknownKindIsRefusedWithTheKindsThatAre) {
    for (const std::string text : {"melt:3", "", ":3", "Stall:3", " stall:3"})
        expectRefused(text, text, kKinds);
    expectRefused("ss\x05.\nr", "ss\uFFFD.\uFFFDr", kKinds);
}

TEST(Fault, CountThatIsNoWholeNumberInRangeIsRefused) {
    for (const std::string text :
         {"stall", "stall:", "stall:-1", "stall:+1", "stall: 1", "stall:1 ", "stall:1x",
          "stall:0x1", "stall:4294967296", "stall:1:2"})
        expectRefused(text, text, kCount);
    expectRefused("stall:\x1B[31m", "stall:\uFFFD[31m", kCount);
}

// The same in each scene but for its number: pad 3 sends the note 40 + number, key 1 the note 60,
// knob 1 the controller 20 from 0 to 127, slider 2 the controller 30 from 10 down to 6.
BankImage playedBank() {
    BankImage bank{};
    for (std::size_t number = 1; number <= 4; ++number) {
        const auto scene = blankScene();
        CommonValue& common = *scene->commonValue();
        common.setPadVelocityCurve(1);
        common.setKeyVelocityCurve(1);
        const auto& controls = scene->buttonValueArray();
        ButtonValue& pad = *controls[14];
        pad.setAssignType(2);
        pad.setCCOrNoteNumber(static_cast<std::int32_t>(40 + number));
        pad.setMIDIChannel(9);
        controls[20]->setAssignType(2);
        controls[20]->setCCOrNoteNumber(60);
        ButtonValue& knob = *controls[4];
        knob.setEnable(1);
        knob.setCCOrNoteNumber(20);
        knob.setUpperOrRightValue(127);
        ButtonValue& slider = *controls[9];
        slider.setEnable(1);
        slider.setCCOrNoteNumber(30);
        slider.setLowerOrLeftValue(10);
        slider.setUpperOrRightValue(6);
        std::ranges::copy(encodeScene(*scene),
                          bank.begin() + static_cast<std::ptrdiff_t>((number - 1) * 253));
    }
    return bank;
}

class PlayingTest : public ::testing::Test {
protected:
    static Lines shown(const Playing::Messages& messages) {
        Lines lines;
        for (const MidiMessage& each : messages)
            lines.push_back(
                fmt::format("{:02x} {:02x} {:02x}", each.status, each.first, each.second));
        return lines;
    }
    Lines take(const std::string& line) {
        const auto order = parsePlayOrder(line);
        EXPECT_TRUE(order && *order) << line;
        return shown(playing.take(order.value().value(), bank, now));
    }
    Lines after(int time) {
        now += milliseconds(time);
        return shown(playing.advance(bank, now));
    }

    const BankImage bank = playedBank();
    PlayingTime now{};
    Playing playing;
};

TEST_F(PlayingTest, EachOrderIsPlayedByTheSceneInUse) {
    EXPECT_EQ(take("press pad3 100"), Lines{"99 29 64"});
    EXPECT_EQ(take("release pad3"), Lines{"89 29 00"});
    EXPECT_EQ(take("scene 2"), Lines{});
    EXPECT_EQ(take(" press  pad3 1 "), Lines{"99 2a 01"});
    EXPECT_EQ(take("scene 4"), Lines{});
    EXPECT_EQ(take("release pad3"), Lines{"89 2a 00"}) << "ends what sounds";
    EXPECT_EQ(take("press key1 127"), Lines{"90 3c 7f"});
    EXPECT_EQ(take("turn knob1 64"), Lines{"b0 14 40"});
    EXPECT_EQ(take("turn slider2 127"), Lines{"b0 1e 06"});
    EXPECT_EQ(take("press pad1 100"), Lines{}) << "is off";
}

TEST_F(PlayingTest, SlidePassesEachPositionOnceInItsTime) {
    EXPECT_EQ(take("slide knob1 3 0 300ms"), Lines{});
    EXPECT_EQ(playing.next(), now);
    EXPECT_EQ(after(0), Lines{"b0 14 03"});
    EXPECT_EQ(playing.next(), now + milliseconds(100));
    EXPECT_EQ(after(99), Lines{});
    EXPECT_EQ(after(101), (Lines{"b0 14 02", "b0 14 01"}));
    EXPECT_EQ(after(1000), Lines{"b0 14 00"});
    EXPECT_EQ(playing.next(), std::nullopt);
    EXPECT_EQ(after(1000), Lines{});
}

TEST_F(PlayingTest, SlideSendsAValueOnce) {
    take("slide slider2 0 127 500ms");
    EXPECT_EQ(after(500), (Lines{"b0 1e 0a", "b0 1e 09", "b0 1e 08", "b0 1e 07", "b0 1e 06"}));
}

TEST_F(PlayingTest, SlidesRunBesideEachOtherButOneAControl) {
    take("slide knob1 0 1 10ms");
    take("slide slider2 0 0 0ms");
    EXPECT_EQ(after(0), (Lines{"b0 14 00", "b0 1e 0a"}));
    EXPECT_EQ(take("turn knob1 9"), Lines{"b0 14 09"});
    EXPECT_EQ(after(100), Lines{}) << "the turn has ended the slide";
}

TEST_F(PlayingTest, ReleasingEndsWhatHasBegun) {
    take("press pad3 100");
    take("scene 2");
    take("press key1 90");
    take("slide knob1 0 127 10ms");
    EXPECT_EQ(shown(playing.releaseAll()), (Lines{"89 29 00", "80 3c 00"}));
    EXPECT_EQ(shown(playing.releaseAll()), Lines{});
    EXPECT_EQ(after(100), Lines{});
    EXPECT_EQ(take("press pad3 1"), Lines{"99 2a 01"}) << "the scene stays";
}

TEST_F(PlayingTest, ResetIsTheFirstSceneWithNothingHeld) {
    take("scene 2");
    take("press pad3 100");
    take("slide knob1 0 127 10ms");
    playing.reset();
    EXPECT_EQ(after(100), Lines{});
    EXPECT_EQ(take("release pad3"), Lines{});
    EXPECT_EQ(take("press pad3 100"), Lines{"99 29 64"});
}

TEST(PacketOfAMessage, BeginsWithItsCodeIndexNumber) {
    EXPECT_EQ(packetOf({0x99, 38, 100}), (Packet{0x09, 0x99, 38, 100}));
    EXPECT_EQ(packetOf({0x89, 38, 0}), (Packet{0x08, 0x89, 38, 0}));
    EXPECT_EQ(packetOf({0xB0, 74, 93}), (Packet{0x0B, 0xB0, 74, 93}));
}

TEST(PlayOrders, AreReadWhole) {
    EXPECT_EQ(parsePlayOrder("slide slider2 5 120 500ms").value().value(),
              (PlayOrder{PlayOrder::Kind::Slide, 10, 5, 120, milliseconds(500)}));
    EXPECT_EQ(parsePlayOrder("press key25 127").value().value(),
              (PlayOrder{.kind = PlayOrder::Kind::Press, .number = 45, .value = 127}));
    for (const char* line : {"", "faults", "pressed pad3 100", "Press pad3 100"})
        EXPECT_FALSE(parsePlayOrder(line)) << line;
}

TEST(PlayOrders, WhatIsWrongIsToldInOneSentence) {
    struct Row {
        const char* verb;
        std::vector<const char*> rests;
        const char* usage;
    };
    const std::vector<Row> rows{
        {"scene",
         {"", " 0", " 5", " two", " 1 2"},
         "scene and a number from 1 to 4, as in scene 2"},
        {"press",
         {"", " pad3", " pad3 0", " pad3 128", " pad0 1", " pad9 1", " knob1 1", " pad03x 1",
          " pad 3 1", " pad3 1 2", " group1 1", " pad3 -1"},
         "press, a pad or key and a velocity from 1 to 127, as in press pad3 100"},
        {"release", {"", " pad3 1", " slider1"}, "release and a pad or key, as in release pad3"},
        {"turn",
         {"", " pad3 1", " knob1 128", " knob5 1"},
         "turn, a knob or slider and a place from 0 to 127, as in turn knob1 64"},
        {"slide",
         {"", " slider2 0 127", " slider2 0 127 500", " slider2 0 127 ms",
          " slider2 0 127 600001ms", " slider2 0 128 1ms", " slider2 0 127 -1ms",
          " slider2 0 127 1ms 2"},
         "slide, a knob or slider, two places from 0 to 127 and a time of at most 600000ms, as in "
         "slide slider2 0 127 500ms"},
    };
    for (const Row& row : rows)
        for (const std::string rest : row.rests) {
            const auto order = parsePlayOrder(row.verb + rest);
            ASSERT_TRUE(order && !*order) << row.verb << rest;
            EXPECT_EQ(order->error(),
                      fmt::format("'{}{}' is no order: it must be {}", row.verb, rest, row.usage));
        }
}

} // namespace
} // namespace scenewright::testing
