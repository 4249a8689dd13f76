#include "editor/WindowControllers.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace scenewright {

namespace {

class CloseButton final : public Clickable {
public:
    void setAction(std::function<void()> action) override { action_ = std::move(action); }
    void click() const { action_(); }
    [[nodiscard]] bool hasAction() const { return static_cast<bool>(action_); }

private:
    std::function<void()> action_;
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

struct MainWindow : ::testing::Test {
    WindowDouble window;
    ApplicationDouble application;
    MainWindowController controller{window, application};
};

} // namespace

TEST_F(MainWindow, CloseButtonKeepsItsOwnActionUntilTheWindowHasLoaded) {
    EXPECT_FALSE(window.closeButton.hasAction());
    controller.windowDidLoad();
    EXPECT_TRUE(window.closeButton.hasAction());
    EXPECT_EQ(application.terminations, 0);
}

TEST_F(MainWindow, ClickOnTheCloseButtonEndsTheApplication) {
    controller.windowDidLoad();
    window.closeButton.click();
    EXPECT_EQ(application.terminations, 1);
}

TEST_F(MainWindow, CloseApplicationEndsTheApplication) {
    controller.closeApplication();
    EXPECT_EQ(application.terminations, 1);
}

} // namespace scenewright
