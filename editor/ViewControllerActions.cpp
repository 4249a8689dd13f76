// What a user's choice in a value popup writes into the scene.
#include "editor/ValuePopUps.h"
#include "editor/ViewController.h"
#include "editor/options/SettingOptions.h"

namespace scenewright {

namespace {

// A note number beyond the list becomes the list's last. Compared without a sign, so that the mark
// of an absent field counts as beyond; the number of entries itself is let through, as ever.
void clampNumber(ButtonValue& record, std::size_t entries) {
    const std::int64_t number = record.CCOrNoteNumber();
    if (std::uint64_t{entries} < static_cast<std::uint64_t>(number))
        record.setCCOrNoteNumber(static_cast<std::int32_t>(entries) - 1);
}

} // namespace

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
