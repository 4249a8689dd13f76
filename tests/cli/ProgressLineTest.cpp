#include "cli/ProgressLine.h"

#include "platform/FileDescriptor.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace scenewright {

TEST(ProgressLine, TellsTheShareOfPacketsWritten) {
    EXPECT_EQ(progressText("Reading", 0, 1016, false), "Reading: 0 %");
    EXPECT_EQ(progressText("Reading", 508, 1016, false), "Reading: 50 %");
    EXPECT_EQ(progressText("Sending", 1028, 1028, false), "Sending: 100 %");
}

TEST(ProgressLine, TellsThatTheControllerIsWaitedFor) {
    EXPECT_EQ(progressText("Reading", 12, 1016, true),
              "Reading: 12 of 1016 packets, waiting for the controller (Ctrl+C stops)");
}

TEST(ProgressLine, MorePacketsThanAreNeededMeanThatTheHandshakeIsRepeated) {
    EXPECT_EQ(progressText("Sending", 1029, 1028, false),
              "Sending: the controller does not accept the handshake, trying again (Ctrl+C stops)");
}

TEST(ProgressLine, TerminalThatIsStoppedOrGoneHoldsNothingUp) {
    const FileDescriptor former(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3));
    for (const bool isGone : {false, true}) {
        FileDescriptor master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
        ASSERT_EQ(::grantpt(master.get()), 0);
        ASSERT_EQ(::unlockpt(master.get()), 0);
        std::array<char, 64> name{};
        ASSERT_EQ(::ptsname_r(master.get(), name.data(), name.size()), 0);
        const FileDescriptor terminal(::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
        ASSERT_EQ(::tcflow(terminal.get(), TCOOFF), 0);
        ::dup2(terminal.get(), STDERR_FILENO);
        ::alarm(60); // ends a test that is held up
        {
            const ProgressLine line("Sending", 100);
            if (isGone)
                const FileDescriptor gone = std::move(master);
        }
        ::alarm(0);
        ::dup2(former.get(), STDERR_FILENO);
    }
}

} // namespace scenewright
