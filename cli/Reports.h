// What is printed of scenes and of keyboards.
#pragma once

#include "app/Keyboards.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <span>
#include <string>

namespace scenewright {

// A scene's settings as text that fits a terminal of 80 columns: its name and scene-wide settings,
// then one table for each kind of control, every value under its option's title. `number` counts
// from 1. Ends with a blank line. With names, which take more columns than 80, what each control
// sends stands behind its values.
[[nodiscard]] std::string sceneTable(const PopUpValue& lists, const SceneValue& scene, int number,
                                     bool hasNames = false);
// The same of all, or of the one of this number.
[[nodiscard]] std::string sceneTables(const PopUpValue& lists, const SceneList& scenes,
                                      int only = 0, bool hasNames = false);

// The plugged-in MIDI devices, a paragraph a device: where it is, what it is, whether it is listed
// and can be opened, and what to do if not. Ends with a line feed.
[[nodiscard]] std::string deviceTable(std::span<const PluggedDevice> devices);

// An array with an object a device: bus, address, port, serial (or null), vendorId, productId,
// manufacturer, name, listed, canOpen, cause (why it cannot be opened, or null) and linesToAdd (or
// null). Ends with a line feed.
[[nodiscard]] std::string deviceJson(std::span<const PluggedDevice> devices);

} // namespace scenewright
