#include "app/SceneFill.h"

#include "app/WindowAction.h"

#include <fmt/format.h>

#include <string>

namespace scenewright {

namespace {

std::string allOf(ControlKind kind, std::int32_t scene) {
    return fmt::format("scene{}.{}*", scene + 1, controlRange(kind).name);
}

} // namespace

FilledScenes filledScenes(const PopUpValue& lists, std::int32_t scene, ControlKind kind,
                          Members members, std::string_view start, const FillSteps& steps) {
    return fillValues(lists, WindowAction::scenes(), allOf(kind, scene), start, steps, members);
}

FilledScenes transposedScenes(const PopUpValue& lists, std::int32_t scene, ControlKind kind,
                              Members members, std::int32_t semitones) {
    return transposeNotes(lists, WindowAction::scenes(), allOf(kind, scene), semitones, members);
}

} // namespace scenewright
