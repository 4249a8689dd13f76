// The editor view with a double in every outlet, over option lists and default scenes of the tests'
// own: each title says its key and place ("select127:5").
//
// The default scene: groups on channel 2; knobs and sliders on, CC 20 and 30; pads and keys send
// notes 36 and 60. What the journal holds begins where the test wants it: load() leaves the set-up
// in it, loaded() clears it.
#pragma once

#include "editor/ViewController.h"
#include "tests/editor/Doubles.h"
#include "tests/editor/PopUpRows.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace scenewright::testing {

class EditorBench : public ::testing::Test {
protected:
    EditorBench();
    ~EditorBench() override;
    EditorBench(const EditorBench&) = delete;
    EditorBench& operator=(const EditorBench&) = delete;

    // Entries of a list of basic.plist, from the next load on; 0 leaves the key out.
    void setEntries(const std::string& key, std::size_t entries);
    // No default.plist: the scenes have no controls.
    void removeDefaultScene();
    void load();
    void loaded();
    // Gives a view the doubles; the bench's own has them already.
    void connectOutlets(ViewController& editor);

    PopUpDouble& popUp(const std::string& name) { return *popUps_.at(name); }
    PaneDouble& pane(const std::string& name) { return *panes_.at(name); }
    ButtonDouble& button(std::int32_t tag) { return *picture.buttons.at(tag); }
    // The record of a control of the scene that is shown.
    ButtonValue& record(std::int32_t index);
    CommonValue& common() { return *view.sceneValue()->commonValue(); }
    // Has the user choose a control by its button, and a position in a popup.
    void choose(std::int32_t index) { view.chooseButtonAction(button(index)); }
    void pick(const std::string& name, std::int32_t position);
    // The names of the panes that are not hidden.
    [[nodiscard]] Lines visiblePanes() const;
    // The names of the popups, among those that begin so, that can be used.
    [[nodiscard]] Lines enabledPopUps(const std::string& beginning) const;

    Journal journal;
    BoardDouble picture{journal};
    SegmentedDouble scenes;
    ListDouble list{journal, "list"};
    PopUpDouble displaySelect{journal, "displaySelect"};
    TextFieldDouble status{journal, "message"};
    TextFieldDouble sceneName{journal, "commonSceneName"};
    ViewController view;

private:
    void writeBasic();
    void writeDefault();
    void write(const std::string& name, const std::string& dictionary);

    TempFolder folder_;
    std::map<std::string, std::size_t> entries_;
    std::map<std::string, std::unique_ptr<PopUpDouble>> popUps_;
    std::map<std::string, std::unique_ptr<PaneDouble>> panes_;
};

// Loaded, with an empty journal.
class LoadedEditor : public EditorBench {
protected:
    LoadedEditor() { loaded(); }
};

// Six lines, all panes hidden.
[[nodiscard]] Lines hiddenPanes();
// What colouring the picture's titles does, given each button's title.
[[nodiscard]] Lines greenTitles(const std::map<std::int32_t, std::string>& titles);
// What highlighting one button (or, for 0, none) does.
[[nodiscard]] Lines highlighted(std::int32_t tag);
[[nodiscard]] Lines joined(std::initializer_list<Lines> parts);

} // namespace scenewright::testing
