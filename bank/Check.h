// What a player would want to know of a bank before the gig: controls that get in each other's way,
// and settings that do nothing.
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace scenewright {

struct Finding {
    enum class Kind : std::uint8_t {
        SameMessage,  // two or more controls send one controller or note on one channel
        SendsNothing, // off, not enabled, or with a value that its list does not have
        OneValue,     // on and off, or both ends of travel, are the same value
        SilentNotes,  // a constant velocity of 0, which ends notes and begins none
        OutOfRange,   // the transposition moves the note out of range
        BlankName,    // nothing of the scene's name can be seen
    };
    Kind kind = Kind::SameMessage;
    // Whether it is so whatever the keyboard does. Otherwise it rests on what ControlOutput.h
    // assumes, and the text says "may".
    bool isSure = true;
    std::int32_t scene = 0; // from 0
    std::vector<std::int32_t>
        controls{};      // control indices in ascending order; 0 is the scene itself
    std::string field{}; // the setting that is to blame, where it is one
    std::string text{};  // one phrase without the place, in the person's language
};

// By scene, then in the order of the kinds.
[[nodiscard]] std::vector<Finding> findingsOf(const PopUpValue& lists, const SceneList& scenes);

// "scene1.pad3", "scene1.common" for each control of a finding, with the field where there is one.
[[nodiscard]] std::vector<std::string> pathsOf(const Finding& finding);
// "scene1.knob1, scene1.pad3  Scene 1, Knob 1, Pad 3: may all send CC 7 Channel Volume on channel
// 1", each ended by a line feed.
[[nodiscard]] std::string findingLines(const std::vector<Finding>& findings);
// A JSON array with an object for each, that ends in a line feed: "kind", "sure", "paths", "text".
[[nodiscard]] std::string findingsJson(const std::vector<Finding>& findings);

} // namespace scenewright
