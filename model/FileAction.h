// Builds the default scene from the resource default.plist.
#pragma once

#include "model/SceneValue.h"
#include "platform/PropertyList.h"

#include <memory>

namespace scenewright {

// Turns one "ButtonArray" dictionary of the default scene into a record.
class ButtonAction {
public:
    ButtonAction() = delete;

    // A new record; a missing key gives 0.
    [[nodiscard]] static std::shared_ptr<ButtonValue>
    GetButtonValueFromDic(const PropertyValue& dictionary);
};

// Turns the "CommonValue" dictionary of the default scene into a record.
class CommonAction {
public:
    CommonAction() = delete;

    // A new record with an empty name; a missing key gives 0.
    [[nodiscard]] static std::shared_ptr<CommonValue>
    GetCommonValueFromDic(const PropertyValue& dictionary);
};

class FileAction {
public:
    FileAction() = delete;

    // A new scene of fresh records; the file is read anew at each call. A missing or unreadable
    // file gives a scene without controls and with zeros. The name is always empty.
    [[nodiscard]] static std::shared_ptr<SceneValue> GetSceneFromDefault();
};

} // namespace scenewright
