// The window's monitor under a burst: 3,000 messages a second for ten seconds, from another thread,
// as a kernel's port gives them.
//
// Prints one line: the longest time in milliseconds in which the window did nothing else, how much
// of a processor's time it needed at most at a stretch, how many messages its monitor did not show,
// and the share of a processor that the program took.
#include "app/WindowAction.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/MidiPorts.h"
#include "editor/qt/MonitorStrip.h"
#include "editor/qt/Theme.h"
#include "tests/sequencer/ScriptedSequencer.h"

#include <QApplication>
#include <QWindow>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <memory>
#include <mutex>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace scenewright {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::int32_t kTicks = 10'000; // of a millisecond
constexpr std::int32_t kEachTick = 3;   // messages
constexpr milliseconds kPatience{5000}; // for the last of them

// What the thread has had of a processor.
Clock::duration processorTime() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

double in(milliseconds unit, Clock::duration time) {
    return std::chrono::duration<double>(time) / std::chrono::duration<double>(unit);
}

// A sequencer that another thread plays.
class PlayedSequencer final : public testing::ScriptedSequencer {
public:
    explicit PlayedSequencer(std::shared_ptr<testing::ScriptedPorts> ports)
        : ScriptedSequencer(ports), ports_(std::move(ports)) {}
    ~PlayedSequencer() override { ::close(event_); }
    PlayedSequencer(const PlayedSequencer&) = delete;
    PlayedSequencer& operator=(const PlayedSequencer&) = delete;
    PlayedSequencer(PlayedSequencer&&) = delete;
    PlayedSequencer& operator=(PlayedSequencer&&) = delete;

    [[nodiscard]] int descriptor() const override { return event_; }
    [[nodiscard]] SequencerInput take() override {
        std::uint64_t count = 0;
        if (::read(event_, &count, sizeof count) < 0)
            return {};
        const std::lock_guard lock(mutex_);
        return ScriptedSequencer::take();
    }
    void play(PortAddress from, const MidiMessage& message) {
        const std::lock_guard lock(mutex_);
        ports_->send(from, message);
    }
    void wake() const {
        constexpr std::uint64_t kOne = 1;
        [[maybe_unused]] const auto written = ::write(event_, &kOne, sizeof kOne);
    }

private:
    std::mutex mutex_;
    std::shared_ptr<testing::ScriptedPorts> ports_;
    int event_ = ::eventfd(0, EFD_NONBLOCK);
};

// Of all kinds that a keyboard sends, and one that no control of the scenes explains.
MidiMessage messageOf(std::int32_t tick, std::int32_t place) {
    const auto value = static_cast<std::uint8_t>(tick % 128);
    switch (place) {
    case 0:
        return {kController, 74, value};
    case 1:
        return {static_cast<std::uint8_t>((tick % 2 == 0 ? kNoteOn : kNoteOff) | 9U),
                static_cast<std::uint8_t>(36 + tick / 2 % 8), 100};
    default:
        return {static_cast<std::uint8_t>(kController | 15U), value, value};
    }
}

void playAll(PlayedSequencer& sequencer, PortAddress from) {
    auto next = Clock::now();
    for (std::int32_t tick = 0; tick < kTicks; ++tick) {
        for (std::int32_t place = 0; place < kEachTick; ++place)
            sequencer.play(from, messageOf(tick, place));
        sequencer.wake();
        std::this_thread::sleep_until(next += milliseconds(1));
    }
}

int run() {
    constexpr PortAddress kKeyboard{20, 0};
    const MainLoop loop;
    Appearance appearance;
    QuitController quit;
    WindowAction::getSceneValue();
    MainWindow window(quit, appearance, true);
    auto ports = std::make_shared<testing::ScriptedPorts>();
    ports->add(kKeyboard, "Keyboard", "MIDI 1", 1);
    PlayedSequencer* sequencer = nullptr; // the input's
    KeyboardInput input(window);
    input.use(
        [&] {
            auto made = std::make_unique<PlayedSequencer>(ports);
            sequencer = made.get();
            return made;
        },
        [] {
            return std::vector<SoundKeyboard>{{"1209:0001#0", 1}};
        });
    MonitorStrip monitor(window, input);
    window.show();
    monitor.action().setChecked(true);

    std::int32_t shown = 0;
    QObject::connect(
        &monitor.lines(), &QAbstractItemModel::rowsInserted,
        [&shown](const QModelIndex&, int first, int last) { shown += last - first + 1; });
    while (!window.windowHandle()->isExposed())
        QApplication::processEvents();

    const std::clock_t processor = std::clock();
    const auto begin = Clock::now();
    Clock::duration longest{0};
    Clock::duration mostWork{0};
    std::jthread player([&] { playAll(*sequencer, kKeyboard); });
    const auto end = begin + milliseconds(kTicks) + kPatience;
    while (shown < kTicks * kEachTick && Clock::now() < end) {
        const auto before = Clock::now();
        const auto workBefore = processorTime();
        QApplication::processEvents();
        longest = std::max(longest, Clock::now() - before);
        mostWork = std::max(mostWork, processorTime() - workBefore);
        std::this_thread::sleep_for(milliseconds(1));
    }
    player.join();
    fmt::print("{:.1f} {:.1f} {} {:.3f}\n", in(milliseconds(1), longest),
               in(milliseconds(1), mostWork), kTicks * kEachTick - shown,
               static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC /
                   in(milliseconds(1000), Clock::now() - begin));
    return 0;
}

} // namespace
} // namespace scenewright

int main(int argc, char** argv) {
    qputenv("XDG_CONFIG_HOME", "/nonexistent");
    qputenv("XDG_STATE_HOME", "/nonexistent");
    const QApplication application(argc, argv);
    scenewright::applyTheme(false);
    return scenewright::run();
}
