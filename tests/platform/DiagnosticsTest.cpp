#include "platform/Diagnostics.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

namespace scenewright {
namespace {

class DiagnosticsTest : public ::testing::Test {
protected:
    void TearDown() override {
        Diagnostics::setConsole({});
        Diagnostics::setLog({});
    }

    [[nodiscard]] Diagnostics::Sink collect() {
        return [this](std::string_view text) { pieces_.emplace_back(text); };
    }

    std::vector<std::string> pieces_;
};

using Pieces = std::vector<std::string>;

TEST_F(DiagnosticsTest, BothStreamsAreOffAtFirst) {
    EXPECT_FALSE(Diagnostics::consoleIsOn());
    EXPECT_FALSE(Diagnostics::logIsOn());
    Diagnostics::console("%d", 1);
    Diagnostics::log("%d", 1);
}

TEST_F(DiagnosticsTest, ConsoleTextComesAsItIsFormatted) {
    Diagnostics::setConsole(collect());
    Diagnostics::console("Unable to open interface (%08x)\n", 0xe00002c5U);
    Diagnostics::console("%s", "a piece");
    EXPECT_EQ(pieces_, (Pieces{"Unable to open interface (e00002c5)\n", "a piece"}));
}

TEST_F(DiagnosticsTest, LogAndConsoleAreApart) {
    Diagnostics::setLog(collect());
    Diagnostics::console("console\n");
    Diagnostics::log("line %d of %s", 7, std::string("log"));
    EXPECT_EQ(pieces_, Pieces{"line 7 of log"});
}

TEST_F(DiagnosticsTest, AnEmptySinkTurnsTheStreamOff) {
    Diagnostics::setLog(collect());
    EXPECT_TRUE(Diagnostics::logIsOn());
    Diagnostics::setLog({});
    EXPECT_FALSE(Diagnostics::logIsOn());
    Diagnostics::log("unheard");
    EXPECT_TRUE(pieces_.empty());
}

TEST_F(DiagnosticsTest, AStreamThatIsOffDoesNotFormat) {
    // Formatting this would throw: the format asks for an argument that is not there.
    EXPECT_NO_THROW(Diagnostics::log("%d"));
    EXPECT_NO_THROW(Diagnostics::console("%d"));
    Diagnostics::setLog(collect());
    EXPECT_ANY_THROW(Diagnostics::log("%d"));
}

TEST_F(DiagnosticsTest, ASinkIsCalledByOneThreadAtATime) {
    int inside = 0;
    int most = 0;
    int calls = 0;
    Diagnostics::setLog([&](std::string_view) {
        most = std::max(most, ++inside);
        ++calls;
        std::this_thread::yield();
        --inside;
    });
    const auto write = [] {
        for (int i = 0; i < 500; ++i)
            Diagnostics::log("line %d", i);
    };
    std::thread first(write);
    std::thread second(write);
    first.join();
    second.join();
    EXPECT_EQ(calls, 1000);
    EXPECT_EQ(most, 1);
}

TEST(HexDump, TwoLowerCaseDigitsAndABlankEachByte) {
    EXPECT_EQ(hexDump(std::array<std::uint8_t, 4>{0x09, 0x90, 0xab, 0x0f}), "09 90 ab 0f ");
}

TEST(HexDump, NoBytesGiveNoText) {
    EXPECT_EQ(hexDump({}), "");
}

} // namespace
} // namespace scenewright
