// Making widgets, layouts and actions that their parent owns.
#pragma once

#include <QObject>

#include <memory>
#include <utility>

namespace scenewright {

// A T made with the given arguments, whose last one is the parent that owns and deletes it.
template <typename T, typename... Args>
[[nodiscard]] T& makeChild(Args&&... args) {
    auto made = std::make_unique<T>(std::forward<Args>(args)...);
    Q_ASSERT(made->parent() != nullptr);
    return *made.release();
}

} // namespace scenewright
