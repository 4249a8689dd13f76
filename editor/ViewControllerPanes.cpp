// What the panes and the device picture show of the scene, and what a user's choice writes into it.
#include "app/WindowAction.h"
#include "editor/ControlDescription.h"
#include "editor/ValuePopUps.h"
#include "editor/ViewController.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Diagnostics.h"

#include <fmt/printf.h>

namespace scenewright {

namespace {

std::string describe(const SceneValue& scene) {
    const std::string name =
        scene.commonValue() ? displayName(scene.commonValue()->SceneName()) : "";
    return fmt::sprintf("SceneValue %s, %d controls", name, scene.buttonValueArray().size());
}

// A note number beyond the list becomes the list's last. Compared without a sign, so that the mark
// of an absent field counts as beyond; the number of entries itself is let through, as ever.
void clampNumber(ButtonValue& record, std::size_t entries) {
    const std::int64_t number = record.CCOrNoteNumber();
    if (std::uint64_t{entries} < static_cast<std::uint64_t>(number))
        record.setCCOrNoteNumber(static_cast<std::int32_t>(entries) - 1);
}

} // namespace

void ViewController::showSceneValue() {
    operate([this] {
        setSceneValue(WindowAction::getSceneWithIndex(sceneIndex()));
        Diagnostics::log("%s", describe(*sceneValue()));
        controllerTableView()->selectRow(selectControl());
        displaySelect()->selectItem(dispaly_index());
        showDisplayValueWithIndex(dispaly_index());
        showChooseButtonWithIndex(0);
        showCommonValue();
    });
}

void ViewController::showChosenControl() {
    operate([this] {
        showPaneOfChosenControl();
        showDisplayValueWithIndex(dispaly_index());
    });
}

void ViewController::changeDispalyAction(const PopUp& sender) {
    operate([&] {
        setDispaly_index(sender.selectedItem());
        showDisplayValueWithIndex(dispaly_index());
    });
}

void ViewController::hideView() {
    for (Pane* pane : {commonView(), groupView(), knobView(), sliderView(), padView(), keyView()})
        pane->setHidden(true);
}

void ViewController::showCommonValue() {
    hideView();
    commonView()->setHidden(false);
    commonSceneName()->setText(sceneValue()->commonValue()->SceneName());
    showStoredValues(ControlKind::Common);
}

void ViewController::showGroupValue(std::int32_t index) {
    showControlPane(ControlKind::Group, index, *groupView());
}

void ViewController::showKnobValue(std::int32_t index) {
    showControlPane(ControlKind::Knob, index, *knobView());
}

void ViewController::showSliderValue(std::int32_t index) {
    showControlPane(ControlKind::Slider, index, *sliderView());
}

void ViewController::showPadValue(std::int32_t index) {
    showControlPane(ControlKind::Pad, index, *padView());
}

void ViewController::showKeyValue(std::int32_t index) {
    showControlPane(ControlKind::Key, index, *keyView());
}

void ViewController::showControlPane(ControlKind kind, std::int32_t index, Pane& pane) {
    hideView();
    if (!takeRecord(index))
        return;
    showStoredValues(kind);
    pane.setHidden(false);
}

bool ViewController::takeRecord(std::int32_t index) {
    const auto& records = sceneValue()->buttonValueArray();
    if (index < 1 || static_cast<std::size_t>(index) > records.size())
        return false;
    setButtonValue(records[static_cast<std::size_t>(index) - 1]);
    return true;
}

void ViewController::showStoredValues(ControlKind kind) {
    for (const ValuePopUp& row : valuePopUpsAsShown()) {
        if (row.pane() != kind)
            continue;
        if (row.outlet == &padCROutlet)
            Diagnostics::log("CR---------->%d", buttonValue()->CR());
        popUp(row).selectItem(storedValue(row));
        if (row.rule == ExtraRule::AssignType)
            showAssignment(row);
    }
    for (const ValuePopUp& row : valuePopUps()) {
        if (row.pane() == kind && row.rule == ExtraRule::EnablesOthers)
            enableDependents(row, storedValue(row));
    }
}

void ViewController::showAssignment(const ValuePopUp& row) {
    PopUp& number = popUp(numberRowOf(row));
    number.removeAllItems();
    enableDependents(row, storedValue(row));
    if (const Titles titles = offeredTitles(numberRowOf(row)))
        number.addItems(*titles);
}

void ViewController::enableDependents(const ValuePopUp& driver, std::int32_t value) {
    for (const ValuePopUp& row : valuePopUps()) {
        if (row.driver != driver.outlet)
            continue;
        if (const auto enabled = isEnabled(row.when, value))
            popUp(row).setEnabled(*enabled);
    }
}

std::int32_t ViewController::storedValue(const ValuePopUp& row) const {
    return row.common != nullptr ? row.common->of(*sceneValue()->commonValue())
                                 : row.button->of(*buttonValue());
}

Titles ViewController::offeredTitles(const ValuePopUp& row) const {
    if (row.rule != ExtraRule::AssignedNumber)
        return optionList(*pu(), row.setting, kAssignOff);
    const std::int32_t type = buttonValue()->AssignType();
    const bool offersAny = type == kAssignController || type == kAssignNote;
    return offersAny ? optionList(*pu(), row.setting, type) : nullptr;
}

void ViewController::showDisplayValueWithIndex(std::int32_t mode) {
    std::int32_t index = 0;
    for (const auto& record : sceneValue()->buttonValueArray())
        showTitle(++index, *record, mode);
    changeButtonColor();
}

void ViewController::showTitle(std::int32_t index, const ButtonValue& record, std::int32_t mode) {
    const auto kind = kindOf(index);
    Button* button = windowView()->viewWithTag(index);
    if (!kind || button == nullptr)
        return;
    button->setTitle(displaySummary(*pu(), *kind, record, mode));
}

void ViewController::changeValue(const PopUp& sender, const ValueOutlet& outlet) {
    operate([&] {
        const ValuePopUp& row = valuePopUp(outlet);
        const std::int32_t position = sender.selectedItem();
        if (row.common != nullptr) {
            row.common->set(*sceneValue()->commonValue(), position);
            applyRule(row, position);
        } else if (takeRecord(selectControl())) {
            row.button->set(*buttonValue(), position);
            applyRule(row, position);
            showDisplayValueWithIndex(dispaly_index());
        }
    });
}

void ViewController::applyRule(const ValuePopUp& row, std::int32_t value) {
    enableDependents(row, value);
    if (row.rule == ExtraRule::AssignType)
        offerNumbers(numberRowOf(row));
}

void ViewController::offerNumbers(const ValuePopUp& number) {
    const std::int32_t assignType = buttonValue()->AssignType();
    if (assignType != kAssignController && assignType != kAssignNote)
        return;
    const Titles titles = offeredTitles(number);
    popUp(number).removeAllItems();
    if (titles)
        popUp(number).addItems(*titles);
    if (assignType == kAssignNote)
        clampNumber(*buttonValue(), titles ? titles->size() : 0);
    popUp(number).selectItem(storedValue(number));
}

} // namespace scenewright
