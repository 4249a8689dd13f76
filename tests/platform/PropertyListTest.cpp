#include "platform/Resources.h"
#include "tests/platform/TextFile.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <variant>

namespace scenewright {

namespace {

std::string document(const std::string& body) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>)"
           "\n"
           R"(<plist version="1.0">)" +
           body + "</plist>\n";
}

PropertyValue parsed(const std::string& body) {
    Result<PropertyValue> list = parsePropertyList(document(body), "list");
    EXPECT_TRUE(list) << list.error();
    return std::move(list).value_or(PropertyValue());
}

std::string errorOf(const Result<PropertyValue>& list) {
    return list ? "none" : list.error();
}

TEST(PropertyList, DictionaryEntriesAreFoundByKey) {
    const PropertyValue root = parsed("<dict><key>VID</key><integer>4617</integer>"
                                      "<key>name</key><string>a</string></dict>");
    EXPECT_TRUE(root.isDictionary());
    EXPECT_EQ(root["VID"].integer(), 4617);
    EXPECT_EQ(root["name"].text(), "a");
}

TEST(PropertyList, AMissingKeyReadsAsZeroAndAsNoText) {
    const PropertyValue root = parsed("<dict></dict>");
    EXPECT_TRUE(root["none"].isAbsent());
    EXPECT_EQ(root["none"].integer(), 0);
    EXPECT_EQ(root["none"].text(), "");
    EXPECT_TRUE(root["none"]["deeper"].elements().empty());
}

TEST(PropertyList, ArrayElementsKeepTheirOrder) {
    const PropertyValue root = parsed("<array><string>a</string><string>b</string></array>");
    ASSERT_TRUE(root.isArray());
    ASSERT_EQ(root.elements().size(), 2U);
    EXPECT_EQ(root.elements()[0].text(), "a");
    EXPECT_EQ(root.elements()[1].text(), "b");
}

TEST(PropertyList, TextIsUtf8WithItsEntitiesResolved) {
    EXPECT_EQ(parsed("<string>a &lt;&amp;&gt; \u00e9</string>").text(), "a <&> \u00e9");
    EXPECT_EQ(parsed("<string></string>").text(), "");
}

TEST(PropertyList, KindsWithoutUseAreAbsent) {
    EXPECT_TRUE(parsed("<data>AAEC</data>").isAbsent());
    EXPECT_TRUE(parsed("<date>2001-01-01T00:00:00Z</date>").isAbsent());
}

TEST(PropertyList, AKeyGivenTwiceHasItsLastValue) {
    const PropertyValue root =
        parsed("<dict><key>a</key><integer>1</integer><key>a</key><integer>2</integer></dict>");
    EXPECT_EQ(std::get<PropertyValue::Dictionary>(root.node()).size(), 1U);
    EXPECT_EQ(root["a"].integer(), 2); // the last one's
}

struct IntegerCase {
    std::string body;
    std::int32_t value;
};

TEST(PropertyList, ValuesReadAsIntegers) {
    const std::vector<IntegerCase> cases{
        {"<integer>12</integer>", 12},
        {"<integer>-1</integer>", -1},
        {"<integer>2147483648</integer>", std::numeric_limits<std::int32_t>::max()},
        {"<integer>-2147483649</integer>", std::numeric_limits<std::int32_t>::min()},
        {"<integer>9223372036854775808</integer>", std::numeric_limits<std::int32_t>::max()},
        {"<integer>18446744073709551615</integer>", std::numeric_limits<std::int32_t>::max()},
        {"<integer>99999999999999999999</integer>", std::numeric_limits<std::int32_t>::max()},
        {"<integer>-9223372036854775809</integer>", std::numeric_limits<std::int32_t>::min()},
        {"<real>12.9</real>", 12},
        {"<real>-12.9</real>", -12},
        {"<real>1e30</real>", std::numeric_limits<std::int32_t>::max()},
        {"<true/>", 1},
        {"<false/>", 0},
        {"<string>12</string>", 12},
        {"<string>  \t12 channels</string>", 12},
        {"<string>-7</string>", -7},
        {"<string>+7</string>", 7},
        {"<string>- 7</string>", 0},
        {"<string>channel 12</string>", 0},
        {"<string></string>", 0},
        {"<string>   </string>", 0},
        {"<string>99999999999999999999</string>", std::numeric_limits<std::int32_t>::max()},
        {"<string>-99999999999999999999</string>", std::numeric_limits<std::int32_t>::min()},
        {"<array><integer>5</integer></array>", 0},
        {"<dict></dict>", 0},
    };
    for (const IntegerCase& item : cases)
        EXPECT_EQ(parsed(item.body).integer(), item.value) << item.body;
}

TEST(PropertyList, OnlyWhatHasANumberGivesOne) {
    EXPECT_EQ(parsed("<integer>12</integer>").number(), 12);
    EXPECT_EQ(parsed("<real>12.9</real>").number(), 12);
    EXPECT_EQ(parsed("<string> 12 channels</string>").number(), 12);
    for (const char* none : {"<true/>", "<string/>", "<string>- 7</string>", "<string>a</string>",
                             "<real>nan</real>", "<data/>", "<array/>", "<dict/>"})
        EXPECT_EQ(parsed(none).number(), std::nullopt) << none;
}

TEST(PropertyList, NotANumberReadsAsZero) {
    EXPECT_EQ(PropertyValue(std::numeric_limits<double>::quiet_NaN()).integer(), 0);
}

TEST(PropertyList, WhatIsNoPropertyListIsToldInOneSentence) {
    for (const char* text : {"", "some words that are no list", "<plist version=\"1.0\"><dict>",
                             "bplist00", "bplist99 of another version than the known one"})
        EXPECT_EQ(errorOf(parsePropertyList(text, "bad.plist")),
                  "Cannot read bad.plist: it is not a property list")
            << text;
}

TEST(PropertyList, WhatIsNoRegularFileIsToldWithItsNameAndNotWaitedFor) {
    const testing::TempFolder folder;
    const std::string file = folder.file("list.plist");
    EXPECT_EQ(errorOf(readPropertyList(file)),
              "Cannot read " + file + ": No such file or directory");
    std::filesystem::create_symlink("nowhere", file);
    EXPECT_EQ(errorOf(readPropertyList(file)),
              "Cannot read " + file + ": it is a link to a file that does not exist");
    std::filesystem::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(errorOf(readPropertyList(file)),
              "Cannot read " + file + ": it is not a regular file");
    EXPECT_EQ(errorOf(readPropertyList(folder.path())),
              "Cannot read " + folder.path().string() + ": it is a folder");
    EXPECT_EQ(errorOf(readPropertyList("/dev/zero")),
              "Cannot read /dev/zero: it is not a regular file");
}

TEST(PropertyList, AFileOfMoreThanSixteenMiBIsToldWithItsName) {
    const testing::TempFolder folder;
    writeText(folder.file("long.plist"), std::string(16UL * 1024 * 1024 + 1, ' '));
    EXPECT_EQ(errorOf(readPropertyList(folder.file("long.plist"))),
              "Cannot read " + folder.file("long.plist") + ": it is longer than 16 MiB");
}

// ---- The lists that plistlib writes and reads, many of them, read here with the same values.

std::string hexOf(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes)
        text += fmt::format("{:02x}", static_cast<std::uint8_t>(byte));
    return text;
}

// The notation of property_lists.py.
struct Notation {
    std::string operator()(std::monostate) const { return "-"; }
    std::string operator()(bool flag) const { return flag ? "true" : "false"; }
    std::string operator()(std::int64_t number) const { return fmt::format("i{}", number); }
    std::string operator()(double number) const {
        return std::isnan(number) ? "rnan"
                                  : fmt::format("r{:016x}", std::bit_cast<std::uint64_t>(number));
    }
    std::string operator()(const std::string& text) const { return "s" + hexOf(text); }
    std::string operator()(const PropertyValue::Array& array) const {
        std::string inner;
        for (const PropertyValue& value : array)
            inner += (inner.empty() ? "" : ",") + std::visit(*this, value.node());
        return "[" + inner + "]";
    }
    std::string operator()(const PropertyValue::Dictionary& dictionary) const {
        std::string inner;
        for (const auto& [key, value] : dictionary)
            inner +=
                (inner.empty() ? "" : ",") + hexOf(key) + ":" + std::visit(*this, value.node());
        return "{" + inner + "}";
    }
};

TEST(PropertyListKinds, WhatAnotherReaderReadsIsReadWithTheSameValues) {
    const testing::TempFolder folder;
    const testing::ProgramRun made = testing::runProgram(
        {SCENEWRIGHT_PYTHON, "-B", SCENEWRIGHT_SOURCE_DIR "/tests/platform/property_lists.py",
         folder.path().string()});
    ASSERT_EQ(made.exitCode, 0) << made.errors;
    int lists = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        if (entry.path().extension() != ".plist")
            continue;
        ++lists;
        const std::string expected =
            readText(std::filesystem::path(entry.path()).replace_extension("txt"));
        const Result<PropertyValue> list = readPropertyList(entry.path());
        ASSERT_TRUE(list) << list.error();
        EXPECT_EQ(std::visit(Notation(), list->node()), expected) << entry.path();
    }
    EXPECT_GT(lists, 600);
}

} // namespace

} // namespace scenewright
