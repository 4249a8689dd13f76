// Texts between the view logic (UTF-8) and the toolkit.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace scenewright {

// Bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] inline QString shown(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace scenewright
