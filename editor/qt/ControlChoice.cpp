#include "editor/qt/ControlChoice.h"

#include <numeric>

namespace scenewright {

ControlChoice::ControlChoice(ViewController& view, DevicePicture& picture, ControlList& list,
                             ValuePanes& panes, QObject* parent)
    : QObject(parent), view_(view), picture_(picture), list_(list) {
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag)
        picture.button(tag)->setAction([this, tag] { click(*picture_.button(tag)); });
    connect(&picture, &DevicePicture::extended, this,
            [this](std::int32_t tag) { choose(tag, Qt::ShiftModifier); });
    connect(&picture, &DevicePicture::banded, this, &ControlChoice::chooseAll);
    connect(&list, &ControlList::rowChosen, this, &ControlChoice::choose);
    connect(&panes, &ValuePanes::choiceComing, this, &ControlChoice::writeBeside);
}

void ControlChoice::click(const ControlButton& button) {
    if ((button.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) != 0)
        return choose(button.tag(), button.modifiers());
    selection_.choose(button.tag());
    view_.chooseButtonAction(button); // also when it is the one that was chosen
}

void ControlChoice::choose(std::int32_t control, Qt::KeyboardModifiers modifiers) {
    if ((modifiers & Qt::ShiftModifier) != 0)
        selection_.extendTo(control);
    else if ((modifiers & Qt::ControlModifier) != 0)
        selection_.toggle(control);
    else if (selection_.controls() == std::vector{control})
        return; // the list has told the view
    else
        selection_.choose(control);
    apply();
}

void ControlChoice::chooseAll(const std::vector<std::int32_t>& controls,
                              Qt::KeyboardModifiers modifiers) {
    if (controls.empty())
        return;
    if (modifiers == Qt::NoModifier)
        selection_.chooseAll(controls);
    else
        selection_.add(controls);
    apply();
}

void ControlChoice::selectAll() {
    const ControlRange* const range = controlRangeOf(selection_.chosen());
    if (range == nullptr)
        return;
    std::vector<std::int32_t> controls(static_cast<std::size_t>(range->count));
    std::iota(controls.begin(), controls.end(), range->start);
    selection_.chooseAll(controls);
    apply();
}

void ControlChoice::apply() {
    const std::int32_t chosen = selection_.chosen();
    if (view_.selectControl() == chosen) {
        emit changed();
    } else if (chosen > 0) {
        view_.chooseButtonAction(*picture_.button(chosen));
    } else {
        view_.setSelectControl(chosen); // the scene's own settings have no button
        list_.selectRow(chosen);
    }
}

void ControlChoice::follow() {
    if (selection_.chosen() != view_.selectControl())
        selection_.choose(view_.selectControl());
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag)
        picture_.button(tag)->setTaken(selection_.has(tag) && tag != selection_.chosen());
    list_.selectBeside(selection_.controls());
}

void ControlChoice::writeBeside(const Setting& setting, std::int32_t option) {
    const SceneValue& scene = *view_.sceneValue();
    const ControlRange& range = controlRange(setting.kind());
    for (const std::int32_t control : selection_.alike()) {
        if (control == selection_.chosen())
            continue;
        setting.write(scene, control - range.start, option);
        if (setting.name() == ButtonValue::AssignTypeField.name && option == kAssignNote)
            clampNote(*scene.buttonValueArray().at(static_cast<std::size_t>(control) - 1),
                      findSetting(range.kind, ButtonValue::CCOrNoteNumberField.name)
                          ->details()
                          .noteList->of(*view_.pu()));
    }
}

} // namespace scenewright
