#include "tests/editor-qt/UsableScenes.h"

#include "app/WindowAction.h"
#include "model/Setting.h"

namespace scenewright::testing {

namespace {

void writeAll(const SceneValue& scene, ControlKind kind, std::string_view field,
              std::int32_t value) {
    for (std::int32_t member = 0; member < controlRange(kind).count; ++member)
        findSetting(kind, field)->write(scene, member, value);
}

} // namespace

SceneList usableScenes() {
    WindowAction::getSceneValue();
    SceneList scenes = WindowAction::scenes();
    for (const auto& scene : scenes) {
        writeAll(*scene, ControlKind::Common, "KeyVelocityCurve", 3);
        writeAll(*scene, ControlKind::Common, "PadVelocityCurve", 3);
        writeAll(*scene, ControlKind::Knob, "Enable", 1);
        writeAll(*scene, ControlKind::Slider, "Enable", 1);
        writeAll(*scene, ControlKind::Pad, "AssignType", 1);
        writeAll(*scene, ControlKind::Key, "AssignType", 1);
    }
    return scenes;
}

} // namespace scenewright::testing
