#include "virtual/usbip/BackgroundFiles.h"

#include "tests/support/TempFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <future>
#include <memory>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace scenewright::usbip {
namespace {

using scenewright::testing::readBytes;
using scenewright::testing::TempFolder;

Moment soon() {
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(20);
}
Moment late() {
    return std::chrono::steady_clock::now() + std::chrono::seconds(60);
}

BankImage bankOf(std::uint8_t byte) {
    BankImage bank{};
    bank.fill(byte);
    return bank;
}

bool isReadable(int descriptor, int milliseconds) {
    pollfd place{descriptor, POLLIN, 0};
    return ::poll(&place, 1, milliseconds) == 1;
}

// A disk that does what the test says: bank n is written as long as `mayEnd` says.
struct Disk {
    Result<void> store(const BankImage& bank) {
        stored.push_back(bank[0]);
        entered.set_value();
        mayEnd.get_future().wait();
        return isFull ? Result<void>(failure("Cannot write bank: no room.")) : Result<void>();
    }
    BankFileStore::Store function() {
        return [this](const std::filesystem::path&, const BankImage& bank) { return store(bank); };
    }
    void letEnd() { mayEnd.set_value(); }

    std::vector<int> stored;
    std::promise<void> entered;
    std::promise<void> mayEnd;
    bool isFull = false;
};

TEST(BankSaver, WithoutAFileNothingIsKept) {
    BankSaver saver({}, {});
    saver.save(bankOf(1));
    EXPECT_FALSE(saver.isSaving());
    EXPECT_EQ(saver.descriptor(), -1);
    EXPECT_TRUE(saver.finish(late()));
}

TEST(BankSaver, EndOfASavingIsToldAfterTheBankIsInTheFile) {
    const TempFolder folder;
    BankSaver saver(folder.file("bank"), {});
    EXPECT_FALSE(isReadable(saver.descriptor(), 0));
    saver.save(bankOf(7));
    ASSERT_TRUE(isReadable(saver.descriptor(), 60'000));
    EXPECT_EQ(readBytes(folder.file("bank")), std::vector<std::uint8_t>(kBankSize, 7));
    EXPECT_FALSE(saver.isSaving());
    saver.acknowledge();
    EXPECT_FALSE(isReadable(saver.descriptor(), 0));
    EXPECT_TRUE(saver.finish(late()));
}

TEST(BankSaver, SavingGoesOnWhileTheDiskTakesItsTime) {
    Disk disk;
    BankSaver saver("bank", {}, disk.function());
    saver.save(bankOf(1));
    disk.entered.get_future().wait();
    EXPECT_TRUE(saver.isSaving());
    EXPECT_FALSE(isReadable(saver.descriptor(), 0));
    disk.letEnd();
    EXPECT_TRUE(saver.finish(late()));
    EXPECT_EQ(disk.stored, std::vector<int>{1});
}

TEST(BankSaver, DiskThatDoesNotComeBackIsNotWaitedFor) {
    const auto disk = std::make_shared<Disk>();
    {
        BankSaver saver("bank", {},
                        [disk](const auto&, const BankImage& bank) { return disk->store(bank); });
        saver.save(bankOf(1));
        disk->entered.get_future().wait();
        const auto finished = saver.finish(soon());
        ASSERT_FALSE(finished);
        EXPECT_EQ(finished.error(), "bank: what was sent could not be written in time");
    }
    disk->letEnd(); // the thread may outlive the saver
}

// Counts the attempts; the first `failing` of them fail.
class FailingDisk {
public:
    explicit FailingDisk(int failing) : failing_(failing) {}
    BankFileStore::Store function() {
        return [this](const std::filesystem::path&, const BankImage& bank) {
            attempts.push_back(bank[0]);
            return --failing_ >= 0 ? Result<void>(failure("Cannot write bank: no room."))
                                   : Result<void>();
        };
    }
    std::vector<int> attempts;

private:
    int failing_;
};

struct Retry {
    const char* description;
    std::vector<std::uint8_t> sends;
    int failing;
    std::vector<int> attempts;
    std::vector<std::string> reported;
    bool isKept;
};

// What a saver does with the row's sends, before and at its end.
void checkRetry(const Retry& row) {
    FailingDisk disk(row.failing);
    std::vector<std::string> reported;
    BankSaver saver(
        "bank", [&](std::string_view line) { reported.emplace_back(line); }, disk.function());
    for (const std::uint8_t send : row.sends) {
        saver.save(bankOf(send));
        EXPECT_TRUE(isReadable(saver.descriptor(), 60'000)) << row.description;
        saver.acknowledge();
    }
    const std::string error = row.isKept ? "" : "bank: what was sent is not kept";
    const auto finished = saver.finish(late());
    EXPECT_EQ(finished ? "" : finished.error(), error) << row.description;
    EXPECT_EQ(disk.attempts, row.attempts) << row.description;
    EXPECT_EQ(reported, row.reported) << row.description;
}

TEST(BankSaver, WhatFailedIsToldAndTriedAgain) {
    const std::string last = "Cannot write bank: no room.";
    const std::string more = last + " It is tried again at the next send and at the end.";
    const std::vector<Retry> rows{
        {"nothing sent", {}, 9, {}, {}, true},
        {"kept at once", {1}, 0, {1}, {}, true},
        {"kept with the next send", {1, 2}, 1, {1, 2}, {more}, true},
        {"kept at the end", {1}, 1, {1, 1}, {more}, true},
        {"never kept", {1, 2}, 9, {1, 2, 2}, {more, more, last}, false},
    };
    for (const Retry& row : rows)
        checkRetry(row);
}

TEST(LineFile, LinesAloneAreInTheFileAtTheEnd) {
    const TempFolder folder;
    scenewright::testing::writeBytes(folder.file("lines"), std::vector<std::uint8_t>(50, 'x'));
    auto lines = LineFile::open(folder.file("lines"));
    ASSERT_TRUE(lines) << lines.error();
    lines->write("one");
    lines->write("two");
    EXPECT_TRUE(lines->finish(late()));
    const auto bytes = readBytes(folder.file("lines"));
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "one\ntwo\n");
}

TEST(LineFile, WhatCannotBeOpenedIsToldWithItsReason) {
    const TempFolder folder;
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    const std::vector<std::pair<std::string, std::string>> rows{
        {folder.file("pipe"), "nobody reads it"},
        {folder.file("no/file"), "No such file or directory"},
        {folder.path().string(), "Is a directory"},
    };
    for (const auto& [name, reason] : rows) {
        const auto lines = LineFile::open(name);
        ASSERT_FALSE(lines) << name;
        EXPECT_EQ(lines.error(), fmt::format("{}: cannot be written: {}", name, reason));
    }
}

TEST(LineFile, FullDiskEndsTheLinesAndIsTold) {
    auto lines = LineFile::open("/dev/full");
    ASSERT_TRUE(lines) << lines.error();
    lines->write("one");
    const auto finished = lines->finish(late());
    ASSERT_FALSE(finished);
    EXPECT_EQ(finished.error(),
              "/dev/full: not all of the trace could be written: No space left on device");
}

// The pipe takes 64 KiB, and as much again as a whole megabyte waits; the rest is dropped at once.
TEST(LineFile, ReaderThatDoesNotReadHoldsNothingUp) {
    std::signal(SIGPIPE, SIG_IGN); // the thread that is left behind loses its reader
    const TempFolder folder;
    const std::string name = folder.file("pipe");
    ASSERT_EQ(::mkfifo(name.c_str(), 0600), 0);
    const FileDescriptor reader(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    auto lines = LineFile::open(name);
    ASSERT_TRUE(lines) << lines.error();
    for (int line = 0; line < 4000; ++line)
        lines->write(std::string(999, 'x'));
    const auto finished = lines->finish(soon());
    ASSERT_FALSE(finished);
    EXPECT_EQ(finished.error(),
              name + ": not all of the trace could be written: it is not read fast enough");
}

} // namespace
} // namespace scenewright::usbip
