#include "platform/LineReader.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <unistd.h>
#include <utility>

namespace scenewright {

std::vector<Result<std::string>> LineReader::take() {
    std::array<char, kLongest> room{};
    const ssize_t count = ::read(descriptor_, room.data(), room.size());
    std::vector<Result<std::string>> lines;
    for (ssize_t place = 0; place < count; ++place) {
        const char letter = room[static_cast<std::size_t>(place)];
        if (letter == '\n')
            lines.push_back(endLine());
        else if (begun_.size() < kLongest)
            begun_ += letter;
        else
            isTooLong_ = true;
    }
    if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN)) {
        descriptor_ = -1;
        if (!begun_.empty())
            lines.push_back(endLine());
    }
    return lines;
}

Result<std::string> LineReader::endLine() {
    std::string line = std::exchange(begun_, {});
    if (std::exchange(isTooLong_, false))
        return failure(fmt::format("a line of more than {} bytes is no order", kLongest));
    return line;
}

} // namespace scenewright
