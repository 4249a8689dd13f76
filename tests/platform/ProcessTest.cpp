#include "platform/Process.h"

#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <new>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <system_error>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

const std::string kLine = "a line of words\n";

struct Pair {
    FileDescriptor reader;
    FileDescriptor writer;
};

Pair makePipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

Pair makeSockets() {
    std::array<int, 2> ends{};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

Pair makeTerminal() {
    FileDescriptor master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    EXPECT_EQ(grantpt(master.get()), 0);
    EXPECT_EQ(unlockpt(master.get()), 0);
    std::array<char, 64> name{};
    EXPECT_EQ(ptsname_r(master.get(), name.data(), name.size()), 0);
    return {std::move(master), FileDescriptor(open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC))};
}

// Fills what nobody reads, without leaving a flag behind.
void fill(int fd) {
    const int flags = fcntl(fd, F_GETFL);
    fcntl(fd, F_SETFL, flags | O_NONBLOCK);
    while (write(fd, kLine.data(), kLine.size()) > 0) {
    }
    // A terminal passes bytes on in the background, and has room again for as many.
    constexpr int kQuietMilliseconds = 200;
    pollfd room{.fd = fd, .events = POLLOUT, .revents = 0};
    do {
        while (write(fd, "x", 1) > 0) {
        }
    } while (poll(&room, 1, kQuietMilliseconds) > 0 && (room.revents & POLLOUT) != 0);
    fcntl(fd, F_SETFL, flags);
}

std::string readOnce(int fd) {
    std::array<char, 256> bytes{};
    const ssize_t count = read(fd, bytes.data(), bytes.size());
    return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
}

class StandardStreams : public ::testing::Test {
protected:
    void SetUp() override { prepareProcess(); }
    // The alarm ends a test program that is made to wait.
    static void expectDropped(int fd) {
        alarm(60);
        for (int i = 0; i < 100; ++i) {
            errno = ENOTTY;
            EXPECT_FALSE(writeOrDrop(fd, kLine));
            EXPECT_EQ(errno, ENOTTY);
        }
        alarm(0);
    }
};

TEST_F(StandardStreams, ReaderGetsTheText) {
    using Make = Pair (*)();
    for (const Make make : {&makePipe, &makeSockets}) {
        const Pair pair = make();
        EXPECT_TRUE(writeOrDrop(pair.writer.get(), kLine));
        EXPECT_EQ(readOnce(pair.reader.get()), kLine);
    }
    const Pair terminal = makeTerminal();
    EXPECT_TRUE(writeOrDrop(terminal.writer.get(), kLine));
    EXPECT_EQ(readOnce(terminal.reader.get()), "a line of words\r\n");
}

TEST_F(StandardStreams, TextIsAddedToARegularFileWhereItStands) {
    const testing::TempFolder folder;
    const FileDescriptor file(
        open(folder.file("out").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    const std::string big(10'000, 'x');
    for (const std::string& text : {kLine, big, kLine})
        EXPECT_TRUE(writeOrDrop(file.get(), text));
    const auto bytes = testing::readBytes(folder.file("out"));
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), kLine + big + kLine);
}

TEST_F(StandardStreams, FullPipeSocketAndTerminalAreNotWaitedForAndKeepTheirFlags) {
    using Make = Pair (*)();
    for (const Make make : {&makePipe, &makeSockets, &makeTerminal}) {
        const Pair pair = make();
        fill(pair.writer.get());
        const int flags = fcntl(pair.writer.get(), F_GETFL);
        expectDropped(pair.writer.get());
        EXPECT_EQ(fcntl(pair.writer.get(), F_GETFL), flags);
    }
    const Pair stopped = makeTerminal();
    ASSERT_EQ(tcflow(stopped.writer.get(), TCOOFF), 0);
    expectDropped(stopped.writer.get());
    ASSERT_EQ(tcflow(stopped.writer.get(), TCOON), 0);
    EXPECT_TRUE(writeOrDrop(stopped.writer.get(), kLine));
}

TEST_F(StandardStreams, WhatCannotBeWrittenIsDropped) {
    Pair pipe = makePipe();
    { const FileDescriptor former = std::move(pipe.reader); }
    Pair sockets = makeSockets();
    { const FileDescriptor former = std::move(sockets.reader); }
    Pair terminal = makeTerminal();
    { const FileDescriptor former = std::move(terminal.reader); }
    const FileDescriptor full(open("/dev/full", O_WRONLY | O_CLOEXEC));
    constexpr int kClosed = 1000;
    for (const int fd :
         {pipe.writer.get(), sockets.writer.get(), terminal.writer.get(), full.get(), kClosed, -1})
        expectDropped(fd);
}

// In a child, which says by its exit code what it found.
template <typename Check>
int exitCodeOf(const Check& check) {
    return testing::runForked([&](int) { return check() ? 0 : 1; }).exitCode;
}

TEST_F(StandardStreams, NoFileTakesThePlaceOfAClosedStream) {
    EXPECT_EQ(exitCodeOf([] {
                  for (const int fd : {0, 1, 2})
                      close(fd);
                  prepareProcess();
                  char byte = 0;
                  return open("/dev/null", O_RDONLY) > 2 && read(0, &byte, 1) < 0 &&
                         !writeStandardOutput("x") && write(2, "x", 1) == 1;
              }),
              0);
}

TEST_F(StandardStreams, OpenStreamsStayAsTheyAre) {
    EXPECT_EQ(exitCodeOf([] {
                  const Pair pipe = makePipe();
                  dup2(pipe.writer.get(), 1);
                  close(2);
                  prepareProcess();
                  return writeStandardOutput(kLine) && readOnce(pipe.reader.get()) == kLine;
              }),
              0);
}

TEST_F(StandardStreams, ResultThatCannotBeWrittenIsAnError) {
    EXPECT_EQ(exitCodeOf([] {
                  dup2(open("/dev/full", O_WRONLY), 1);
                  const auto written = writeStandardOutput(kLine);
                  return !written && written.error() == "standard output could not be written";
              }),
              0);
    EXPECT_EQ(exitCodeOf([] {
                  Pair pipe = makePipe();
                  dup2(pipe.writer.get(), 1);
                  close(pipe.reader.get());
                  return !writeStandardOutput(kLine);
              }),
              0);
}

TEST_F(StandardStreams, ErrorIsOneReadableLineAfterTheProgramsName) {
    EXPECT_EQ(exitCodeOf([] {
                  const Pair pipe = makePipe();
                  dup2(pipe.writer.get(), 2);
                  reportError("program", "a\x1B[2Jb");
                  return readOnce(pipe.reader.get()) == "program: a\xEF\xBF\xBD[2Jb\n";
              }),
              0);
}

using ::testing::ExitedWithCode;

void runWhereNoneMayPass(void (*run)()) noexcept {
    run();
}

TEST(ProgramMain, AnErrorOfTheSystemIsSaidInWords) {
    EXPECT_EQ(sentenceOf(std::bad_alloc()), "the system has no memory left");
    EXPECT_EQ(sentenceOf(std::system_error(EAGAIN, std::generic_category())),
              "the system has no thread left");
    EXPECT_EQ(sentenceOf(std::runtime_error("the reason")), "the reason");
}

TEST(ProgramMain, GivesTheProgramsExitCodeOrSaysWhatNobodyCaught) {
    EXPECT_EQ(runProgram(
                  "program", [](int count, char**) { return count; }, 7, nullptr),
              7);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(runProgram(
                  "program", [](int, char**) -> int { throw std::bad_alloc(); }, 0, nullptr),
              kExitUnexpected);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "program: the system has no memory left\n");
}

TEST(ProgramMainDeathTest, NoExceptionEndsAProgramByASignal) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::thread([] { throw std::bad_alloc(); }).join(), ExitedWithCode(kExitUnexpected),
                "^platform-tests: the system has no memory left\n$");
    EXPECT_EXIT(runWhereNoneMayPass([] { throw std::runtime_error("the reason\x1b"); }),
                ExitedWithCode(kExitUnexpected), "^platform-tests: the reason\\?\n$");
    EXPECT_EXIT(std::terminate(), ExitedWithCode(kExitUnexpected),
                "^platform-tests: something went wrong that was not expected\n$");
}

using Lines = std::vector<std::string>;

// Reads what is written into a pipe.
class LineReaderTest : public ::testing::Test {
protected:
    void write(const std::string& text) { ASSERT_EQ(writeFully(pipe_.writer.get(), text), 0); }
    void endWriting() { pipe_.writer = FileDescriptor(); }
    // One read: each line, or what is wrong with it.
    Lines take() {
        Lines lines;
        for (const auto& line : reader_.take())
            lines.push_back(line ? *line : "error: " + line.error());
        return lines;
    }
    [[nodiscard]] int descriptor() const { return reader_.descriptor(); }
    [[nodiscard]] int reading() const { return pipe_.reader.get(); }

private:
    Pair pipe_ = makePipe();
    LineReader reader_{pipe_.reader.get()};
};

TEST_F(LineReaderTest, LineIsGivenOnceItsEndHasComeOrThatOfTheInput) {
    EXPECT_EQ(descriptor(), reading());
    write("unplug\nfau");
    EXPECT_EQ(take(), (Lines{"unplug"}));
    write("lts\nplug\nplug");
    EXPECT_EQ(take(), (Lines{"faults", "plug"}));
    endWriting();
    EXPECT_EQ(take(), (Lines{"plug"}));
    EXPECT_EQ(descriptor(), -1);
}

TEST_F(LineReaderTest, EndOfTheInputAfterALineIsNoLine) {
    write("unplug\n");
    EXPECT_EQ(take(), (Lines{"unplug"}));
    endWriting();
    EXPECT_EQ(take(), Lines{});
    EXPECT_EQ(descriptor(), -1);
}

// The words before the 4096th byte would be a line, and so would those behind it.
TEST_F(LineReaderTest, LineThatIsTooLongIsRefusedAsAWholeAndTheLongestTaken) {
    const std::string longest = "plug" + std::string(4092, ' ');
    write(longest);
    EXPECT_EQ(take(), Lines{});
    write("\n");
    EXPECT_EQ(take(), Lines{longest});
    write("unplug");
    EXPECT_EQ(take(), Lines{});
    for (int piece = 0; piece < 20; ++piece) {
        write(std::string(1000, ' '));
        EXPECT_EQ(take(), Lines{});
    }
    write("\nplug\n");
    EXPECT_EQ(take(), (Lines{"error: a line of more than 4096 bytes is no order", "plug"}));
}

TEST_F(LineReaderTest, WhatIsNoTextEndsTheInputWithASentence) {
    write(std::string("plug\nunplug\0plug\n", 18));
    EXPECT_EQ(take(), (Lines{"plug", "error: what comes in is no text; it is read no further"}));
    EXPECT_EQ(descriptor(), -1);
}

TEST(LineReader, InputThatCannotBeReadEndsWithASentence) {
    const Pair pipe = makePipe();
    LineReader reader(pipe.writer.get());
    const auto lines = reader.take();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].error(), "what comes in cannot be read any more: Bad file descriptor");
    EXPECT_EQ(reader.descriptor(), -1);
}

} // namespace
} // namespace scenewright
