#include "bank/BankFile.h"

#include "bank/SettingText.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <string_view>

namespace scenewright {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kJsonBlanks = " \t\r\n";

bool beginsLikeJson(std::string_view text) {
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    const std::size_t first = text.find_first_not_of(kJsonBlanks);
    return first != std::string_view::npos && text[first] == '{';
}

constexpr bool isTextByte(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return kJsonBlanks.find(byte) != std::string_view::npos || (code >= 0x20 && code != 0x7F);
}

// Every JSON bank is longer than an image, but one that was cut short may have just its size; and
// an image may begin with a brace, if the first scene's name does. An image that is text in all its
// bytes would need channels from 33 up, of which no keyboard has any.
bool isJson(std::string_view text) {
    return beginsLikeJson(text) &&
           (text.size() != kBankSize || std::ranges::all_of(text, isTextByte));
}

std::vector<std::uint8_t> bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

Result<void> writeWhole(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
    return replaceFile(path, bytes).map([](const Replaced&) {});
}

// Where a JSON text would have the value, so that both forms name a place alike.
std::string placeOf(std::size_t scene, const Setting& setting, std::int32_t control) {
    std::string place = memberPlace(elementPlace("scenes", scene), controlsKey(setting.kind()));
    if (setting.kind() != ControlKind::Common)
        place = elementPlace(place, static_cast<std::size_t>(control));
    return memberPlace(place, setting.name());
}

// The fields stand in the order of the settings, right behind the name.
Result<std::shared_ptr<SceneValue>> readSceneImage(std::span<const std::uint8_t> bytes,
                                                   std::size_t number) {
    auto scene = blankScene();
    const auto name = bytes.first(kNameSize);
    scene->commonValue()->setSceneName(std::string(name.begin(), name.end()));
    auto next = bytes.begin() + kNameSize;
    for (const Setting& setting : settings())
        for (std::int32_t k = 0; k < controlRange(setting.kind()).count; ++k, ++next) {
            if (*next > kLargestSettingValue)
                return failure(notAValue(placeOf(number, setting, k), std::to_string(*next)));
            setting.write(*scene, k, *next);
        }
    return scene;
}

using JsonReader = Result<SceneList> (*)(std::string_view text);

Result<BankFile> parse(std::span<const std::uint8_t> bytes, const std::string& name,
                       JsonReader readJson) {
    const BankFormat form = formOf(bytes);
    auto scenes = form == BankFormat::Json ? readJson(asText(bytes)) : readBankImage(bytes);
    if (!scenes)
        return failure(fmt::format("{}: {}", name, scenes.error()));
    return BankFile{*std::move(scenes), form};
}

Result<BankFile> read(const std::filesystem::path& path, JsonReader readJson,
                      const std::function<void()>& whenWaiting = {}) {
    return readFile(path, kJsonBytes, whenWaiting).and_then([&](const FileContent& bytes) {
        return parse(bytes, path.string(), readJson);
    });
}

} // namespace

BankFormat formOf(std::span<const std::uint8_t> bytes) {
    return isJson(asText(bytes)) ? BankFormat::Json : BankFormat::Image;
}

Result<BankFile> readBank(const std::filesystem::path& path) {
    return read(path, &readBankJson);
}

Result<BankFile> parseBank(std::span<const std::uint8_t> bytes, const std::string& name) {
    return parse(bytes, name, &readBankJson);
}

Result<BankFile> parseBankOrScene(std::span<const std::uint8_t> bytes, const std::string& name) {
    return parse(bytes, name, &readBankOrSceneJson);
}

Result<BankFile> readBankOrScene(const std::filesystem::path& path,
                                 const std::function<void()>& whenWaiting) {
    return read(path, &readBankOrSceneJson, whenWaiting);
}

BankFormat formatForName(const std::filesystem::path& path) {
    std::string ending = path.extension().string();
    std::ranges::transform(ending, ending.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return ending == ".json" ? BankFormat::Json : BankFormat::Image;
}

BankImage encodeBank(const SceneList& scenes) {
    BankImage bank{};
    auto* place = bank.begin();
    for (std::size_t scene = 0; scene < kSceneCount; ++scene)
        place = std::ranges::copy(encodeScene(*scenes.at(scene)), place).out;
    return bank;
}

std::vector<std::uint8_t> bankBytes(const SceneList& scenes, BankFormat form,
                                    const PopUpValue& lists) {
    if (form == BankFormat::Json)
        return bytesOf(writeBankJson(scenes, lists));
    const BankImage image = encodeBank(scenes);
    return {image.begin(), image.end()};
}

Result<void> writeBank(const std::filesystem::path& path, const SceneList& scenes, BankFormat form,
                       const PopUpValue& lists) {
    return writeWhole(path, bankBytes(scenes, form, lists));
}

Result<void> writeScene(const std::filesystem::path& path, const SceneValue& scene,
                        const PopUpValue& lists) {
    return writeWhole(path, bytesOf(writeSceneJson(scene, lists)));
}

Result<SceneList> readBankImage(std::span<const std::uint8_t> bytes) {
    if (bytes.size() != kBankSize)
        return failure(
            translated(sourceText("scenewright::Bank",
                                  "not a bank: it holds {} bytes, and a bank holds {} or is JSON"),
                       bytes.size(), kBankSize));
    SceneList scenes;
    for (std::size_t number = 0; number < kSceneCount; ++number) {
        auto scene =
            readSceneImage(bytes.subspan(number * kSceneImageSize, kSceneImageSize), number);
        if (!scene)
            return failure(scene.error());
        scenes.push_back(*std::move(scene));
    }
    return scenes;
}

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
