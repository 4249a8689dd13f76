// The commands on the keyboard as both programs run them, what the keyboard is known to hold by
// them, and what is said of their outcomes: the one place where window and command line get their
// sentences, cures and exit codes from. Main thread only.
//
// The words are in the person's language, as platform/Text.h has it. Sentences end without a full
// stop.
#pragma once

#include "app/WindowAction.h"
#include "bank/Findings.h"
#include "model/PopUpValue.h"
#include "protocol/Connection.h"
#include "protocol/SceneImage.h"
#include "protocol/Transactions.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// What the keyboard is known to hold: from a read whose every byte came from it, from a send whose
// every transfer went well. Nothing is known at the start, and nothing after transfers that failed.
// One for the process, as the scene store is.
class KnownKeyboard {
public:
    KnownKeyboard() = delete;

    // Told after each change: other bytes, another keyboard, or nothing known any more.
    using Observer = std::function<void()>;
    // An observation, which ends with it.
    using Subscription = std::shared_ptr<const void>;
    [[nodiscard]] static Subscription addObserver(Observer observer);

    [[nodiscard]] static const std::optional<BankImage>& image();
    // Which keyboard it is, in its own words; empty when it said nothing, or nothing is known.
    [[nodiscard]] static const std::string& name();

    static void set(const BankImage& image, std::string name);
    static void forget();

    // After a transaction that was to leave the keyboard and `image` the same. One that reached no
    // keyboard changes nothing.
    static void follow(const Outcome& outcome, const BankImage& image);

    // How the keyboard that is plugged in is called, by whoever knows: Keyboards, or a fixed
    // name for the virtual controller.
    using Naming = std::function<std::string()>;
    static void setNaming(Naming naming);
    // Empty without a naming.
    [[nodiscard]] static std::string pluggedInName();
};

// Each command gives the keyboard back when it has ended, so that its MIDI port is there for other
// programs again.
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

enum class DeviceOperation : std::uint8_t {
    ShowScenes, // a read into the window
    SaveScenes, // a read into a file
    Backup,     // a read before a send, into a file
    Send,
    Verify,  // a read after a send
    Compare, // a read beside what is there
    DryRun,  // a read in place of a send
};

struct OutcomeText {
    // What happened and what follows from it; empty when everything is done.
    std::string sentence;
    // What helps, and what else went wrong; a sentence each.
    std::vector<std::string> details;
    // 0 only when everything is done and kept.
    int exitCode = 0;

    // All of it, with this between; empty when there is nothing to say.
    [[nodiscard]] std::string joined(std::string_view between) const;
};

[[nodiscard]] OutcomeText textOf(DeviceOperation operation, const Outcome& outcome);

// What a comparison found, for Verify and Compare.
[[nodiscard]] std::string comparisonText(DeviceOperation operation, std::size_t differences);

// Why a device cannot be used, and what helps, by the code of the first step that failed.
[[nodiscard]] std::string causeAndCure(ResultCode failure);

// How many of the 1012 bytes of a read may not have come from the controller: an exchange is one
// write and one read, of which both may have failed.
[[nodiscard]] std::uint32_t unreliableBytes(const TransferStats& stats);

} // namespace scenewright
