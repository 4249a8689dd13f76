// The controllers of a window's close button, of its message view and of the gain panel. Main
// thread only.
#pragma once

#include "editor/Widgets.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace scenewright {

// Makes the close button of the main window end the program, not just close the window.
//
// Borrows the window and the application, which outlive it; it outlives the user's last click on
// the close button.
class MainWindowController {
public:
    MainWindowController(Window& window, Application& application)
        : window_(window), application_(application) {}
    ~MainWindowController() = default;
    MainWindowController(const MainWindowController&) = delete;
    MainWindowController& operator=(const MainWindowController&) = delete;
    MainWindowController(MainWindowController&&) = delete;
    MainWindowController& operator=(MainWindowController&&) = delete;

    // Once, when the window is there.
    void windowDidLoad();
    void closeApplication();

private:
    Window& window_;
    Application& application_;
};

// A view that shows one text in a field and does not remember it.
//
// The field is the owner's; it may be missing, and then nothing is shown.
class MessageController {
    SCENEWRIGHT_PROPERTY(TextField*, messageField, setMessageField)

public:
    void viewDidLoad() {}
    // Shows the text. It is not kept: message() goes on answering nothing.
    void setMessage(const std::string& text);
    [[nodiscard]] const std::optional<std::string>& message() const { return message_; }

private:
    std::optional<std::string> message_;
};

// The gain panel: eight gains, each with a slider and a label, kept in memory only. Nothing stores
// or sends them.
//
// The owner of the panel sets the 16 outlets, then calls viewDidLoad(); the widgets outlive the
// panel's logic. Main thread only.
class GainController {
    // Slider k carries the tag k; its values are 0 to 127.
    SCENEWRIGHT_PROPERTY(Slider*, slider1, setSlider1)
    SCENEWRIGHT_PROPERTY(Slider*, slider2, setSlider2)
    SCENEWRIGHT_PROPERTY(Slider*, slider3, setSlider3)
    SCENEWRIGHT_PROPERTY(Slider*, slider4, setSlider4)
    SCENEWRIGHT_PROPERTY(Slider*, slider5, setSlider5)
    SCENEWRIGHT_PROPERTY(Slider*, slider6, setSlider6)
    SCENEWRIGHT_PROPERTY(Slider*, slider7, setSlider7)
    SCENEWRIGHT_PROPERTY(Slider*, slider8, setSlider8)

    SCENEWRIGHT_PROPERTY(TextField*, label1, setLabel1)
    SCENEWRIGHT_PROPERTY(TextField*, label2, setLabel2)
    SCENEWRIGHT_PROPERTY(TextField*, label3, setLabel3)
    SCENEWRIGHT_PROPERTY(TextField*, label4, setLabel4)
    SCENEWRIGHT_PROPERTY(TextField*, label5, setLabel5)
    SCENEWRIGHT_PROPERTY(TextField*, label6, setLabel6)
    SCENEWRIGHT_PROPERTY(TextField*, label7, setLabel7)
    SCENEWRIGHT_PROPERTY(TextField*, label8, setLabel8)

    using Gains = std::vector<std::int32_t>;
    SCENEWRIGHT_PROPERTY(Gains, gainArray, setGainArray)       // entry k - 1 belongs to slider k
    SCENEWRIGHT_PROPERTY(Gains, defaultArray, setDefaultArray) // stays empty
    SCENEWRIGHT_PROPERTY(std::int32_t, defaultNumber, setDefaultNumber)

public:
    void viewDidLoad();
    void setDefault();
    // The user moved a slider. A tag outside 1 to 8 changes nothing.
    void changeAction(const Slider& sender);
    void showValueWithTag_andValue(std::int32_t tag, std::int32_t value);
    void doOKAction();
    void doApplyAction();
    void doDefaultAction();
};

} // namespace scenewright
