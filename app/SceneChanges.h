// What one step of editing changed in the scenes: the settings concerned, with their values before
// and after it, so that it can be taken back and done again. Main thread only.
#pragma once

#include "bank/SettingText.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace scenewright {

class SceneChanges {
public:
    // What was before the step, and what is after it.
    enum class Side : std::uint8_t { Before, After };

    // Of what the controller would store, over as many scenes as both lists have. Nothing of the
    // scenes is held.
    [[nodiscard]] static SceneChanges between(const PopUpValue& lists, const SceneList& before,
                                              const SceneList& after);

    [[nodiscard]] bool isEmpty() const { return changes_.empty(); }
    // In the order of allSettings().
    [[nodiscard]] std::vector<SettingPlace> places() const;

    // Writes the values of a side into the scenes' own records, as an edit does. A record that the
    // scenes do not hold is passed over.
    void write(Side side, const SceneList& scenes) const;

    // The setting that was chosen, of one control or of several of a kind and scene, when the
    // others that changed follow from it, as a pad's number follows from its type: the first place
    // of it. Null when there is no such one.
    [[nodiscard]] const SettingPlace* chosen() const;
    // Takes in what came directly after this. A setting that is back at its first value is not
    // changed any more.
    void append(const SceneChanges& later);

    // What was changed, in the person's language: "Pad 3 Note", "8 Pads Note", "Pad 3",
    // "Scene 2 Name", "Scene 2", "Scenes".
    [[nodiscard]] std::string title() const;

private:
    struct Values {
        std::int32_t index = 0; // of a setting
        std::string name{};     // of a scene
        friend bool operator==(const Values&, const Values&) = default;
    };
    struct Change {
        SettingPlace place;
        std::int32_t assignType = 0; // of its control, after the step
        Values before;
        Values after;
    };

    [[nodiscard]] static Values valuesAt(const SceneList& scenes, const SettingPlace& place);

    std::vector<Change> changes_;
};

// The stored scenes as they are now, in records that share nothing with them.
[[nodiscard]] SceneList copyOfStored();

} // namespace scenewright
