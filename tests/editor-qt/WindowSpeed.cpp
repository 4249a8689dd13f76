// How long the window takes for a user's choice, with real widgets on a virtual controller.
#include "bank/BankFile.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/Theme.h"
#include "tests/editor-qt/UsableScenes.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <QApplication>
#include <benchmark/benchmark.h>

#include <utility>

namespace scenewright {
namespace {

constexpr int kChoices = 100; // a run; what they draw takes longer than they do

// The window, shown, with the first pad chosen.
class Window {
public:
    Window() {
        const BankImage held = encodeBank(testing::usableScenes());
        Transport::instance().use(makeVirtualHost(std::make_shared<VirtualController>(held)),
                                  [](std::chrono::nanoseconds) {});
        window_.show();
        commands().read();
        button(controlRange(ControlKind::Pad).start).click();
        QApplication::processEvents();
    }

    // As a user's choice does.
    static void choose(PopUpBox& box, int position) {
        box.setCurrentIndex(position);
        emit box.activated(position);
    }

    [[nodiscard]] PopUpBox& padNumber() { return window_.panes().popUp("padCCOrNoteNumber"); }
    [[nodiscard]] PopUpBox& displayModes() { return window_.displayModes(); }
    [[nodiscard]] ControlButton& button(std::int32_t tag) { return *window_.picture().button(tag); }

private:
    DeviceCommands& commands() { return window_.commands(); }

    MainLoop loop_;
    Appearance appearance_;
    QuitController quit_;
    MainWindow window_{quit_, appearance_, true};
};

// What the choice wants drawn is drawn outside the time where `isDrawn` is false.
void chooseInTurn(benchmark::State& state, PopUpBox& box, std::pair<int, int> positions,
                  bool isDrawn) {
    for (auto _ : state) {
        std::swap(positions.first, positions.second);
        Window::choose(box, positions.first);
        if (!isDrawn)
            state.PauseTiming();
        QApplication::processEvents();
        if (!isDrawn)
            state.ResumeTiming();
    }
}

void chooseAPadsNumber(benchmark::State& state, bool isDrawn) {
    Window window;
    chooseInTurn(state, window.padNumber(), {64, 65}, isDrawn);
}
BENCHMARK_CAPTURE(chooseAPadsNumber, alone, false)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kChoices);
BENCHMARK_CAPTURE(chooseAPadsNumber, andDraw, true)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kChoices);

// Titles that differ in every control.
void chooseWhatThePictureShows(benchmark::State& state, bool isDrawn) {
    Window window;
    chooseInTurn(state, window.displayModes(), {1, 2}, isDrawn);
    if (window.button(kControlCount).attributedTitle().text.empty())
        state.SkipWithError("the titles were not written");
}
BENCHMARK_CAPTURE(chooseWhatThePictureShows, alone, false)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kChoices);
BENCHMARK_CAPTURE(chooseWhatThePictureShows, andDraw, true)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kChoices);

} // namespace
} // namespace scenewright

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", "/nonexistent");
    qputenv("XDG_STATE_HOME", "/nonexistent");
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    scenewright::applyTheme(false);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
