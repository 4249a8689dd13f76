// Lines of text from a descriptor, as they come.
#pragma once

#include "platform/Result.h"

#include <cstddef>
#include <string>
#include <vector>

namespace scenewright {

// The descriptor stays the caller's. One thread.
class LineReader {
public:
    static constexpr std::size_t kLongest = 4096; // bytes

    // -1 gives none ever.
    explicit LineReader(int descriptor = -1) : descriptor_(descriptor) {}

    // To be waited for; -1 once the input has ended.
    [[nodiscard]] int descriptor() const noexcept { return descriptor_; }
    // The lines that are whole after one read, without what ends them; a sentence in place of one
    // that is too long. Blocks unless the descriptor is ready. The end of the input ends its last
    // line.
    [[nodiscard]] std::vector<Result<std::string>> take();

private:
    [[nodiscard]] Result<std::string> endLine();

    int descriptor_;
    std::string begun_; // a line whose end has not come
    bool isTooLong_ = false;
};

} // namespace scenewright
