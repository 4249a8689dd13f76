#include "bank/MessageText.h"

#include "model/SceneValue.h"

namespace scenewright {

namespace {

constexpr std::size_t kMaxBytes = 80;
constexpr std::string_view kEllipsis = "\xE2\x80\xA6"; // U+2026

constexpr bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace

std::string sanitized(std::string_view text) {
    if (text.size() <= kMaxBytes)
        return displayName(text);
    std::size_t end = kMaxBytes;
    while (end > 0 && continuesCharacter(text[end]))
        --end;
    return displayName(text.substr(0, end)) + std::string(kEllipsis);
}

} // namespace scenewright
