#include "virtual/VirtualController.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace scenewright::testing {
namespace {

std::string errorOf(std::string_view text) {
    const auto fault = parseFault(text);
    return fault ? "none" : fault.error();
}

std::string refusal(const std::string& shown, const std::string& reason) {
    return "'" + shown + "' is no fault: " + reason;
}

const std::string kKinds = "it must be handshake:N, silent:N, short:N, nibble:N, write:N, unplug:N "
                           "or stall:N";
const std::string kCount = "a number from 0 to 4294967295 must follow 'stall:'";

TEST(Fault, EveryKindIsReadByItsName) {
    using Kind = Fault::Kind;
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
        EXPECT_EQ(errorOf(text), refusal(text, kKinds));
    EXPECT_EQ(errorOf("ss\x05.\nr"), refusal("ss\uFFFD.\uFFFDr", kKinds));
}

TEST(Fault, CountThatIsNoWholeNumberInRangeIsRefused) {
    for (const std::string text :
         {"stall", "stall:", "stall:-1", "stall:+1", "stall: 1", "stall:1 ", "stall:1x",
          "stall:0x1", "stall:4294967296", "stall:1:2"})
        EXPECT_EQ(errorOf(text), refusal(text, kCount));
    EXPECT_EQ(errorOf("stall:\x1B[31m"), refusal("stall:\uFFFD[31m", kCount));
}

} // namespace
} // namespace scenewright::testing
