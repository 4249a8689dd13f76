// Changes to a bank that a person asks for by path. Each works on copies: the scenes that go in are
// never changed, and a change that cannot be done whole is not done at all. An error is one phrase
// that names the path.
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Text.h"

#include <span>
#include <string>
#include <string_view>

namespace scenewright {

// Scenes that share nothing with these.
[[nodiscard]] SceneList copyOf(const SceneList& scenes);

// Carries out assignments of the form PATH=VALUE, each of which may name many settings by stars;
// where two name the same one, the later wins. VALUE is what indexTyped() takes; for a scene's name
// it is the name, or "bytes:" and 24 hexadecimal digits; for a pad's colour # and six hexadecimal
// digits. Titles and names of a pad's or key's number are those of what it sends once everything is
// assigned.
[[nodiscard]] Result<SceneList> setValues(const PopUpValue& lists, const SceneList& scenes,
                                          std::span<const std::string> assignments);

// Copies one path's settings to another path of the same level and kind: scenes with their names,
// controls, or single settings. A star in `from` goes with a star in `to`, pair by pair; a number
// in `from` is copied to all that `to` names. A value that its list does not have is refused unless
// `from` begins with kRawMark.
// `source` are the scenes themselves, or others, of which there may be fewer.
[[nodiscard]] Result<SceneList> copyValues(const PopUpValue& lists, const SceneList& source,
                                           const SceneList& scenes, std::string_view from,
                                           std::string_view to);

// Exchanges what two paths of the same level and kind name, neither with a star; scenes with their
// names.
[[nodiscard]] Result<SceneList> swapValues(const SceneList& scenes, std::string_view first,
                                           std::string_view second);

// Names the scenes of a path. The error says what the controller cannot hold of the name.
[[nodiscard]] Result<SceneList> renameScene(const SceneList& scenes, std::string_view path,
                                            std::string_view name);

} // namespace scenewright
