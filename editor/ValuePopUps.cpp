#include "editor/ValuePopUps.h"

#include "editor/ViewController.h"

#include <algorithm>
#include <array>
#include <utility>

namespace scenewright {

namespace {

constexpr std::int32_t kConstantCurve = 3;

#define SCENEWRIGHT_ROW(Kind, Field, Name, SetName, Action) ViewController::Name##PopUp,
constexpr auto kValuePopUps =
    std::to_array<ValuePopUp>({SCENEWRIGHT_VALUE_POPUPS(SCENEWRIGHT_ROW)});
#undef SCENEWRIGHT_ROW

consteval bool coversEverySettingOnce() {
    return std::ranges::all_of(kSettings, [](const Setting& setting) {
        return std::ranges::count(kValuePopUps, &setting, &ValuePopUp::setting) == 1;
    });
}
static_assert(kValuePopUps.size() == kSettingCount && coversEverySettingOnce());

// A travel's ends are filled from the upper one and selected from the lower one.
consteval auto lowerBeforeUpper(std::array<ValuePopUp, kSettingCount> rows) {
    for (std::size_t place = 0; place + 1 < rows.size(); ++place)
        if (rows.at(place + 1).setting->name() == ButtonValue::LowerOrLeftValueField.name)
            std::swap(rows.at(place), rows.at(place + 1));
    return rows;
}
constexpr auto kAsShown = lowerBeforeUpper(kValuePopUps);

std::optional<bool> isEnabledByAssignType(EnableWhen when, std::int32_t assignType) {
    switch (assignType) {
    case kAssignOff:
        return false;
    case kAssignController:
        return true;
    case kAssignNote:
        return when == EnableWhen::Assigned;
    default:
        return std::nullopt;
    }
}

} // namespace

std::span<const ValuePopUp> valuePopUps() {
    return kValuePopUps;
}

std::span<const ValuePopUp> valuePopUpsAsShown() {
    return kAsShown;
}

const ValuePopUp* numberPopUpOf(const ValuePopUp& driver) {
    const auto* const found = std::ranges::find_if(kValuePopUps, [&](const ValuePopUp& row) {
        return row.setting->details().noteList != nullptr &&
               row.setting->isDrivenBy(*driver.setting);
    });
    return found == kValuePopUps.end() ? nullptr : found;
}

void clampNote(ButtonValue& record, const Titles& notes) {
    const std::size_t entries = notes ? notes->size() : 0;
    const std::int64_t number = record.CCOrNoteNumber();
    if (std::uint64_t{entries} < static_cast<std::uint64_t>(number))
        record.setCCOrNoteNumber(static_cast<std::int32_t>(entries) - 1);
}

std::optional<bool> isEnabled(EnableWhen when, std::int32_t value) {
    switch (when) {
    case EnableWhen::Always:
        return true;
    case EnableWhen::ConstantCurve:
        return value == kConstantCurve;
    case EnableWhen::Enabled:
        return value != 0;
    case EnableWhen::Assigned:
    case EnableWhen::Controller:
        return isEnabledByAssignType(when, value);
    }
    return std::nullopt;
}

} // namespace scenewright
