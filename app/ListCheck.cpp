#include "app/ListCheck.h"

#include "model/Control.h"
#include "model/PopUpValue.h"
#include "platform/Resources.h"
#include "platform/Text.h"
#include "usb/AttachedDevices.h"

#include <algorithm>
#include <cstddef>

namespace scenewright {

namespace {

std::string fileOf(std::string_view name) {
    const auto file = Resources::find(name, "plist");
    return file ? file->string() : std::string(name) + ".plist";
}

Result<void> checkControls(const PropertyValue& list) {
    const std::size_t controls = list["ButtonArray"].elements().size();
    if (controls == kControlCount)
        return {};
    return failure(
        translated(sourceText("scenewright::File",
                              "{0}: the default scene holds {1} controls, and the keyboard has "
                              "{2}"),
                   fileOf(kDefaultList), controls, kControlCount));
}

} // namespace

Result<void> checkList(std::string_view name) {
    if (name == kBasicList)
        return readPopUpValue().map([](const auto&) {});
    if (name == kDefaultList) {
        const auto list = Resources::read(name);
        return list ? checkControls(*list) : Result<void>(failure(list.error()));
    }
    const auto listed = readDeviceList();
    if (!listed)
        return failure(listed.error());
    if (listed->empty())
        return failure(translated(sourceText("scenewright::File", "{}: it lists no keyboard"),
                                  fileOf(kProjectList)));
    return {};
}

Result<void> checkDefaultScenes(const SceneList& scenes) {
    const auto isWhole = [](const auto& scene) {
        return scene->buttonValueArray().size() == kControlCount;
    };
    if (std::ranges::all_of(scenes, isWhole))
        return {};
    auto checked = checkList(kDefaultList);
    return checked ? failure("default.plist: it changed meanwhile") : checked;
}

std::vector<std::string> listErrors() {
    std::vector<std::string> errors;
    for (const std::string_view name : {kBasicList, kDefaultList, kProjectList})
        if (auto checked = checkList(name); !checked)
            errors.push_back(std::move(checked.error()));
    if (auto checked = checkShownTitles(); !checked)
        errors.push_back(std::move(checked.error()));
    return errors;
}

} // namespace scenewright
