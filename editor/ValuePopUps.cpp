#include "editor/ValuePopUps.h"

#include "editor/ViewController.h"
#include "model/Setting.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace scenewright {

namespace {

using V = ViewController;
using C = CommonValue;
using B = ButtonValue;
using enum ControlKind;
using enum ExtraRule;

constexpr std::int32_t kConstantCurve = 3;

consteval ValuePopUp common(const ValueOutlet& outlet, const IndexField<CommonValue>& field,
                            ExtraRule rule = None) {
    return {&outlet, Setting(field), &field, nullptr, rule, nullptr, EnableWhen::Always};
}

// A velocity that is used only when the curve that `driver` shows is the constant one.
consteval ValuePopUp constant(const ValueOutlet& outlet, const IndexField<CommonValue>& field,
                              const ValueOutlet& driver) {
    return {&outlet, Setting(field), &field, nullptr, None, &driver, EnableWhen::ConstantCurve};
}

consteval ValuePopUp control(ControlKind kind, const ValueOutlet& outlet,
                             const IndexField<ButtonValue>& field, ExtraRule rule = None,
                             const ValueOutlet* driver = nullptr,
                             EnableWhen when = EnableWhen::Always) {
    return {&outlet, Setting(kind, field), nullptr, &field, rule, driver, when};
}

// clang-format off
constexpr std::array<ValuePopUp, kSettingCount> kValuePopUps{{
    common(V::commonGlobalMIDIChOutlet, C::GlobalMIDIChField),
    common(V::commonPianoKeyChOutlet, C::PianoKeyChField),
    common(V::commonPitchBendSpeedOutlet, C::PitchBendSpeedField),
    common(V::commonKeyTransposeOutlet, C::KeyTransposeField),
    common(V::commonKeyVelocityCurveOutlet, C::KeyVelocityCurveField, EnablesOthers),
    constant(V::commonKeyConstVelocityOutlet, C::KeyConstVelocityField, V::commonKeyVelocityCurveOutlet),
    common(V::commonPadVelocityCurveOutlet, C::PadVelocityCurveField, EnablesOthers),
    constant(V::commonPadConstVelocityOutlet, C::PadConstVelocityField, V::commonPadVelocityCurveOutlet),

    control(Group, V::groupMIDIChannelOutlet, B::MIDIChannelField),

    control(Knob, V::knobEnableOutlet, B::EnableField, EnablesOthers),
    control(Knob, V::knobCCNumberOutlet, B::CCOrNoteNumberField, None, &V::knobEnableOutlet, EnableWhen::Enabled),
    control(Knob, V::knobUpperOrRightValueOutlet, B::UpperOrRightValueField, None, &V::knobEnableOutlet, EnableWhen::Enabled),
    control(Knob, V::knobLowerOrLeftValueOutlet, B::LowerOrLeftValueField, None, &V::knobEnableOutlet, EnableWhen::Enabled),

    control(Slider, V::sliderEnableOutlet, B::EnableField, EnablesOthers),
    control(Slider, V::sliderCCNumberOutlet, B::CCOrNoteNumberField, None, &V::sliderEnableOutlet, EnableWhen::Enabled),
    control(Slider, V::sliderUpperOrRightValueOutlet, B::UpperOrRightValueField, None, &V::sliderEnableOutlet, EnableWhen::Enabled),
    control(Slider, V::sliderLowerOrLeftValueOutlet, B::LowerOrLeftValueField, None, &V::sliderEnableOutlet, EnableWhen::Enabled),

    control(Pad, V::padAssignTypeOutlet, B::AssignTypeField, AssignType),
    control(Pad, V::padCCOrNoteNumberOutlet, B::CCOrNoteNumberField, AssignedNumber, &V::padAssignTypeOutlet, EnableWhen::Assigned),
    control(Pad, V::padOnValueOutlet, B::OnValueField, None, &V::padAssignTypeOutlet, EnableWhen::Controller),
    control(Pad, V::padOffValueOutlet, B::OffValueField, None, &V::padAssignTypeOutlet, EnableWhen::Controller),
    control(Pad, V::padPadBehaviorOutlet, B::PadBehaviorField, None, &V::padAssignTypeOutlet, EnableWhen::Assigned),
    control(Pad, V::padMIDIChannelOutlet, B::MIDIChannelField, None, &V::padAssignTypeOutlet, EnableWhen::Assigned),
    control(Pad, V::padCROutlet, B::CRField),
    control(Pad, V::padCGOutlet, B::CGField),
    control(Pad, V::padCBOutlet, B::CBField),

    control(Key, V::keyAssignTypeOutlet, B::AssignTypeField, AssignType),
    control(Key, V::keyCCOrNoteNumberOutlet, B::CCOrNoteNumberField, AssignedNumber, &V::keyAssignTypeOutlet, EnableWhen::Assigned),
    control(Key, V::keyOnValueOutlet, B::OnValueField, None, &V::keyAssignTypeOutlet, EnableWhen::Controller),
    control(Key, V::keyOffValueOutlet, B::OffValueField, None, &V::keyAssignTypeOutlet, EnableWhen::Controller),
    control(Key, V::keyKeyBehaviorOutlet, B::KeyBehaviorField, None, &V::keyAssignTypeOutlet, EnableWhen::Assigned),
}};
// clang-format on

consteval bool isLower(const ValuePopUp& row) {
    const ControlKind kind = row.setting.kind();
    return (kind == Knob || kind == Slider) && row.button->name == B::LowerOrLeftValueField.name;
}

// A travel's ends are filled from the upper one and selected from the lower one.
consteval auto lowerBeforeUpper(std::array<ValuePopUp, kSettingCount> rows) {
    for (std::size_t place = 0; place + 1 < rows.size(); ++place)
        if (isLower(rows.at(place + 1)))
            std::swap(rows.at(place), rows.at(place + 1));
    return rows;
}
constexpr auto kAsShown = lowerBeforeUpper(kValuePopUps);

std::optional<bool> isEnabledByAssignType(EnableWhen when, std::int32_t assignType) {
    switch (assignType) {
    case kAssignOff:
        return false;
    case kAssignController:
        return true;
    case kAssignNote:
        return when == EnableWhen::Assigned;
    default:
        return std::nullopt;
    }
}

template <typename Predicate>
const ValuePopUp& onlyRow(Predicate isIt) {
    const auto* row = std::ranges::find_if(kValuePopUps, isIt);
    if (row == kValuePopUps.end())
        throw std::out_of_range("value popup without a row");
    return *row;
}

} // namespace

std::optional<bool> isEnabled(EnableWhen when, std::int32_t value) {
    switch (when) {
    case EnableWhen::Always:
        return true;
    case EnableWhen::ConstantCurve:
        return value == kConstantCurve;
    case EnableWhen::Enabled:
        return value != 0;
    case EnableWhen::Assigned:
    case EnableWhen::Controller:
        return isEnabledByAssignType(when, value);
    }
    return std::nullopt;
}

std::span<const ValuePopUp> valuePopUps() {
    return kValuePopUps;
}

std::span<const ValuePopUp> valuePopUpsAsShown() {
    return kAsShown;
}

const ValuePopUp& valuePopUp(const ValueOutlet& outlet) {
    return onlyRow([&](const ValuePopUp& row) { return row.outlet == &outlet; });
}

const ValuePopUp& numberRowOf(const ValuePopUp& assignType) {
    return onlyRow([&](const ValuePopUp& row) {
        return row.rule == AssignedNumber && row.pane() == assignType.pane();
    });
}

} // namespace scenewright
