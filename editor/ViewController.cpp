#include "editor/ViewController.h"

#include "app/WindowAction.h"
#include "editor/ControlDescription.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Diagnostics.h"

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

constexpr std::int32_t kFirstDisplayMode = 2; // CC or note number
constexpr const char* kMessageKey = "Message";
constexpr const char* kReadFinishKey = "isReadFinish";

void setControlRanges(ButtonRange& range) {
    range.setCommon_start(controlRange(ControlKind::Common).start);
    range.setGroup_start(controlRange(ControlKind::Group).start);
    range.setKnob_start(controlRange(ControlKind::Knob).start);
    range.setSlider_start(controlRange(ControlKind::Slider).start);
    range.setPad_start(controlRange(ControlKind::Pad).start);
    range.setKey_start(controlRange(ControlKind::Key).start);
    range.setAll(kControlIndexEnd);
}

void fill(PopUp& popUp, const Titles& titles) {
    if (titles)
        popUp.addItems(*titles);
}

MessageValue::Text valueIn(const ViewController::Change& change, std::string_view key) {
    const auto entry = change.find(key);
    return entry == change.end() ? std::nullopt : entry->second;
}

constexpr Colour kTitleGreen{50, 180, 50};

std::string describe(const SceneValue& scene) {
    const std::string name =
        scene.commonValue() ? displayName(scene.commonValue()->SceneName()) : "";
    return printfText("SceneValue %s, %d controls", name, scene.buttonValueArray().size());
}

} // namespace

void ViewController::viewDidLoad() {
    setControlRanges(*this);
    setSelectControl(common_start());
    controllerTableView()->setDelegate(this);
    controllerTableView()->setDataSource(this);
    setUI();
    getItem();
    setSceneIndex(0);
    setDispaly_index(kFirstDisplayMode);
    WindowAction::getSceneValue();
    setMessageValue(WindowAction::getMessageValue());
    showSceneValue();
    observe(kMessageKey);
    observe(kReadFinishKey);
}

void ViewController::setUI() {
    commonSceneName()->setEditable(false);
}

void ViewController::getItem() {
    displaySelect()->removeAllItems();
    for (const ValuePopUp& row : valuePopUps())
        popUp(row).removeAllItems();
    setPu(WindowAction::InitializePopUp());
    fill(*displaySelect(), pu()->display_Select_Array());
    setControlArray(pu()->control_Array());
    controllerTableView()->reload();
    for (const ValuePopUp& row : valuePopUps())
        fill(popUp(row), optionList(*pu(), *row.setting, kAssignController));
}

void ViewController::observe(std::string_view key) {
    observed_.push_back(messageValue()->addObserver(
        std::string(key), [this](std::string_view changed, const MessageValue::Text& value) {
            observeValueForKeyPath_ofObject_change_context(changed, messageValue().get(),
                                                           {{"new", value}}, nullptr);
        }));
}

void ViewController::observeValueForKeyPath_ofObject_change_context(std::string_view keyPath,
                                                                    const MessageValue* /*object*/,
                                                                    const Change& change,
                                                                    const void* /*context*/) {
    Diagnostics::log("has change");
    const MessageValue::Text value = valueIn(change, "new");
    if (keyPath == kMessageKey) {
        Diagnostics::log("%s  %s", value.value_or("(null)"),
                         valueIn(change, "old").value_or("(null)"));
        if (message() != nullptr)
            message()->setText(value.value_or(""));
    } else if (keyPath == kReadFinishKey && value == "Yes") {
        operate([this] {
            setSelectControl(0);
            showSceneValue();
        });
    }
}

void ViewController::operate(const std::function<void()>& operation) {
    struct Operating {
        explicit Operating(bool& value) : flag(value) {}
        Operating(const Operating&) = delete;
        Operating& operator=(const Operating&) = delete;
        Operating(Operating&&) = delete;
        Operating& operator=(Operating&&) = delete;
        ~Operating() { flag = false; }
        bool& flag;
    };
    if (isOperating_) {
        operation();
        return;
    }
    const Operating operating(isOperating_);
    isOperating_ = true;
    operation();
    if (onChange_)
        onChange_();
}

PopUp& ViewController::popUp(const ValuePopUp& row) const {
    return *(this->*row.read)();
}

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
