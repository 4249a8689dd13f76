#include "bank/BankFile.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace scenewright {

using testing::TempFolder;

TEST(BankFile, EverySizeButABanksIsRefused) {
    const TempFolder folder;
    for (std::size_t size = 0; size <= 1100; size += size == 1011 || size == 1012 ? 1 : 11) {
        testing::writeBytes(folder.file("bank"), std::vector<std::uint8_t>(size, 0x41));
        const BankFile bank = readBank(folder.file("bank"));
        EXPECT_EQ(bank.trouble.has_value(), size != 1012) << size;
        EXPECT_EQ(bank.scenes.size(), size == 1012 ? 4U : 0U) << size;
    }
}

TEST(BankFile, TroubleNamesTheFileAndItsSize) {
    const TempFolder folder;
    testing::writeBytes(folder.file("bank"), std::vector<std::uint8_t>(253, 0));
    EXPECT_EQ(readBank(folder.file("bank")).trouble,
              folder.file("bank") + ": not a bank: it holds 253 bytes, and a bank holds 1012");
}

TEST(BankFile, WrittenBankIsTheImageOfTheFirstFourScenes) {
    const TempFolder folder;
    SceneList scenes = parseScenes(BankImage{});
    scenes.at(2)->commonValue()->setSceneName("LIVE");
    scenes.push_back(scenes.front());
    ASSERT_EQ(writeBank(folder.file("bank"), scenes), std::nullopt);
    const auto bytes = testing::readBytes(folder.file("bank"));
    ASSERT_EQ(bytes.size(), 1012U);
    EXPECT_EQ(std::string(bytes.begin() + 506, bytes.begin() + 511), std::string("LIVE\0", 5));
}

TEST(BankFile, ShorterListOfScenesIsACallersFault) {
    EXPECT_THROW(static_cast<void>(encodeBank({})), std::out_of_range);
}

} // namespace scenewright
