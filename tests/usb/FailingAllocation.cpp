#include "tests/usb/FailingAllocation.h"

#include "tests/usb/FakeLibusb.h"

#include <cstdlib>
#include <new>

namespace scenewright::testing {

namespace {

constexpr int kNone = -1;

// Of this thread.
thread_local int allocationsLeft = kNone;
thread_local bool failed = false;

void* allocate(std::size_t size) noexcept {
    if (!isInLibrary() && allocationsLeft >= 0 && allocationsLeft-- == 0) {
        failed = true;
        return nullptr;
    }
    return std::malloc(size == 0 ? 1 : size); // NOLINT(cppcoreguidelines-no-malloc)
}

void* allocateOrThrow(std::size_t size) {
    void* const memory = allocate(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

} // namespace

FailingAllocation::FailingAllocation(int number) {
    failed = false;
    allocationsLeft = number;
}

FailingAllocation::~FailingAllocation() {
    allocationsLeft = kNone;
}

bool FailingAllocation::hasFailed() {
    return failed;
}

} // namespace scenewright::testing

// All of a kind, as a sanitizer's library brings others that these must not be mixed with.
// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory): what others stand upon.
void* operator new(std::size_t size) {
    return scenewright::testing::allocateOrThrow(size);
}
void* operator new[](std::size_t size) {
    return scenewright::testing::allocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return scenewright::testing::allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return scenewright::testing::allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
// NOLINTEND(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
