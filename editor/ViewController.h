// The main editor view: which scene and which control are chosen, what the panes and the device
// picture show of them, and what a user's choice writes into the scene.
//
// The owner of the window sets every outlet, then calls viewDidLoad() once; only `message` may be
// missing. Outlets are the owner's and outlive the view. The view may end before the progress
// record that it observes. The scene that it edits is the stored one, shared: a choice is live in
// it at once. A scene may hold fewer than its 45 controls, or none: a control that is missing has
// no pane and takes no choice. Main thread only.
#pragma once

#include "editor/ValuePopUps.h"
#include "editor/Widgets.h"
#include "model/MessageValue.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// The range bounds are fields of the view itself, under the names of the range record.
class ViewController final : public ButtonRange, private ListDataSource, private ListDelegate {
    // The device picture; its buttons carry the tags 1 to 45.
    SCENEWRIGHT_PROPERTY(ButtonBoard*, windowView, setWindowView)
    SCENEWRIGHT_PROPERTY(Segmented*, sceneSegmented, setSceneSegmented)
    SCENEWRIGHT_PROPERTY(List*, controllerTableView, setControllerTableView)
    SCENEWRIGHT_PROPERTY(PopUp*, displaySelect, setDisplaySelect)
    SCENEWRIGHT_PROPERTY(TextField*, message, setMessage) // the status line

    SCENEWRIGHT_PROPERTY(Pane*, commonView, setCommonView)
    SCENEWRIGHT_PROPERTY(Pane*, groupView, setGroupView)
    SCENEWRIGHT_PROPERTY(Pane*, knobView, setKnobView)
    SCENEWRIGHT_PROPERTY(Pane*, sliderView, setSliderView)
    SCENEWRIGHT_PROPERTY(Pane*, padView, setPadView)
    SCENEWRIGHT_PROPERTY(Pane*, keyView, setKeyView)

    SCENEWRIGHT_PROPERTY(TextField*, commonSceneName, setCommonSceneName)

    // The 31 value popups, each with the action of a user's choice in it.
    SCENEWRIGHT_VALUE_POPUPS(SCENEWRIGHT_VALUE_POPUP)

    SCENEWRIGHT_PROPERTY(std::shared_ptr<PopUpValue>, pu, setPu)
    SCENEWRIGHT_PROPERTY(Titles, controlArray, setControlArray)   // the list's rows
    SCENEWRIGHT_PROPERTY(std::int32_t, sceneIndex, setSceneIndex) // 0 to 3
    SCENEWRIGHT_PROPERTY(std::shared_ptr<SceneValue>, sceneValue, setSceneValue)
    SCENEWRIGHT_PROPERTY(std::int32_t, selectControl, setSelectControl) // control index or -1
    SCENEWRIGHT_PROPERTY(std::int32_t, dispaly_index, setDispaly_index) // display mode
    SCENEWRIGHT_PROPERTY(std::shared_ptr<ButtonValue>, buttonValue, setButtonValue)
    SCENEWRIGHT_PROPERTY(std::shared_ptr<MessageValue>, messageValue, setMessageValue)

public:
    // What an observer is told: the new value under "new", and the old one under "old" if it asked
    // for it.
    using Change = std::map<std::string, MessageValue::Text, std::less<>>;

    ViewController() = default;
    ViewController(const ViewController&) = delete;
    ViewController& operator=(const ViewController&) = delete;
    ViewController(ViewController&&) = delete;
    ViewController& operator=(ViewController&&) = delete;
    ~ViewController() override = default;

    // Whom to tell, once at the end of each operation that can change what is chosen or what the
    // scene holds: the end of a read, a change of the selection, each choice of the user,
    // showSceneValue() and showChosenControl(). An operation within another is not told by itself,
    // nor is what the subscriber does to the view; nothing is told of one that throws.
    void setOnChange(std::function<void()> onChange) { onChange_ = std::move(onChange); }

    // Set-up.
    void viewDidLoad();
    void viewDidAppear() {}
    void setUI();
    void getItem();
    // Called for every write of "Message" and "isReadFinish", before the writer returns.
    void observeValueForKeyPath_ofObject_change_context(std::string_view keyPath,
                                                        const MessageValue* object,
                                                        const Change& change, const void* context);

    // The control list.
    [[nodiscard]] std::int32_t numberOfRowsInTableView(const List* tableView) const;
    // Empty for a row that the list does not have.
    [[nodiscard]] std::string tableView_objectValueForTableColumn_row(const List* tableView,
                                                                      std::int32_t column,
                                                                      std::int32_t row) const;
    [[nodiscard]] bool tableView_shouldEditTableColumn_row(const List* tableView,
                                                           std::int32_t column,
                                                           std::int32_t row) const;
    // Takes the clicked row; it is -1 when the user chose with the keys, and then no control is
    // chosen.
    std::vector<std::int32_t>
    tableView_selectionIndexesForProposedSelection(const List* tableView,
                                                   const std::vector<std::int32_t>& rows);
    void tableViewSelectionDidChange(const List* tableView);

    // The user's choices.
    void chooseButtonAction(const Button& sender);
    void changeSceneAction(const Segmented& sender);
    void changeDispalyAction(const PopUp& sender);

    // The scene, the panes and the picture.
    void showSceneValue();
    // Shows the pane of the chosen control, and the summary, after the control's settings have been
    // changed from outside.
    void showChosenControl();
    void showCommonValue();
    void showGroupValue(std::int32_t index);
    void showKnobValue(std::int32_t index);
    void showSliderValue(std::int32_t index);
    void showPadValue(std::int32_t index);
    void showKeyValue(std::int32_t index);
    void showDisplayValueWithIndex(std::int32_t mode);
    void showChooseButtonWithIndex(std::int32_t index);
    void hideView();
    void changeButtonColor();
    void setTextColor_color(Button& button, const Colour& colour);

private:
    std::int32_t rowCount() override;
    std::string rowTitle(std::int32_t row) override;
    bool mayEdit(std::int32_t row) override;
    std::vector<std::int32_t> proposeSelection(const std::vector<std::int32_t>& rows) override;
    void selectionDidChange() override;

    void observe(std::string_view key);
    // By the range fields; nothing for an index outside all of them.
    [[nodiscard]] std::optional<ControlKind> kindOf(std::int32_t index) const;

    [[nodiscard]] PopUp& popUp(const ValuePopUp& row) const;
    [[nodiscard]] std::int32_t storedValue(const ValuePopUp& row) const;
    // The titles that the row's popup offers for the record at hand; null when it offers none.
    [[nodiscard]] Titles offeredTitles(const ValuePopUp& row) const;
    void showPaneOfChosenControl();
    // Puts the control's record into `buttonValue`; false when the scene has none.
    bool takeRecord(std::int32_t index);
    void showControlPane(ControlKind kind, std::int32_t index, Pane& pane);
    void showStoredValues(ControlKind kind);
    void showAssignment(const ValuePopUp& row, const ValuePopUp& number);
    void enableDependents(const ValuePopUp& driver, std::int32_t value);
    void showTitle(std::int32_t index, const ButtonValue& record, std::int32_t mode);

    void changeValue(const PopUp& sender, const ValuePopUp& row);
    void applyRule(const ValuePopUp& row, std::int32_t value);
    void offerNumbers(const ValuePopUp& number);

    // Carries an operation out and tells of it, unless it is part of another.
    void operate(const std::function<void()>& operation);

    std::function<void()> onChange_;
    bool isOperating_ = false;
    std::vector<MessageValue::Subscription> observed_;
};

} // namespace scenewright
