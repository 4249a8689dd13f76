#include "tests/support/RunProgram.h"

#include "tests/support/TempFolder.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace scenewright::testing {

namespace {

// A shell that started the tests in the background leaves some of these ignored.
void restore(std::initializer_list<int> signals) {
    for (const int number : signals)
        std::signal(number, SIG_DFL);
}

void redirect(const std::string& path, int flags, int target) {
    const int file = open(path.c_str(), flags, 0600);
    if (file < 0 || dup2(file, target) < 0)
        _exit(127);
    close(file);
}

[[noreturn]] void become(const std::vector<std::string>& command,
                         const std::vector<std::string>& environment,
                         const std::vector<GivenDescriptor>& given, const TempFolder& folder) {
    restore({SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGXFSZ});
    redirect("/dev/null", O_RDONLY, STDIN_FILENO);
    redirect(folder.file("out"), O_WRONLY | O_CREAT, STDOUT_FILENO);
    redirect(folder.file("err"), O_WRONLY | O_CREAT, STDERR_FILENO);
    for (const GivenDescriptor& each : given) {
        if (each.source == GivenDescriptor::kClosed)
            close(each.number);
        else if (dup2(each.source, each.number) < 0)
            _exit(127);
    }
    for (std::string variable : environment) {
        const std::size_t equals = variable.find('=');
        setenv(variable.substr(0, equals).c_str(), variable.c_str() + equals + 1, 1);
    }
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str())); // execv's old signature
    arguments.push_back(nullptr);
    execv(arguments.front(), arguments.data());
    _exit(127);
}

std::string textOf(const std::string& path) {
    const auto bytes = readBytes(path);
    return {bytes.begin(), bytes.end()};
}

// How it ended; its exit code as a shell tells it.
void await(pid_t child, ProgramRun& run) {
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        throw std::runtime_error("cannot run a program");
    run.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    run.exitCode = run.signal == 0 ? WEXITSTATUS(status) : 128 + run.signal;
}

} // namespace

ProgramRun runProgram(const std::vector<std::string>& command,
                      const std::vector<std::string>& environment,
                      const std::vector<GivenDescriptor>& given) {
    const TempFolder folder;
    const pid_t child = fork();
    if (child == 0)
        become(command, environment, given, folder);
    ProgramRun run;
    await(child, run);
    run.output = textOf(folder.file("out"));
    run.errors = textOf(folder.file("err"));
    return run;
}

ProgramRun runForked(const std::function<int(int output)>& body) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        throw std::runtime_error("cannot make a pipe");
    const pid_t child = fork();
    if (child == 0) {
        restore({SIGINT, SIGTERM, SIGHUP});
        close(ends[0]);
        _exit(body(ends[1]));
    }
    close(ends[1]);
    ProgramRun run;
    for (char letter = 0; read(ends[0], &letter, 1) == 1;)
        run.output += letter;
    close(ends[0]);
    await(child, run);
    return run;
}

} // namespace scenewright::testing
