// The two forms of a property list, and what its values read as.
#include "platform/Resources.h"
#include "tests/platform/TextFile.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>
#include <variant>
#include <vector>

namespace scenewright {
namespace {

std::string plist(const std::string& body) {
    return "<plist>" + body + "</plist>";
}

PropertyValue parsed(const std::string& body) {
    Result<PropertyValue> list = parsePropertyList(plist(body), "list");
    EXPECT_TRUE(list) << list.error();
    return std::move(list).value_or(PropertyValue());
}

std::string errorOf(const Result<PropertyValue>& list) {
    return list ? "none" : list.error();
}

TEST(PropertyList, DictionaryEntriesAreFoundByKey) {
    const PropertyValue root = parsed("<dict><key>VID</key><integer>4617</integer>"
                                      "<key>name</key><string>a</string></dict>");
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
        {"<real>nan</real>", 0},
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

constexpr std::string_view kTooDeep = "it is nested deeper than 64 levels";
constexpr std::string_view kTooMany = "it holds more than a million values";
constexpr std::string_view kTooLong = "it is longer than 16 MiB";
constexpr std::string_view kMalformed = "it is not a property list";

// Why the list is refused; empty when it is read.
std::string faultOf(std::string_view bytes) {
    const Result<PropertyValue> list = parsePropertyList(bytes, "x");
    const std::string sentence = list ? "" : list.error();
    EXPECT_TRUE(list || sentence.starts_with("Cannot read x: ")) << sentence;
    return list ? "" : sentence.substr(std::string_view("Cannot read x: ").size());
}

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

// A binary list of the given objects, the first of them the root, each of them in the
// first 256 bytes or beginning there.
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
    bytes += std::string(6, '\0') + static_cast<char>(tableAt >> 8U) + static_cast<char>(tableAt);
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

TEST(PropertyListForms, ABinaryTextMayHoldAZeroCharacter) {
    using namespace std::string_literals;
    const std::string five = "\x10\x05";
    const auto one = parsePropertyList(binary({"\xD1\x01\x02"s, "\x53V\0D"s, five}), "x");
    EXPECT_EQ((*one)["V\0D"s].integer(), 5);
    const auto two = parsePropertyList(binary({"\xD1\x01\x02"s, "\x62\0V\0\0"s, five}), "x");
    EXPECT_EQ((*two)["V\0"s].integer(), 5);
    const auto value = parsePropertyList(binary({"\xA1\x01"s, "\x53V\0D"s}), "x");
    EXPECT_EQ(value->elements()[0].text(), "V\0D"s);
}

// Documents that are no lists: zero characters, broken encodings, elements out of place, numbers
// that are none, other notations, entities of their own.
TEST(PropertyListForms, WhatIsNoListIsRefused) {
    using namespace std::string_literals;
    for (const std::string& body :
         std::vector<std::string>{"<dict><key>a&#0;b</key><true/></dict>",
                                  "<dict><key>a&#x0;b</key><true/></dict>",
                                  "<dict><key>a&#00;b</key><true/></dict>",
                                  "<string>\0</string>"s,
                                  "<string>\xFF</string>",
                                  "<string>\xC3</string>",
                                  "<string>\xC0\x80</string>",
                                  "<string>\xED\xA0\x80</string>",
                                  "<string>\xF4\x90\x80\x80</string>",
                                  "",
                                  "words",
                                  "<array>",
                                  "<array></dict>",
                                  "<key>a</key>",
                                  "<array><key>a</key></array>",
                                  "<dict><true/></dict>",
                                  "<dict><key>a</key></dict>",
                                  "<dict><key>a</key><key>b</key></dict>",
                                  "<integer></integer>",
                                  "<integer>a</integer>",
                                  "<integer>1 2</integer>",
                                  "<integer>--1</integer>",
                                  "<integer>+-1</integer>",
                                  "<integer>0x</integer>",
                                  "<integer>1.5</integer>",
                                  "<real></real>",
                                  "<real> </real>",
                                  "<real>1,5</real>",
                                  "<real>a</real>",
                                  "<string>&unknown;</string>",
                                  "<string a='<'/>",
                                  "<true>"})
        EXPECT_EQ(faultOf(plist(body)), kMalformed) << body;
    for (const std::string& text : std::vector<std::string>{
             "", "bplist00", "bplist01" + smallBinary().substr(8), "{\"VID\": 1}", "[1, 2]",
             "{ VID = 1; }", "(a, b)", "\"text\"", "null",
             "<!DOCTYPE plist [ <!ENTITY a 'b'> ]><plist><string>&a;</string></plist>",
             "<!DOCTYPE plist [ <!ENTITY % a 'b'> ]><plist><true/></plist>",
             binary({"\x51\xC3"s}),             // no ASCII
             binary({"\x61\xD8\x00"s}),         // half a pair
             binary({"\x61\xDC\x00"s}),         // the other half
             binary({"\x62\xD8\x00\x00\x41"s}), // and what is no half
             binary({"\xA1\x05"}),              // references outside the list
             binary({"\xAF\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"})})
        EXPECT_EQ(faultOf(text), kMalformed) << text;
}

TEST(PropertyListForms, AnXmlRealHasADecimalPointInEveryLanguage) {
    const char* const former = std::setlocale(LC_ALL, "C");
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "C.UTF-8"})
        if (std::setlocale(LC_ALL, name) != nullptr)
            break;
    const auto list = parsePropertyList(plist("<real>12.75</real>"), "x");
    EXPECT_EQ(std::get<double>(list->node()), 12.75);
    std::setlocale(LC_ALL, former);
}

// Levels are those that are open: neither closed nor empty elements count, nor what stands in a
// comment or in character data, which hides no level either.
TEST(PropertyListForms, SixtyFourLevelsAMillionValuesAndSixteenMiBAreTheMost) {
    const std::string many = repeated("<array>", 100);
    const std::string list = plist("<true/>");
    const std::string blanks(16UL * 1024 * 1024 - list.size(), ' ');
    for (const auto& [text, fault] : std::vector<std::pair<std::string, std::string_view>>{
             {nestedXml(64), ""},
             {nestedXml(65), kTooDeep},
             {nestedBinary(64), ""},
             {nestedBinary(65), kTooDeep},
             {repeated("<array>", 1'000'000), kTooDeep},
             {repeated("<dict><key>a</key>", 500'000), kTooDeep},
             {repeated("<other>", 1'000'000), kTooDeep},
             {plist("<array>" + repeated("<array></array>", 100) + "</array>"), ""},
             {plist("<array>" + repeated("<array/>", 100) + "</array>"), ""},
             {plist("<array>" + repeated("<array />", 100) + "</array>"), ""},
             {"<plist><!-- " + many + " --><array/></plist>", ""},
             {"<plist><string><![CDATA[" + many + "]]></string></plist>", ""},
             {repeated("<array><!-- </array> -->", 65), kTooDeep},
             {repeated("<array><![CDATA[</array>]]>", 65), kTooDeep},
             {plist("<array>" + repeated("<true/>", 999'999) + "</array>"), ""},
             {plist("<array>" + repeated("<true/>", 1'000'000) + "</array>"), kTooMany},
             {list + blanks, ""},
             {list + blanks + ' ', kTooLong}})
        EXPECT_EQ(faultOf(text), fault) << text.substr(0, 80);
    EXPECT_TRUE(parsePropertyList(nestedXml(64), "x")->isArray());
    EXPECT_TRUE(parsePropertyList(nestedBinary(64), "x")->isArray());
}

TEST(PropertyListForms, ABinaryListReadsAsItsXmlForm) {
    EXPECT_EQ((*parsePropertyList(smallBinary(), "x"))["VID"].integer(), 0x1209);
}

TEST(PropertyListForms, ABinaryListThatContainsItselfIsRefused) {
    EXPECT_EQ(faultOf(binary({std::string("\xA1\x00", 2)})), kTooDeep);
    EXPECT_EQ(faultOf(binary({"\xA1\x01", std::string("\xA2\x01\x00", 3)})), kTooDeep);
}

TEST(PropertyListForms, ABinaryListThatDoublesAtEachLevelIsRefused) {
    std::vector<std::string> objects;
    for (char next = 1; next < 40; ++next)
        objects.push_back(std::string("\xA2") + next + next);
    objects.emplace_back("\xA0");
    EXPECT_EQ(faultOf(binary(objects)), kTooMany);
}

TEST(PropertyListForms, ABinaryTextNamedTooOftenIsRefused) {
    std::vector<std::string> objects;
    for (char next = 1; next < 14; ++next) // 3 to the 13th texts of 8,000 bytes
        objects.push_back(std::string("\xA3") + next + next + next);
    objects.push_back("\x5F\x11\x1F\x40" + std::string(8000, 'x'));
    EXPECT_EQ(faultOf(binary(objects)), kTooMany);
}

TEST(PropertyListForms, ABinaryListCutAtAnyLengthIsNoPropertyList) {
    const std::string whole = smallBinary();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(faultOf(whole.substr(0, length)), kMalformed) << length;
}

TEST(PropertyListForms, ABinaryListWithAnyByteChangedIsReadOrRefused) {
    const std::string whole = smallBinary();
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (int value = 0; value < 256; ++value) {
            std::string bytes = whole;
            bytes[at] = static_cast<char>(value);
            static_cast<void>(faultOf(bytes));
        }
}

TEST(PropertyListForms, AnXmlListCutAtAnyLengthIsReadOrRefused) {
    const std::string whole = "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><!-- a -->"
                              "<key>a</key><integer>1</integer></dict></plist>";
    for (std::size_t length = 0; length < whole.size() - std::string("</plist>").size(); ++length)
        EXPECT_EQ(faultOf(whole.substr(0, length)), kMalformed) << length;
}

} // namespace
} // namespace scenewright
