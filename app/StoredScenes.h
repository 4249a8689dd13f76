// What is done with whole scenes of the store: renamed, copied, swapped, reset, checked, opened
// from files and saved in them.
//
// The store holds the records themselves: a whole bank replaces its list, as a read does; one scene
// is written into the stored scene's own records, so that who holds the scene holds the new values.
// Scenes are given by their index, 0 to 3. Nothing here needs a controller or sends anything. Main
// thread only.
#pragma once

#include "app/Earlier.h"
#include "bank/Fill.h"
#include "bank/Findings.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Files.h"
#include "platform/Text.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {

// Name and settings. A stored scene without controls gets those of the other.
void copyInto(SceneValue& stored, const SceneValue& scene);

class StoredScenes {
public:
    StoredScenes() = delete;

    // The scene's name as a person types it; empty for bytes that are no text.
    [[nodiscard]] static std::string name(std::int32_t scene);
    // One sentence, in the person's language, that says why the controller cannot hold a name.
    [[nodiscard]] static Result<void> checkName(std::string_view name);
    // The same; then the scene has its former name.
    [[nodiscard]] static Result<void> rename(std::int32_t scene, std::string_view name);
    static void copy(std::int32_t from, std::int32_t to);
    static void swap(std::int32_t first, std::int32_t second);
    // To the default scene, named by its place as those of a new window are.
    static void reset(std::int32_t scene);
    // What a player may not have meant in them.
    [[nodiscard]] static std::vector<Finding> findings(const PopUpValue& lists);
};

// What the stored scenes would be with controls of one of them filled or transposed, by the rules
// of bank/Fill.h. The stored scenes stay as they are; copyInto() takes one over.
// `members` are the controls of the kind; `scene` is 0 to 3.
[[nodiscard]] FilledScenes filledScenes(const PopUpValue& lists, std::int32_t scene,
                                        ControlKind kind, Members members, std::string_view start,
                                        const FillSteps& steps);
[[nodiscard]] FilledScenes transposedScenes(const PopUpValue& lists, std::int32_t scene,
                                            ControlKind kind, Members members,
                                            std::int32_t semitones);

// Banks and scenes between files and the scene store. What is about to be replaced is kept among
// the earlier scenes first.
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
    // The bank that a file holds by now; nothing when it is gone or holds none.
    [[nodiscard]] static std::optional<BankImage> imageIn(const std::filesystem::path& file);
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
