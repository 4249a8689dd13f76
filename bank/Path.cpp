#include "bank/Path.h"

#include "bank/SettingText.h"
#include "model/Setting.h"
#include "model/TypedValue.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <cctype>

namespace scenewright {

namespace {

constexpr std::string_view kScene = "scene";
constexpr std::size_t kMaxDigits = 2;

// Reads a path from left to right; after the first thing that is not as expected, `error` says
// so and the rest of the reading does nothing.
class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    [[nodiscard]] bool isAtEnd() const { return at_ == text_.size(); }
    [[nodiscard]] bool failed() const { return !error_.empty(); }
    [[nodiscard]] const std::string& error() const { return error_; }

    void expected(std::string_view what) {
        if (!failed())
            error_ = fmt::format("{}: at character {}, {} was expected",
                                 text_.empty() ? "an empty path" : sanitized(text_), at_ + 1, what);
    }

    [[nodiscard]] bool take(std::string_view word) {
        if (failed() || !text_.substr(at_).starts_with(word))
            return false;
        at_ += word.size();
        return true;
    }

    // The letters that come next.
    [[nodiscard]] std::string_view takeWord() {
        const std::size_t start = at_;
        while (at_ < text_.size() && std::isalpha(static_cast<unsigned char>(text_[at_])) != 0)
            ++at_;
        return text_.substr(start, at_ - start);
    }

    void back(std::size_t count) { at_ -= count; }

    // A number from 1 to `count` without leading zeros, or a star.
    [[nodiscard]] PathRange takeRange(std::int32_t count, std::string_view owner) {
        if (take("*"))
            return {0, count, true};
        std::int32_t number = 0;
        std::size_t digits = 0;
        while (digits < kMaxDigits && at_ + digits < text_.size() && isDigit(at_ + digits))
            number = number * 10 + (text_[at_ + digits++] - '0');
        const bool goesOn = at_ + digits < text_.size() && isDigit(at_ + digits);
        if (digits == 0 || goesOn || text_[at_] == '0' || number > count) {
            expected(fmt::format("a {}'s number from 1 to {} or *", owner, count));
            return {};
        }
        at_ += digits;
        return {number - 1, 1, false};
    }

private:
    [[nodiscard]] bool isDigit(std::size_t at) const {
        return std::isdigit(static_cast<unsigned char>(text_[at])) != 0;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::string error_;
};

const ControlRange* findKind(std::string_view name) {
    for (const ControlRange& range : kControlRanges)
        if (range.name == name)
            return &range;
    return nullptr;
}

std::string settingNames(ControlKind kind) {
    std::string names;
    if (kind == ControlKind::Common)
        names = kSceneNameField;
    for (const Setting& setting : settings())
        if (setting.kind() == kind)
            names += fmt::format("{}{}", names.empty() ? "" : ", ", setting.name());
    if (kind == ControlKind::Pad)
        names += fmt::format(", {}", kColourField);
    return names;
}

void readControl(Reader& reader, Path& path) {
    const std::string_view name = reader.takeWord();
    const ControlRange* const range = findKind(name);
    if (range == nullptr) {
        reader.back(name.size());
        reader.expected("common, group, knob, slider, pad or key");
        return;
    }
    path.level = Path::Level::Control;
    path.kind = range->kind;
    path.controls = range->kind == ControlKind::Common
                        ? PathRange{0, 1, false}
                        : reader.takeRange(range->count, range->name);
}

void readSetting(Reader& reader, Path& path) {
    const std::string_view name = reader.takeWord();
    path.level = Path::Level::Setting;
    path.setting = findSetting(path.kind, name);
    path.isColour = path.kind == ControlKind::Pad && name == kColourField;
    const bool isName = path.kind == ControlKind::Common && name == kSceneNameField;
    if (path.setting == nullptr && !path.isColour && !isName) {
        reader.back(name.size());
        reader.expected("one of " + settingNames(path.kind));
    }
}

// Whether the path goes on; what is no dot behind a whole part is told.
bool goesOn(Reader& reader) {
    if (reader.failed() || reader.isAtEnd())
        return false;
    if (reader.take("."))
        return true;
    reader.expected("a dot or the end");
    return false;
}

// The settings of one control, the name first.
void appendControl(std::vector<SettingPlace>& places, std::int32_t scene, ControlKind kind,
                   std::int32_t control) {
    if (kind == ControlKind::Common)
        places.push_back({scene, kind, 0, nullptr});
    for (const Setting& setting : settings())
        if (setting.kind() == kind)
            places.push_back({scene, kind, control, &setting});
}

void appendScene(std::vector<SettingPlace>& places, std::int32_t scene) {
    for (const ControlRange& range : kControlRanges)
        for (std::int32_t control = 0; control < range.count; ++control)
            appendControl(places, scene, range.kind, control);
}

void appendControls(std::vector<SettingPlace>& places, std::int32_t scene, const Path& path) {
    for (std::int32_t i = 0; i < path.controls.count; ++i) {
        const std::int32_t control = path.controls.first + i;
        if (path.level != Path::Level::Setting)
            appendControl(places, scene, path.kind, control);
        else if (path.isColour)
            for (const std::string_view field : kColourFields)
                places.push_back({scene, path.kind, control, findSetting(path.kind, field)});
        else
            places.push_back({scene, path.kind, control, path.setting});
    }
}

} // namespace

std::string pathOf(const SettingPlace& place) {
    return fmt::format("{}.{}", controlPath(place.scene, controlIndexOf(place)),
                       place.isName() ? kSceneNameField : place.setting->name());
}

std::string controlPath(std::int32_t scene, std::int32_t control) {
    const ControlRange& range = *controlRangeOf(control);
    const std::string number = range.count == 1 ? "" : std::to_string(control - range.start + 1);
    return fmt::format("{}{}.{}{}", kScene, scene + 1, range.name, number);
}

std::string wordsOf(const SettingPlace& place) {
    const std::int32_t scene = place.scene + 1;
    const std::string title = place.isName() ? translated(sourceText("scenewright::Bank", "Name"))
                                             : settingTitle(*place.setting);
    if (place.kind == ControlKind::Common)
        return translated(sourceText("scenewright::Bank", "Scene {0}, {1}"), scene, title);
    return translated(sourceText("scenewright::Bank", "Scene {0}, {1} {2}, {3}"), scene,
                      kindTitle(place.kind), place.control + 1, title);
}

Result<Path> parsePath(std::string_view text) {
    Reader reader(text);
    Path path;
    if (!reader.take(kScene))
        reader.expected("\"scene\"");
    else
        path.scenes = reader.takeRange(kSceneCount, kScene);
    if (goesOn(reader))
        readControl(reader, path);
    if (goesOn(reader))
        readSetting(reader, path);
    if (!reader.isAtEnd())
        reader.expected("the end");
    if (reader.failed())
        return failure(reader.error());
    return path;
}

std::vector<SettingPlace> settingsAt(const Path& path) {
    std::vector<SettingPlace> places;
    for (std::int32_t i = 0; i < path.scenes.count; ++i) {
        const std::int32_t scene = path.scenes.first + i;
        if (path.level == Path::Level::Scene)
            appendScene(places, scene);
        else
            appendControls(places, scene, path);
    }
    return places;
}

std::vector<SettingPlace> allSettings(std::int32_t scenes) {
    std::vector<SettingPlace> places;
    for (std::int32_t scene = 0; scene < scenes; ++scene)
        appendScene(places, scene);
    return places;
}

} // namespace scenewright
