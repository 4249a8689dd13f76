// Banks and scenes between files and the scene store. What is about to be replaced is kept among
// the earlier scenes first.
//
// The store holds the records themselves: a whole bank replaces its list, as a read does; one scene
// is written into the stored scene's own records, so that who holds the scene holds the new values.
// Nothing here needs a controller or sends anything. Main thread only.
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/NamedFiles.h"
#include "platform/Result.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

// The scenes that were replaced, kept as whole banks in the user's state folder, so that a read or
// an opened bank never costs a person's work.
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
    // beyond kMax. On error nothing was dropped either. A list of fewer than four scenes is nothing
    // to keep.
    [[nodiscard]] Result<void> keep(const SceneList& scenes,
                                    Clock::time_point now = Clock::now()) const;

    // What is kept, newest first.
    [[nodiscard]] std::vector<Bank> list() const;

private:
    std::optional<std::filesystem::path> folder_; // without one nothing is kept
};

class StoreFiles {
public:
    // What opening did beside its purpose.
    struct Opened {
        Result<void> kept;    // the former scenes, among the backups
        bool isScene = false; // one scene was opened, not a bank
    };

    explicit StoreFiles(BackupStore earlier = BackupStore{}) : earlier_(std::move(earlier)) {}

    [[nodiscard]] const BackupStore& earlier() const { return earlier_; }

    // Before the stored scenes are replaced.
    [[nodiscard]] Result<void> keep() const;

    // On error the store is what it was.
    [[nodiscard]] Result<Opened> openBank(const std::filesystem::path& file) const;
    // Into the stored scene of that index, 0 to 3: its name and all its settings.
    [[nodiscard]] Result<Opened> openScene(const std::filesystem::path& file,
                                           std::int32_t index) const;
    // A bank, or a scene into the stored one of that index, as the program starts: what it replaces
    // is the default scenes, and nothing of a user's that is to be kept.
    [[nodiscard]] static Result<Opened> openAtStart(const std::filesystem::path& file,
                                                    std::int32_t index);
    // The newest of the earlier scenes that can be read and differ from the stored ones.
    [[nodiscard]] std::optional<BackupStore::Bank> newestOther() const;

    // Files that the program writes to as it goes on, and that nothing is to be saved in.
    void setUsed(std::vector<NamedFile> files) { used_ = std::move(files); }

    // On error the file is what it was.
    [[nodiscard]] Result<void> saveBank(const std::filesystem::path& file,
                                        const PopUpValue& lists) const;
    [[nodiscard]] Result<void> saveScene(const std::filesystem::path& file, std::int32_t index,
                                         const PopUpValue& lists) const;

private:
    BackupStore earlier_;
    std::vector<NamedFile> used_;
};

} // namespace scenewright
