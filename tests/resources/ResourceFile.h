// The property lists of the source tree, as the tests read them.
#pragma once

#include "platform/PropertyList.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace scenewright {

// The list `name`.plist of resources/; a list that cannot be read fails the test that asks.
inline PropertyValue resource(const std::string& name) {
    const std::filesystem::path folder =
        std::filesystem::path(SCENEWRIGHT_SOURCE_DIR) / "resources";
    Result<PropertyValue> list = readPropertyList(folder / (name + ".plist"));
    EXPECT_TRUE(list) << list.error();
    return std::move(list).value_or(PropertyValue());
}

// The keys of a dictionary, sorted by byte.
inline std::vector<std::string> keysOf(const PropertyValue& value) {
    std::vector<std::string> keys;
    if (const auto* dictionary = std::get_if<PropertyValue::Dictionary>(&value.node()))
        for (const auto& [key, entry] : *dictionary)
            keys.push_back(key);
    return keys;
}

// The texts of an array; an element of another kind fails the test that asks.
inline std::vector<std::string> textsOf(const PropertyValue& value) {
    std::vector<std::string> texts;
    for (const PropertyValue& element : value.elements()) {
        EXPECT_TRUE(element.isText());
        texts.emplace_back(element.text());
    }
    return texts;
}

} // namespace scenewright
