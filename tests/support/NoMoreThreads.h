// While it lives, no thread can be started: each would get a stack larger than the address space.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <pthread.h>

namespace scenewright::testing {

class NoMoreThreads {
public:
    NoMoreThreads() {
        constexpr std::size_t kTooMuch = std::size_t{1} << 47U; // all that a process can address
        pthread_getattr_default_np(&former_);
        pthread_attr_t attributes{};
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, kTooMuch);
        EXPECT_EQ(pthread_setattr_default_np(&attributes), 0);
        pthread_attr_destroy(&attributes);
    }
    ~NoMoreThreads() {
        pthread_setattr_default_np(&former_);
        pthread_attr_destroy(&former_);
    }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;
    NoMoreThreads(NoMoreThreads&&) = delete;
    NoMoreThreads& operator=(NoMoreThreads&&) = delete;

private:
    pthread_attr_t former_{};
};

} // namespace scenewright::testing
