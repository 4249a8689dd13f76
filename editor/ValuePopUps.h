// The 31 value popups of the editor as data. Filling them, showing a record in them and writing a
// choice back all follow from these rows.
#pragma once

#include "editor/ValueOutlet.h"
#include "model/Control.h"
#include "model/Setting.h"

#include <cstdint>
#include <optional>
#include <span>

namespace scenewright {

// When a popup can be used, by the value of the popup that it depends on.
enum class EnableWhen : std::uint8_t {
    Always,
    ConstantCurve, // a velocity curve of 3
    Enabled,       // an enable setting other than 0
    Assigned,      // an assign type of 1 or 2
    Controller,    // an assign type of 1
};

// Nothing where the value decides nothing: the popup stays as it is.
[[nodiscard]] std::optional<bool> isEnabled(EnableWhen when, std::int32_t value);

// What a choice does beyond writing its field.
enum class ExtraRule : std::uint8_t {
    None,
    EnablesOthers,  // decides which popups can be used
    AssignType,     // that, and which list the number popup offers
    AssignedNumber, // the number popup of a control with an assign type
};

struct ValuePopUp {
    const ValueOutlet* outlet = nullptr;
    Setting setting; // its kind says the pane; its option list stands in SettingOptions
    // The field in the scene's common settings, or in the chosen control's record; one is null.
    const IndexField<CommonValue>* common = nullptr;
    const IndexField<ButtonValue>* button = nullptr;
    ExtraRule rule = ExtraRule::None;
    const ValueOutlet* driver = nullptr; // whose value decides `when`; null when always
    EnableWhen when{};

    [[nodiscard]] constexpr ControlKind pane() const { return setting.kind(); }
};

// In the order in which the popups are filled.
[[nodiscard]] std::span<const ValuePopUp> valuePopUps();

// The same rows in the order in which a pane selects its values.
[[nodiscard]] std::span<const ValuePopUp> valuePopUpsAsShown();

// The row of an outlet, one of valuePopUps(). Throws std::out_of_range for an outlet without a row.
[[nodiscard]] const ValuePopUp& valuePopUp(const ValueOutlet& outlet);

// The number popup of an assign-type row's pane. Throws std::out_of_range when it has none.
[[nodiscard]] const ValuePopUp& numberRowOf(const ValuePopUp& assignType);

} // namespace scenewright
