// The view's set-up, and its observation of the progress record.
#include "app/WindowAction.h"
#include "editor/ValuePopUps.h"
#include "editor/ViewController.h"
#include "editor/options/SettingOptions.h"
#include "platform/Diagnostics.h"

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
        fill(popUp(row), optionList(*pu(), row.setting, kAssignController));
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
    return *(this->*row.outlet->read)();
}

} // namespace scenewright
