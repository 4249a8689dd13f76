// What is done with whole scenes of the store: renamed, copied, swapped, reset, checked. The values
// are written into the stored scenes' own records, so that who holds a scene holds its new values.
// Scenes are given by their index, 0 to 3. Main thread only.
#pragma once

#include "bank/Check.h"
#include "bank/Fill.h"
#include "model/Control.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Result.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// Name and settings. A stored scene without controls gets those of the other.
void copyInto(SceneValue& stored, const SceneValue& scene);

class StoredScenes {
public:
    StoredScenes() = delete;

    // The scene's name as a person types it; empty for bytes that are no text.
    [[nodiscard]] static std::string name(std::int32_t scene);
    // One sentence, in the person's language, that says why the controller cannot hold a name.
    [[nodiscard]] static Result<void> checkName(std::string_view name);
    // The same; then the scene has its former name.
    [[nodiscard]] static Result<void> rename(std::int32_t scene, std::string_view name);
    static void copy(std::int32_t from, std::int32_t to);
    static void swap(std::int32_t first, std::int32_t second);
    // To the default scene, named by its place as those of a new window are.
    static void reset(std::int32_t scene);
    // What a player may not have meant in them.
    [[nodiscard]] static std::vector<Finding> findings(const PopUpValue& lists);
};

// What the stored scenes would be with controls of one of them filled or transposed, by the rules
// of bank/Fill.h. The stored scenes stay as they are; copyInto() takes one over. Main thread only.
// `members` are the controls of the kind; `scene` is 0 to 3.
[[nodiscard]] FilledScenes filledScenes(const PopUpValue& lists, std::int32_t scene,
                                        ControlKind kind, Members members, std::string_view start,
                                        const FillSteps& steps);
[[nodiscard]] FilledScenes transposedScenes(const PopUpValue& lists, std::int32_t scene,
                                            ControlKind kind, Members members,
                                            std::int32_t semitones);

} // namespace scenewright
