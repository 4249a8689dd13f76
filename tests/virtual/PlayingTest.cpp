#include "virtual/VirtualController.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace scenewright {
namespace {

using std::chrono::milliseconds;
using Kind = PlayOrder::Kind;
using Lines = std::vector<std::string>;

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
              (PlayOrder{Kind::Slide, 10, 5, 120, milliseconds(500)}));
    EXPECT_EQ(parsePlayOrder("press key25 127").value().value(),
              (PlayOrder{.kind = Kind::Press, .number = 45, .value = 127}));
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
} // namespace scenewright
