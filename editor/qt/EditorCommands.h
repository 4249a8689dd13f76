// What stands around the editor itself: banks, comparing, control commands, the keyboard's
// presence, and what the window remembers from one start to the next.
#pragma once

#include "editor/qt/BankCommands.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/DeviceVerification.h"
#include "editor/qt/Document.h"
#include "editor/qt/EarlierCommands.h"
#include "editor/qt/KeyboardCommands.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/MidiPorts.h"
#include "editor/qt/MonitorStrip.h"
#include "editor/qt/PadColours.h"
#include "editor/qt/PlayBar.h"
#include "editor/qt/SceneCommands.h"
#include "editor/qt/SceneMarks.h"
#include "editor/qt/TryStrip.h"

#include <memory>
#include <string>
#include <vector>

namespace scenewright {

// Adds its menus and bars to the window, which outlives it. Made before the window is shown; its
// end keeps the window's place. Main thread only.
class EditorCommands final {
public:
    // No `keyboards` for the virtual controller. Without a `recovery` no edited scenes are kept.
    EditorCommands(MainWindow& window, std::shared_ptr<Keyboards> keyboards,
                   StoreFiles files = StoreFiles{}, SendJournal journal = SendJournal{},
                   std::shared_ptr<Recovery> recovery = nullptr);
    ~EditorCommands();
    Q_DISABLE_COPY_MOVE(EditorCommands)

    // The virtual controller is what is listened to, and what the View menu plays.
    void useVirtual();
    // A notice for lists that cannot serve, one sentence each; none for none.
    void reportLists(const std::vector<std::string>& errors);

    [[nodiscard]] History& history() { return history_; }
    [[nodiscard]] Document& document() { return document_; }
    [[nodiscard]] BankCommands& banks() { return banks_; }
    [[nodiscard]] EarlierCommands& earlier() { return earlier_; }
    [[nodiscard]] SafeSending& sending() { return sending_; }
    [[nodiscard]] SceneCommands& scenes() { return scenes_; }
    [[nodiscard]] PadColours& colours() { return colours_; }
    [[nodiscard]] DeviceVerification& verification() { return verification_; }
    [[nodiscard]] KeyboardWatch& keyboard() { return *keyboard_; }
    [[nodiscard]] KeyboardCommands& keyboards() { return keyboards_; }

private:
    MainWindow& window_;
    KeyboardWatch* keyboard_; // child of the window
    History history_;
    Document document_;
    BankCommands banks_;
    EarlierCommands earlier_;
    ControlCommands controls_;
    SceneCommands scenes_;
    SceneChecks checks_;
    PadColours colours_;
    // Children of the window.
    KeyboardInput* input_;
    MonitorStrip* monitor_;
    PlayBar playing_;
    SafeSending sending_;
    DeviceVerification verification_;
    TryStrip* trying_; // child of the window
    ChangeMarks marks_;
    KeyboardCommands keyboards_;
    std::unique_ptr<ScenesKeeper> keeper_; // null without a recovery
};

} // namespace scenewright
