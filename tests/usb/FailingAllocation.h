// Memory that runs out at a chosen point, in a test program that holds FailingAllocation.cpp.
#pragma once

namespace scenewright::testing {

// While it lives, the allocation of that number that this thread makes outside the stand-in for the
// USB library, from 0, fails with std::bad_alloc.
class FailingAllocation {
public:
    explicit FailingAllocation(int number);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    FailingAllocation(FailingAllocation&&) = delete;
    FailingAllocation& operator=(FailingAllocation&&) = delete;
    // Whether there were so many.
    [[nodiscard]] static bool hasFailed();
};

} // namespace scenewright::testing
