// Edited scenes on the disk, so that neither the end of a program nor its crash costs a person's
// work: a program keeps its own while they are neither sent nor saved, and finds those that ended
// programs have left.
//
// Each running program has a place of its own in the folder, which it holds by a lock (flock) that
// the kernel takes back at the program's end, however it ends. What an ended program left is held
// the same way by the program that found it, so that no second one offers it.
//
// keep(), discard() and flush() may be called by any thread, the rest by the thread that made it.
#pragma once

#include "platform/Process.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace scenewright {

// Scenes, and what they belong to; both texts may be empty.
struct EditedScenes {
    BankImage image{};
    std::string file;     // the path of the bank that they were opened from or saved in
    std::string keyboard; // its name
    friend bool operator==(const EditedScenes&, const EditedScenes&) = default;
};

// The file's content: a line that says what it is, the image, and the two texts, each ended by a
// zero byte.
[[nodiscard]] std::vector<std::uint8_t> editedBytes(const EditedScenes& scenes);
// Nothing for anything else.
[[nodiscard]] std::optional<EditedScenes> parseEdited(std::span<const std::uint8_t> bytes);

class Recovery {
public:
    struct Left {
        EditedScenes scenes;
        std::chrono::system_clock::time_point kept; // to the second
        std::uint32_t place = 0;
    };

    // Takes a place in the folder, which is made if need be. Without a folder, or when it cannot be
    // used, nothing is found and flush() says why nothing is kept.
    explicit Recovery(std::optional<std::filesystem::path> folder = stateFolder());

    // $XDG_STATE_HOME/scenewright/unsent, or the same under ~/.local/state; nothing without either.
    [[nodiscard]] static std::optional<std::filesystem::path> stateFolder();

    // What ended programs have left and nobody holds, newest first. It stays until forget().
    [[nodiscard]] const std::vector<Left>& left() const { return left_; }
    // Removes it for good.
    void forget(std::uint32_t place);

    // The scenes are to be kept from now on, or none; the disk follows at the next flush().
    void keep(EditedScenes scenes);
    void discard();
    // Whole and flushed to the disk, or what was there before. Does nothing when the disk holds
    // what is to be kept.
    [[nodiscard]] Result<void> flush();

private:
    [[nodiscard]] std::filesystem::path fileOf(std::uint32_t place) const;
    // Holds the place if nobody else does.
    [[nodiscard]] bool take(std::uint32_t place);
    void findPlaces();
    [[nodiscard]] Result<void> write();

    std::optional<std::filesystem::path> folder_;
    std::string trouble_; // why there is no place; empty when there is one
    std::map<std::uint32_t, FileDescriptor> locks_;
    std::vector<Left> left_;
    std::optional<std::uint32_t> own_;

    std::mutex mutex_; // over what follows
    std::optional<EditedScenes> wanted_;
    bool isOnDisk_ = true; // what is wanted, or that nothing is
};

} // namespace scenewright
