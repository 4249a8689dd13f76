#include "bank/BankJson.h"
#include "bank/SettingText.h"
#include "model/SceneValue.h"
#include "model/Setting.h"

#include <fmt/format.h>

namespace scenewright {

namespace {

constexpr std::size_t kIndent = 2;

// Lines of a JSON text, indented by how many brackets are open.
class Lines {
public:
    // `opening` ends in a bracket.
    void open(std::string_view opening) {
        begin();
        text_ += opening;
        isFirst_ = true;
        ++level_;
    }
    void close(std::string_view closing) {
        --level_;
        isFirst_ = true; // no comma before a closing bracket
        begin();
        text_ += closing;
        isFirst_ = false;
    }
    void add(std::string_view line) {
        begin();
        text_ += line;
        isFirst_ = false;
    }
    [[nodiscard]] std::string text() const { return text_ + "\n"; }

private:
    void begin() {
        if (!isFirst_)
            text_ += ',';
        if (!text_.empty())
            text_ += '\n';
        text_.append(level_ * kIndent, ' ');
    }

    std::string text_;
    bool isFirst_ = true;
    std::size_t level_ = 0;
};

std::string member(std::string_view key, std::string_view value) {
    return fmt::format("{}: {}", jsonQuoted(key), value);
}

std::string comment(std::string_view key, std::string_view value) {
    return member(std::string(kCommentMark) + std::string(key), jsonQuoted(value));
}

void addName(Lines& lines, const std::string& name) {
    if (const auto text = nameAsText(name)) {
        lines.add(member("name", jsonQuoted(*text)));
        return;
    }
    lines.add(member("nameBytes", jsonQuoted(nameAsHex(name))) + ", " +
              comment("name", displayName(storedName(name))));
}

void addFields(Lines& lines, const SceneValue& scene, ControlKind kind, std::int32_t control,
               const PopUpValue& lists) {
    for (const Setting& setting : settings()) {
        if (setting.kind() != kind)
            continue;
        const std::int32_t index = storedIndex(scene, setting, control);
        std::string line = member(setting.name(), std::to_string(index));
        if (const std::string title = optionTitle(lists, setting, scene, control);
            title != kNoTitle)
            line += ", " + comment(setting.name(), title);
        lines.add(line);
    }
}

void addControls(Lines& lines, const SceneValue& scene, const ControlRange& range,
                 const PopUpValue& lists) {
    const std::string key = jsonQuoted(controlsKey(range.kind));
    if (range.kind == ControlKind::Common) {
        lines.open(key + ": {");
        addFields(lines, scene, range.kind, 0, lists);
        lines.close("}");
        return;
    }
    lines.open(key + ": [");
    for (std::int32_t control = 0; control < range.count; ++control) {
        lines.open("{");
        lines.add(comment("", fmt::format("{}{}", range.name, control + 1)));
        addFields(lines, scene, range.kind, control, lists);
        lines.close("}");
    }
    lines.close("]");
}

// `opening` is the scene's bracket, with its key where it has one.
void addScene(Lines& lines, std::string_view opening, const SceneValue& scene,
              const PopUpValue& lists) {
    lines.open(opening);
    addName(lines, scene.commonValue()->SceneName());
    for (const ControlRange& range : kControlRanges)
        addControls(lines, scene, range, lists);
    lines.close("}");
}

Lines beginFile(std::string_view format) {
    Lines lines;
    lines.open("{");
    lines.add(member("format", jsonQuoted(format)));
    lines.add(member("version", std::to_string(kBankVersion)));
    return lines;
}

} // namespace

std::string controlsKey(ControlKind kind) {
    const std::string name(controlRange(kind).name);
    return kind == ControlKind::Common ? name : name + "s";
}

std::string writeBankJson(const SceneList& scenes, const PopUpValue& lists) {
    Lines lines = beginFile(kBankFormat);
    lines.open("\"scenes\": [");
    for (std::size_t scene = 0; scene < kSceneCount; ++scene)
        addScene(lines, "{", *scenes.at(scene), lists);
    lines.close("]");
    lines.close("}");
    return lines.text();
}

std::string writeSceneJson(const SceneValue& scene, const PopUpValue& lists) {
    Lines lines = beginFile(kSceneFormat);
    addScene(lines, "\"scene\": {", scene, lists);
    lines.close("}");
    return lines.text();
}

} // namespace scenewright
