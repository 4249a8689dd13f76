// How long the functions take that every transfer and every command goes through.
#include "bank/BankFile.h"
#include "protocol/SceneImage.h"

#include <benchmark/benchmark.h>

namespace scenewright {
namespace {

// Every value in reach, and each scene another one.
BankImage variedBank() {
    BankImage bank{};
    std::uint8_t value = 0;
    for (std::uint8_t& byte : bank)
        byte = static_cast<std::uint8_t>(++value % 128);
    return bank;
}

void encodeFourScenesAndParseThemBack(benchmark::State& state) {
    const SceneList scenes = parseScenes(variedBank());
    for (auto _ : state) {
        SceneList parsed = parseScenes(encodeBank(scenes));
        benchmark::DoNotOptimize(parsed);
    }
}
BENCHMARK(encodeFourScenesAndParseThemBack)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace scenewright

BENCHMARK_MAIN();
