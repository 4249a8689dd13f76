#include "model/ButtonAction.h"

#include <array>

namespace scenewright {

namespace {

struct Key {
    std::string_view text;
    const IndexField<ButtonValue>& field;
};

// A key is its field's name, but for the identifier's.
constexpr Key named(const IndexField<ButtonValue>& field) {
    return {field.name, field};
}

constexpr std::array kKeys{
    Key{"BtnID", ButtonValue::ButtonIDField},
    named(ButtonValue::MIDIChannelField),
    named(ButtonValue::AssignTypeField),
    named(ButtonValue::CCOrNoteNumberField),
    named(ButtonValue::UpperOrRightValueField),
    named(ButtonValue::LowerOrLeftValueField),
    named(ButtonValue::PadBehaviorField),
    named(ButtonValue::KeyBehaviorField),
    named(ButtonValue::OnValueField),
    named(ButtonValue::OffValueField),
    named(ButtonValue::EnableField),
    named(ButtonValue::CRField),
    named(ButtonValue::CGField),
    named(ButtonValue::CBField),
};

} // namespace

std::shared_ptr<ButtonValue> ButtonAction::GetButtonValueFromDic(const PropertyValue& dictionary) {
    auto button = std::make_shared<ButtonValue>();
    for (const Key& key : kKeys)
        key.field.set(*button, dictionary[key.text].integer());
    return button;
}

} // namespace scenewright
