#include "model/Setting.h"

#include "model/Midi.h"
#include "platform/Resources.h"

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

// In the order of the kinds.
constexpr std::array kKindTitles{
    sourceText("scenewright::Control", "Common"), sourceText("scenewright::Control", "Group"),
    sourceText("scenewright::Control", "Knob"),   sourceText("scenewright::Control", "Slider"),
    sourceText("scenewright::Control", "Pad"),    sourceText("scenewright::Control", "Key"),
};
constexpr std::array kKindsTitles{
    sourceText("scenewright::Control", "Common"),
    sourceText("scenewright::Control", "{} Groups"),
    sourceText("scenewright::Control", "{} Knobs"),
    sourceText("scenewright::Control", "{} Sliders"),
    sourceText("scenewright::Control", "{} Pads"),
    sourceText("scenewright::Control", "{} Keys"),
};
static_assert(kKindTitles.size() == std::size(kControlRanges) &&
              kKindsTitles.size() == kKindTitles.size());

// The record of a kind's member; null when the scene does not hold it.
ButtonValue* recordOf(const SceneValue& scene, ControlKind kind, std::int32_t member) {
    const ControlRange& range = controlRange(kind);
    const bool isMember = member >= 0 && member < range.count;
    return isMember ? recordAt(scene, range.start + member) : nullptr;
}

std::int32_t assignTypeOf(const SceneValue& scene, const Setting& setting, std::int32_t member) {
    const ButtonValue* const record =
        setting.details().noteList == nullptr ? nullptr : recordOf(scene, setting.kind(), member);
    return record != nullptr ? record->AssignType() : kAssignOff;
}

// The file writes the keys of the common settings with a small initial, unlike those of its
// controls.
std::string commonKey(const Setting& setting) {
    std::string key(setting.name());
    key.front() = static_cast<char>(key.front() - 'A' + 'a');
    return key;
}

} // namespace

bool holds(ControlCondition condition, const ButtonValue& record) {
    switch (condition) {
    case ControlCondition::Always:
        return true;
    case ControlCondition::Disabled:
        return record.Enable() == 0;
    case ControlCondition::Enabled:
        return record.Enable() != 0;
    case ControlCondition::Unassigned:
        return record.AssignType() == kAssignOff;
    case ControlCondition::Assigned:
        return record.AssignType() != kAssignOff;
    case ControlCondition::Controller:
        return record.AssignType() == kAssignController;
    case ControlCondition::Note:
        return record.AssignType() == kAssignNote;
    }
    return false;
}

std::int32_t Setting::read(const SceneValue& scene, std::int32_t member) const {
    if (common_ != nullptr)
        return scene.commonValue() ? common_->of(*scene.commonValue()) : kFieldAbsent;
    const ButtonValue* const record = recordOf(scene, kind_, member);
    return record != nullptr ? button_->of(*record) : kFieldAbsent;
}

void Setting::write(const SceneValue& scene, std::int32_t member, std::int32_t value) const {
    if (common_ != nullptr) {
        if (scene.commonValue())
            common_->set(*scene.commonValue(), value);
    } else if (ButtonValue* const record = recordOf(scene, kind_, member); record != nullptr) {
        button_->set(*record, value);
    }
}

Titles optionList(const PopUpValue& lists, const Setting& setting, std::int32_t assignType) {
    const OptionList* const notes = setting.details().noteList;
    const bool isNote = notes != nullptr && assignType == kAssignNote;
    return (isNote ? *notes : setting.list()).of(lists);
}

std::span<const std::string_view> optionNames(const Setting& setting, std::int32_t assignType) {
    if (setting.name() != "CCOrNoteNumber")
        return writtenTitles(setting.list());
    const bool isNote = setting.details().noteList != nullptr && assignType == kAssignNote;
    return isNote ? percussionNames() : controllerNames();
}

std::string optionTitle(const PopUpValue& lists, const Setting& setting, const SceneValue& scene,
                        std::int32_t member) {
    const Titles titles = optionList(lists, setting, assignTypeOf(scene, setting, member));
    const std::string* title = titleAt(titles, setting.read(scene, member));
    return title == nullptr ? std::string(kNoTitle) : *title;
}

std::string settingTitle(const Setting& setting) {
    return translated(setting.title());
}

std::string kindTitle(ControlKind kind) {
    return translated(kKindTitles.at(static_cast<std::size_t>(kind)));
}

std::string kindTitle(ControlKind kind, std::size_t count) {
    return translated(kKindsTitles.at(static_cast<std::size_t>(kind)), count);
}

std::shared_ptr<ButtonValue> ButtonAction::GetButtonValueFromDic(const PropertyValue& dictionary) {
    auto button = std::make_shared<ButtonValue>();
    button->setButtonID(dictionary["BtnID"].integer());
    // Every other key is the name of its field.
    for (const IndexField<ButtonValue>& field : kButtonOptionFields)
        field.set(*button, dictionary[field.name].integer());
    return button;
}

std::shared_ptr<CommonValue> CommonAction::GetCommonValueFromDic(const PropertyValue& dictionary) {
    auto common = std::make_shared<CommonValue>();
    for (const Setting& setting : settings())
        if (setting.common() != nullptr)
            setting.common()->set(*common, dictionary[commonKey(setting)].integer());
    return common;
}

std::shared_ptr<SceneValue> FileAction::GetSceneFromDefault() {
    const PropertyValue file = Resources::load("default");
    std::vector<std::shared_ptr<ButtonValue>> buttons;
    for (const PropertyValue& dictionary : file["ButtonArray"].elements())
        buttons.push_back(ButtonAction::GetButtonValueFromDic(dictionary));

    auto scene = std::make_shared<SceneValue>();
    scene->setButtonValueArray(std::move(buttons));
    scene->setCommonValue(CommonAction::GetCommonValueFromDic(file["CommonValue"]));
    return scene;
}

} // namespace scenewright
