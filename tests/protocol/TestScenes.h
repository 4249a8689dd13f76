// The scene byte image written down once more, as a list of offsets and accessors, and scenes and
// images of random content.
#pragma once

#include "model/SceneValue.h"
#include "tests/protocol/FakeController.h"

#include <cstddef>
#include <cstdint>
#include <random>

namespace scenewright::testing {

// One byte a member: `count` members from `offset` on, the first being entry `first` of the
// control array.
struct ControlBytes {
    const char* name;
    std::size_t offset;
    std::size_t first;
    std::size_t count;
    std::int32_t (ButtonValue::*read)() const;
    void (ButtonValue::*write)(std::int32_t);
};

struct CommonByte {
    const char* name;
    std::size_t offset;
    std::int32_t (CommonValue::*read)() const;
    void (CommonValue::*write)(std::int32_t);
};

[[nodiscard]] const std::vector<ControlBytes>& controlBytes();
[[nodiscard]] const std::vector<CommonByte>& commonBytes();

// Common settings with an empty name and 45 controls, all zero.
[[nodiscard]] std::shared_ptr<SceneValue> zeroScene();

// `count` scenes: names of any bytes, settings 0 to 127.
[[nodiscard]] Bytes randomImages(std::mt19937& random, std::size_t count);

} // namespace scenewright::testing
