// Which scene and which control are chosen: the control list, the picture's buttons, the scenes.
#include "editor/ViewController.h"
#include "platform/Diagnostics.h"

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

constexpr Colour kTitleGreen{50, 180, 50};

} // namespace

std::int32_t ViewController::numberOfRowsInTableView(const List* /*tableView*/) const {
    return controlArray() ? static_cast<std::int32_t>(controlArray()->size()) : 0;
}

std::string ViewController::tableView_objectValueForTableColumn_row(const List* /*tableView*/,
                                                                    std::int32_t /*column*/,
                                                                    std::int32_t row) const {
    const std::string* title = titleAt(controlArray(), row);
    return title == nullptr ? std::string() : *title;
}

bool ViewController::tableView_shouldEditTableColumn_row(const List* /*tableView*/,
                                                         std::int32_t /*column*/,
                                                         std::int32_t /*row*/) const {
    return false;
}

std::vector<std::int32_t> ViewController::tableView_selectionIndexesForProposedSelection(
    const List* tableView, const std::vector<std::int32_t>& rows) {
    setSelectControl(tableView->clickedRow());
    return rows;
}

void ViewController::tableViewSelectionDidChange(const List* /*tableView*/) {
    operate([this] {
        Diagnostics::log("表格选中:%d", selectControl());
        showPaneOfChosenControl();
        showChooseButtonWithIndex(selectControl());
    });
}

void ViewController::showPaneOfChosenControl() {
    const std::int32_t index = selectControl();
    if (const auto kind = kindOf(index)) {
        switch (*kind) {
        case ControlKind::Common:
            showCommonValue();
            break;
        case ControlKind::Group:
            showGroupValue(index);
            break;
        case ControlKind::Knob:
            showKnobValue(index);
            break;
        case ControlKind::Slider:
            showSliderValue(index);
            break;
        case ControlKind::Pad:
            showPadValue(index);
            break;
        case ControlKind::Key:
            showKeyValue(index);
            break;
        }
    }
}

void ViewController::chooseButtonAction(const Button& sender) {
    operate([&] {
        setSelectControl(sender.tag());
        Diagnostics::log("点击了按钮：%d", selectControl());
        controllerTableView()->selectRow(selectControl());
    });
}

void ViewController::changeSceneAction(const Segmented& sender) {
    operate([&] {
        setSceneIndex(sender.selectedSegment());
        setSelectControl(0);
        showSceneValue();
    });
}

void ViewController::showChooseButtonWithIndex(std::int32_t index) {
    for (std::int32_t tag = 1; tag <= all(); ++tag) {
        if (Button* button = windowView()->viewWithTag(tag))
            button->setImage(tag == index ? std::optional<std::string>("selected") : std::nullopt);
    }
}

void ViewController::changeButtonColor() {
    for (std::int32_t tag = 1; tag <= all(); ++tag) {
        if (Button* button = windowView()->viewWithTag(tag))
            setTextColor_color(*button, kTitleGreen);
    }
}

void ViewController::setTextColor_color(Button& button, const Colour& colour) {
    AttributedTitle title = button.attributedTitle();
    title.colour = colour;
    button.setAttributedTitle(title);
    button.setNeedsDisplay();
}

std::optional<ControlKind> ViewController::kindOf(std::int32_t index) const {
    // Every kind but the last ends where the next one starts; the order is that of ControlKind.
    const std::array ends{group_start(), knob_start(), slider_start(),
                          pad_start(),   key_start(),  all()};
    if (index < common_start() || index >= all())
        return std::nullopt;
    const auto* end = std::ranges::find_if(ends, [index](std::int32_t e) { return index < e; });
    return static_cast<ControlKind>(end - ends.begin());
}

std::int32_t ViewController::rowCount() {
    return numberOfRowsInTableView(controllerTableView());
}

std::string ViewController::rowTitle(std::int32_t row) {
    return tableView_objectValueForTableColumn_row(controllerTableView(), 0, row);
}

bool ViewController::mayEdit(std::int32_t row) {
    return tableView_shouldEditTableColumn_row(controllerTableView(), 0, row);
}

std::vector<std::int32_t> ViewController::proposeSelection(const std::vector<std::int32_t>& rows) {
    return tableView_selectionIndexesForProposedSelection(controllerTableView(), rows);
}

void ViewController::selectionDidChange() {
    tableViewSelectionDidChange(controllerTableView());
}

} // namespace scenewright
