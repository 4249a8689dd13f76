#include "tests/editor/EditorBench.h"

#include "model/MessageValue.h"
#include "platform/Diagnostics.h"
#include "platform/Resources.h"

namespace scenewright::testing {

namespace {

std::string keyed(const std::string& key, const std::string& value) {
    return "<key>" + key + "</key>" + value;
}

using Fields = std::map<std::string, int>;

std::string dictionary(const Fields& fields) {
    std::string text;
    for (const auto& [key, value] : fields)
        text += keyed(key, "<integer>" + std::to_string(value) + "</integer>");
    return "<dict>" + text + "</dict>";
}

// A control's record: the given fields, all others absent.
std::string control(Fields fields) {
    for (const char* key :
         {"MIDIChannel", "AssignType", "CCOrNoteNumber", "UpperOrRightValue", "LowerOrLeftValue",
          "PadBehavior", "KeyBehavior", "OnValue", "OffValue", "Enable", "CR", "CG", "CB"})
        fields.emplace(key, -1);
    return dictionary(fields);
}

std::string times(int count, const std::string& text) {
    std::string all;
    for (int made = 0; made < count; ++made)
        all += text;
    return all;
}

std::string defaultControls() {
    return times(4, control({{"MIDIChannel", 2}})) +
           times(4, control({{"Enable", 1},
                             {"CCOrNoteNumber", 20},
                             {"UpperOrRightValue", 100},
                             {"LowerOrLeftValue", 10}})) +
           times(4, control({{"Enable", 1},
                             {"CCOrNoteNumber", 30},
                             {"UpperOrRightValue", 101},
                             {"LowerOrLeftValue", 11}})) +
           times(8, control({{"AssignType", 2},
                             {"CCOrNoteNumber", 36},
                             {"OnValue", 127},
                             {"OffValue", 1},
                             {"PadBehavior", 3},
                             {"MIDIChannel", 9},
                             {"CR", 10},
                             {"CG", 20},
                             {"CB", 30}})) +
           times(25, control({{"AssignType", 2},
                              {"CCOrNoteNumber", 60},
                              {"OnValue", 126},
                              {"OffValue", 2},
                              {"KeyBehavior", 4}}));
}

} // namespace

EditorBench::EditorBench()
    : entries_{{"displaySelect", 8},       {"control", 46},
               {"button-MIDICh", 17},      {"button-assginType", 3},
               {"select127", 128},         {"button-note", 128},
               {"button-behavior", 5},     {"button-enable", 2},
               {"common-sceneName", 1},    {"common-globalMIDICh", 16},
               {"common-pianoKeyCh", 17},  {"common-PitchBendSpeed", 127},
               {"common-keyTranspose", 9}, {"common-velocityCurve", 4}} {
    Resources::setFolder(folder_.path());
    writeBasic();
    writeDefault();
    for (const PopUpRow& row : kPopUpRows)
        popUps_.emplace(row.name, std::make_unique<PopUpDouble>(journal, row.name));
    for (const char* name :
         {"commonView", "groupView", "knobView", "sliderView", "padView", "keyView"})
        panes_.emplace(name, std::make_unique<PaneDouble>(journal, name));
    connectOutlets(view);
    Diagnostics::setLog(
        [this](std::string_view line) { journal.add("log: " + std::string(line)); });
}

EditorBench::~EditorBench() {
    Diagnostics::setLog({});
    Resources::setFolder({});
    Progress::forget();
}

void EditorBench::connectOutlets(ViewController& editor) {
    for (const PopUpRow& row : kPopUpRows)
        (editor.*row.setOutlet)(&popUp(row.name));
    editor.setCommonView(&pane("commonView"));
    editor.setGroupView(&pane("groupView"));
    editor.setKnobView(&pane("knobView"));
    editor.setSliderView(&pane("sliderView"));
    editor.setPadView(&pane("padView"));
    editor.setKeyView(&pane("keyView"));
    editor.setWindowView(&picture);
    editor.setSceneSegmented(&scenes);
    editor.setControllerTableView(&list);
    editor.setDisplaySelect(&displaySelect);
    editor.setMessage(&status);
    editor.setCommonSceneName(&sceneName);
}

void EditorBench::write(const std::string& name, const std::string& dictionary) {
    const std::string text = "<plist version=\"1.0\"><dict>" + dictionary + "</dict></plist>";
    writeBytes(folder_.file(name),
               {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

void EditorBench::writeBasic() {
    std::string text;
    for (const auto& [key, entries] : entries_) {
        std::string titles;
        for (std::size_t place = 0; place < entries; ++place)
            titles += "<string>" + key + ":" + std::to_string(place) + "</string>";
        if (entries != 0)
            text += keyed(key, "<array>" + titles + "</array>");
    }
    write("basic.plist", text);
}

void EditorBench::writeDefault() {
    write("default.plist", keyed("ButtonArray", "<array>" + defaultControls() + "</array>") +
                               keyed("CommonValue", dictionary({{"globalMIDICh", 3},
                                                                {"pianoKeyCh", 4},
                                                                {"pitchBendSpeed", 50},
                                                                {"keyTranspose", 6},
                                                                {"keyVelocityCurve", 3},
                                                                {"keyConstVelocity", 70},
                                                                {"padVelocityCurve", 1},
                                                                {"padConstVelocity", 80}})));
}

void EditorBench::setEntries(const std::string& key, std::size_t entries) {
    entries_[key] = entries;
    writeBasic();
}

void EditorBench::removeDefaultScene() {
    write("default.plist", "");
}

void EditorBench::load() {
    view.viewDidLoad();
}

void EditorBench::loaded() {
    load();
    journal.clear();
}

ButtonValue& EditorBench::record(std::int32_t index) {
    return *view.sceneValue()->buttonValueArray().at(static_cast<std::size_t>(index) - 1);
}

void EditorBench::pick(const std::string& name, std::int32_t position) {
    for (const PopUpRow& row : kPopUpRows) {
        if (row.name != name)
            continue;
        popUp(name).selected = position;
        (view.*row.action)(popUp(name));
    }
}

Lines EditorBench::visiblePanes() const {
    Lines names;
    for (const auto& [name, pane] : panes_) {
        if (!pane->hidden)
            names.push_back(name);
    }
    return names;
}

Lines EditorBench::enabledPopUps(const std::string& beginning) const {
    Lines names;
    for (const PopUpRow& row : kPopUpRows) {
        if (std::string(row.name).starts_with(beginning) && popUps_.at(row.name)->enabled)
            names.emplace_back(row.name);
    }
    return names;
}

Lines hiddenPanes() {
    return {"commonView.setHidden(yes)", "groupView.setHidden(yes)", "knobView.setHidden(yes)",
            "sliderView.setHidden(yes)", "padView.setHidden(yes)",   "keyView.setHidden(yes)"};
}

Lines greenTitles(const std::map<std::int32_t, std::string>& titles) {
    Lines lines;
    for (const auto& [tag, title] : titles) {
        const std::string button = "button" + std::to_string(tag);
        lines.push_back(button + ".setAttributedTitle(" + title + ", 50 180 50)");
        lines.push_back(button + ".setNeedsDisplay()");
    }
    return lines;
}

Lines highlighted(std::int32_t chosen) {
    Lines lines;
    for (std::int32_t tag = 1; tag <= 45; ++tag)
        lines.push_back("button" + std::to_string(tag) +
                        (tag == chosen ? ".setImage(selected)" : ".setImage(none)"));
    return lines;
}

Lines joined(std::initializer_list<Lines> parts) {
    Lines all;
    for (const Lines& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace scenewright::testing
