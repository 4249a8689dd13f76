// Each case runs a program of its own, as the end of a process is what is looked at. The program
// tells what its bus was asked for through a pipe, a letter each: X close, R release.
#include "usb/Shutdown.h"

#include "platform/AtomicFile.h"
#include "tests/support/TempFolder.h"
#include "usb/Transport.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace scenewright {
namespace {

// What is done before a file gets its name, by whoever gives it.
std::function<void()>& beforeRename() {
    static std::function<void()> action;
    return action;
}

// A bus whose reads wait for ever unless the interface is closed, if that ends them.
struct Bus {
    std::mutex mutex;
    std::condition_variable changed;
    bool isClosed = false;
    bool closeEndsReads = true;
    std::atomic<int> reads = 0;
    std::atomic<bool> isReleased = false;
    int letters = -1; // where the letters go

    void tell(char letter) const { EXPECT_EQ(write(letters, &letter, 1), 1); }
    UsbRead read() {
        std::unique_lock lock(mutex);
        ++reads;
        changed.wait(lock, [this] { return isClosed; });
        return {.delivered = 0, .code = kResultCancelled};
    }
    void close() {
        tell('X');
        const std::lock_guard lock(mutex);
        isClosed = closeEndsReads;
        changed.notify_all();
    }
};

class Interface : public UsbInterface {
public:
    explicit Interface(std::shared_ptr<Bus> bus) : bus_(std::move(bus)) {}

    InterfaceClass interfaceClass() override { return {}; }
    UsbResult<void> open() override { return {}; }
    UsbResult<void> close() override {
        bus_->close();
        return {};
    }
    UsbResult<void> release() override {
        bus_->tell('R');
        bus_->isReleased = true;
        return {};
    }
    UsbResult<std::uint8_t> endpointCount() override { return std::uint8_t{2}; }
    UsbResult<PipeProperties> pipeProperties(std::uint8_t /*pipe*/) override {
        return PipeProperties{};
    }
    UsbResult<void> write(std::uint8_t /*pipe*/, std::span<const std::uint8_t> /*bytes*/) override {
        return {};
    }
    UsbRead read(std::uint8_t /*pipe*/, std::span<std::uint8_t> /*room*/) override {
        return bus_->read();
    }

private:
    std::shared_ptr<Bus> bus_;
};

std::shared_ptr<Bus> takeBus(int letters) {
    auto bus = std::make_shared<Bus>();
    bus->letters = letters;
    Transport::instance().use(nullptr, [](std::chrono::nanoseconds) {});
    auto handle = std::make_shared<InterfaceHandle>(std::make_unique<Interface>(bus));
    handle->open();
    Transport::instance().setInterface(handle);
    return bus;
}

void readOnce() {
    std::array<std::uint8_t, 63> room{};
    if (const auto interface = Transport::instance().interface())
        interface->read(1, room);
}

// Sends the signal to the whole process once the read waits.
std::thread sendWhileReading(const Bus& bus, int signal) {
    return std::thread([&bus, signal] {
        while (bus.reads == 0)
            std::this_thread::yield();
        kill(getpid(), signal);
    });
}

struct ProgramEnd {
    int status = 0;
    std::string letters;
};

// Runs `program` in a process of its own; it is given where its letters go and returns its exit
// status.
ProgramEnd runProgram(const std::function<int(int letters)>& program) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        // A shell that started the tests in the background leaves some of these ignored.
        for (const int number : {SIGINT, SIGTERM, SIGHUP})
            std::signal(number, SIG_DFL);
        _exit(program(ends[1]));
    }
    close(ends[1]);
    ProgramEnd ending;
    for (char letter = 0; read(ends[0], &letter, 1) == 1;)
        ending.letters += letter;
    close(ends[0]);
    waitpid(child, &ending.status, 0);
    return ending;
}

class ShutdownBySignal : public ::testing::TestWithParam<int> {};

TEST_P(ShutdownBySignal, EndsAReadGivesTheInterfaceUpAndEndsByTheSignal) {
    const ProgramEnd ending = runProgram([](int letters) {
        const Shutdown shutdown;
        const auto bus = takeBus(letters);
        const std::thread sender = sendWhileReading(*bus, GetParam());
        for (;;) // a transaction that goes on whatever its reads say
            readOnce();
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(ending.status));
    EXPECT_EQ(WTERMSIG(ending.status), GetParam());
    EXPECT_EQ(ending.letters, "XR");
}

TEST_P(ShutdownBySignal, GivesUpAnInterfaceThatIsIdle) {
    const ProgramEnd ending = runProgram([](int letters) {
        const Shutdown shutdown;
        const auto bus = takeBus(letters);
        kill(getpid(), GetParam());
        for (;;)
            pause();
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(ending.status));
    EXPECT_EQ(WTERMSIG(ending.status), GetParam());
    EXPECT_EQ(ending.letters, "XR");
}

TEST_P(ShutdownBySignal, StaysIgnoredWhenItWasIgnoredAtTheStart) {
    const ProgramEnd ending = runProgram([](int letters) {
        std::signal(GetParam(), SIG_IGN);
        const Shutdown shutdown;
        const auto bus = takeBus(letters);
        kill(getpid(), GetParam());
        return 7;
    });
    ASSERT_TRUE(WIFEXITED(ending.status));
    EXPECT_EQ(WEXITSTATUS(ending.status), 7);
    EXPECT_EQ(ending.letters, "XR"); // at the normal end
}

TEST_P(ShutdownBySignal, DoesTheLastWorkFirstAndTheWorkAfterTheReleaseLast) {
    const ProgramEnd ending = runProgram([](int letters) {
        Shutdown shutdown;
        const auto bus = takeBus(letters);
        shutdown.setLastWork([bus] { bus->tell('W'); });
        shutdown.setWorkAfterRelease([bus] { bus->tell('A'); });
        kill(getpid(), GetParam());
        for (;;)
            pause();
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(ending.status));
    EXPECT_EQ(WTERMSIG(ending.status), GetParam());
    EXPECT_EQ(ending.letters, "WXRA");
}

INSTANTIATE_TEST_SUITE_P(Signals, ShutdownBySignal, ::testing::Values(SIGINT, SIGTERM, SIGHUP));

// The signals of `asked` that this thread does not get.
std::vector<int> blockedOf(const std::vector<int>& asked) {
    ::sigset_t mask{};
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    std::vector<int> blocked;
    for (const int signal : asked)
        if (sigismember(&mask, signal) == 1)
            blocked.push_back(signal);
    return blocked;
}

// While it lives, a signal is treated in the given way.
class Treated {
public:
    Treated(int signal, sighandler_t way) : signal_(signal), former_(std::signal(signal, way)) {}
    Treated(const Treated&) = delete;
    Treated& operator=(const Treated&) = delete;
    ~Treated() { std::signal(signal_, former_); }

private:
    int signal_;
    sighandler_t former_;
};

TEST(Shutdown, TakesTheEndingSignalsThatAreNotIgnoredForAsLongAsItLives) {
    const std::vector<int> signals{SIGINT, SIGTERM, SIGHUP};
    const Treated interrupt(SIGINT, SIG_DFL);
    const Treated terminate(SIGTERM, SIG_DFL);
    const Treated hangUp(SIGHUP, SIG_IGN);
    const Treated pipe(SIGPIPE, SIG_DFL);
    EXPECT_EQ(blockedOf(signals), std::vector<int>{});
    {
        const Shutdown shutdown;
        EXPECT_EQ(blockedOf(signals), (std::vector<int>{SIGINT, SIGTERM}));
        EXPECT_EQ(std::signal(SIGPIPE, SIG_IGN), SIG_IGN);
    }
    EXPECT_EQ(blockedOf(signals), std::vector<int>{});
    Transport::instance().use(nullptr);
}

TEST(Shutdown, LastWorkThatDoesNotEndIsLeftBehind) {
    const ProgramEnd ending = runProgram([](int letters) {
        Shutdown shutdown({.work = std::chrono::milliseconds(10)});
        const auto bus = takeBus(letters);
        shutdown.setLastWork([] {
            for (;;)
                pause();
        });
        kill(getpid(), SIGTERM);
        for (;;)
            pause();
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(ending.status));
    EXPECT_EQ(ending.letters, "XR");
}

TEST(Shutdown, ANormalEndDoesNoLastWork) {
    const ProgramEnd ending = runProgram([](int letters) {
        Shutdown shutdown;
        const auto bus = takeBus(letters);
        shutdown.setLastWork([bus] { bus->tell('W'); });
        shutdown.setWorkAfterRelease([bus] { bus->tell('A'); });
        return 0;
    });
    EXPECT_EQ(ending.letters, "XR");
}

TEST(Shutdown, ANormalEndGivesTheInterfaceUp) {
    const ProgramEnd ending = runProgram([](int letters) {
        const Shutdown shutdown;
        takeBus(letters);
        return 3;
    });
    ASSERT_TRUE(WIFEXITED(ending.status));
    EXPECT_EQ(WEXITSTATUS(ending.status), 3);
    EXPECT_EQ(ending.letters, "XR");
}

TEST(Shutdown, SignalsWorkAsUsualAfterANormalEnd) {
    const ProgramEnd ending = runProgram([](int letters) {
        {
            const Shutdown shutdown;
            takeBus(letters);
        }
        kill(getpid(), SIGTERM);
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(ending.status));
    EXPECT_EQ(WTERMSIG(ending.status), SIGTERM);
}

// A limit that has passed already.
constexpr std::chrono::milliseconds kSoon{0};

TEST(Shutdown, ABusThatDoesNotLetGoIsLeftAfterAWhile) {
    const ProgramEnd ending = runProgram([](int letters) {
        const Shutdown shutdown({.bus = kSoon});
        const auto bus = takeBus(letters);
        bus->closeEndsReads = false;
        const std::thread sender = sendWhileReading(*bus, SIGTERM);
        readOnce();
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(ending.status));
    EXPECT_EQ(WTERMSIG(ending.status), SIGTERM);
    EXPECT_EQ(ending.letters.find('R'), std::string::npos);
}

// The time in which a program that did not wait would long have ended.
constexpr std::chrono::milliseconds kLongEnough{50};

TEST(Shutdown, AFileThatIsBeingPutInItsPlaceIsWaitedFor) {
    const testing::TempFolder folder;
    const ProgramEnd ending = runProgram([&](int letters) {
        const Shutdown shutdown;
        const auto bus = takeBus(letters);
        beforeRename() = [&] {
            kill(getpid(), SIGTERM);
            while (!bus->isReleased)
                std::this_thread::yield();
            std::this_thread::sleep_for(kLongEnough);
        };
        static_cast<void>(replaceFile(folder.file("a.bank"), {}));
        for (;;)
            pause();
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(ending.status));
    EXPECT_EQ(WTERMSIG(ending.status), SIGTERM);
    EXPECT_EQ(ending.letters, "XR");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.bank"});
}

TEST(Shutdown, AFileThatDoesNotGetToItsPlaceIsLeftAfterAWhile) {
    const testing::TempFolder folder;
    const ProgramEnd ending = runProgram([&](int letters) {
        const Shutdown shutdown({.file = kSoon});
        const auto bus = takeBus(letters);
        beforeRename() = [] {
            kill(getpid(), SIGTERM);
            for (;;)
                pause();
        };
        static_cast<void>(replaceFile(folder.file("a.bank"), {}));
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(ending.status));
    EXPECT_EQ(WTERMSIG(ending.status), SIGTERM);
    EXPECT_EQ(ending.letters, "XR");
}

TEST(Shutdown, AReaderThatLeavesThePipeDoesNotEndTheProgram) {
    const ProgramEnd ending = runProgram([](int letters) {
        const Shutdown shutdown;
        takeBus(letters);
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe(ends.data()), 0);
        close(ends[0]);
        return write(ends[1], "x", 1) == -1 && errno == EPIPE ? 5 : 6;
    });
    ASSERT_TRUE(WIFEXITED(ending.status));
    EXPECT_EQ(WEXITSTATUS(ending.status), 5);
    EXPECT_EQ(ending.letters, "XR");
}

} // namespace
} // namespace scenewright

// In the place of the system's, for the whole test program.
extern "C" int rename(const char* from, const char* to) noexcept {
    if (scenewright::beforeRename())
        scenewright::beforeRename()();
    return renameat(AT_FDCWD, from, AT_FDCWD, to);
}
