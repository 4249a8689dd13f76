// What the panes and the device picture show of the scene, and what a user's choice writes into it.
#include "app/WindowAction.h"
#include "editor/ControlDescription.h"
#include "editor/ViewController.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Diagnostics.h"

namespace scenewright {

namespace {

std::string describe(const SceneValue& scene) {
    const std::string name =
        scene.commonValue() ? displayName(scene.commonValue()->SceneName()) : "";
    return printfText("SceneValue %s, %d controls", name, scene.buttonValueArray().size());
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
        if (row.setting == padCRPopUp.setting)
            Diagnostics::log("CR---------->%d", buttonValue()->CR());
        popUp(row).selectItem(storedValue(row));
        if (const ValuePopUp* const number = numberPopUpOf(row))
            showAssignment(row, *number);
    }
    for (const ValuePopUp& row : valuePopUps()) {
        if (row.pane() == kind && numberPopUpOf(row) == nullptr)
            enableDependents(row, storedValue(row));
    }
}

void ViewController::showAssignment(const ValuePopUp& row, const ValuePopUp& number) {
    popUp(number).removeAllItems();
    enableDependents(row, storedValue(row));
    if (const Titles titles = offeredTitles(number))
        popUp(number).addItems(*titles);
}

void ViewController::enableDependents(const ValuePopUp& driver, std::int32_t value) {
    for (const ValuePopUp& row : valuePopUps()) {
        if (!row.setting->isDrivenBy(*driver.setting))
            continue;
        if (const auto enabled = isEnabled(row.setting->details().enable, value))
            popUp(row).setEnabled(*enabled);
    }
}

std::int32_t ViewController::storedValue(const ValuePopUp& row) const {
    const IndexField<CommonValue>* const common = row.setting->common();
    return common != nullptr ? common->of(*sceneValue()->commonValue())
                             : row.setting->button()->of(*buttonValue());
}

Titles ViewController::offeredTitles(const ValuePopUp& row) const {
    if (row.setting->details().noteList == nullptr)
        return optionList(*pu(), *row.setting, kAssignOff);
    const std::int32_t type = buttonValue()->AssignType();
    const bool offersAny = type == kAssignController || type == kAssignNote;
    return offersAny ? optionList(*pu(), *row.setting, type) : nullptr;
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

void ViewController::changeValue(const PopUp& sender, const ValuePopUp& row) {
    operate([&] {
        const std::int32_t position = sender.selectedItem();
        if (const IndexField<CommonValue>* const common = row.setting->common()) {
            common->set(*sceneValue()->commonValue(), position);
            applyRule(row, position);
        } else if (takeRecord(selectControl())) {
            row.setting->button()->set(*buttonValue(), position);
            applyRule(row, position);
            showDisplayValueWithIndex(dispaly_index());
        }
    });
}

void ViewController::applyRule(const ValuePopUp& row, std::int32_t value) {
    enableDependents(row, value);
    if (const ValuePopUp* const number = numberPopUpOf(row))
        offerNumbers(*number);
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
        clampNote(*buttonValue(), titles);
    popUp(number).selectItem(storedValue(number));
}

} // namespace scenewright
