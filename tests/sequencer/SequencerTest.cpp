#include "sequencer/Sequencer.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace scenewright {
namespace {

// No machine that builds has one; the guest of tests/system does.
TEST(OpenSequencer, WithoutOneThereIsASentence) {
    if (std::filesystem::exists("/dev/snd/seq"))
        GTEST_SKIP() << "this machine has a sequencer";
    const auto opened = openSequencer("test");
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error(), "there is no sequencer of ALSA's on this system (/dev/snd/seq); as "
                              "root, modprobe snd-seq loads it");
}

} // namespace
} // namespace scenewright
