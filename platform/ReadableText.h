// Translator that come from outside, made fit to be shown: names that devices and files have,
// arguments.
#pragma once

#include <string>
#include <string_view>

namespace scenewright {

// The text as valid UTF-8 of one line: bytes that are no UTF-8, control characters, among them a
// terminal's commands, and those that end a line or turn its direction show as U+FFFD. Any thread.
[[nodiscard]] std::string readableText(std::string_view text);

} // namespace scenewright
