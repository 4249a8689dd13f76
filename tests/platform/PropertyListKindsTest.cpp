// The lists that plistlib writes and reads, many of them, read here with the same values.
#include "platform/PropertyList.h"
#include "tests/platform/TextFile.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <string>
#include <variant>

namespace scenewright {
namespace {

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
