#include "model/ValueAction.h"
#include "platform/Diagnostics.h"
#include "platform/MainQueue.h"
#include "protocol/Connection.h"
#include "protocol/SceneImage.h"
#include "protocol/Transactions.h"
#include "usb/InterfaceAction.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <pthread.h>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using Image = std::vector<std::uint8_t>;

struct Load {
    Image image;
    SceneSent sceneSent;
};

// The process's one job. Made by the first send, kept until the process ends.
struct Job {
    // Set by the main thread alone; any thread reads it.
    std::atomic<bool> isRunning{false};
    // Joinable from a start to the next start or join(). Main thread.
    std::thread thread;
    // For the end of the send, in order. Main thread.
    std::deque<std::function<void()>> waiting;

    Job() { MainQueue::prepare(); } // the thread posts to it for as long as it lives
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    Job(Job&&) = delete;
    Job& operator=(Job&&) = delete;
    ~Job() { join(); }

    void join() {
        if (thread.joinable())
            thread.join();
    }
    // Until one of them is a send again.
    void runWaiting() {
        while (!waiting.empty() && !isRunning) {
            const auto task = std::move(waiting.front());
            waiting.pop_front();
            task();
        }
    }
};

Job& job() {
    static Job theJob;
    return theJob;
}

Image encodeScenes(const SceneList& scenes) {
    Image images;
    images.reserve(scenes.size() * kSceneImageSize);
    for (const auto& scene : scenes) {
        const SceneImage image = encodeScene(*scene);
        images.insert(images.end(), image.begin(), image.end());
    }
    return images;
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

void tellScene(const Load& load, std::size_t moved) {
    if (load.sceneSent && moved % kSceneImageSize == 0 && moved <= load.image.size() &&
        Transport::instance().stats().isClean())
        load.sceneSent(moved / kSceneImageSize);
}

void sendBlock(const Load& load, std::size_t block) {
    const std::size_t begin = kBlockPackets * block;
    for (std::size_t position = begin; position < begin + kBlockPackets; ++position) {
        sendPosition(load.image, position);
        tellScene(load, position + 1);
    }
    Diagnostics::log("第%d次读接口---->开始", block + 1);
    InterfaceAction::ReadFromDevice();
    Diagnostics::log("第%d次读接口---->结束", block + 1);
    MainQueue::post([] { Diagnostics::log("ing"); });
}

void sendImage(const Load& load) {
    writePacket(packets::kSendStart);
    // One more than the whole blocks, even when nothing is left for it.
    const std::size_t blocks = load.image.size() / kBlockPackets + 1;
    sendBlockCount(blocks);
    for (std::size_t block = 0; block < blocks; ++block)
        sendBlock(load, block);
    MainQueue::post([] { Diagnostics::log("100"); });
}

// The job's last task. `message` is null when the packet stream did not come to its end.
void end(Outcome outcome, MessageValue* message, const SendEnded& ended) {
    if (message != nullptr) {
        message->setMessage("Send Scene Data Finish:100%:Success");
        Diagnostics::log("Finish");
    }
    releaseKeyboard(outcome);
    addStorageError(outcome);
    job().isRunning = false;
    if (ended)
        ended(outcome);
    job().runWaiting();
}

// What is posted here must come, as the interface waits for it: for memory that is missing now it
// is worth waiting.
void postSurely(const MainQueue::Task& task) {
    constexpr std::chrono::milliseconds kWait{10};
    for (;;) {
        try {
            return MainQueue::post(task);
        } catch (const std::exception&) {
            std::this_thread::sleep_for(kWait);
        }
    }
}

ResultCode codeOf(const std::exception& error) {
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        return kResultNoMemory;
    return dynamic_cast<const std::system_error*>(&error) != nullptr ? kResultNoThread
                                                                     : kResultOther;
}

void run(const Load& load, const MainQueue::Task& finish, ResultCode& thrown) {
    pthread_setname_np(pthread_self(), "sendPro");
    try {
        sendImage(load);
    } catch (const std::exception& error) {
        thrown = codeOf(error);
    }
    postSurely(finish);
}

// Everything that the job needs is made here, so that its end cannot fail for want of it.
void startThread(Load load, std::shared_ptr<MessageValue> message, SendEnded ended) {
    const auto thrown = std::make_shared<ResultCode>(kResultSuccess);
    MainQueue::Task finish = [thrown, ended = std::move(ended), message = std::move(message)] {
        Outcome outcome = transferOutcome();
        if (*thrown == kResultSuccess)
            return end(std::move(outcome), message.get(), ended);
        outcome.end = Outcome::End::Unreliable;
        outcome.cause = *thrown;
        end(std::move(outcome), nullptr, ended);
    };
    job().thread = std::thread([load = std::move(load), finish = std::move(finish), thrown] {
        run(load, finish, *thrown);
    });
}

// Nothing once the job has been started; else how the send has ended without one.
std::optional<Outcome> begin(const SceneList& scenes, const std::shared_ptr<MessageValue>& progress,
                             const SendEnded& ended, SceneSent sceneSent) {
    Image images = encodeScenes(scenes);
    Diagnostics::log("%s", hexDump(images));
    if (!connectToDevice(*progress))
        return connectionOutcome();
    const ResultCode started =
        SendJob::start(std::move(images), progress, ended, std::move(sceneSent));
    if (started == kResultSuccess)
        return std::nullopt;
    Outcome outcome{.end = Outcome::End::NotStarted, .cause = started};
    releaseKeyboard(outcome);
    return outcome;
}

} // namespace

void sendScenes(const SceneList& scenes, std::shared_ptr<MessageValue> progress, SendEnded ended,
                SceneSent sceneSent) {
    std::optional<Outcome> outcome;
    try {
        outcome = SendJob::isRunning()
                      ? Outcome{.end = Outcome::End::NotStarted, .cause = kResultBusy}
                      : begin(scenes, progress, ended, std::move(sceneSent));
    } catch (const std::exception& error) {
        outcome = {.end = Outcome::End::NotStarted, .cause = codeOf(error)};
    }
    if (outcome && ended)
        postSurely([outcome = *std::move(outcome), ended = std::move(ended)] { ended(outcome); });
}

ResultCode SendJob::start(Image image, std::shared_ptr<MessageValue> progress, SendEnded ended,
                          SceneSent sceneSent) {
    if (isRunning())
        return kResultBusy;
    join();
    job().isRunning = true;
    try {
        startThread({std::move(image), std::move(sceneSent)}, std::move(progress),
                    std::move(ended));
        return kResultSuccess;
    } catch (const std::exception& error) {
        job().isRunning = false;
        return codeOf(error);
    }
}

bool SendJob::isRunning() noexcept {
    return job().isRunning;
}

void SendJob::whenIdle(std::function<void()> task) {
    job().waiting.push_back(std::move(task));
    job().runWaiting();
}

void SendJob::waitForEnd() {
    MainQueue::pumpUntil([] { return !isRunning(); });
}

void SendJob::join() {
    job().join();
}

} // namespace scenewright
