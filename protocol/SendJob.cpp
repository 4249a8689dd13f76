#include "protocol/SendJob.h"

#include "model/CodeTable.h"
#include "platform/Diagnostics.h"
#include "platform/MainQueue.h"
#include "protocol/Packet.h"
#include "usb/InterfaceAction.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <pthread.h>
#include <system_error>
#include <thread>
#include <utility>

namespace scenewright {

namespace {

using Image = std::vector<std::uint8_t>;

// The process's one job. Made by the first start, kept until the process ends.
struct Job {
    // Set by the main thread alone; any thread reads it.
    std::atomic<bool> isRunning{false};
    // Joinable from a start to the next start or join(). Main thread.
    std::thread thread;

    Job() = default;
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    Job(Job&&) = delete;
    Job& operator=(Job&&) = delete;
    ~Job() { join(); }

    void join() {
        if (thread.joinable())
            thread.join();
    }
};

Job& job() {
    static Job theJob;
    return theJob;
}

void sendBlockCount(std::size_t blocks) {
    Diagnostics::log("发送次数---->%d", blocks);
    const auto count = static_cast<std::int32_t>(blocks);
    const Packet packet{kCableZeroNoteOn, kCommandStatus,
                        codes::kGlobalMidiChannel.byteAt(count / 16),
                        codes::kGlobalMidiChannel.byteAt(count % 16)};
    writePacket(packet);
    Diagnostics::log("writeTime：%02x,%02x,%02x,%02x", packet[0], packet[1], packet[2], packet[3]);
    InterfaceAction::ReadFromDevice();
}

void sendPosition(const Image& image, std::size_t position) {
    const bool isData = position < image.size();
    const std::uint8_t byte = isData ? image[position] : std::uint8_t{0};
    const Packet packet = isData ? packets::data(byte) : packets::kFill;
    Diagnostics::log("%d %02x    %02x,%02x,%02x,%02x", position, byte, packet[0], packet[1],
                     packet[2], packet[3]);
    writePacket(packet);
}

void sendBlock(const Image& image, std::size_t block) {
    const std::size_t begin = kBlockPackets * block;
    for (std::size_t position = begin; position < begin + kBlockPackets; ++position)
        sendPosition(image, position);
    Diagnostics::log("第%d次读接口---->开始", block + 1);
    InterfaceAction::ReadFromDevice();
    Diagnostics::log("第%d次读接口---->结束", block + 1);
    MainQueue::post([] { Diagnostics::log("ing"); });
}

void finish(MessageValue& message) {
    message.setMessage("Send Scene Data Finish:100%:Success");
    Diagnostics::log("Finish");
    InterfaceAction::KillInterface();
    job().isRunning = false;
}

void run(const Image& image, std::shared_ptr<MessageValue> message) {
    pthread_setname_np(pthread_self(), "sendPro");
    writePacket(packets::kSendStart);
    // One more than the whole blocks, even when nothing is left for it.
    const std::size_t blocks = image.size() / kBlockPackets + 1;
    sendBlockCount(blocks);
    for (std::size_t block = 0; block < blocks; ++block)
        sendBlock(image, block);
    MainQueue::post([] { Diagnostics::log("100"); });
    MainQueue::post([message = std::move(message)] { finish(*message); });
}

} // namespace

bool SendJob::start(Image image, std::shared_ptr<MessageValue> message) {
    if (job().isRunning)
        return false;
    join();
    try {
        job().isRunning = true;
        job().thread = std::thread(run, std::move(image), std::move(message));
    } catch (const std::system_error& error) {
        job().isRunning = false;
        Diagnostics::log("No thread to send on: %s", error.what());
        return false;
    }
    return true;
}

bool SendJob::isRunning() noexcept {
    return job().isRunning;
}

bool SendJob::waitForEnd(std::chrono::milliseconds limit) {
    constexpr std::chrono::milliseconds kLongest = std::chrono::hours(24 * 365);
    const auto deadline = std::chrono::steady_clock::now() + std::min(limit, kLongest);
    while (isRunning()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left <= std::chrono::milliseconds::zero())
            return false;
        MainQueue::waitAndPump(left);
    }
    return true;
}

void SendJob::join() {
    job().join();
}

} // namespace scenewright
