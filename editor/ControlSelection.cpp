#include "editor/ControlSelection.h"

#include "editor/ControlDescription.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

struct MoreTitle {
    SourceText one;
    SourceText several;
};

// By kind; the scene-wide settings have none beside them.
constexpr std::array<MoreTitle, kControlRanges.size()> kMoreTitles{{
    {},
    {sourceText("scenewright::Control", "{} and 1 more group"),
     sourceText("scenewright::Control", "{0} and {1} more groups")},
    {sourceText("scenewright::Control", "{} and 1 more knob"),
     sourceText("scenewright::Control", "{0} and {1} more knobs")},
    {sourceText("scenewright::Control", "{} and 1 more slider"),
     sourceText("scenewright::Control", "{0} and {1} more sliders")},
    {sourceText("scenewright::Control", "{} and 1 more pad"),
     sourceText("scenewright::Control", "{0} and {1} more pads")},
    {sourceText("scenewright::Control", "{} and 1 more key"),
     sourceText("scenewright::Control", "{0} and {1} more keys")},
}};

bool standsAlone(std::int32_t control) {
    return control <= controlRange(ControlKind::Common).start;
}

// Null when the scene does not have the control.
const ControlRange* rangeIn(const SceneValue& scene, std::int32_t control) {
    const ControlRange* range = controlRangeOf(control);
    if (range == nullptr)
        return nullptr;
    const bool isThere = range->kind == ControlKind::Common
                             ? scene.commonValue() != nullptr
                             : static_cast<std::size_t>(control) <= scene.buttonValueArray().size();
    return isThere ? range : nullptr;
}

} // namespace

void ControlSelection::choose(std::int32_t control) {
    controls_.clear();
    if (control >= 0)
        controls_.push_back(control);
    anchor_ = control;
}

void ControlSelection::chooseAll(std::span<const std::int32_t> controls) {
    const std::int32_t former = chosen();
    controls_.clear();
    add(controls);
    if (has(former)) {
        std::erase(controls_, former);
        controls_.push_back(former);
    }
    anchor_ = chosen();
}

void ControlSelection::add(std::span<const std::int32_t> controls) {
    std::erase_if(controls_, standsAlone);
    for (const std::int32_t control : controls)
        if (!has(control))
            controls_.push_back(control);
    anchor_ = chosen();
}

void ControlSelection::toggle(std::int32_t control) {
    if (standsAlone(control) || standsAlone(chosen()))
        return choose(control);
    anchor_ = control;
    if (!has(control))
        controls_.push_back(control);
    else if (controls_.size() > 1)
        std::erase(controls_, control);
}

void ControlSelection::extendTo(std::int32_t control) {
    if (standsAlone(control) || standsAlone(anchor_))
        return choose(control);
    controls_.clear();
    const std::int32_t step = control < anchor_ ? -1 : 1;
    for (std::int32_t at = anchor_; at != control; at += step)
        controls_.push_back(at);
    controls_.push_back(control);
}

bool ControlSelection::has(std::int32_t control) const {
    return std::ranges::find(controls_, control) != controls_.end();
}

std::vector<std::int32_t> ControlSelection::alike() const {
    std::vector<std::int32_t> alike;
    if (const ControlRange* const range = controlRangeOf(chosen()))
        for (std::int32_t control = range->start; control < range->end(); ++control)
            if (has(control))
                alike.push_back(control);
    return alike;
}

std::string paneTitle(const ControlSelection& selection) {
    std::string chosen = controlName(std::max(0, selection.chosen()));
    const std::size_t count = selection.alike().size();
    if (count < 2)
        return chosen;
    const MoreTitle& more =
        kMoreTitles.at(static_cast<std::size_t>(controlRangeOf(selection.chosen())->kind));
    return count == 2 ? translated(more.one, chosen) : translated(more.several, chosen, count - 1);
}

std::string alikeTitle(const ControlSelection& selection) {
    const std::size_t count = selection.alike().size();
    return count < 2 ? controlName(selection.chosen())
                     : kindTitle(controlRangeOf(selection.chosen())->kind, count);
}

bool ControlClipboard::copy(const SceneValue& scene, std::int32_t control) {
    const ControlRange* range = rangeIn(scene, control);
    if (range == nullptr)
        return false;
    kind_ = range->kind;
    values_.clear();
    for (const Setting& setting : settings())
        if (setting.kind() == range->kind)
            values_.push_back(setting.read(scene, control - range->start));
    return true;
}

bool ControlClipboard::canPaste(std::int32_t control) const {
    const ControlRange* range = controlRangeOf(control);
    return range != nullptr && kind_ == range->kind;
}

bool ControlClipboard::paste(const SceneValue& scene, std::int32_t control) const {
    const ControlRange* range = rangeIn(scene, control);
    if (range == nullptr || !canPaste(control))
        return false;
    auto value = values_.begin();
    for (const Setting& setting : settings())
        if (setting.kind() == range->kind)
            setting.write(scene, control - range->start, *value++);
    return true;
}

bool resetControl(const SceneValue& scene, std::int32_t control) {
    ControlClipboard defaults;
    return defaults.copy(*FileAction::GetSceneFromDefault(), control) &&
           defaults.paste(scene, control);
}

} // namespace scenewright
