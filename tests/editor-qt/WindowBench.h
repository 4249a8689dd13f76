// The whole window on a virtual controller in the same process, without the pauses of a real bus.
#pragma once

#include "editor/qt/DeviceCommands.h"
#include "editor/qt/MainWindow.h"
#include "model/PopUpValue.h"
#include "protocol/SceneImage.h"
#include "tests/editor-qt/UsableScenes.h"
#include "virtual/VirtualController.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>

namespace scenewright::testing {

[[nodiscard]] BankImage imageOf(const SceneList& scenes);

// Holds every write back while it is closed, so that a send stays under way.
class Gate;

class WindowBench : public ::testing::Test {
protected:
    explicit WindowBench(const SceneList& held = usableScenes(), FaultPlan faults = {});
    ~WindowBench() override;

    // Makes and shows the window.
    MainWindow& open(std::chrono::milliseconds limit = QuitController::kLimit);
    MainWindow& window() { return *window_; }
    // Ends the window.
    void end() { window_.reset(); }

    [[nodiscard]] QString message() const { return window_->status().message().text(); }
    [[nodiscard]] const BankImage& held() const { return controller_->bank(); }
    [[nodiscard]] VirtualController& controller() { return *controller_; }

    void read();
    // Sends with the keys and waits for the end.
    void send();
    bool waitUntil(const std::function<bool()>& condition);
    // As a user does, with the keyboard on the box and Return at the end.
    void type(PopUpBox& box, const QString& text);

    // No transfer of a send goes on until the gate is opened.
    void closeGate();
    void openGate();

private:
    std::shared_ptr<Gate> gate_;
    std::shared_ptr<VirtualController> controller_;
    MainLoop loop_;
    std::unique_ptr<Appearance> appearance_;
    std::unique_ptr<QuitController> quit_;
    std::unique_ptr<MainWindow> window_;
};

} // namespace scenewright::testing
