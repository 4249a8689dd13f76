// Turns the "CommonValue" dictionary of the default scene into a record.
#pragma once

#include "model/CommonValue.h"
#include "platform/PropertyList.h"

#include <memory>

namespace scenewright {

class CommonAction {
public:
    CommonAction() = delete;

    // A new record with an empty name; a missing key gives 0.
    [[nodiscard]] static std::shared_ptr<CommonValue>
    GetCommonValueFromDic(const PropertyValue& dictionary);
};

} // namespace scenewright
