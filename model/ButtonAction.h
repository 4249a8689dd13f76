// Turns one "ButtonArray" dictionary of the default scene into a record.
#pragma once

#include "model/ButtonValue.h"
#include "platform/PropertyList.h"

#include <memory>

namespace scenewright {

class ButtonAction {
public:
    ButtonAction() = delete;

    // A new record; a missing key gives 0.
    [[nodiscard]] static std::shared_ptr<ButtonValue>
    GetButtonValueFromDic(const PropertyValue& dictionary);
};

} // namespace scenewright
