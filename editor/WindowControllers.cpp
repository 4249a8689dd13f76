#include "editor/WindowControllers.h"

#include "platform/Diagnostics.h"

#include <array>

namespace scenewright {

namespace {

using G = GainController;

struct GainRow {
    Slider* (G::*slider)() const;
    TextField* (G::*label)() const;
};

// Row k - 1 belongs to the tag k.
constexpr std::array<GainRow, 8> kGainRows{{
    {&G::slider1, &G::label1},
    {&G::slider2, &G::label2},
    {&G::slider3, &G::label3},
    {&G::slider4, &G::label4},
    {&G::slider5, &G::label5},
    {&G::slider6, &G::label6},
    {&G::slider7, &G::label7},
    {&G::slider8, &G::label8},
}};

constexpr std::int32_t kDefaultGain = 64;

bool isTag(std::int32_t tag) {
    return tag >= 1 && static_cast<std::size_t>(tag) <= kGainRows.size();
}

} // namespace

void MainWindowController::windowDidLoad() {
    window_.standardCloseButton().setAction([this] { closeApplication(); });
}

void MainWindowController::closeApplication() {
    application_.terminate();
}

void MessageController::setMessage(const std::string& text) {
    if (messageField() != nullptr)
        messageField()->setText(text);
}

void GainController::viewDidLoad() {
    setDefaultNumber(kDefaultGain);
    setGainArray({});
    setDefault();
}

void GainController::setDefault() {
    gainArray_.assign(kGainRows.size(), defaultNumber());
    Diagnostics::log("gainArray count %lu", gainArray().size());
    for (const GainRow& row : kGainRows)
        (this->*row.slider)()->setValue(kDefaultGain);
    for (std::int32_t tag = 1; isTag(tag); ++tag)
        showValueWithTag_andValue(tag, kDefaultGain);
    Diagnostics::log("setDefault");
}

void GainController::changeAction(const Slider& sender) {
    const std::int32_t tag = sender.tag();
    if (!isTag(tag))
        return;
    gainArray_.at(static_cast<std::size_t>(tag) - 1) = sender.value();
    showValueWithTag_andValue(tag, sender.value());
}

void GainController::showValueWithTag_andValue(std::int32_t tag, std::int32_t value) {
    if (isTag(tag))
        (this->*kGainRows[static_cast<std::size_t>(tag) - 1].label)()->setText(
            printfText("%d/127", value));
}

void GainController::doOKAction() {
    Diagnostics::log("OK");
}

void GainController::doApplyAction() {
    Diagnostics::log("Apply");
}

void GainController::doDefaultAction() {
    Diagnostics::log("Default");
    setDefault();
}

} // namespace scenewright
