#include "editor/WindowControllers.h"

#include "platform/Diagnostics.h"
#include "tests/editor/Doubles.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <optional>
#include <utility>

namespace scenewright::testing {

namespace {

using G = GainController;

constexpr std::array<void (G::*)(Slider*), 8> kSliders{
    &G::setSlider1, &G::setSlider2, &G::setSlider3, &G::setSlider4,
    &G::setSlider5, &G::setSlider6, &G::setSlider7, &G::setSlider8};
constexpr std::array<void (G::*)(TextField*), 8> kLabels{
    &G::setLabel1, &G::setLabel2, &G::setLabel3, &G::setLabel4,
    &G::setLabel5, &G::setLabel6, &G::setLabel7, &G::setLabel8};

class GainControllerTest : public ::testing::Test {
protected:
    GainControllerTest() {
        for (std::size_t place = 0; place < 8; ++place) {
            const std::string number = std::to_string(place + 1);
            sliders.push_back(std::make_unique<SliderDouble>(journal, "slider" + number,
                                                             static_cast<std::int32_t>(place) + 1));
            labels.push_back(std::make_unique<TextFieldDouble>(journal, "label" + number));
            (panel.*kSliders[place])(sliders.back().get());
            (panel.*kLabels[place])(labels.back().get());
        }
        Diagnostics::setLog(
            [this](std::string_view line) { journal.add("log: " + std::string(line)); });
    }
    ~GainControllerTest() override { Diagnostics::setLog({}); }

    void loaded() {
        panel.viewDidLoad();
        journal.clear();
    }
    void move(std::int32_t tag, std::int32_t value) {
        SliderDouble& slider = *sliders[static_cast<std::size_t>(tag) - 1];
        slider.position = value;
        panel.changeAction(slider);
    }

    Journal journal;
    std::vector<std::unique_ptr<SliderDouble>> sliders;
    std::vector<std::unique_ptr<TextFieldDouble>> labels;
    GainController panel;
};

const std::vector<std::int32_t> kAllDefault(8, 64);

Lines defaultSet() {
    Lines lines{"log: gainArray count 8"};
    for (int tag = 1; tag <= 8; ++tag)
        lines.push_back("slider" + std::to_string(tag) + ".setValue(64)");
    for (int tag = 1; tag <= 8; ++tag)
        lines.push_back("label" + std::to_string(tag) + ".setText(64/127)");
    lines.emplace_back("log: setDefault");
    return lines;
}

} // namespace

TEST_F(GainControllerTest, LoadSetsTheDefaultInThisOrder) {
    panel.viewDidLoad();
    EXPECT_EQ(journal.lines(), defaultSet());
    EXPECT_EQ(panel.defaultNumber(), 64);
    EXPECT_EQ(panel.gainArray(), kAllDefault);
    EXPECT_TRUE(panel.defaultArray().empty());
}

TEST_F(GainControllerTest, MovedSliderChangesItsEntryAndItsLabelOnly) {
    loaded();
    std::vector<std::int32_t> gains = kAllDefault;
    for (std::int32_t tag = 1; tag <= 8; ++tag) {
        journal.clear();
        move(tag, tag * 10);
        const std::string value = std::to_string(tag * 10);
        gains[static_cast<std::size_t>(tag) - 1] = tag * 10;
        EXPECT_EQ(panel.gainArray(), gains);
        EXPECT_EQ(journal.lines(),
                  Lines{"label" + std::to_string(tag) + ".setText(" + value + "/127)"});
    }
}

TEST_F(GainControllerTest, ButtonsLogTheirNamesAndDefaultBringsEverythingBack) {
    loaded();
    move(1, 0);
    move(8, 127);
    journal.clear();
    panel.doOKAction();
    panel.doApplyAction();
    EXPECT_EQ(journal.lines(), (Lines{"log: OK", "log: Apply"}));
    EXPECT_EQ(panel.gainArray()[7], 127);
    journal.clear();
    panel.doDefaultAction();
    Lines expected = defaultSet();
    expected.insert(expected.begin(), "log: Default");
    EXPECT_EQ(journal.lines(), expected);
    EXPECT_EQ(panel.gainArray(), kAllDefault);
}

TEST_F(GainControllerTest, ForeignTagsChangeAndShowNothing) {
    loaded();
    for (const std::int32_t tag : {0, 9, -1, INT32_MIN, INT32_MAX}) {
        panel.showValueWithTag_andValue(tag, 5);
        SliderDouble stranger(journal, "stranger", tag);
        stranger.position = 5;
        panel.changeAction(stranger);
    }
    EXPECT_EQ(panel.gainArray(), kAllDefault);
    EXPECT_EQ(journal.lines(), Lines{});
}

class CloseButton final : public Clickable {
public:
    void setAction(std::function<void()> action) override { click = std::move(action); }
    std::function<void()> click;
};

class WindowDouble final : public Window {
public:
    [[nodiscard]] Clickable& standardCloseButton() override { return closeButton; }
    CloseButton closeButton;
};

class ApplicationDouble final : public Application {
public:
    void terminate() override { ++terminations; }
    int terminations = 0;
};

TEST(MainWindow, ItsCloseButtonEndsTheApplicationOnceTheWindowHasLoaded) {
    WindowDouble window;
    ApplicationDouble application;
    MainWindowController controller{window, application};
    EXPECT_FALSE(window.closeButton.click);
    controller.windowDidLoad();
    EXPECT_EQ(application.terminations, 0);
    window.closeButton.click();
    EXPECT_EQ(application.terminations, 1);
    controller.closeApplication();
    EXPECT_EQ(application.terminations, 2);
}

TEST(MessageController, ShowsTheTextAndDoesNotKeepIt) {
    Journal journal;
    TextFieldDouble field(journal, "messageField");
    MessageController controller;
    controller.setMessage("without a field");
    controller.setMessageField(&field);
    controller.viewDidLoad();
    EXPECT_EQ(controller.message(), std::nullopt);
    controller.setMessage("hello");
    EXPECT_EQ(journal.lines(), Lines{"messageField.setText(hello)"});
    EXPECT_EQ(controller.message(), std::nullopt);
    EXPECT_EQ(controller.messageField(), &field);
}

} // namespace scenewright::testing
