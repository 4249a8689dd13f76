#include "virtual/VirtualController.h"

#include <gtest/gtest.h>

#include <utility>

namespace scenewright::testing {
namespace {

std::string errorOf(std::string_view text) {
    const auto fault = parseFault(text);
    return fault ? "none" : fault.error();
}

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
    for (const auto& [text, shown] : {std::pair{"melt:3", "melt:3"},
                                      {"", ""},
                                      {":3", ":3"},
                                      {"Stall:3", "Stall:3"},
                                      {" stall:3", " stall:3"},
                                      {"ss\x05.\nr", "ss\uFFFD.\uFFFDr"}})
        EXPECT_EQ(errorOf(text),
                  "'" + std::string(shown) +
                      "' is no fault: it must be handshake:N, silent:N, short:N, nibble:N, "
                      "write:N, unplug:N or stall:N");
}

TEST(Fault, CountThatIsNoWholeNumberInRangeIsRefused) {
    for (const auto& [text, shown] : {std::pair{"stall", "stall"},
                                      {"stall:", "stall:"},
                                      {"stall:-1", "stall:-1"},
                                      {"stall:+1", "stall:+1"},
                                      {"stall: 1", "stall: 1"},
                                      {"stall:1 ", "stall:1 "},
                                      {"stall:1x", "stall:1x"},
                                      {"stall:0x1", "stall:0x1"},
                                      {"stall:4294967296", "stall:4294967296"},
                                      {"stall:1:2", "stall:1:2"},
                                      {"stall:\x1B[31m", "stall:\uFFFD[31m"}})
        EXPECT_EQ(errorOf(text), "'" + std::string(shown) +
                                     "' is no fault: a number from 0 to 4294967295 must follow "
                                     "'stall:'");
}

} // namespace
} // namespace scenewright::testing
