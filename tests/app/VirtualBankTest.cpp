#include "app/VirtualBank.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "platform/Resources.h"
#include "protocol/SceneAction.h"
#include "protocol/Transactions.h"
#include "tests/support/TempFolder.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <chrono>
namespace scenewright::testing {

namespace {

class VirtualBankTest : public ::testing::Test {
protected:
    ~VirtualBankTest() override {
        Transport::instance().use(nullptr, [](std::chrono::nanoseconds) {});
    }

    VirtualBank opened(const std::string& path) {
        auto bank = openVirtualBank(path, true);
        EXPECT_TRUE(bank) << bank.error();
        return std::move(bank).value();
    }
    std::string errorOf(const std::string& path) {
        const auto bank = openVirtualBank(path, true);
        return bank ? "none" : bank.error();
    }
    // The store's scenes, with this red for the first pad, through the controller to the file.
    void send(const std::string& path, std::int32_t red) {
        VirtualBank bank = opened(path);
        Transport::instance().use(makeVirtualHost(std::make_shared<VirtualController>(bank.image),
                                                  std::move(bank.keeper)),
                                  [](std::chrono::nanoseconds) {});
        WindowAction::scenes()[0]->buttonValueArray()[12]->setCR(red);
        WindowAction::sendSceneData();
        SendJob::waitForEnd();
        SendJob::join();
    }
    static std::int32_t redOf(const std::string& path) {
        return readBank(path).value().scenes.at(0)->buttonValueArray()[12]->CR();
    }

    TempFolder folder_;
};

TEST_F(VirtualBankTest, WithoutAFileItHoldsTheDefaultScenesAndKeepsNothing) {
    const VirtualBank bank = opened("");
    EXPECT_EQ(bank.image, encodeBank(WindowAction::scenes()));
    EXPECT_TRUE(folder_.names().empty());
}

TEST_F(VirtualBankTest, AnImageIsTakenByteForByte) {
    std::vector<std::uint8_t> bytes(kBankSize, 0x11);
    bytes[400] = 0xC8; // no value of a setting, but what a controller might hold
    writeBytes(folder_.file("held"), bytes);
    const VirtualBank bank = opened(folder_.file("held"));
    EXPECT_TRUE(std::ranges::equal(bank.image, bytes));
}

TEST_F(VirtualBankTest, AJsonBankIsTakenAndStaysOne) {
    send(folder_.file("new.json"), 11); // there was none: its name asks for the form
    EXPECT_EQ(readBank(folder_.file("new.json")).value().form, BankFormat::Json);
    EXPECT_EQ(redOf(folder_.file("new.json")), 11);
    std::filesystem::rename(folder_.file("new.json"), folder_.file("held.bank"));
    const BankFile kept = readBank(folder_.file("held.bank")).value();
    EXPECT_EQ(opened(folder_.file("held.bank")).image, encodeBank(kept.scenes));
    send(folder_.file("held.bank"), 12); // content decides, not the name
    EXPECT_EQ(readBank(folder_.file("held.bank")).value().form, BankFormat::Json);
    EXPECT_EQ(redOf(folder_.file("held.bank")), 12);
}

TEST_F(VirtualBankTest, AnImageStaysOne) {
    send(folder_.file("held"), 13);
    EXPECT_EQ(readBytes(folder_.file("held")).size(), kBankSize);
    EXPECT_EQ(redOf(folder_.file("held")), 13);
}

// A folder whose lists come before the shipped ones, and are none.
class VirtualBankListsTest : public VirtualBankTest {
protected:
    VirtualBankListsTest() {
        for (const char* name : {"default", "basic"})
            writeBytes(lists_.file(std::string(name) + ".plist"), std::vector<std::uint8_t>{'x'});
        Resources::setFolder(lists_.path());
    }
    ~VirtualBankListsTest() override { Resources::setFolder({}); }
    std::string listError(const std::string& name) const {
        return "Cannot read " + lists_.file(name) + ": it is not a property list";
    }

    TempFolder lists_;
};

TEST_F(VirtualBankListsTest, ANewMemoryWithoutTheDefaultListIsRefusedWhereListsAreNeeded) {
    EXPECT_EQ(errorOf(folder_.file("new.bank")), listError("default.plist"));
    EXPECT_EQ(errorOf(""), listError("default.plist"));
    const auto zeros = openVirtualBank("", false);
    ASSERT_TRUE(zeros) << zeros.error();
    EXPECT_EQ(zeros->image[20], 0);
}

TEST_F(VirtualBankListsTest, AJsonMemoryWithoutTitlesIsRefusedWhereListsAreNeeded) {
    Resources::setFolder({});
    send(folder_.file("held.json"), 14);
    Resources::setFolder(lists_.path());
    EXPECT_EQ(errorOf(folder_.file("held.json")), listError("basic.plist"));
    EXPECT_TRUE(openVirtualBank(folder_.file("held.json"), false));
}

TEST_F(VirtualBankListsTest, AnImageIsTakenWithoutLists) {
    writeBytes(folder_.file("held"), std::vector<std::uint8_t>(kBankSize, 0x11));
    EXPECT_TRUE(openVirtualBank(folder_.file("held"), true));
}

TEST_F(VirtualBankTest, WhatIsNoBankIsRefusedWithTheReason) {
    writeBytes(folder_.file("short"), std::vector<std::uint8_t>(5));
    EXPECT_EQ(errorOf(folder_.file("short")),
              folder_.file("short") + ": not a bank for the virtual controller: it holds 5 bytes, "
                                      "and a bank holds 1012 or is JSON");
    writeBytes(folder_.file("cut"), std::vector<std::uint8_t>{'{'});
    EXPECT_EQ(errorOf(folder_.file("cut")),
              folder_.file("cut") + ": its JSON text ends too soon, in line 1");
    EXPECT_EQ(errorOf(folder_.path()),
              "Cannot write " + folder_.path().string() + ": it is a folder.");
    EXPECT_EQ(folder_.names(), (std::vector<std::string>{"cut", "short"}));
}

} // namespace

} // namespace scenewright::testing
