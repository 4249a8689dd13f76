// Which controls are chosen: one, whose settings the pane shows, and others beside it that take the
// same changes. Controls are given by their index; the scene-wide settings, 0, stand alone.
#pragma once

#include "model/Control.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace scenewright {

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

} // namespace scenewright
