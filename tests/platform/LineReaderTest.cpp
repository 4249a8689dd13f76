#include "platform/LineReader.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <unistd.h>
#include <vector>

namespace scenewright {
namespace {

using Lines = std::vector<std::string>;

class LineReaderTest : public ::testing::Test {
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

    // One read: each line, or what is wrong with it.
    static Lines take(LineReader& reader) {
        Lines lines;
        for (const auto& line : reader.take())
            lines.push_back(line ? *line : "error: " + line.error());
        return lines;
    }

private:
    std::array<int, 2> ends_{-1, -1};
};

TEST_F(LineReaderTest, LineIsGivenOnceItsEndHasCome) {
    LineReader reader(reading());
    write("unplug\nfau");
    EXPECT_EQ(take(reader), (Lines{"unplug"}));
    write("lts\nplug\n");
    EXPECT_EQ(take(reader), (Lines{"faults", "plug"}));
}

TEST_F(LineReaderTest, EndOfTheInputEndsItsLastLine) {
    LineReader reader(reading());
    EXPECT_EQ(reader.descriptor(), reading());
    write("unplug\nplug");
    EXPECT_EQ(take(reader), (Lines{"unplug"}));
    endWriting();
    EXPECT_EQ(take(reader), (Lines{"plug"}));
    EXPECT_EQ(reader.descriptor(), -1);
}

TEST_F(LineReaderTest, EndOfTheInputAfterALineIsNoLine) {
    LineReader reader(reading());
    write("unplug\n");
    EXPECT_EQ(take(reader), (Lines{"unplug"}));
    endWriting();
    EXPECT_EQ(take(reader), Lines{});
    EXPECT_EQ(reader.descriptor(), -1);
}

// The words before the 4096th byte would be a line, and so would those behind it.
TEST_F(LineReaderTest, LineThatIsTooLongIsRefusedAsAWhole) {
    LineReader reader(reading());
    write("unplug");
    EXPECT_EQ(take(reader), Lines{});
    for (int piece = 0; piece < 20; ++piece) {
        write(std::string(1000, ' '));
        EXPECT_EQ(take(reader), Lines{});
    }
    write("\nplug\n");
    EXPECT_EQ(take(reader), (Lines{"error: a line of more than 4096 bytes is no order", "plug"}));
}

TEST_F(LineReaderTest, LongestLineIsTaken) {
    LineReader reader(reading());
    write("plug" + std::string(4092, ' '));
    EXPECT_EQ(take(reader), Lines{});
    write("\n");
    EXPECT_EQ(take(reader), (Lines{"plug" + std::string(4092, ' ')}));
}

} // namespace
} // namespace scenewright
