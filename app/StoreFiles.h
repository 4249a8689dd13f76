// Banks and scenes between files and the scene store. What is about to be replaced is kept among
// the earlier scenes first.
//
// The store holds the records themselves: a whole bank replaces its list, as a read does; one scene
// is written into the stored scene's own records, so that who holds the scene holds the new values.
// Nothing here needs a controller or sends anything. Main thread only.
#pragma once

#include "app/Earlier.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/NamedFiles.h"
#include "platform/Result.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

class StoreFiles {
public:
    // What opening did beside its purpose.
    struct Opened {
        Result<void> kept;    // the former scenes, among the earlier ones
        bool isScene = false; // one scene was opened, not a bank
    };

    explicit StoreFiles(EarlierScenes earlier = EarlierScenes{}) : earlier_(std::move(earlier)) {}

    [[nodiscard]] const EarlierScenes& earlier() const { return earlier_; }

    // Before the stored scenes are replaced. A list of fewer than four is nothing to keep.
    [[nodiscard]] Result<void> keep(const EarlierScenes::Occasion& occasion) const;

    // On error the store is what it was.
    [[nodiscard]] Result<Opened> openBank(const std::filesystem::path& file) const;
    // Into the stored scene of that index, 0 to 3: its name and all its settings. `from` is the
    // scene's place in a file that holds four; a file of one scene has the place 0.
    [[nodiscard]] Result<Opened> openScene(const std::filesystem::path& file, std::int32_t index,
                                           std::int32_t from = 0) const;
    // The names of the scenes that a file holds, as they are shown: four of a bank, or one.
    [[nodiscard]] static Result<std::vector<std::string>>
    sceneNames(const std::filesystem::path& file);
    // A bank, or a scene into the stored one of that index, as the program starts: what it replaces
    // is the default scenes, and nothing of a user's that is to be kept.
    [[nodiscard]] static Result<Opened> openAtStart(const std::filesystem::path& file,
                                                    std::int32_t index);
    // Makes them the stored scenes again; gives how the former ones were kept.
    [[nodiscard]] Result<void> bringBack(const BankImage& image) const;
    // The newest of the earlier scenes that differ from the stored ones.
    [[nodiscard]] std::optional<EarlierScenes::Entry> newestOther() const;

    // Files that the program writes to as it goes on, and that nothing is to be saved in.
    void setUsed(std::vector<NamedFile> files) { used_ = std::move(files); }

    // On error the file is what it was.
    [[nodiscard]] Result<void> saveBank(const std::filesystem::path& file,
                                        const PopUpValue& lists) const;
    [[nodiscard]] Result<void> saveScene(const std::filesystem::path& file, std::int32_t index,
                                         const PopUpValue& lists) const;

private:
    EarlierScenes earlier_;
    std::vector<NamedFile> used_;
};

} // namespace scenewright
