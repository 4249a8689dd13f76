// A bus that stops at each stage of a read and a send, in each way that a bus can: what the command
// says, its exit code, its files, and whether the interface is given back. Each case is a process
// of its own, as a controller that is silent keeps a command until a signal ends it.

#include "platform/Process.h"
#include "protocol/Transactions.h"
#include "tests/cli/BankProgram.h"
#include "usb/Shutdown.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using testing::ProgramRun;

enum class Stop : std::uint8_t { Unplug, Stall, Silence, Error };
enum class Step : std::uint8_t { List, Open, Write, Read };

// Where the bus stops: at the step of that number, from 0.
struct Place {
    const char* stage;
    Step step;
    int number;
};

ResultCode codeOf(Stop stop) {
    switch (stop) {
    case Stop::Unplug:
        return kResultNoDevice;
    case Stop::Stall:
        return kResultStall;
    case Stop::Silence:
        return kResultTimeout;
    case Stop::Error:
        break;
    }
    return kResultInputOutput;
}

class StoppingBus {
public:
    // Notes a letter for each interface that is opened (O) and given back (R) at `letters`.
    StoppingBus(Place place, Stop stop, int letters)
        : place_(place), stop_(stop), letters_(letters) {}

    // Nothing when the step is carried out as usual.
    std::optional<ResultCode> take(Step step) {
        std::unique_lock lock(mutex_);
        if (place_.step == step && counts_[step]++ == place_.number)
            halted_ = step;
        if (!halted_)
            return std::nullopt;
        const bool isTransfer = step == Step::Write || step == Step::Read;
        if (stop_ == Stop::Silence && isTransfer)
            return awaitClose(lock);
        if (stop_ == Stop::Error && std::exchange(hasErred_, true))
            return std::nullopt;
        if (stop_ == Stop::Unplug || halted_ == step)
            return codeOf(stop_);
        return std::nullopt;
    }
    // To be called at each pause between transfers. A handshake is tried until it succeeds,
    // whatever the bus says: at last the user gives up.
    void pause() {
        constexpr int kPatience = 5000;
        const std::lock_guard lock(mutex_);
        if (halted_ && ++pauses_ == kPatience)
            kill(getpid(), SIGTERM);
    }
    void note(char letter) {
        const std::lock_guard lock(mutex_);
        EXPECT_EQ(write(letters_, &letter, 1), 1);
    }
    void endTransfer() {
        const std::lock_guard lock(mutex_);
        isClosed_ = true;
        changed_.notify_all();
    }

private:
    ResultCode awaitClose(std::unique_lock<std::mutex>& lock) {
        kill(getpid(), SIGTERM);
        changed_.wait(lock, [this] { return isClosed_; });
        return kResultCancelled;
    }

    const Place place_;
    const Stop stop_;
    const int letters_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::map<Step, int> counts_;
    std::optional<Step> halted_;
    bool hasErred_ = false;
    int pauses_ = 0; // since it stopped
    bool isClosed_ = false;
};

class StoppingInterface : public UsbInterface {
public:
    StoppingInterface(std::shared_ptr<StoppingBus> bus, std::unique_ptr<UsbInterface> inner)
        : bus_(std::move(bus)), inner_(std::move(inner)) {}
    ~StoppingInterface() override { noteReleased(); }
    StoppingInterface(const StoppingInterface&) = delete;
    StoppingInterface& operator=(const StoppingInterface&) = delete;

    InterfaceClass interfaceClass() override { return inner_->interfaceClass(); }
    UsbResult<void> open() override {
        if (const auto code = bus_->take(Step::Open))
            return failedStep(UsbStep::Open, *code);
        if (!std::exchange(isOpen_, true))
            bus_->note('O');
        return inner_->open();
    }
    UsbResult<void> close() override {
        bus_->endTransfer();
        return inner_->close();
    }
    UsbResult<void> release() override {
        noteReleased();
        return inner_->release();
    }
    UsbResult<std::uint8_t> endpointCount() override { return inner_->endpointCount(); }
    UsbResult<PipeProperties> pipeProperties(std::uint8_t pipe) override {
        return inner_->pipeProperties(pipe);
    }
    UsbResult<void> write(std::uint8_t pipe, std::span<const std::uint8_t> bytes) override {
        if (const auto code = bus_->take(Step::Write))
            return failedStep(UsbStep::Write, *code);
        return inner_->write(pipe, bytes);
    }
    UsbRead read(std::uint8_t pipe, std::span<std::uint8_t> room) override {
        if (const auto code = bus_->take(Step::Read))
            return {.delivered = 0, .code = *code};
        return inner_->read(pipe, room);
    }

private:
    void noteReleased() {
        if (std::exchange(isOpen_, false))
            bus_->note('R');
    }

    std::shared_ptr<StoppingBus> bus_;
    std::unique_ptr<UsbInterface> inner_;
    bool isOpen_ = false;
};

class StoppingDevice : public UsbDevice {
public:
    StoppingDevice(std::shared_ptr<StoppingBus> bus, std::shared_ptr<UsbDevice> inner)
        : bus_(std::move(bus)), inner_(std::move(inner)) {}

    [[nodiscard]] std::string name() const override { return inner_->name(); }
    std::uint16_t vendor() override { return inner_->vendor(); }
    std::uint16_t product() override { return inner_->product(); }
    UsbResult<std::unique_ptr<UsbInterface>> interface(std::size_t place) override {
        return inner_->interface(place).map(
            [this](std::unique_ptr<UsbInterface> interface) -> std::unique_ptr<UsbInterface> {
                return std::make_unique<StoppingInterface>(bus_, std::move(interface));
            });
    }

private:
    std::shared_ptr<StoppingBus> bus_;
    std::shared_ptr<UsbDevice> inner_;
};

class StoppingHost : public UsbHost {
public:
    explicit StoppingHost(std::shared_ptr<StoppingBus> bus)
        : bus_(std::move(bus)),
          inner_(makeVirtualHost(std::make_shared<VirtualController>(BankImage{}))) {}

    UsbResult<Devices> devices(const DeviceMatch& match) override {
        if (const auto code = bus_->take(Step::List)) {
            if (*code == kResultNoDevice)
                return Devices{};
            return failedStep(UsbStep::ListDevices, *code);
        }
        return inner_->devices(match).map([this](Devices devices) {
            for (auto& device : devices)
                device = std::make_shared<StoppingDevice>(bus_, device);
            return devices;
        });
    }

private:
    std::shared_ptr<StoppingBus> bus_;
    std::shared_ptr<UsbHost> inner_;
};

class StoppingBusTest : public ::testing::Test {
protected:
    StoppingBusTest() { testing::writeBytes(folder_.file("zeros"), BankImage{}); }

    // Its output is the letters of the bus.
    ProgramRun run(const std::string& line, Place place, Stop stop) {
        ProgramRun ending =
            testing::runForked([&](int letters) { return runHere(line, place, stop, letters); });
        ending.errors = testing::readText(folder_.file("errors"));
        std::filesystem::remove(folder_.file("errors"));
        return ending;
    }

    testing::TempFolder folder_;

private:
    int runHere(const std::string& line, Place place, Stop stop, int letters) const {
        const FileDescriptor errors(
            open(folder_.file("errors").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
        dup2(errors.get(), STDERR_FILENO);
        const Shutdown shutdown;
        const auto bus = std::make_shared<StoppingBus>(place, stop, letters);
        Transport::instance().use(std::make_shared<StoppingHost>(bus),
                                  [bus](std::chrono::nanoseconds) { bus->pause(); });
        const int exitCode = testing::runCommand(line);
        Transport::instance().shutDown();
        SendJob::join();
        return exitCode;
    }
};

constexpr std::array kStops{Stop::Unplug, Stop::Stall, Stop::Silence, Stop::Error};

// In the order of kStops; why a transfer failed, and what helps.
constexpr std::array kCauses{"the keyboard was unplugged", "the keyboard refused it", "",
                             "the USB transfer failed"};
const std::string kAgain = "The keyboard does not answer: unplug it, plug it in again and try "
                           "again";
const std::string kReplug = "The keyboard was unplugged: plug it in and try again";
const std::string kPlugIn = "No keyboard of the device list is plugged in: plug it in, or see what "
                            "'scenewright-cli devices' says about yours";

struct Stage {
    Place place;
    // Where the first transfer failed, in the command's words; empty before the first transfer.
    const char* where;
};

const std::vector<Stage> kReadStages{
    {{"discovery", Step::List, 0}, ""},
    {{"open", Step::Open, 0}, ""},
    {{"handshake", Step::Read, 0}, "before the first byte"},
    {{"start", Step::Write, 2}, "before the first byte"},
    {{"start's answer", Step::Read, 1}, "before the first byte"},
    {{"byte", Step::Write, 500}, "at byte 497 of 1012"},
    {{"byte's answer", Step::Read, 500}, "at byte 498 of 1012"},
    {{"end", Step::Write, 1015}, "at byte 1012 of 1012"},
};

const std::vector<Stage> kSendStages{
    {{"discovery", Step::List, 0}, ""},
    {{"open", Step::Open, 0}, ""},
    {{"handshake", Step::Read, 0}, "at answer 0"},
    {{"start", Step::Write, 2}, "at packet 2"},
    {{"count", Step::Write, 3}, "at packet 3"},
    {{"count's answer", Step::Read, 1}, "at answer 1"},
    {{"block", Step::Write, 700}, "at packet 700"},
    {{"block's answer", Step::Read, 2}, "at answer 2"},
    {{"end", Step::Read, 3}, "at answer 3"},
};

// Nothing when the command waits until a signal ends it: a handshake is repeated until it succeeds,
// which it does after a single error.
std::optional<std::string> endOf(const Stage& stage, std::size_t stop, const std::string& untouched,
                                 const std::string& broken) {
    const bool isUnplug = kStops.at(stop) == Stop::Unplug;
    const bool isHandshake = std::string(stage.place.stage) == "handshake";
    if (*stage.where == '\0')
        return "The keyboard could not be reached: " + untouched + ". " +
               (!isUnplug                        ? kAgain
                : stage.place.step == Step::List ? kPlugIn
                                                 : kReplug);
    if (kStops.at(stop) == Stop::Silence || (isHandshake && kStops.at(stop) != Stop::Error))
        return std::nullopt;
    return std::string("the first ") + stage.where + " (" + kCauses.at(stop) + "): " + broken +
           ". " + (isUnplug ? kReplug : kAgain);
}

void expectEnd(const ProgramRun& ending, const std::optional<std::string>& sentence) {
    if (!sentence) {
        EXPECT_EQ(ending.exitCode, 128 + SIGTERM);
        // The command may be quicker than the signal, and say what became of its transfer.
        EXPECT_TRUE(ending.errors.empty() ||
                    ending.errors.starts_with("scenewright-cli: The transfer was cancelled: "))
            << ending.errors;
        return;
    }
    EXPECT_EQ(ending.exitCode, 1);
    EXPECT_EQ(std::ranges::count(ending.errors, '\n'), 1) << ending.errors;
    EXPECT_TRUE(ending.errors.ends_with(*sentence + "\n")) << ending.errors;
}

} // namespace

TEST_F(StoppingBusTest, WhatBecameOfTheTransferIsToldAndTheInterfaceGivenBack) {
    const std::string none = "no file was written";
    const std::string half = "the keyboard may hold half a bank, and sending again repairs it";
    for (const auto& [command, stages, untouched, broken] :
         {std::tuple{"read " + folder_.file("new"), &kReadStages, none, none},
          std::tuple{"send --no-backup " + folder_.file("zeros"), &kSendStages,
                     std::string("nothing was sent"), half}})
        for (const Stage& stage : *stages)
            for (std::size_t stop = 0; stop < kStops.size(); ++stop) {
                SCOPED_TRACE(command + ": " + stage.place.stage + ", " + std::to_string(stop));
                const ProgramRun ending = run(command, stage.place, kStops.at(stop));
                expectEnd(ending, endOf(stage, stop, untouched, broken));
                EXPECT_EQ(ending.output, *stage.where == '\0' ? "" : "OR");
                EXPECT_EQ(folder_.names(), std::vector<std::string>{"zeros"});
            }
}

// The tables' last stages are the last steps: a bus that would stop after them disturbs nothing.
TEST_F(StoppingBusTest, WhatComesAfterTheEndIsNoMatter) {
    for (const Stop stop : kStops) {
        for (const auto& [line, place] :
             {std::pair{"read " + folder_.file("new"), Place{"after", Step::Write, 1016}},
              std::pair{"send --no-backup " + folder_.file("zeros"),
                        Place{"after", Step::Read, 4}}}) {
            const ProgramRun ending = run(line, place, stop);
            EXPECT_EQ(ending.exitCode, 0);
            EXPECT_EQ(ending.errors, "");
            EXPECT_EQ(ending.output, "OR");
        }
        EXPECT_TRUE(std::filesystem::remove(folder_.file("new")));
    }
}

} // namespace scenewright
