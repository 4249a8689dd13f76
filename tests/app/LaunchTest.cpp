#include "app/Launch.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "platform/Diagnostics.h"
#include "platform/Resources.h"
#include "platform/Text.h"
#include "protocol/Transactions.h"
#include "tests/support/TempFolder.h"
#include "usb/InterfaceAction.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace scenewright::testing {

namespace {

// A device list of the user's own.
class LaunchTest : public ::testing::Test {
protected:
    LaunchTest() {
        Resources::setFolder(folder_.path());
        Diagnostics::setConsole([](std::string_view) {});
        Diagnostics::setLog([](std::string_view) {});
    }
    ~LaunchTest() override {
        Transport::instance().use(nullptr);
        Diagnostics::setConsole({});
        Diagnostics::setLog({});
        Resources::setFolder({});
    }

    void list(const std::string& entries) const {
        std::ofstream(folder_.file("project.plist"))
            << "<plist version=\"1.0\"><array>" << entries << "</array></plist>";
    }
    static std::string entry(int vendor, int product) {
        return "<dict><key>VID</key><integer>" + std::to_string(vendor) +
               "</integer><key>PID</key><integer>" + std::to_string(product) + "</integer></dict>";
    }

    static Result<void> connectVirtual() {
        LaunchOptions options;
        options.isVirtual = true;
        return connectHost(options).map([](const auto&) {});
    }

    TempFolder folder_;
};

TEST_F(LaunchTest, VirtualControllerIsFoundWhateverKeyboardsAreListedIfThereAreAny) {
    const std::array lists{entry(4617, 1), entry(4617, 2), entry(65535, 40000) + entry(1, 2),
                           "<dict><key>VID</key><string>x</string></dict>" + entry(0, 65535),
                           std::string()};
    for (const std::string& entries : lists) {
        SCOPED_TRACE(entries);
        list(entries);
        ASSERT_TRUE(connectVirtual().has_value());
        EXPECT_EQ(static_cast<bool>(InterfaceAction::FindDevice()), !entries.empty());
    }
}

std::string shipped(const std::string& name) {
    std::ifstream file(*Resources::find(name, "plist"));
    return {std::istreambuf_iterator<char>(file), {}};
}

// A folder of resources that comes before the shipped ones.
class ListCheckTest : public ::testing::Test {
protected:
    void SetUp() override { Resources::setFolder(folder.path()); }
    void TearDown() override { Resources::setFolder({}); }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder.file(name + ".plist")) << text;
    }
    // The sentence, without the folder; empty when the list serves.
    std::string errorOf(const std::string& name) const {
        const auto checked = checkList(name);
        if (checked)
            return "";
        std::string text = checked.error();
        const std::string path = folder.path().string() + "/";
        if (text.starts_with(path))
            text.erase(0, path.size());
        return text;
    }

    testing::TempFolder folder;
};

TEST_F(ListCheckTest, TheShippedListsServe) {
    EXPECT_EQ(listErrors(), std::vector<std::string>{});
}

TEST_F(ListCheckTest, AListOfTheLanguageThatCannotBeReadIsTold) {
    write("basic", shipped("basic"));
    write("basic_de", "nothing of the kind");
    EXPECT_EQ(listErrors(), std::vector<std::string>{}) << "of another language";
    setTranslator([](SourceText text) {
        return text.written == std::string("basic") ? std::string("basic_de") : text.written;
    });
    const auto errors = listErrors();
    setTranslator(nullptr);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_NE(errors.front().find(folder.file("basic_de.plist")), std::string::npos);
}

TEST_F(ListCheckTest, AListThatCannotBeReadNamesItsFile) {
    for (const char* name : {"basic", "default", "project"}) {
        write(name, "nothing of the kind");
        EXPECT_NE(errorOf(name).find(folder.file(std::string(name) + ".plist") + ": "),
                  std::string::npos)
            << errorOf(name);
    }
    EXPECT_EQ(listErrors().size(), 3U);
}

TEST_F(ListCheckTest, WhatAListLacksIsNamed) {
    const std::string titles = shipped("basic");
    const std::string one = "<string>Pad 3</string>";
    ASSERT_NE(titles.find(one), std::string::npos);
    struct Row {
        const char* name;
        std::string text;
        const char* error;
    };
    for (const Row& row :
         {Row{"basic", std::string(titles).erase(titles.find(one), one.size()),
              "basic.plist: the list \"control\" holds 45 titles, and 46 are needed"},
          Row{"basic", std::regex_replace(titles, std::regex("button-assginType"), "other"),
              "basic.plist: the list \"button-assginType\" holds 0 titles, and 3 are needed"},
          Row{"default", "<plist version=\"1.0\"><dict/></plist>",
              "default.plist: the default scene holds 0 controls, and the keyboard has 45"},
          Row{"project",
              "<plist version=\"1.0\"><array><dict><key>VID</key><integer>1</integer>"
              "</dict></array></plist>",
              "project.plist: it lists no keyboard"}}) {
        write(row.name, row.text);
        EXPECT_EQ(errorOf(row.name), row.error);
    }
}

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

TEST_F(VirtualBankListsTest, AMemoryIsRefusedWhereItNeedsAListThatIsBad) {
    EXPECT_EQ(errorOf(folder_.file("new.bank")), listError("default.plist"));
    EXPECT_EQ(errorOf(""), listError("default.plist"));
    const auto zeros = openVirtualBank("", false);
    ASSERT_TRUE(zeros) << zeros.error();
    EXPECT_EQ(zeros->image[20], 0);
    Resources::setFolder({});
    send(folder_.file("held.json"), 14);
    Resources::setFolder(lists_.path());
    EXPECT_EQ(errorOf(folder_.file("held.json")), listError("basic.plist"));
    EXPECT_TRUE(openVirtualBank(folder_.file("held.json"), false));
    writeBytes(folder_.file("held"), std::vector<std::uint8_t>(kBankSize, 0x11));
    EXPECT_TRUE(openVirtualBank(folder_.file("held"), true)) << "an image needs none";
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
