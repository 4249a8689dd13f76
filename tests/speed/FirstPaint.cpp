// Starts a program and waits until it has painted on the display: FirstPaint PROGRAM [ARGUMENT...]
//
// Prints one line: milliseconds from the start of the process to the first pixels that it drew,
// its peak memory in KiB once the window stands, and the processor time that it took until then, in
// milliseconds. The display must show no other window. The program is then ended with SIGTERM.
#include <fmt/format.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{20};
constexpr std::chrono::milliseconds kSettling{400}; // until the window stands still

struct Free {
    void operator()(void* memory) const { std::free(memory); }
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

// Hears of every window that appears on the display, and of everything that is drawn there.
class Display {
public:
    Display() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_.get()) != 0)
            return;
        const auto* extension = xcb_get_extension_data(connection_.get(), &xcb_damage_id);
        if (extension == nullptr || extension->present == 0)
            return;
        const auto version = xcb_damage_query_version(connection_.get(), 1, 1);
        const std::unique_ptr<void, Free> agreed(
            xcb_damage_query_version_reply(connection_.get(), version, nullptr));
        notify_ = extension->first_event + XCB_DAMAGE_NOTIFY;
        xcb_damage_create(connection_.get(), xcb_generate_id(connection_.get()), root(),
                          XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        const std::uint32_t windows = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_.get(), root(), XCB_CW_EVENT_MASK, &windows);
        // A round trip: from here on nothing is missed.
        const auto question = xcb_get_input_focus(connection_.get());
        const std::unique_ptr<void, Free> answer(
            xcb_get_input_focus_reply(connection_.get(), question, nullptr));
    }

    [[nodiscard]] bool isOpen() const { return notify_ != 0; }

    // Whether a window appeared, and something was drawn after that, before the deadline. What was
    // drawn earlier is the ground of the display, where a former window stood.
    bool waitForWindow(Clock::time_point deadline) {
        return waitFor(XCB_MAP_NOTIFY, deadline) && waitFor(notify_, deadline);
    }

    // Until nothing was drawn for a while.
    void waitForRest() {
        while (waitFor(notify_, Clock::now() + kSettling)) {
        }
    }

private:
    bool waitFor(int kind, Clock::time_point deadline) {
        while (Clock::now() < deadline) {
            while (const auto event = next())
                if ((event->response_type & 0x7F) == kind)
                    return true;
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
            pollfd waiting{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
            ::poll(&waiting, 1, static_cast<int>(left.count()));
        }
        return false;
    }
    [[nodiscard]] std::unique_ptr<xcb_generic_event_t, Free> next() {
        return std::unique_ptr<xcb_generic_event_t, Free>(xcb_poll_for_event(connection_.get()));
    }
    [[nodiscard]] xcb_window_t root() const {
        return xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
    }

    std::unique_ptr<xcb_connection_t, Free> connection_;
    int notify_ = 0;
};

// The most memory that the process had, in KiB; 0 when it is gone.
long peakOf(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string word; status >> word;)
        if (long peak = 0; word == "VmHWM:" && status >> peak)
            return peak;
    return 0;
}

double milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

int reportError(const char* sentence) {
    fmt::print(stderr, "{}\n", sentence);
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    Display display;
    if (argc < 2 || !display.isOpen())
        return reportError("give a program, and a display that tells what is drawn");
    const auto start = Clock::now();
    pid_t process = 0;
    if (posix_spawnp(&process, argv[1], nullptr, nullptr, argv + 1, environ) != 0)
        return reportError("the program does not start");
    const bool hasPainted = display.waitForWindow(start + kPatience);
    const std::chrono::duration<double, std::milli> taken = Clock::now() - start;
    display.waitForRest();
    const long peak = peakOf(process);
    kill(process, SIGTERM);
    rusage usage{};
    wait4(process, nullptr, 0, &usage);
    if (!hasPainted || peak == 0)
        return reportError("the program has painted nothing");
    fmt::print("{:.3f} {} {:.3f}\n", taken.count(), peak,
               milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime));
    return EXIT_SUCCESS;
}
