#include "virtual/usbip/Orders.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <unistd.h>

namespace scenewright::usbip {
namespace {

using Kind = Order::Kind;
using Lines = std::vector<std::string>;

std::string troubleOf(std::string_view line) {
    std::string trouble;
    EXPECT_EQ(parseOrder(line, trouble), std::nullopt) << line;
    return trouble;
}

std::optional<Order> orderOf(std::string_view line) {
    std::string trouble;
    auto order = parseOrder(line, trouble);
    EXPECT_EQ(trouble, "") << line;
    return order;
}

TEST(Orders, FaultsAreNamedAsInTheCommandLine) {
    EXPECT_EQ(orderOf("faults stall:9 handshake:3"),
              (Order{Kind::Faults, {{Fault::Kind::Stall, 9}, {Fault::Kind::WrongHandshake, 3}}}));
    EXPECT_EQ(orderOf("faults"), (Order{Kind::Faults, {}}));
}

TEST(Orders, PlugAndUnplugAreWordsOfTheirOwn) {
    EXPECT_EQ(orderOf("unplug"), (Order{Kind::Unplug, {}}));
    EXPECT_EQ(orderOf("  plug "), (Order{Kind::Plug, {}}));
}

TEST(Orders, ControlCharactersAreNotRepeatedInTheSentence) {
    EXPECT_EQ(troubleOf("stop\x1B[31m"),
              "'stop\uFFFD[31m' is no order: those are faults, unplug and plug");
}

TEST(Orders, AnythingElseIsNoOrder) {
    EXPECT_EQ(troubleOf("unplug 3"), "'unplug 3' is no order: those are faults, unplug and plug");
    EXPECT_EQ(troubleOf(""), "'' is no order: those are faults, unplug and plug");
    EXPECT_EQ(troubleOf("Plug"), "'Plug' is no order: those are faults, unplug and plug");
    EXPECT_NE(troubleOf("faults stall:9 stall:x"), "");
}

class OrderLinesTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(::pipe(ends_.data()), 0); }
    void TearDown() override {
        ::close(ends_[0]);
        endWriting();
    }
    void write(const std::string& text) const {
        ASSERT_EQ(::write(ends_[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void endWriting() {
        if (ends_[1] >= 0)
            ::close(ends_[1]);
        ends_[1] = -1;
    }
    [[nodiscard]] int reading() const { return ends_[0]; }

private:
    std::array<int, 2> ends_{-1, -1};
};

TEST_F(OrderLinesTest, ALineIsGivenOnceItsEndHasCome) {
    OrderLines lines(reading());
    write("unplug\nfau");
    EXPECT_EQ(lines.take(), (Lines{"unplug"}));
    write("lts\n\nplug\n");
    EXPECT_EQ(lines.take(), (Lines{"faults", "", "plug"}));
}

TEST_F(OrderLinesTest, TheEndOfTheLinesLeavesNothingToWaitFor) {
    OrderLines lines(reading());
    EXPECT_EQ(lines.descriptor(), reading());
    write("plug");
    EXPECT_EQ(lines.take(), Lines{});
    endWriting();
    EXPECT_EQ(lines.take(), Lines{}) << "a line without an end is none";
    EXPECT_EQ(lines.descriptor(), -1);
}

TEST_F(OrderLinesTest, AnEndlessLineTakesNoMoreRoomThanALongOne) {
    OrderLines lines(reading());
    for (int piece = 0; piece < 20; ++piece) {
        write(std::string(1000, 'x'));
        EXPECT_EQ(lines.take(), Lines{});
    }
    write("\nplug\n");
    const Lines found = lines.take();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0], std::string(4096, 'x'));
    EXPECT_EQ(found[1], "plug");
}

} // namespace
} // namespace scenewright::usbip
