#include "sequencer/Sequencer.h"

#include "sequencer/SoundCards.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

namespace scenewright {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

// Cards as sysfs shows them: a link to the interface, whose device has the numbers.
class SoundCards : public ::testing::Test {
protected:
    void SetUp() override { fs::create_directories(sound); }
    void plug(const std::string& card, const std::string& device, const std::string& bus,
              const std::string& address) const {
        const fs::path place = fs::path(folder.file("devices")) / device;
        fs::create_directories(place / "interface");
        std::ofstream(place / "busnum") << bus << "\n";
        std::ofstream(place / "devnum") << address << "\n";
        fs::create_directories(sound / card);
        fs::create_symlink(place / "interface", sound / card / "device");
    }

    const TempFolder folder;
    const fs::path sound = folder.file("sound");
};

TEST_F(SoundCards, CardIsFoundByBusAndAddress) {
    fs::create_directories(sound / "card0"); // of no USB device
    plug("card2", "1-1", "1", "4");
    plug("card11", "2-1", "2", "4");
    fs::create_directories(sound / "controlC2");
    plug("cardx", "3-1", "3", "4");
    EXPECT_EQ(soundCardOf(1, 4, sound), 2);
    EXPECT_EQ(soundCardOf(2, 4, sound), 11);
    EXPECT_EQ(soundCardOf(1, 5, sound), std::nullopt);
    EXPECT_EQ(soundCardOf(3, 4, sound), std::nullopt);
    EXPECT_EQ(soundCardOf(1, 4, sound / "none"), std::nullopt);
}

// No machine that builds has one; the guest of tests/system does.
TEST(OpenSequencer, WithoutOneThereIsASentence) {
    if (fs::exists("/dev/snd/seq"))
        GTEST_SKIP() << "this machine has a sequencer";
    const auto opened = openSequencer("test");
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error(), "there is no sequencer of ALSA's on this system (/dev/snd/seq); as "
                              "root, modprobe snd-seq loads it");
}

} // namespace
} // namespace scenewright
