// Each case runs a program of its own, as the end of a process is what is looked at. The program
// tells what its bus was asked for through a pipe, a letter each: X close, R release.
#include "usb/Shutdown.h"

#include "platform/Files.h"
#include "platform/Process.h"
#include "tests/support/RunProgram.h"
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
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <mutex>
#include <sched.h>
#include <span>
#include <string>
#include <string_view>
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

// Runs `program` in a process of its own; it is given where its letters go and returns its exit
// status. What was told, in order: "XR, signal 15" or "XR, exit 3".
std::string endOf(const std::function<int(int letters)>& program) {
    const testing::ProgramRun run = testing::runForked(program);
    return run.output + (run.signal != 0 ? ", signal " + std::to_string(run.signal)
                                         : ", exit " + std::to_string(run.exitCode));
}

// The same for a program with an object of the class and an open interface.
using Work = std::function<int(Shutdown& shutdown, const std::shared_ptr<Bus>& bus)>;

std::string endWithBus(const Work& work, ShutdownLimits limits = {}) {
    return endOf([&](int letters) {
        Shutdown shutdown(limits);
        return work(shutdown, takeBus(letters));
    });
}

[[noreturn]] void pauseForEver() {
    for (;;)
        pause();
}

class ShutdownBySignal : public ::testing::TestWithParam<int> {
protected:
    const std::string bySignal = ", signal " + std::to_string(GetParam());
};

TEST_P(ShutdownBySignal, EndsAReadGivesTheInterfaceUpAndEndsByTheSignal) {
    EXPECT_EQ(endWithBus([](Shutdown&, const auto& bus) {
                  const std::thread sender = sendWhileReading(*bus, GetParam());
                  for (;;) // a transaction that goes on whatever its reads say
                      readOnce();
                  return 0;
              }),
              "XR" + bySignal);
}

TEST_P(ShutdownBySignal, GivesUpAnInterfaceThatIsIdle) {
    EXPECT_EQ(endWithBus([](Shutdown&, const auto&) -> int {
                  kill(getpid(), GetParam());
                  pauseForEver();
              }),
              "XR" + bySignal);
}

TEST_P(ShutdownBySignal, StaysIgnoredWhenItWasIgnoredAtTheStart) {
    EXPECT_EQ(endOf([](int letters) {
                  std::signal(GetParam(), SIG_IGN);
                  const Shutdown shutdown;
                  const auto bus = takeBus(letters);
                  kill(getpid(), GetParam());
                  return 7;
              }),
              "XR, exit 7"); // at the normal end
}

TEST_P(ShutdownBySignal, DoesTheLastWorkFirstAndTheWorkAfterTheReleaseLast) {
    EXPECT_EQ(endWithBus([](Shutdown& shutdown, const auto& bus) -> int {
                  shutdown.setLastWork([bus] { bus->tell('W'); });
                  shutdown.setWorkAfterRelease([bus] { bus->tell('A'); });
                  kill(getpid(), GetParam());
                  pauseForEver();
              }),
              "WXRA" + bySignal);
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

// Which the kernel does not end by a signal of its own.
TEST(Shutdown, TheFirstProcessOfAContainerExitsWithTheSignalsCode) {
    const std::string end = endOf([](int) {
        if (unshare(CLONE_NEWPID) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWPID) != 0)
            return 1;
        const std::string first = endWithBus([](Shutdown&, const auto&) -> int {
            kill(getpid(), SIGTERM);
            pauseForEver();
        });
        return first == "XR, exit 143" ? 0 : 2;
    });
    if (end == ", exit 1")
        GTEST_SKIP() << "this user cannot make a container";
    EXPECT_EQ(end, ", exit 0");
}

// The last work's thread has the name of the one that waits for the signals and began it.
TEST(Shutdown, ItsThreadIsNamedForWhoeverLooksAtTheProcess) {
    EXPECT_EQ(endWithBus([](Shutdown& shutdown, const auto& bus) -> int {
                  shutdown.setLastWork([bus] {
                      std::array<char, 16> name{};
                      pthread_getname_np(pthread_self(), name.data(), name.size());
                      for (const char letter : std::string_view(name.data()))
                          bus->tell(letter);
                  });
                  kill(getpid(), SIGTERM);
                  pauseForEver();
              }),
              "signalsXR, signal 15");
}

// Whether the thread that waits for the signals is at rest.
bool isWatching() {
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string line;
        std::getline(std::ifstream(thread.path() / "stat"), line);
        if (line.find("(signals) S ") != std::string::npos)
            return true;
    }
    return false;
}

TEST(Shutdown, ItsEndWakesTheThreadThatWaitsForTheSignals) {
    {
        const Shutdown shutdown;
        while (!isWatching())
            std::this_thread::yield();
    }
    EXPECT_FALSE(isWatching());
    Transport::instance().use(nullptr);
}

TEST(Shutdown, LastWorkThatDoesNotEndIsLeftBehind) {
    EXPECT_EQ(endWithBus(
                  [](Shutdown& shutdown, const auto&) -> int {
                      shutdown.setLastWork(pauseForEver);
                      kill(getpid(), SIGTERM);
                      pauseForEver();
                  },
                  {.work = std::chrono::milliseconds(10)}),
              "XR, signal 15");
}

// In this process, which goes on.
TEST(Shutdown, ANormalEndGivesTheInterfaceUpAndDoesNoLastWork) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const FileDescriptor reader(ends[0]);
    {
        const FileDescriptor writer(ends[1]);
        Shutdown shutdown;
        const auto bus = takeBus(writer.get());
        shutdown.setLastWork([bus] { bus->tell('W'); });
        shutdown.setWorkAfterRelease([bus] { bus->tell('A'); });
    }
    std::array<char, 8> letters{};
    EXPECT_EQ(read(reader.get(), letters.data(), letters.size()), 2);
    EXPECT_STREQ(letters.data(), "XR");
    Transport::instance().use(nullptr);
}

TEST(Shutdown, SignalsWorkAsUsualAfterANormalEnd) {
    EXPECT_EQ(endOf([](int letters) {
                  {
                      const Shutdown shutdown;
                      takeBus(letters);
                  }
                  kill(getpid(), SIGTERM);
                  return 0;
              }),
              "XR, signal 15");
}

// A limit that has passed already.
constexpr std::chrono::milliseconds kSoon{0};

TEST(Shutdown, ABusThatDoesNotLetGoIsLeftAfterAWhile) {
    const std::string end = endWithBus(
        [](Shutdown&, const auto& bus) {
            bus->closeEndsReads = false;
            const std::thread sender = sendWhileReading(*bus, SIGTERM);
            readOnce();
            return 0;
        },
        {.bus = kSoon});
    EXPECT_TRUE(end.ends_with(", signal 15")) << end;
    EXPECT_EQ(end.find('R'), std::string::npos) << end;
}

// The time in which a program that did not wait would long have ended.
constexpr std::chrono::milliseconds kLongEnough{50};

TEST(Shutdown, AFileThatIsBeingPutInItsPlaceIsWaitedFor) {
    const testing::TempFolder folder;
    EXPECT_EQ(endWithBus([&](Shutdown&, const auto& bus) -> int {
                  beforeRename() = [bus] {
                      kill(getpid(), SIGTERM);
                      while (!bus->isReleased)
                          std::this_thread::yield();
                      std::this_thread::sleep_for(kLongEnough);
                  };
                  static_cast<void>(replaceFile(folder.file("a.bank"), {}));
                  pauseForEver();
              }),
              "XR, signal 15");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.bank"});
}

TEST(Shutdown, AFileThatDoesNotGetToItsPlaceIsLeftAfterAWhile) {
    const testing::TempFolder folder;
    EXPECT_EQ(endWithBus(
                  [&](Shutdown&, const auto&) {
                      beforeRename() = [] {
                          kill(getpid(), SIGTERM);
                          pauseForEver();
                      };
                      static_cast<void>(replaceFile(folder.file("a.bank"), {}));
                      return 0;
                  },
                  {.file = kSoon}),
              "XR, signal 15");
}

TEST(Shutdown, AReaderThatLeavesThePipeDoesNotEndTheProgram) {
    EXPECT_EQ(endWithBus([](Shutdown&, const auto&) {
                  std::array<int, 2> ends{};
                  EXPECT_EQ(pipe(ends.data()), 0);
                  close(ends[0]);
                  return write(ends[1], "x", 1) == -1 && errno == EPIPE ? 5 : 6;
              }),
              "XR, exit 5");
}

} // namespace
} // namespace scenewright

// In the place of the system's, for the whole test program.
extern "C" int rename(const char* from, const char* to) noexcept {
    if (scenewright::beforeRename())
        scenewright::beforeRename()();
    return renameat(AT_FDCWD, from, AT_FDCWD, to);
}

#ifdef SCENEWRIGHT_COUNTS_LINES
extern "C" void __gcov_dump(); // the compiler's

// The same. What a process has counted is lost with it unless it is written before its end.
extern "C" int raise(int signal) noexcept {
    __gcov_dump();
    return pthread_kill(pthread_self(), signal);
}
#endif
