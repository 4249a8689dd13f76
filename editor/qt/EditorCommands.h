// What stands around the editor itself: banks, comparing, control commands, the keyboard's
// presence, and what the window remembers from one start to the next.
#pragma once

#include "editor/qt/BankCommands.h"
#include "editor/qt/ControlCommands.h"
#include "editor/qt/DeviceChecks.h"
#include "editor/qt/KeyboardWatch.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/NoticeBar.h"

namespace scenewright {

// Adds its menus and bars to the window, which outlives it. Made before the window is shown; its
// end keeps the window's place. Main thread only.
class EditorCommands final {
public:
    // No `look` for the virtual controller.
    EditorCommands(MainWindow& window, KeyboardWatch::Look look, StoreFiles files = StoreFiles{});
    ~EditorCommands();
    EditorCommands(const EditorCommands&) = delete;
    EditorCommands& operator=(const EditorCommands&) = delete;
    EditorCommands(EditorCommands&&) = delete;
    EditorCommands& operator=(EditorCommands&&) = delete;

    [[nodiscard]] BankCommands& banks() { return banks_; }
    [[nodiscard]] ControlCommands& controls() { return controls_; }
    [[nodiscard]] DeviceChecks& checks() { return checks_; }
    [[nodiscard]] NoticeBar& notice() { return *notice_; }
    [[nodiscard]] KeyboardWatch& keyboard() { return *keyboard_; }

private:
    void restoreWindow();

    MainWindow& window_;
    NoticeBar* notice_; // children of the window
    KeyboardWatch* keyboard_;
    BankCommands banks_;
    ControlCommands controls_;
    DeviceChecks checks_;
};

} // namespace scenewright
