// What an operation gives that can fail: its value, or why there is none.
//
// The reason is one sentence for a person unless the operation names another type. It names the
// file or the device concerned and ends without a full stop, so that it can be put after a prefix.
#pragma once

#include <string>
#include <tl/expected.hpp>
#include <type_traits>
#include <utility>

namespace scenewright {

template <typename Value, typename Error = std::string>
using Result = tl::expected<Value, Error>;

// `return failure("...")` from an operation that gives a Result.
template <typename Error>
[[nodiscard]] tl::unexpected<std::decay_t<Error>> failure(Error&& reason) {
    return tl::unexpected<std::decay_t<Error>>(std::forward<Error>(reason));
}
[[nodiscard]] inline tl::unexpected<std::string> failure(const char* reason) {
    return tl::unexpected<std::string>(reason);
}

} // namespace scenewright
