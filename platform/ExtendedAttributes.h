// What a file has beside its content, its owner and its mode: the list of further users and groups
// that may use it (an access ACL), and the attributes that its user gave it.
#pragma once

#include <filesystem>

namespace scenewright {

// Gives the open file `to` the access list and the user's attributes of the file `from`, and takes
// away a list that it has from its folder and `from` has not. 0, or errno's value. A file system
// that has neither is no error. Any thread.
[[nodiscard]] int copyAttributes(const std::filesystem::path& from, int to);

} // namespace scenewright
