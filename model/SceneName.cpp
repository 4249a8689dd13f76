#include "model/SceneName.h"

#include "platform/ReadableText.h"

namespace scenewright {

std::string displayName(std::string_view sceneName) {
    const std::size_t last = sceneName.find_last_not_of('\0');
    return readableText(last == std::string_view::npos ? "" : sceneName.substr(0, last + 1));
}

} // namespace scenewright
