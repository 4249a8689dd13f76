// The commands on the keyboard as both programs run them: each gives the keyboard back when it has
// ended, so that its MIDI port is there for other programs again. Main thread only.
#pragma once

#include "app/WindowAction.h"
#include "bank/Difference.h"
#include "model/PopUpValue.h"
#include "protocol/SceneImage.h"
#include "protocol/Transactions.h"

#include <functional>
#include <vector>

namespace scenewright {

class DeviceSession {
public:
    DeviceSession() = delete;

    // Called before each transaction, and when it has ended and the keyboard is given back. Empty
    // ones are none; they stay until others are set.
    static void setAround(std::function<void()> before, std::function<void()> after);

    using Ended = WindowAction::Ended;
    // As WindowAction::readSceneData() and sendSceneData().
    static void read(const Ended& ended);
    static void send(const Ended& ended, const SceneSent& sceneSent = {});

    // What the controller holds, without touching the stored scenes or the progress record. Blocks
    // until the read has ended. Not started, with kResultBusy, while a send runs.
    [[nodiscard]] static ScenesRead heldScenes();
};

// What the controller holds beside a bank.
struct DeviceComparison {
    Outcome outcome;                     // of the read; differences are known only if it is done
    std::vector<Difference> differences; // the controller's value first
    [[nodiscard]] bool isSame() const { return outcome.isDone() && differences.empty(); }
};

// The stored scenes as the controller would hold them, and those that a new window begins with.
[[nodiscard]] BankImage storedImage();
[[nodiscard]] BankImage defaultImage();

// In what the stored scenes differ from those that the keyboard is known to hold, its values first;
// none while that is not known.
[[nodiscard]] std::vector<Difference> unsentChanges(const PopUpValue& lists);

[[nodiscard]] DeviceComparison compareWithDevice(const PopUpValue& lists, const SceneList& bank);

} // namespace scenewright
