#include "bank/Findings.h"

#include "bank/BankFile.h"
#include "bank/SettingText.h"
#include "model/ControlOutput.h"
#include "model/Midi.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>

namespace scenewright {

namespace {

template <typename Row, typename Text>
std::string linesOf(const std::vector<Row>& rows, Text text) {
    std::string lines;
    for (const Row& row : rows)
        lines += text(row) + "\n";
    return lines;
}

// A JSON array, each element in a line of its own.
template <typename Row, typename Text>
std::string arrayOf(const std::vector<Row>& rows, Text text) {
    std::string json = "[";
    for (const Row& row : rows)
        json += (json.size() == 1 ? "\n  " : ",\n  ") + text(row);
    return json + (rows.empty() ? "]\n" : "\n]\n");
}

bool isSame(const SceneValue& first, const SceneValue& second, const SettingPlace& place) {
    if (place.isName())
        return storedName(first.commonValue()->SceneName()) ==
               storedName(second.commonValue()->SceneName());
    return storedIndex(first, *place.setting, place.control) ==
           storedIndex(second, *place.setting, place.control);
}

std::string shown(const SettingPlace& place, const SettingText& text) {
    if (place.isName())
        return fmt::format("\"{}\"", text.value);
    return text.title.empty() ? fmt::format("({})", text.value) : text.title;
}

// With the number beside the title, for two options of one title.
std::string shownWithNumber(const SettingText& text) {
    return fmt::format("{} ({})", text.title, text.value);
}

std::string valueJson(const SettingPlace& place, const SettingText& text) {
    std::string json =
        fmt::format("{{\"value\": {}", place.isName() ? jsonQuoted(text.value) : text.value);
    if (!text.title.empty())
        json += ", \"title\": " + jsonQuoted(text.title);
    return json + "}";
}

std::string differenceJson(const Difference& difference) {
    const SettingPlace& place = difference.place;
    return fmt::format("{{\"path\": {}, \"words\": {}, \"first\": {}, \"second\": {}}}",
                       jsonQuoted(pathOf(place)), jsonQuoted(wordsOf(place)),
                       valueJson(place, difference.first), valueJson(place, difference.second));
}

} // namespace

std::vector<Difference> differences(const PopUpValue& lists, const SceneList& first,
                                    const SceneList& second) {
    std::vector<Difference> list;
    const std::size_t scenes = std::min(first.size(), second.size());
    for (const SettingPlace& place : allSettings(static_cast<std::int32_t>(scenes))) {
        const SceneValue& one = sceneAt(first, place);
        const SceneValue& other = sceneAt(second, place);
        if (!isSame(one, other, place))
            list.push_back(
                {place, settingText(lists, one, place), settingText(lists, other, place)});
    }
    return list;
}

DifferenceTexts valuesInWords(const Difference& difference) {
    const SettingText& first = difference.first;
    const SettingText& second = difference.second;
    const bool isAmbiguous = !first.title.empty() && first.title == second.title;
    return {isAmbiguous ? shownWithNumber(first) : shown(difference.place, first),
            isAmbiguous ? shownWithNumber(second) : shown(difference.place, second)};
}

std::string differenceWords(const Difference& difference) {
    const DifferenceTexts values = valuesInWords(difference);
    return translated(sourceText("scenewright::Bank", "{0}: {1} -> {2}"), wordsOf(difference.place),
                      values.first, values.second);
}

void writeFirst(const Difference& difference, const SceneList& scenes) {
    const SettingPlace& place = difference.place;
    if (std::cmp_greater_equal(place.scene, scenes.size()))
        return;
    const SceneValue& scene = sceneAt(scenes, place);
    const std::string& value = difference.first.value;
    if (!place.isName())
        return place.setting->write(scene, place.control, std::stoi(value));
    const auto name = value.starts_with(kBytesMark) ? nameOfHex(value.substr(kBytesMark.size()))
                                                    : nameOfText(value);
    if (name && scene.commonValue())
        scene.commonValue()->setSceneName(*name);
}

std::string differenceLine(const Difference& difference) {
    return fmt::format("{}  {}", pathOf(difference.place), differenceWords(difference));
}

std::string differenceLines(const std::vector<Difference>& list) {
    return linesOf(list, &differenceLine);
}

std::string changeLine(const Difference& difference) {
    const SettingText& first = difference.first;
    const SettingText& second = difference.second;
    std::string line = fmt::format("{}: {} -> {}", pathOf(difference.place),
                                   shown(difference.place, first), shown(difference.place, second));
    const bool saysMore = first.title != first.value || second.title != second.value;
    if (!difference.place.isName() && saysMore)
        line += fmt::format(" (index {} -> {})", first.value, second.value);
    return line;
}

std::string changeLines(const std::vector<Difference>& list) {
    return linesOf(list, &changeLine);
}

std::string differencesJson(const std::vector<Difference>& list) {
    return arrayOf(list, &differenceJson);
}

namespace {

using enum Finding::Kind;

// In the order of the kinds.
constexpr std::array<std::string_view, 6> kKindNames{"same-message", "sends-nothing", "one-value",
                                                     "silent-notes", "out-of-range",  "blank-name"};

// One scene, and what has been found in it.
class Check {
public:
    Check(const PopUpValue& lists, const SceneValue& scene, std::int32_t number)
        : lists_(lists), scene_(scene), number_(number) {}

    std::vector<Finding> run() {
        for (std::int32_t control = 1; control < kControlIndexEnd; ++control)
            outputs_.push_back(controlOutput(scene_, control));
        checkMessages();
        for (std::int32_t control = 1; control < kControlIndexEnd; ++control)
            checkControl(control);
        checkVelocity(ControlKind::Key, "KeyVelocityCurve", "KeyConstVelocity");
        checkVelocity(ControlKind::Pad, "PadVelocityCurve", "PadConstVelocity");
        checkName();
        std::ranges::stable_sort(findings_, {}, &Finding::kind);
        return std::move(findings_);
    }

private:
    using Output = tl::expected<ControlOutput, Silence>;

    [[nodiscard]] const Output& outputAt(std::int32_t control) const {
        return outputs_.at(static_cast<std::size_t>(control) - 1);
    }
    [[nodiscard]] std::int32_t common(std::string_view field) const {
        return findSetting(ControlKind::Common, field)->read(scene_, 0);
    }
    void add(Finding finding) {
        finding.scene = number_;
        findings_.push_back(std::move(finding));
    }

    // The channel of knobs and sliders and the step of the transposition are assumed.
    [[nodiscard]] bool isAssumed(std::int32_t control) const {
        const ControlOutput& output = *outputAt(control);
        const bool isKeysNote = output.isNote && controlRangeOf(control)->kind == ControlKind::Key;
        return output.isTravel || (isKeysNote && common("KeyTranspose") != 0);
    }

    void checkMessages() {
        std::map<std::tuple<bool, std::uint8_t, std::uint8_t>, std::vector<std::int32_t>> senders;
        for (std::int32_t control = 1; control < kControlIndexEnd; ++control)
            if (const Output& output = outputAt(control))
                senders[{output->isNote, output->channel, output->number}].push_back(control);
        for (auto& [message, controls] : senders)
            if (controls.size() > 1)
                addSameMessage(std::move(controls));
    }

    void addSameMessage(std::vector<std::int32_t> controls) {
        const ControlOutput& output = *outputAt(controls.front());
        const bool isSure = std::ranges::none_of(
            controls, [this](std::int32_t control) { return isAssumed(control); });
        const SourceText text =
            isSure ? sourceText("scenewright::Check", "all send {0} on channel {1}")
                   : sourceText("scenewright::Check", "may all send {0} on channel {1}");
        add({.kind = SameMessage,
             .isSure = isSure,
             .controls = std::move(controls),
             .text = translated(text, outputName(lists_, output), output.channel + 1)});
    }

    void checkControl(std::int32_t control) {
        const Output& output = outputAt(control);
        if (!output)
            addSilence(control, output.error());
        else if (!output->isNote && output->low == output->high && usesBothValues(*output))
            add({.kind = OneValue,
                 .controls = {control},
                 .text = translated(
                     output->isTravel
                         ? sourceText("scenewright::Check", "both ends of travel send the value {}")
                         : sourceText("scenewright::Check", "on and off send the same value {}"),
                     output->low)});
    }

    // A trigger and a release send one value by their nature.
    static bool usesBothValues(const ControlOutput& output) {
        return output.isTravel || output.behavior == Behavior::Momentary ||
               output.behavior == Behavior::Toggle;
    }

    void addSilence(std::int32_t control, Silence silence) {
        switch (silence) {
        case Silence::Group:
        case Silence::NoControl:
            return;
        case Silence::Off:
            add({.kind = SendsNothing,
                 .controls = {control},
                 .text = translated(sourceText("scenewright::Check", "sends nothing: it is off"))});
            return;
        case Silence::UnknownOption:
            add({.kind = SendsNothing,
                 .isSure = false,
                 .controls = {control},
                 .text = translated(sourceText(
                     "scenewright::Check",
                     "may send nothing: it depends on a value that its list does not have"))});
            return;
        case Silence::NoteOutOfRange:
            add({.kind = OutOfRange,
                 .isSure = false,
                 .controls = {control},
                 .field = "CCOrNoteNumber",
                 .text = translated(sourceText(
                     "scenewright::Check",
                     "may send nothing: the transposition moves its note out of range"))});
        }
    }

    void checkVelocity(ControlKind kind, std::string_view curve, std::string_view velocity) {
        const ControlRange& range = controlRange(kind);
        bool sendsNotes = false;
        for (std::int32_t control = range.start; control < range.end(); ++control)
            sendsNotes = sendsNotes || (outputAt(control) && outputAt(control)->isNote);
        if (common(curve) == static_cast<std::int32_t>(VelocityCurve::Constant) &&
            common(velocity) == 0 && sendsNotes)
            add({.kind = SilentNotes,
                 .controls = {0},
                 .field = std::string(velocity),
                 .text = translated(sourceText(
                     "scenewright::Check",
                     "the constant velocity is 0, which ends notes instead of beginning them"))});
    }

    void checkName() {
        std::string name = storedName(scene_.commonValue()->SceneName());
        // Ideographic and no-break spaces are characters of several bytes.
        for (const std::string_view blank : {"\xC2\xA0", "\xE3\x80\x80", "\xE2\x80\x8B"})
            for (std::size_t at = 0; (at = name.find(blank)) != std::string::npos;)
                name.erase(at, blank.size());
        if (std::ranges::all_of(name, [](char c) { return c == ' ' || c == '\0'; }))
            add({.kind = BlankName,
                 .controls = {0},
                 .field = std::string(kSceneNameField),
                 .text = translated(
                     sourceText("scenewright::Check", "nothing of the name can be seen"))});
    }

    const PopUpValue& lists_;
    const SceneValue& scene_;
    std::int32_t number_;
    std::vector<Output> outputs_; // of the controls from 1 on
    std::vector<Finding> findings_;
};

std::string controlWords(std::int32_t control) {
    const ControlRange& range = *controlRangeOf(control);
    const std::string title = kindTitle(range.kind);
    return range.count == 1 ? title : fmt::format("{} {}", title, control - range.start + 1);
}

std::string placeWords(const Finding& finding) {
    std::vector<std::string> words;
    words.reserve(finding.controls.size());
    for (const std::int32_t control : finding.controls)
        words.push_back(controlWords(control));
    return translated(sourceText("scenewright::Bank", "Scene {0}, {1}"), finding.scene + 1,
                      fmt::format("{}", fmt::join(words, ", ")));
}

std::string quotedList(const std::vector<std::string>& texts) {
    std::vector<std::string> quoted;
    quoted.reserve(texts.size());
    for (const std::string& text : texts)
        quoted.push_back(jsonQuoted(text));
    return fmt::format("[{}]", fmt::join(quoted, ", "));
}

std::string findingText(const Finding& finding) {
    return fmt::format("{}: {}", placeWords(finding), finding.text);
}

} // namespace

std::vector<Finding> findingsOf(const PopUpValue& lists, const SceneList& scenes) {
    std::vector<Finding> findings;
    for (std::size_t scene = 0; scene < scenes.size(); ++scene) {
        auto more = Check(lists, *scenes[scene], static_cast<std::int32_t>(scene)).run();
        std::ranges::move(more, std::back_inserter(findings));
    }
    return findings;
}

std::vector<std::string> pathsOf(const Finding& finding) {
    std::vector<std::string> paths;
    for (const std::int32_t control : finding.controls) {
        const std::string path = controlPath(finding.scene, control);
        paths.push_back(finding.field.empty() ? path : path + "." + finding.field);
    }
    return paths;
}

std::string findingLines(const std::vector<Finding>& findings) {
    return linesOf(findings, [](const Finding& finding) {
        return fmt::format("{}  {}", fmt::join(pathsOf(finding), ", "), findingText(finding));
    });
}

std::string findingsJson(const std::vector<Finding>& findings) {
    return arrayOf(findings, [](const Finding& finding) {
        return fmt::format("{{\"kind\": \"{}\", \"sure\": {}, \"paths\": {}, \"text\": {}}}",
                           kKindNames.at(static_cast<std::size_t>(finding.kind)), finding.isSure,
                           quotedList(pathsOf(finding)), jsonQuoted(findingText(finding)));
    });
}

} // namespace scenewright
