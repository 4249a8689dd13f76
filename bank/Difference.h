// What differs between two banks, setting by setting.
#pragma once

#include "bank/Path.h"
#include "bank/SettingText.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

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

} // namespace scenewright
