#include "tests/resources/ResourceFile.h"

namespace scenewright {
namespace {

TEST(ProjectList, HoldsTheOneKeyboard) {
    const PropertyValue root = resource("project");
    ASSERT_TRUE(root.isArray());
    ASSERT_EQ(root.elements().size(), 1U);
    const PropertyValue& keyboard = root.elements()[0];
    EXPECT_EQ(keysOf(keyboard), (std::vector<std::string>{"PID", "VID"}));
    EXPECT_EQ(keyboard["VID"].integer(), 0x1209);
    EXPECT_EQ(keyboard["PID"].integer(), 0x0001);
}

} // namespace
} // namespace scenewright
