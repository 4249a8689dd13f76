// How the time of each reader grows with what it reads. A run is named after the reader and the
// number of scenes; its counter `bytes` is the size of the input.
//
// The folder that SCENEWRIGHT_SPEED_LISTS names holds the property lists: N.xml.plist and
// N.binary.plist, arrays of N scenes.
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/Findings.h"
#include "model/SceneValue.h"
#include "platform/Resources.h"
#include "protocol/SceneImage.h"
#include "tests/support/TempFolder.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace scenewright {
namespace {

std::size_t scenesOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void countBytes(benchmark::State& state, std::size_t bytes) {
    state.counters["bytes"] = static_cast<double>(bytes);
}

void readList(benchmark::State& state, const char* form) {
    const char* folder = std::getenv("SCENEWRIGHT_SPEED_LISTS");
    const auto bytes = testing::readBytes(std::string(folder == nullptr ? "." : folder) + "/" +
                                          std::to_string(scenesOf(state)) + form);
    const std::string text(bytes.begin(), bytes.end());
    for (auto _ : state)
        if (parsePropertyList(text, "list").value().elements().size() != scenesOf(state))
            return state.SkipWithError("the list was not read");
    countBytes(state, text.size());
}

// A scene as the JSON form writes it, titles included.
std::string sceneJson() {
    const std::string file =
        writeSceneJson(*FileAction::GetSceneFromDefault(), *WindowAction::InitializePopUp());
    constexpr std::string_view kKey = "\"scene\": ";
    const std::size_t begin = file.find(kKey) + kKey.size();
    return file.substr(begin, file.rfind('}') - begin);
}

// A bank has four scenes. The others stand in it as comments, which are read like all else.
std::string bankJson(std::size_t scenes) {
    const std::string scene = sceneJson();
    std::string text = R"({"format": "scenewright-bank", "version": 1)";
    for (std::size_t number = kSceneCount + 1; number <= scenes; ++number)
        text += ",\n\"// scene " + std::to_string(number) + "\": " + scene;
    text += ",\n\"scenes\": [" + scene;
    for (int number = 2; number <= kSceneCount; ++number)
        text += ",\n" + scene;
    return text + "]}\n";
}

void readBank(benchmark::State& state) {
    const std::string text = bankJson(scenesOf(state));
    for (auto _ : state)
        if (readBankJson(text).value().size() != kSceneCount)
            return state.SkipWithError("the bank was not read");
    countBytes(state, text.size());
}

SceneList scenesFullOf(std::size_t count, std::uint8_t value) {
    return parseScenes(std::vector<std::uint8_t>(count * kSceneImageSize, value));
}

// Of scenes that differ in every setting, as lines for a person.
void compare(benchmark::State& state) {
    const auto lists = WindowAction::InitializePopUp();
    const SceneList first = scenesFullOf(scenesOf(state), 0);
    const SceneList second = scenesFullOf(scenesOf(state), 1);
    for (auto _ : state)
        if (differenceLines(differences(*lists, first, second)).empty())
            return state.SkipWithError("no difference was found");
    countBytes(state, scenesOf(state) * kSceneImageSize);
}

constexpr std::int64_t kFewest = 8;
constexpr std::int64_t kMax = 1000;
constexpr std::int64_t kMaxInList = 500; // a longer list is refused for its size

void eachSize(benchmark::internal::Benchmark* reader, std::int64_t most) {
    for (std::int64_t scenes = most; scenes >= kFewest; scenes /= 2)
        reader->Arg(scenes);
    reader->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(readList, xml, ".xml.plist")->Apply([](auto* reader) {
    eachSize(reader, kMaxInList);
});
BENCHMARK_CAPTURE(readList, binary, ".binary.plist")->Apply([](auto* reader) {
    eachSize(reader, kMaxInList);
});
BENCHMARK(readBank)->Apply([](auto* reader) { eachSize(reader, kMax); });
BENCHMARK(compare)->Apply([](auto* reader) { eachSize(reader, kMax); });

} // namespace
} // namespace scenewright

BENCHMARK_MAIN();
