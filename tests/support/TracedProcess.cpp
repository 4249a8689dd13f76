#include "tests/support/TracedProcess.h"

#include "tests/support/FileCalls.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <map>
#include <optional>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace scenewright::testing {

namespace {

namespace fs = std::filesystem;

constexpr int kCallStop = SIGTRAP | 0x80; // by PTRACE_O_TRACESYSGOOD
constexpr auto kNoCall = static_cast<unsigned long long>(-1);
constexpr int kCannotRun = 127;

// A nameless file in memory that catches what is written to it.
class Catcher {
public:
    Catcher() : descriptor_(::memfd_create("errors", 0)) {}
    ~Catcher() { ::close(descriptor_); }
    Catcher(const Catcher&) = delete;
    Catcher& operator=(const Catcher&) = delete;

    [[nodiscard]] int descriptor() const { return descriptor_; }
    [[nodiscard]] std::string text() const {
        std::string text(static_cast<std::size_t>(::lseek(descriptor_, 0, SEEK_END)), '\0');
        if (::pread(descriptor_, text.data(), text.size(), 0) < 0)
            text = "(nothing can be read)";
        return text;
    }

private:
    int descriptor_;
};

// Gives nothing but the register set of a thread that has stopped.
user_regs_struct registersOf(pid_t thread) {
    user_regs_struct registers{};
    ::ptrace(PTRACE_GETREGS, thread, nullptr, &registers);
    return registers;
}

// Follows a process and its threads from stop to stop.
class Tracer {
public:
    Tracer(pid_t process, fs::path folder, const Blow& blow)
        : process_(process), folder_(std::move(folder)), blow_(blow) {}

    TracedRun follow() {
        int status = 0;
        ::waitpid(process_, &status, 0);
        ::ptrace(PTRACE_SETOPTIONS, process_, nullptr,
                 PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL);
        ::ptrace(PTRACE_SYSCALL, process_, nullptr, nullptr);
        for (pid_t thread = 0; (thread = ::waitpid(-1, &status, __WALL)) > 0;) {
            if (WIFSTOPPED(status))
                goOn(thread, WSTOPSIG(status), status >> 16);
            else if (thread == process_)
                noteEnd(status);
        }
        return std::move(run_);
    }

private:
    // What a thread's call needs at its end.
    struct Pending {
        std::optional<long> result;                    // to be given instead
        std::optional<unsigned long long> restoredRdx; // the caller counts on its registers
        bool kills = false;
    };

    void goOn(pid_t thread, int signal, int event) {
        int delivered = 0;
        if (signal == kCallStop)
            atCallStop(thread);
        else if (event == 0 && signal != SIGSTOP && signal != SIGTRAP)
            delivered = signal; // but for the stops that tracing itself makes
        ::ptrace(PTRACE_SYSCALL, thread, nullptr, static_cast<std::uintptr_t>(delivered));
    }

    void atCallStop(pid_t thread) {
        if (const auto found = pending_.find(thread); found != pending_.end()) {
            atEnd(thread, found->second);
            pending_.erase(thread);
        } else {
            pending_[thread] = atBeginning(thread);
        }
    }

    Pending atBeginning(pid_t thread) {
        user_regs_struct registers = registersOf(thread);
        const RawCall raw{thread,
                          registers.orig_rax,
                          {registers.rdi, registers.rsi, registers.rdx, registers.r10, registers.r8,
                           registers.r9}};
        if (raw.number == SYS_clock_nanosleep)
            return replaceCall(thread, registers, 0);
        const auto call = fileCallIn(folder_, raw);
        if (!call)
            return {};
        run_.calls.push_back(*call);
        return run_.calls.size() == blow_.call + 1 ? strike(thread, registers, *call) : Pending{};
    }

    Pending strike(pid_t thread, user_regs_struct& registers, const FileCall& call) {
        Pending pending;
        switch (blow_.kind) {
        case Blow::Kind::None:
            break;
        case Blow::Kind::KillBefore:
            ::kill(process_, SIGKILL);
            break;
        case Blow::Kind::KillAfter:
            pending.kills = true;
            break;
        case Blow::Kind::Fail:
            return replaceCall(thread, registers, -blow_.error);
        case Blow::Kind::CutShort:
            if (call.name != "write")
                break;
            pending.restoredRdx = registers.rdx;
            registers.rdx /= 2;
            ::ptrace(PTRACE_SETREGS, thread, nullptr, &registers);
            break;
        }
        return pending;
    }

    static Pending replaceCall(pid_t thread, user_regs_struct& registers, long result) {
        registers.orig_rax = kNoCall;
        ::ptrace(PTRACE_SETREGS, thread, nullptr, &registers);
        Pending pending;
        pending.result = result;
        return pending;
    }

    void atEnd(pid_t thread, const Pending& pending) const {
        if (pending.kills)
            ::kill(process_, SIGKILL);
        if (!pending.result && !pending.restoredRdx)
            return;
        user_regs_struct registers = registersOf(thread);
        if (pending.result)
            registers.rax = static_cast<unsigned long long>(*pending.result);
        if (pending.restoredRdx)
            registers.rdx = *pending.restoredRdx;
        ::ptrace(PTRACE_SETREGS, thread, nullptr, &registers);
    }

    void noteEnd(int status) {
        run_.isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        if (WIFEXITED(status))
            run_.exitCode = WEXITSTATUS(status);
    }

    pid_t process_;
    fs::path folder_;
    Blow blow_;
    std::map<pid_t, Pending> pending_; // of each thread that is within a call
    TracedRun run_;
};

TracedRun trace(const fs::path& folder, const std::function<int()>& body, const Blow& blow) {
    const Catcher errors;
    const pid_t process = ::fork();
    if (process < 0)
        throw std::runtime_error("no process can be made");
    if (process == 0) {
        ::dup2(errors.descriptor(), STDERR_FILENO);
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        ::_exit(body());
    }
    TracedRun run = Tracer(process, folder, blow).follow();
    run.errors = errors.text();
    return run;
}

int execute(std::vector<std::string> command) {
    // The leak checker traces the process itself, which only one can.
    const char* const given = std::getenv("ASAN_OPTIONS");
    const std::string options = std::string(given == nullptr ? "" : given) + ":detect_leaks=0";
    ::setenv("ASAN_OPTIONS", options.c_str(), 1);
    std::vector<char*> words;
    for (std::string& word : command)
        words.push_back(word.data());
    words.push_back(nullptr);
    ::execv(words[0], words.data());
    return kCannotRun;
}

} // namespace

TracedRun runTraced(const fs::path& folder, const std::function<std::string()>& body,
                    const Blow& blow) {
    return trace(
        folder,
        [&body] {
            const std::string said = body();
            return ::write(STDERR_FILENO, said.data(), said.size()) < 0 ? 1 : 0;
        },
        blow);
}

TracedRun runTraced(const fs::path& folder, const std::vector<std::string>& command,
                    const Blow& blow) {
    return trace(
        folder, [&command] { return execute(command); }, blow);
}

} // namespace scenewright::testing
