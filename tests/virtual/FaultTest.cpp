#include "virtual/VirtualController.h"

#include <gtest/gtest.h>

namespace scenewright::testing {
namespace {

std::optional<Fault> parse(std::string_view text) {
    std::string trouble;
    auto fault = parseFault(text, trouble);
    EXPECT_EQ(fault.has_value(), trouble.empty()) << text;
    return fault;
}

std::string troubleOf(std::string_view text) {
    std::string trouble;
    EXPECT_FALSE(parseFault(text, trouble).has_value()) << text;
    return trouble;
}

TEST(Fault, EveryKindIsReadByItsName) {
    using Kind = Fault::Kind;
    EXPECT_EQ(parse("handshake:3"), (Fault{Kind::WrongHandshake, 3}));
    EXPECT_EQ(parse("silent:0"), (Fault{Kind::NoAnswer, 0}));
    EXPECT_EQ(parse("short:7"), (Fault{Kind::ShortTransfer, 7}));
    EXPECT_EQ(parse("nibble:1011"), (Fault{Kind::WrongNibble, 1011}));
    EXPECT_EQ(parse("write:12"), (Fault{Kind::FailedWrite, 12}));
    EXPECT_EQ(parse("unplug:500"), (Fault{Kind::Unplug, 500}));
    EXPECT_EQ(parse("stall:4294967295"), (Fault{Kind::Stall, 4294967295U}));
}

TEST(Fault, ControlCharactersAreNotRepeatedInTheSentence) {
    EXPECT_EQ(troubleOf("ss\x05.\nr"), "'ss\uFFFD.\uFFFDr' is no fault: it must be handshake:N, "
                                       "silent:N, short:N, nibble:N, write:N, unplug:N or stall:N");
    EXPECT_EQ(troubleOf("stall:\x1B[31m"), "'stall:\uFFFD[31m' is no fault: a number from 0 to "
                                           "4294967295 must follow 'stall:'");
}

TEST(Fault, UnknownKindIsRefusedWithTheKindsThatAre) {
    const std::string sentence = " is no fault: it must be handshake:N, silent:N, short:N, "
                                 "nibble:N, write:N, unplug:N or stall:N";
    EXPECT_EQ(troubleOf("melt:3"), "'melt:3'" + sentence);
    EXPECT_EQ(troubleOf(""), "''" + sentence);
    EXPECT_EQ(troubleOf(":3"), "':3'" + sentence);
    EXPECT_EQ(troubleOf("Stall:3"), "'Stall:3'" + sentence);
    EXPECT_EQ(troubleOf(" stall:3"), "' stall:3'" + sentence);
}

TEST(Fault, CountThatIsNoWholeNumberInRangeIsRefused) {
    for (const char* text : {"stall", "stall:", "stall:-1", "stall:+1", "stall: 1", "stall:1 ",
                             "stall:1x", "stall:0x1", "stall:4294967296", "stall:1:2"})
        EXPECT_EQ(troubleOf(text), "'" + std::string(text) +
                                       "' is no fault: a number from 0 to 4294967295 must follow "
                                       "'stall:'");
}

} // namespace
} // namespace scenewright::testing
