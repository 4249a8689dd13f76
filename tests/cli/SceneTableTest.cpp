#include "cli/Reports.h"
#include "protocol/SceneImage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <vector>

namespace scenewright {

namespace {

Titles titles(std::vector<std::string> list) {
    return std::make_shared<const std::vector<std::string>>(std::move(list));
}

// A scene whose every byte is its offset modulo 4, named LIVE.
std::shared_ptr<SceneValue> sceneOfOffsets() {
    SceneImage image{};
    for (std::size_t offset = 0; offset < image.size(); ++offset)
        image[offset] = static_cast<std::uint8_t>(offset % 4);
    std::ranges::fill_n(image.begin(), 12, std::uint8_t{0});
    std::ranges::copy(std::string("LIVE"), image.begin());
    return parseScenes(image).front();
}

std::string linesFrom(const std::string& text, const std::string& start, int count) {
    std::istringstream lines(text.substr(text.find("\n" + start) + 1));
    std::string part;
    for (std::string line; count > 0 && std::getline(lines, line); --count)
        part += line + "\n";
    return part;
}

} // namespace

TEST(SceneTable, StartsWithTheNumberAndTheNameWithoutItsFill) {
    EXPECT_TRUE(sceneTable(PopUpValue(), *sceneOfOffsets(), 2).starts_with("Scene 2: LIVE\n\n"));
}

TEST(SceneTable, ValuesStandUnderTheirTitlesInColumnsAsWideAsNeeded) {
    PopUpValue lists;
    lists.setKnob_Enable_Array(titles({"Off", "On"}));
    lists.setKnob_CCNumber_Array(titles({"0", "1", "2", "one hundred"}));
    // Offsets 149..152 Enable, 153..156 number, 157..160 right, 161..164 left value.
    EXPECT_EQ(linesFrom(sceneTable(lists, *sceneOfOffsets(), 1), "Knob", 6),
              "Knob  Enabled  CC number    Right  Left\n"
              "                            value  value\n"
              "1     On       1            (1)    (1)\n"
              "2     (2)      2            (2)    (2)\n"
              "3     (3)      one hundred  (3)    (3)\n"
              "4     Off      0            (0)    (0)\n");
}

TEST(SceneTable, WideCharactersOfATitleCountOnce) {
    PopUpValue lists;
    lists.setGroup_MIDIChannel_Array(titles({"é♯", "b", "c", "d"}));
    const std::string table = linesFrom(sceneTable(lists, *sceneOfOffsets(), 1), "Group", 6);
    EXPECT_NE(table.find("4      é♯\n"), std::string::npos) << table;
}

TEST(SceneTable, EveryControlHasItsLine) {
    const std::string text = sceneTable(PopUpValue(), *sceneOfOffsets(), 1);
    EXPECT_EQ(std::ranges::count(linesFrom(text, "Key  ", 28), '\n'), 28);
    EXPECT_NE(text.find("\n25   "), std::string::npos);
}

} // namespace scenewright
