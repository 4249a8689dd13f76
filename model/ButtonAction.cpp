#include "model/ButtonAction.h"

namespace scenewright {

std::shared_ptr<ButtonValue> ButtonAction::GetButtonValueFromDic(const PropertyValue& dictionary) {
    auto button = std::make_shared<ButtonValue>();
    button->setButtonID(dictionary["BtnID"].integer());
    // Every other key is the name of its field.
    for (const IndexField<ButtonValue>& field : kButtonOptionFields)
        field.set(*button, dictionary[field.name].integer());
    return button;
}

} // namespace scenewright
