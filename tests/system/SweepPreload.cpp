// Loaded before the C library into a program that the sweep runs (LD_PRELOAD). By its environment:
//   SWEEP_GATE=FD:THREAD     a thread waits until the sweep has attached its tracer, so that what
//                            the dynamic loader called is not counted. Thread 0 is the first one,
//                            and waits before main(); the others are counted as they are made, from
//                            the moment when the file SWEEP_ARMED is there, if that is set. The
//                            thread writes its number to the socket FD and reads a byte from it.
//   SWEEP_NO_PAUSES=1        pauses end at once
//   SWEEP_HALVES=1           a read or a write takes half of its bytes
//   SWEEP_SERVE=FD:FOLDER    before main(), the process forks a copy of itself for each number N
//   that
//                            comes over the socket FD: the copy is given FOLDER/in, writes to
//                            FOLDER/out and FOLDER/err, and its Nth allocation fails. Its number
//                            and then its status go back
//   SWEEP_COUNT=FILE         the number of a copy's allocations is written there at the end
//   SWEEP_CALLER=FILE        the object whose allocation has failed is written there
// The machine seems to have no sequencer of ALSA's, as most that build have none.
// An allocator of its own stands here for the C library's, whose entries have other names.
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <memory>
#include <pthread.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" {
// The C library's own allocator, by the names that it keeps when another stands before it.
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

std::atomic<bool> countsAllocations = false;
std::atomic<std::uint64_t> allocations = 0;
std::uint64_t failingAllocation = 0;
bool hasPauses = true;
bool takesHalves = false;
int gate = -1;
std::uint64_t gatedThread = 0;
std::atomic<std::uint64_t> threads = 0;

// Whose allocation it was that failed is written beside the number.
void writeDown(const char* variable, const char* text) {
    const char* file = std::getenv(variable);
    if (file == nullptr)
        return;
    const int out = ::open(file, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    static_cast<void>(::syscall(SYS_write, out, text, std::strlen(text)));
    ::close(out);
}

// The first object among the callers that is not one of the languages' own libraries.
const char* nameOfCaller() {
    std::array<void*, 12> frames{};
    const int count = ::backtrace(frames.data(), static_cast<int>(frames.size()));
    for (int frame = 1; frame < count; ++frame) {
        Dl_info object{};
        if (::dladdr(frames.at(static_cast<std::size_t>(frame)), &object) == 0)
            continue;
        const std::string_view name = object.dli_fname;
        if (name.find("sweep-preload") == std::string_view::npos &&
            name.find("/libc.so") == std::string_view::npos &&
            name.find("/libstdc++.so") == std::string_view::npos)
            return object.dli_fname;
    }
    return "";
}

bool allocationFails() {
    if (!countsAllocations.load(std::memory_order_relaxed) || ++allocations != failingAllocation)
        return false;
    writeDown("SWEEP_CALLER", nameOfCaller());
    errno = ENOMEM;
    return true;
}

// recvfrom is none of the calls that the sweep counts.
void waitAtGate() {
    const auto thread = static_cast<std::int32_t>(::syscall(SYS_gettid));
    ::send(gate, &thread, sizeof thread, 0);
    char byte = 0;
    while (::recv(gate, &byte, 1, 0) < 0 && errno == EINTR) {
    }
}

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

struct Start {
    void* (*routine)(void*);
    void* argument;
};

void* startBehindGate(void* given) {
    const std::unique_ptr<Start> start(static_cast<Start*>(given));
    waitAtGate();
    return start->routine(start->argument);
}

void redirect(const char* folder, const char* name, int wanted, int flags) {
    std::array<char, 4096> path{};
    std::snprintf(path.data(), path.size(), "%s/%s", folder, name);
    const int file = ::open(path.data(), flags | O_CREAT, 0600);
    ::dup2(file, wanted);
    ::close(file);
}

// Returns in the copies, and never in the process itself.
void serve(int socket, const char* folder) {
    while (::recv(socket, &failingAllocation, sizeof failingAllocation, 0) > 0) {
        const pid_t copy = ::fork();
        if (copy == 0) {
            ::close(socket);
            redirect(folder, "in", STDIN_FILENO, O_RDONLY);
            redirect(folder, "out", STDOUT_FILENO, O_WRONLY | O_TRUNC);
            redirect(folder, "err", STDERR_FILENO, O_WRONLY | O_TRUNC);
            static_cast<void>(nameOfCaller()); // what it loads, it loads now
            countsAllocations = true;
            return;
        }
        ::send(socket, &copy, sizeof copy, 0);
        int status = 0;
        ::waitpid(copy, &status, 0);
        ::send(socket, &status, sizeof status, 0);
    }
    ::_exit(0);
}

bool isArmed() {
    const char* file = std::getenv("SWEEP_ARMED");
    return file == nullptr || ::access(file, F_OK) == 0;
}

__attribute__((constructor)) void begin() {
    hasPauses = std::getenv("SWEEP_NO_PAUSES") == nullptr;
    if (const char* text = std::getenv("SWEEP_GATE")) {
        char* end = nullptr;
        gate = static_cast<int>(std::strtol(text, &end, 10));
        gatedThread = std::strtoull(end + 1, nullptr, 10);
        ::prctl(PR_SET_PTRACER, PR_SET_PTRACER_ANY, 0, 0, 0);
        if (gatedThread == 0)
            waitAtGate();
    }
    takesHalves = std::getenv("SWEEP_HALVES") != nullptr;
    if (const char* text = std::getenv("SWEEP_SERVE")) {
        char* end = nullptr;
        const auto socket = static_cast<int>(std::strtol(text, &end, 10));
        serve(socket, end + 1);
    }
}

__attribute__((destructor)) void end() {
    countsAllocations = false;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%ju", static_cast<std::uintmax_t>(allocations.load()));
    writeDown("SWEEP_COUNT", text.data());
}

// What an event descriptor carries is read and written whole, or not at all.
constexpr std::size_t kNumber = 8;

std::size_t half(std::size_t size) {
    return takesHalves && size > kNumber ? size / 2 : size;
}

} // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the C library's names are
// reserved
extern "C" {

void* malloc(std::size_t size) {
    return allocationFails() ? nullptr : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    return allocationFails() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) {
    return allocationFails() ? nullptr : __libc_realloc(memory, size);
}
void* memalign(std::size_t alignment, std::size_t size) {
    return allocationFails() ? nullptr : __libc_memalign(alignment, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return allocationFails() ? nullptr : __libc_memalign(alignment, size);
}
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    void* found = aligned_alloc(alignment, size);
    if (found == nullptr)
        return ENOMEM;
    *memory = found;
    return 0;
}

int clock_nanosleep(clockid_t clock, int flags, const timespec* wanted, timespec* left) {
    static auto* real = next<int(clockid_t, int, const timespec*, timespec*)>("clock_nanosleep");
    return hasPauses ? real(clock, flags, wanted, left) : 0;
}
int nanosleep(const timespec* wanted, timespec* left) {
    static auto* real = next<int(const timespec*, timespec*)>("nanosleep");
    return hasPauses ? real(wanted, left) : 0;
}

ssize_t read(int file, void* bytes, std::size_t size) {
    static auto* real = next<ssize_t(int, void*, std::size_t)>("read");
    return real(file, bytes, half(size));
}
ssize_t write(int file, const void* bytes, std::size_t size) {
    static auto* real = next<ssize_t(int, const void*, std::size_t)>("write");
    return real(file, bytes, half(size));
}

// What libasound opens it by.
int open(const char* path, int flags, ...) {
    static auto* real = next<int(const char*, int, ...)>("open");
    if (std::string_view(path) == "/dev/snd/seq") {
        errno = ENOENT;
        return -1;
    }
    std::va_list more{};
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return real(path, flags, mode);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                   void* argument) {
    static auto* real =
        next<int(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*)>("pthread_create");
    if (gate < 0 || !isArmed() || ++threads != gatedThread)
        return real(thread, attributes, routine, argument);
    auto start = std::make_unique<Start>(Start{routine, argument});
    const int error = real(thread, attributes, startBehindGate, start.get());
    if (error == 0)
        static_cast<void>(start.release());
    return error;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
