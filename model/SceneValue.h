// The records of a scene: its common settings, its controls, and the two together; how the controls
// are numbered; and the default scene. Plain records: no validation, no conversion. Main thread
// only.
//
// A field of a record is one declaration:
//
//   SCENEWRIGHT_PROPERTY(std::string, SceneName, setSceneName)
//       a private member with the reader SceneName() and the writer setSceneName(value);
//   SCENEWRIGHT_INDEX(CommonValue, GlobalMIDICh, setGlobalMIDICh)
//       the same for a 32-bit option index, and the constant CommonValue::GlobalMIDIChField, by
//       which a table names the field without repeating its reader and writer.
//
// Readers give small values by value and the rest by reference; writers check nothing. A fresh
// record has zeros and empty references. Both leave the class in private access behind them.
#pragma once

#include "platform/Text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace scenewright {

class PropertyValue;

template <typename T>
using PropertyRead = std::conditional_t<std::is_scalar_v<T>, T, const T&>;

// One option-index field of a record, as data: a row of the tables that need "all fields of this
// kind, in this order".
template <typename Record>
struct IndexField {
    std::string_view name;
    std::int32_t Record::*member; // for of() and set() alone

    [[nodiscard]] constexpr std::int32_t of(const Record& record) const { return record.*member; }
    constexpr void set(Record& record, std::int32_t value) const { record.*member = value; }
};

} // namespace scenewright

// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are a type and names
#define SCENEWRIGHT_PROPERTY(Type, Name, SetName)                                                  \
public:                                                                                            \
    [[nodiscard]] ::scenewright::PropertyRead<Type> Name() const {                                 \
        return Name##_;                                                                            \
    }                                                                                              \
    void SetName(Type value) {                                                                     \
        Name##_ = std::move(value);                                                                \
    }                                                                                              \
                                                                                                   \
private:                                                                                           \
    Type Name##_{};

#define SCENEWRIGHT_INDEX(Record, Name, SetName)                                                   \
    SCENEWRIGHT_PROPERTY(std::int32_t, Name, SetName)                                              \
public:                                                                                            \
    static constexpr ::scenewright::IndexField<Record> Name##Field{#Name, &Record::Name##_};       \
                                                                                                   \
private:
// NOLINTEND(bugprone-macro-parentheses)

namespace scenewright {

// A control index names a control everywhere: 0 is the scene-wide settings, 1 to 45 the controls.
// Control index i > 0 is entry i - 1 of SceneValue::buttonValueArray.
enum class ControlKind : std::uint8_t { Common, Group, Knob, Slider, Pad, Key };

struct ControlRange {
    ControlKind kind;
    std::string_view name; // singular, lower case, as paths and messages write it
    std::int32_t start;    // control index of its first member
    std::int32_t count;

    [[nodiscard]] constexpr std::int32_t end() const { return start + count; }
};

inline constexpr std::array<ControlRange, 6> kControlRanges{{
    {ControlKind::Common, "common", 0, 1},
    {ControlKind::Group, "group", 1, 4},
    {ControlKind::Knob, "knob", 5, 4},
    {ControlKind::Slider, "slider", 9, 4},
    {ControlKind::Pad, "pad", 13, 8},
    {ControlKind::Key, "key", 21, 25},
}};

inline constexpr std::int32_t kControlIndexEnd = 46; // one past the last control index
inline constexpr std::int32_t kControlCount = 45;    // entries of buttonValueArray
inline constexpr std::int32_t kSceneCount = 4;       // scenes that the controller holds

[[nodiscard]] constexpr const ControlRange& controlRange(ControlKind kind) {
    return kControlRanges[static_cast<std::size_t>(kind)];
}

// The range that a control index falls into; null for one that is no control's.
[[nodiscard]] constexpr const ControlRange* controlRangeOf(std::int32_t control) {
    for (const ControlRange& range : kControlRanges)
        if (control >= range.start && control < range.end())
            return &range;
    return nullptr;
}

static_assert(kControlRanges.back().end() == kControlIndexEnd);

// Where each kind of control starts in the editor's control list. A plain record; the numbers that
// hold for this controller are those of kControlRanges.
class ButtonRange {
    SCENEWRIGHT_PROPERTY(std::int32_t, common_start, setCommon_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, group_start, setGroup_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, knob_start, setKnob_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, slider_start, setSlider_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, pad_start, setPad_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, key_start, setKey_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, all, setAll)
};

// The scene-wide settings of one scene.
class CommonValue {
    // The bytes of the name. A scene that came from the controller holds all 12 bytes of the
    // image's name field as they were, trailing zeros included; displayName() makes text of them.
    SCENEWRIGHT_PROPERTY(std::string, SceneName, setSceneName)

    // Option indices: the position of the chosen entry in the field's option list, 0 to 127.
    SCENEWRIGHT_INDEX(CommonValue, GlobalMIDICh, setGlobalMIDICh)
    SCENEWRIGHT_INDEX(CommonValue, PianoKeyCh, setPianoKeyCh)
    SCENEWRIGHT_INDEX(CommonValue, PitchBendSpeed, setPitchBendSpeed)
    SCENEWRIGHT_INDEX(CommonValue, KeyTranspose, setKeyTranspose)
    SCENEWRIGHT_INDEX(CommonValue, KeyVelocityCurve, setKeyVelocityCurve)
    SCENEWRIGHT_INDEX(CommonValue, KeyConstVelocity, setKeyConstVelocity)
    SCENEWRIGHT_INDEX(CommonValue, PadVelocityCurve, setPadVelocityCurve)
    SCENEWRIGHT_INDEX(CommonValue, PadConstVelocity, setPadConstVelocity)
};

// Marks a field that a control's kind does not carry; the editor shows it as "---".
inline constexpr std::int32_t kFieldAbsent = -1;

// The settings of one physical control.
class ButtonValue {
    // Which control this is, as the default scene's file numbers them; read by nothing.
    SCENEWRIGHT_INDEX(ButtonValue, ButtonID, setButtonID)

    // Option indices, 0 to 127, or kFieldAbsent.
    SCENEWRIGHT_INDEX(ButtonValue, MIDIChannel, setMIDIChannel)
    SCENEWRIGHT_INDEX(ButtonValue, AssignType, setAssignType)
    SCENEWRIGHT_INDEX(ButtonValue, CCOrNoteNumber, setCCOrNoteNumber)
    SCENEWRIGHT_INDEX(ButtonValue, UpperOrRightValue, setUpperOrRightValue)
    SCENEWRIGHT_INDEX(ButtonValue, LowerOrLeftValue, setLowerOrLeftValue)
    SCENEWRIGHT_INDEX(ButtonValue, PadBehavior, setPadBehavior)
    SCENEWRIGHT_INDEX(ButtonValue, KeyBehavior, setKeyBehavior)
    SCENEWRIGHT_INDEX(ButtonValue, OnValue, setOnValue)
    SCENEWRIGHT_INDEX(ButtonValue, OffValue, setOffValue)
    SCENEWRIGHT_INDEX(ButtonValue, Enable, setEnable)
    SCENEWRIGHT_INDEX(ButtonValue, CR, setCR)
    SCENEWRIGHT_INDEX(ButtonValue, CG, setCG)
    SCENEWRIGHT_INDEX(ButtonValue, CB, setCB)
};

// The thirteen option indices: every field but the identifier.
inline constexpr std::array kButtonOptionFields{
    ButtonValue::MIDIChannelField,
    ButtonValue::AssignTypeField,
    ButtonValue::CCOrNoteNumberField,
    ButtonValue::UpperOrRightValueField,
    ButtonValue::LowerOrLeftValueField,
    ButtonValue::PadBehaviorField,
    ButtonValue::KeyBehaviorField,
    ButtonValue::OnValueField,
    ButtonValue::OffValueField,
    ButtonValue::EnableField,
    ButtonValue::CRField,
    ButtonValue::CGField,
    ButtonValue::CBField,
};

// One scene: the complete set of settings that the controller applies to its controls.
//
// Scenes and their parts are shared by reference: whoever takes `commonValue` or an element of
// `buttonValueArray` holds the scene's own record, and a change in it is seen by everyone who holds
// the scene. Assigning an array copies the array, not its elements.
class SceneValue {
    using ButtonList = std::vector<std::shared_ptr<ButtonValue>>;

    SCENEWRIGHT_PROPERTY(std::shared_ptr<CommonValue>, commonValue, setCommonValue)
    // Reserved for the scene's display selections; nothing fills or reads it.
    SCENEWRIGHT_PROPERTY(ButtonList, displayValue, setDisplayValue)
    // The 45 controls, in the order of kControlRanges: groups, knobs, sliders, pads, keys.
    SCENEWRIGHT_PROPERTY(ButtonList, buttonValueArray, setButtonValueArray)
};

// The record of a control index from 1 on; null when the scene does not hold it.
[[nodiscard]] inline ButtonValue* recordAt(const SceneValue& scene, std::int32_t control) {
    const auto& buttons = scene.buttonValueArray();
    if (control < 1 || static_cast<std::size_t>(control) > buttons.size())
        return nullptr;
    return buttons[static_cast<std::size_t>(control - 1)].get();
}

// A program's list of scenes, in the controller's order.
using SceneList = std::vector<std::shared_ptr<SceneValue>>;

// The name without the zero bytes at its end, as valid UTF-8: bytes that are no UTF-8 and control
// characters show as U+FFFD. For showing only; the record keeps the bytes.
[[nodiscard]] inline std::string displayName(std::string_view sceneName) {
    const std::size_t last = sceneName.find_last_not_of('\0');
    return readableText(last == std::string_view::npos ? "" : sceneName.substr(0, last + 1));
}

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
