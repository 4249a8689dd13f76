// What the documents of MIDI call a controller's number, and General MIDI a note on its percussion
// channel.
//
// Sources, all of the MIDI Manufacturers Association: the table of Control Change messages of MIDI
// 1.0; RP-021 (sound controllers 70 to 79), RP-023 (effect depths 91 and 93) and CA-031 (controller
// 88); General MIDI System Level 1, Percussion Key Map. Where a recommended practice
// names a controller anew, its name comes first and the former one follows in parentheses. The
// names are theirs and are not translated.
#pragma once

#include "model/ControlOutput.h"
#include "model/PopUpValue.h"
#include "model/Setting.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace scenewright {

// General MIDI's percussion channel, as an index of a channel list.
inline constexpr std::int32_t kPercussionChannel = 9;

// By number, 128 of them; empty where a number is undefined.
[[nodiscard]] std::span<const std::string_view> controllerNames();
// The same by note; the map goes from 35 to 81.
[[nodiscard]] std::span<const std::string_view> percussionNames();

// What the options of the setting are called beside their titles, in a control of this
// `AssignType`: one of the two above for the number that a control sends, and for every other
// setting what writtenTitles() gives.
[[nodiscard]] std::span<const std::string_view> optionNames(const Setting& setting,
                                                            std::int32_t assignType);

// A name without what stands in parentheses behind it.
[[nodiscard]] std::string_view shortName(std::string_view name);

// What a message of a control is called: "CC 74 Brightness", "MIDI 48 C3", and on the percussion
// channel "MIDI 36 C2, Bass Drum 1".
[[nodiscard]] std::string outputName(const PopUpValue& lists, const ControlOutput& output);

} // namespace scenewright
