#include "platform/PropertyListLimits.h"

#include "platform/PropertyList.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace scenewright {
namespace {

constexpr std::string_view kTooDeep = "it is nested deeper than 64 levels";
constexpr std::string_view kTooMany = "it holds more than a million values";
constexpr std::string_view kTooLong = "it is longer than 16 MiB";
constexpr std::string_view kMalformed = "it is not a property list";

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

std::string nestedXml(std::size_t levels) {
    return "<plist version=\"1.0\">" + repeated("<array>", levels) + repeated("</array>", levels) +
           "</plist>";
}

// A binary list of the given objects, the first of them the root; every number takes one byte.
std::string binary(const std::vector<std::string>& objects) {
    std::string bytes = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += static_cast<char>(bytes.size());
        bytes += object;
    }
    const std::size_t tableAt = bytes.size();
    bytes += table + std::string(6, '\0') + "\x01\x01";
    bytes += std::string(7, '\0') + static_cast<char>(objects.size());
    bytes += std::string(8, '\0');
    bytes += std::string(7, '\0') + static_cast<char>(tableAt);
    return bytes;
}

// A list of arrays in each other, the innermost empty.
std::string nestedBinary(std::size_t levels) {
    std::vector<std::string> objects;
    for (std::size_t i = 1; i < levels; ++i)
        objects.push_back(std::string("\xA1") + static_cast<char>(i));
    objects.emplace_back("\xA0");
    return binary(objects);
}

std::string smallBinary() {
    return binary({"\xD1\x01\x02", "\x53VID", "\x11\x12\x09"}); // {"VID": 0x1209}
}

TEST(PropertyListLimits, AKeyWithAZeroCharacterIsNoKey) {
    using namespace std::string_literals;
    const std::string value = "\x10\x05";
    EXPECT_EQ(propertyListFault(binary({"\xD1\x01\x02"s, "\x53V\0D"s, value})), kMalformed);
    EXPECT_EQ(propertyListFault(binary({"\xD1\x01\x02"s, "\x62\0V\0\0"s, value})), kMalformed);
    EXPECT_EQ(propertyListFault(binary({"\xD1\x01\x02"s, "\x62\0V\0D"s, value})), "");
    EXPECT_EQ(parsePropertyList(binary({"\xD1\x01\x02"s, "\x53V\0D"s, value}), "x").trouble,
              "Cannot read x: it is not a property list.");
    for (const char* zero : {"&#0;", "&#x0;", "&#00;"}) {
        const auto list = parsePropertyList(
            "<plist><dict><key>a" + std::string(zero) + "b</key><true/></dict></plist>", "x");
        EXPECT_EQ(list.trouble, "Cannot read x: it is not a property list.") << zero;
    }
}

TEST(PropertyListLimits, AValueMayHoldAZeroCharacter) {
    using namespace std::string_literals;
    const auto list = parsePropertyList(binary({"\xA1\x01"s, "\x53V\0D"s}), "x");
    ASSERT_TRUE(list.root.isArray());
}

TEST(PropertyListLimits, SixtyFourLevelsOfXmlAreReadAndOneMoreIsNot) {
    EXPECT_EQ(propertyListFault(nestedXml(64)), "");
    EXPECT_EQ(propertyListFault(nestedXml(65)), kTooDeep);
    EXPECT_TRUE(parsePropertyList(nestedXml(64), "x").root.isArray());
    EXPECT_EQ(parsePropertyList(nestedXml(65), "x").trouble.value_or("none"),
              "Cannot read x: it is nested deeper than 64 levels.");
}

TEST(PropertyListLimits, AMillionOpenedLevelsAreRefusedBeforeTheyAreParsed) {
    EXPECT_EQ(propertyListFault(repeated("<array>", 1'000'000)), kTooDeep);
    EXPECT_EQ(propertyListFault(repeated("<dict><key>a</key>", 500'000)), kTooDeep);
}

TEST(PropertyListLimits, ClosedAndEmptyElementsDoNotAddLevels) {
    EXPECT_EQ(propertyListFault(repeated("<array></array>", 100)), "");
    EXPECT_EQ(propertyListFault(repeated("<array/>", 100)), "");
    EXPECT_EQ(propertyListFault(repeated("<array />", 100)), "");
}

TEST(PropertyListLimits, TagsInsideCommentsAndCharacterDataDoNotCount) {
    const std::string many = repeated("<array>", 100);
    EXPECT_EQ(propertyListFault("<plist><!-- " + many + " --><array/></plist>"), "");
    EXPECT_EQ(propertyListFault("<plist><string><![CDATA[" + many + "]]></string></plist>"), "");
}

TEST(PropertyListLimits, ClosingTagsInsideCommentsDoNotHideLevels) {
    EXPECT_EQ(propertyListFault(repeated("<array><!-- </array> -->", 65)), kTooDeep);
    EXPECT_EQ(propertyListFault(repeated("<array><![CDATA[</array>]]>", 65)), kTooDeep);
}

TEST(PropertyListLimits, WhatCouldBeReadInTwoWaysIsRefused) {
    EXPECT_EQ(propertyListFault("<plist a=\"><array>\"></plist>"), kMalformed);
    EXPECT_EQ(propertyListFault("<?xml \" ?></array>\"?><plist/>"), kMalformed);
    EXPECT_EQ(propertyListFault("<!DOCTYPE plist [ <!ENTITY a 'b'> ]><plist/>"), kMalformed);
    EXPECT_EQ(propertyListFault("<!-- never closed"), kMalformed);
    EXPECT_EQ(propertyListFault("<![CDATA[ never closed"), kMalformed);
    EXPECT_EQ(propertyListFault("<plist"), kMalformed);
}

TEST(PropertyListLimits, AnOrdinaryDocumentTypeIsRead) {
    const std::string list =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE plist PUBLIC \"-//A//DTD 1.0//EN\" "
        "\"a.dtd\">\n<plist version=\"1.0\"><string>a</string></plist>";
    EXPECT_EQ(parsePropertyList(list, "x").root.text(), "a");
}

TEST(PropertyListLimits, MoreThanAMillionValuesAreRefused) {
    EXPECT_EQ(propertyListFault(repeated("<true/>", 2'000'001)), kTooMany);
}

TEST(PropertyListLimits, SixteenMiBAreTheMost) {
    EXPECT_EQ(propertyListFault(std::string(16UL * 1024 * 1024, ' ')), "");
    EXPECT_EQ(propertyListFault(std::string(16UL * 1024 * 1024 + 1, ' ')), kTooLong);
}

TEST(PropertyListLimits, ABinaryListReadsAsItsXmlForm) {
    const PropertyListFile file = parsePropertyList(smallBinary(), "x");
    EXPECT_EQ(file.trouble.value_or("none"), "none");
    EXPECT_EQ(file.root["VID"].integer(), 0x1209);
}

TEST(PropertyListLimits, SixtyFourLevelsOfABinaryListAreReadAndOneMoreIsNot) {
    EXPECT_EQ(propertyListFault(nestedBinary(64)), "");
    EXPECT_TRUE(parsePropertyList(nestedBinary(64), "x").root.isArray());
    EXPECT_EQ(propertyListFault(nestedBinary(65)), kTooDeep);
}

TEST(PropertyListLimits, ABinaryListThatContainsItselfIsRefused) {
    EXPECT_EQ(propertyListFault(binary({std::string("\xA1\x00", 2)})), kTooDeep);
    EXPECT_EQ(propertyListFault(binary({"\xA1\x01", std::string("\xA2\x01\x00", 3)})), kTooDeep);
}

TEST(PropertyListLimits, ABinaryListThatDoublesAtEachLevelIsRefused) {
    std::vector<std::string> objects;
    for (char next = 1; next < 40; ++next)
        objects.push_back(std::string("\xA2") + next + next);
    objects.emplace_back("\xA0");
    EXPECT_EQ(propertyListFault(binary(objects)), kTooMany);
}

TEST(PropertyListLimits, ABinaryTextNamedTooOftenIsRefused) {
    std::vector<std::string> objects;
    for (char next = 1; next < 15; ++next) // 3 to the 14th texts of 100 bytes
        objects.push_back(std::string("\xA3") + next + next + next);
    objects.push_back("\x5F\x10\x64" + std::string(100, 'x'));
    EXPECT_EQ(propertyListFault(binary(objects)), kTooMany);
}

TEST(PropertyListLimits, ReferencesOutsideABinaryListAreRefused) {
    EXPECT_EQ(propertyListFault(binary({"\xA1\x05"})), kMalformed);
    EXPECT_EQ(propertyListFault(binary({"\xAF"})), kMalformed);
    EXPECT_EQ(propertyListFault(binary({"\xAF\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"})), kMalformed);
}

TEST(PropertyListLimits, ABinaryListCutAtAnyLengthIsNoPropertyList) {
    const std::string whole = smallBinary();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_TRUE(parsePropertyList(whole.substr(0, length), "x").trouble.has_value()) << length;
}

TEST(PropertyListLimits, ABinaryListWithAnyByteChangedIsReadOrRefused) {
    const std::string whole = smallBinary();
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (int value = 0; value < 256; ++value) {
            std::string bytes = whole;
            bytes[at] = static_cast<char>(value);
            const PropertyListFile file = parsePropertyList(bytes, "x");
            EXPECT_TRUE(file.root.isAbsent() || !file.trouble);
        }
}

TEST(PropertyListLimits, AnXmlListCutAtAnyLengthIsReadOrRefused) {
    const std::string whole = "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><!-- a -->"
                              "<key>a</key><integer>1</integer></dict></plist>";
    for (std::size_t length = 0; length < whole.size() - std::string("</plist>").size(); ++length)
        EXPECT_TRUE(parsePropertyList(whole.substr(0, length), "x").trouble.has_value()) << length;
}

} // namespace
} // namespace scenewright
