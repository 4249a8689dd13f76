// Every setting of a scene as data: the kind of control that carries it, its field, which option
// list names its values, and how a person calls it.
//
// The 31 rows are the fields that the controller stores, in the order of the scene byte image.
// Byte image, option lists, printed tables and panes are built on these rows.
#pragma once

#include "model/Control.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace scenewright {

class Setting {
public:
    consteval explicit Setting(const IndexField<CommonValue>& field)
        : kind_(ControlKind::Common), commonField_(&field) {}
    consteval Setting(ControlKind kind, const IndexField<ButtonValue>& field)
        : kind_(kind), buttonField_(&field) {}

    [[nodiscard]] constexpr ControlKind kind() const { return kind_; }
    [[nodiscard]] constexpr std::string_view name() const {
        return commonField_ != nullptr ? commonField_->name : buttonField_->name;
    }

    // The value in member `member` (from 0) of the setting's kind; kFieldAbsent when the scene does
    // not hold that record, as one made of a default scene's file that lacks controls.
    [[nodiscard]] std::int32_t read(const SceneValue& scene, std::int32_t member) const;
    // Changes nothing when the scene does not hold that record.
    void write(const SceneValue& scene, std::int32_t member, std::int32_t value) const;

private:
    // The record that carries the field, or null.
    [[nodiscard]] ButtonValue* button(const SceneValue& scene, std::int32_t member) const;

    ControlKind kind_;
    const IndexField<CommonValue>* commonField_ = nullptr;
    const IndexField<ButtonValue>* buttonField_ = nullptr;
};

// A value stands for an option of its setting; the controller stores it in seven bits of a byte.
inline constexpr std::int32_t kLargestSettingValue = 127;

inline constexpr std::size_t kSettingCount = 31;
inline constexpr std::array<Setting, kSettingCount> kSettings{{
    Setting(CommonValue::GlobalMIDIChField),
    Setting(CommonValue::PianoKeyChField),
    Setting(CommonValue::PitchBendSpeedField),
    Setting(CommonValue::KeyTransposeField),
    Setting(CommonValue::KeyVelocityCurveField),
    Setting(CommonValue::KeyConstVelocityField),
    Setting(CommonValue::PadVelocityCurveField),
    Setting(CommonValue::PadConstVelocityField),
    Setting(ControlKind::Key, ButtonValue::AssignTypeField),
    Setting(ControlKind::Key, ButtonValue::KeyBehaviorField),
    Setting(ControlKind::Key, ButtonValue::CCOrNoteNumberField),
    Setting(ControlKind::Key, ButtonValue::OnValueField),
    Setting(ControlKind::Key, ButtonValue::OffValueField),
    Setting(ControlKind::Group, ButtonValue::MIDIChannelField),
    Setting(ControlKind::Knob, ButtonValue::EnableField),
    Setting(ControlKind::Knob, ButtonValue::CCOrNoteNumberField),
    Setting(ControlKind::Knob, ButtonValue::UpperOrRightValueField),
    Setting(ControlKind::Knob, ButtonValue::LowerOrLeftValueField),
    Setting(ControlKind::Slider, ButtonValue::EnableField),
    Setting(ControlKind::Slider, ButtonValue::CCOrNoteNumberField),
    Setting(ControlKind::Slider, ButtonValue::UpperOrRightValueField),
    Setting(ControlKind::Slider, ButtonValue::LowerOrLeftValueField),
    Setting(ControlKind::Pad, ButtonValue::AssignTypeField),
    Setting(ControlKind::Pad, ButtonValue::CCOrNoteNumberField),
    Setting(ControlKind::Pad, ButtonValue::MIDIChannelField),
    Setting(ControlKind::Pad, ButtonValue::PadBehaviorField),
    Setting(ControlKind::Pad, ButtonValue::OnValueField),
    Setting(ControlKind::Pad, ButtonValue::OffValueField),
    Setting(ControlKind::Pad, ButtonValue::CRField),
    Setting(ControlKind::Pad, ButtonValue::CGField),
    Setting(ControlKind::Pad, ButtonValue::CBField),
}};
[[nodiscard]] constexpr const std::array<Setting, kSettingCount>& settings() {
    return kSettings;
}

// The row of a kind's field; null when the kind does not carry a field of that name.
[[nodiscard]] const Setting* findSetting(ControlKind kind, std::string_view name);

// Values of `AssignType`: what a pad or a key sends.
inline constexpr std::int32_t kAssignOff = 0;
inline constexpr std::int32_t kAssignController = 1;
inline constexpr std::int32_t kAssignNote = 2;

// Stands where there is no title: a value outside its list, or a field that does not apply.
inline constexpr std::string_view kNoTitle = "---";

// The list whose entry at the stored index is the value's title. For the number of a pad or key
// this is the note list when the control's `AssignType` is 2 (note), else the controller list;
// for every other setting `assignType` is not looked at. Null when the resource lacks the list.
[[nodiscard]] Titles optionList(const PopUpValue& lists, const Setting& setting,
                                std::int32_t assignType);

// The title of the index stored in member `member` (from 0) of the setting's kind; "---" for a
// value outside its list, a field that does not apply and a record that the scene does not hold.
[[nodiscard]] std::string optionTitle(const PopUpValue& lists, const Setting& setting,
                                      const SceneValue& scene, std::int32_t member);

// How a person calls the setting, in their language: "MIDI channel" for MIDIChannel.
[[nodiscard]] std::string settingTitle(const Setting& setting);
// The same for a kind of control: "Pad".
[[nodiscard]] std::string kindTitle(ControlKind kind);

} // namespace scenewright
