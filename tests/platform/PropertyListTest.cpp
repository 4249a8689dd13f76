#include "platform/PropertyList.h"

#include <gtest/gtest.h>

#include <limits>

namespace scenewright {
namespace {

std::string document(const std::string& body) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>)"
           "\n"
           R"(<plist version="1.0">)" +
           body + "</plist>\n";
}

PropertyValue parsed(const std::string& body) {
    PropertyListFile file = parsePropertyList(document(body), "list");
    EXPECT_EQ(file.trouble.value_or("none"), "none");
    return std::move(file.root);
}

std::string troubleOf(std::string_view bytes) {
    const PropertyListFile file = parsePropertyList(bytes, "bad.plist");
    EXPECT_TRUE(file.root.isAbsent());
    return file.trouble.value_or("none");
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

TEST(PropertyList, AKeyGivenTwiceKeepsOneEntry) {
    const PropertyValue root =
        parsed("<dict><key>a</key><integer>1</integer><key>a</key><integer>2</integer></dict>");
    EXPECT_EQ(std::get<PropertyValue::Dictionary>(root.node()).size(), 1U);
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

TEST(PropertyList, NotANumberReadsAsZero) {
    EXPECT_EQ(PropertyValue(std::numeric_limits<double>::quiet_NaN()).integer(), 0);
}

TEST(PropertyList, WhatIsNoPropertyListIsToldInOneSentence) {
    const std::string sentence = "Cannot read bad.plist: it is not a property list.";
    EXPECT_EQ(troubleOf(""), sentence);
    EXPECT_EQ(troubleOf("some words that are no list"), sentence);
    EXPECT_EQ(troubleOf("<plist version=\"1.0\"><dict>"), sentence);
    EXPECT_EQ(troubleOf("bplist00"), sentence);
    EXPECT_EQ(troubleOf("bplist99 of another version than the known one"), sentence);
    EXPECT_EQ(troubleOf(document("<string>a\" <b </string>")), sentence);
    EXPECT_EQ(troubleOf(document(std::string("<string>\0</string>", 18))), sentence);
}

TEST(PropertyList, AMissingFileIsToldWithItsName) {
    const PropertyListFile file = readPropertyList("/nowhere/list.plist");
    EXPECT_EQ(file.trouble.value_or("none"),
              "Cannot read /nowhere/list.plist: No such file or directory.");
    EXPECT_TRUE(file.root.isAbsent());
}

} // namespace
} // namespace scenewright
