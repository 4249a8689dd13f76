// Translator of other people inside a sentence of ours.
#pragma once

#include <string>
#include <string_view>

namespace scenewright {

// `text` as it may stand in a message of one line: bytes that nobody can read show as U+FFFD, and
// a long text is cut short with an ellipsis.
[[nodiscard]] std::string sanitized(std::string_view text);

} // namespace scenewright
