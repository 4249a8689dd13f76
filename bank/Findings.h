// What there is to say of banks: what differs between two, setting by setting, and what a player
// would want to know of one before the gig, as controls that get in each other's way and settings
// that do nothing.
#pragma once

#include "bank/SettingText.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace scenewright {

struct Difference {
    SettingPlace place;
    SettingText first;  // in the first bank
    SettingText second; // in the second
};

// In the order of allSettings(), over as many scenes as both lists have. What the controller would
// store is compared: a name by its twelve bytes, a value outside 0..127 as 0.
[[nodiscard]] std::vector<Difference> differences(const PopUpValue& lists, const SceneList& first,
                                                  const SceneList& second);

// The two values as a person reads them: their titles, with the numbers where both have the same
// one; a value without a title as its number in parentheses; a name in quotation marks.
struct DifferenceTexts {
    std::string first;
    std::string second;
};
[[nodiscard]] DifferenceTexts valuesInWords(const Difference& difference);

// Writes the first bank's value into the scenes' own record, as an edit does. A record that the
// scenes do not hold is passed over.
void writeFirst(const Difference& difference, const SceneList& scenes);

// "Scene 1, Pad 3, Type: CC -> Note"; a value without a title stands as its number in parentheses.
// In the person's language but for the options' titles.
[[nodiscard]] std::string differenceWords(const Difference& difference);
// "scene1.pad3.AssignType  Scene 1, Pad 3, Type: CC -> Note".
[[nodiscard]] std::string differenceLine(const Difference& difference);
// Such a line for each, ended by a line feed.
[[nodiscard]] std::string differenceLines(const std::vector<Difference>& list);

// What became of a setting, for the person who changed it: "scene1.pad3.AssignType: CC -> Note
// (index 1 -> 2)", without the indices where the titles are the same numbers.
[[nodiscard]] std::string changeLine(const Difference& difference);
// Such a line for each, ended by a line feed.
[[nodiscard]] std::string changeLines(const std::vector<Difference>& list);

// A JSON array with an object for each, that ends in a line feed: "path", "words", and "first" and
// "second", objects of "value" and, where there is one, "title".
[[nodiscard]] std::string differencesJson(const std::vector<Difference>& list);

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
