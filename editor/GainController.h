// The gain panel: eight gains, each with a slider and a label, kept in memory only. Nothing stores
// or sends them.
//
// The owner of the panel sets the 16 outlets, then calls viewDidLoad(); the widgets outlive the
// panel's logic. Main thread only.
#pragma once

#include "editor/Widgets.h"
#include "model/Property.h"

#include <cstdint>
#include <vector>

namespace scenewright {

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
