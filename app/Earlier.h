// The scenes that were replaced, in the store or on the keyboard, kept as whole banks in the user's
// state folder, so that no command costs a person's work. Main thread only.
#pragma once

#include "model/SceneValue.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

class EarlierScenes {
public:
    using Clock = std::chrono::system_clock;
    // What was about to replace them.
    enum class Reason : std::uint8_t {
        Unknown, // kept by a version that did not write it down
        Read,
        Send, // they were on the keyboard
        Opening,
        BringingBack,
    };
    struct Occasion {
        Reason reason = Reason::Unknown;
        std::string subject{};  // the file that was opened or sent; empty if it was none
        std::string keyboard{}; // how it calls itself; empty if it had no part in it
        friend bool operator==(const Occasion&, const Occasion&) = default;
    };
    struct Entry {
        std::filesystem::path file;
        Clock::time_point kept; // to the millisecond
        Occasion occasion;
        BankImage image{};

        [[nodiscard]] SceneList scenes() const;
        // As they are shown, of the four scenes.
        [[nodiscard]] std::vector<std::string> names() const;
    };

    explicit EarlierScenes(std::optional<std::filesystem::path> folder = stateFolder())
        : folder_(std::move(folder)) {}

    // $XDG_STATE_HOME/scenewright/backups, or the same under ~/.local/state; nothing without
    // either.
    [[nodiscard]] static std::optional<std::filesystem::path> stateFolder();

    // Keeps the scenes, unless the newest entry holds the same or they are the four that a new
    // window begins with; then thins what is there. On error nothing was dropped either. Gives
    // whether they are among the entries now.
    [[nodiscard]] Result<bool> keep(const BankImage& image, const Occasion& occasion,
                                    Clock::time_point now = Clock::now()) const;

    // What can be read of what is kept, newest first.
    [[nodiscard]] std::vector<Entry> list() const;

    // Which of these times, newest first, are dropped. All of the last day stay; of what is older
    // the newest of each hour, after a week of each day, after eight weeks of each week.
    [[nodiscard]] static std::vector<bool> dropped(std::span<const Clock::time_point> newestFirst,
                                                   Clock::time_point now);

private:
    void thin(Clock::time_point now) const;

    std::optional<std::filesystem::path> folder_; // without one nothing is kept
};

// "before opening live.bank", in the person's language; empty for an unknown one.
[[nodiscard]] std::string reasonText(const EarlierScenes::Occasion& occasion);

} // namespace scenewright
