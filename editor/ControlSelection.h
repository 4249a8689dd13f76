// Which controls are chosen, and what is copied from one to others. A control is named by its
// index, 0 to 45; the scene-wide settings, 0, are a kind of their own and stand alone. Main thread
// only.
#pragma once

#include "model/SceneValue.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace scenewright {

// One control, whose settings the pane shows, and others beside it that take the same changes.
class ControlSelection {
public:
    // That one alone; -1 for none.
    void choose(std::int32_t control);
    // These alone. The one that was chosen stays the chosen one if it is among them; else it is the
    // last of them.
    void chooseAll(std::span<const std::int32_t> controls);
    // The same, beside those of before.
    void add(std::span<const std::int32_t> controls);
    // Takes it in, as the chosen one, or out; the last one stays.
    void toggle(std::int32_t control);
    // All from the one that was chosen or toggled last to this one, which is the chosen one then.
    void extendTo(std::int32_t control);

    // -1 for none.
    [[nodiscard]] std::int32_t chosen() const { return controls_.empty() ? -1 : controls_.back(); }
    [[nodiscard]] bool has(std::int32_t control) const;
    // In the order in which they were taken in; the chosen one is the last.
    [[nodiscard]] const std::vector<std::int32_t>& controls() const { return controls_; }
    // Those of the chosen one's kind, itself among them, in the order of their indices.
    [[nodiscard]] std::vector<std::int32_t> alike() const;

private:
    std::vector<std::int32_t> controls_{0};
    std::int32_t anchor_ = 0; // where an extension starts
};

// "Pad 3", "Pad 3 and 7 more pads": what the pane stands for.
[[nodiscard]] std::string paneTitle(const ControlSelection& selection);
// "Pad 3", "8 Pads": what takes a change.
[[nodiscard]] std::string alikeTitle(const ControlSelection& selection);

// A control's settings without a scene's name. The values go straight into the scene's own records,
// as an edit does.
class ControlClipboard {
public:
    // Takes the values as they are now. False, with the former copy kept, when the scene has no
    // such control.
    bool copy(const SceneValue& scene, std::int32_t control);
    [[nodiscard]] bool canPaste(std::int32_t control) const;
    // False, and nothing changed, for a control of another kind or one that the scene does not
    // have.
    [[nodiscard]] bool paste(const SceneValue& scene, std::int32_t control) const;

private:
    std::optional<ControlKind> kind_;
    std::vector<std::int32_t> values_; // in the order of the kind's settings
};

// Gives the control the values of the same control of the default scene. False, and nothing
// changed, when either scene does not have it.
bool resetControl(const SceneValue& scene, std::int32_t control);

} // namespace scenewright
