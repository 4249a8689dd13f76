// The scenes that were replaced, kept as whole banks in the user's state folder, so that a read or
// an opened bank never costs a person's work.
//
// Main thread only.
#pragma once

#include "model/SceneValue.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace scenewright {

class BackupStore {
public:
    using Clock = std::chrono::system_clock;
    struct Bank {
        std::filesystem::path file; // a bank as BankFile.h reads it
        Clock::time_point kept;     // to the millisecond
    };
    static constexpr std::size_t kMax = 20;

    explicit BackupStore(std::optional<std::filesystem::path> folder = stateFolder())
        : folder_(std::move(folder)) {}

    // $XDG_STATE_HOME/scenewright/backups, or the same under ~/.local/state; nothing without
    // either.
    [[nodiscard]] static std::optional<std::filesystem::path> stateFolder();

    // Keeps the first four scenes, unless the newest bank holds the same; drops the oldest ones
    // beyond kMax. Nothing, or one sentence: then nothing was dropped either. A list of fewer than
    // four scenes is nothing to keep.
    [[nodiscard]] std::optional<std::string> keep(const SceneList& scenes,
                                                  Clock::time_point now = Clock::now()) const;

    // What is kept, newest first.
    [[nodiscard]] std::vector<Bank> list() const;

private:
    std::optional<std::filesystem::path> folder_; // without one nothing is kept
};

} // namespace scenewright
