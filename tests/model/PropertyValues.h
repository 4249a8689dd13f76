// Short words for what a property list holds.
#pragma once

#include "platform/PropertyList.h"

#include <string>
#include <utility>

namespace scenewright::testing {

inline PropertyValue number(std::int64_t value) {
    return PropertyValue(PropertyValue::Node(value));
}

inline PropertyValue text(std::string value) {
    return PropertyValue(PropertyValue::Node(std::move(value)));
}

} // namespace scenewright::testing
