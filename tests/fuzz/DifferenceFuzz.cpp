// Two banks and what differs: the input fills the first and edits a copy of it to the second. The
// differences, carried out on the first, make the second.
#include "bank/BankFile.h"
#include "bank/Edit.h"
#include "bank/Findings.h"
#include "bank/SettingText.h"
#include "model/SceneValue.h"
#include "tests/fuzz/Checks.h"
#include "tests/fuzz/Input.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <vector>

namespace scenewright::fuzz {

namespace {

BankImage filled(std::span<const std::uint8_t> pattern) {
    BankImage image{};
    for (std::size_t i = 0; i < image.size() && !pattern.empty(); ++i)
        image[i] = pattern[i % pattern.size()];
    return image;
}

void checkCarriedOut(const std::vector<Difference>& list, const SceneList& first,
                     const SceneList& second) {
    std::vector<std::string> assignments;
    for (const Difference& difference : list)
        assignments.push_back(assignmentOf(difference.place, difference.second));
    if (faultIsPlanted() && !assignments.empty())
        assignments.pop_back();
    const auto edited = setValues(optionLists(), first, assignments);
    check(edited.has_value(), "a difference cannot be carried out");
    check(encodeBank(*edited) == encodeBank(second), "the differences do not tell all");
}

void checkForms(const std::vector<Difference>& list) {
    const std::string lines = differenceLines(list);
    check(std::ranges::count(lines, '\n') == std::ssize(list), "not one line a difference");
    for (const Difference& difference : list) {
        checkSentence(differenceLine(difference));
        checkSentence(changeLine(difference));
        check(difference.first.value != difference.second.value, "a difference of equal values");
    }
    const auto json = nlohmann::json::parse(differencesJson(list), nullptr, false);
    check(json.is_array() && json.size() == list.size(), "not one JSON object a difference");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright;
    fuzz::Input input(data, size);
    const BankImage one = fuzz::filled(input.bytes(input.u8()));
    BankImage other = one;
    while (!input.isUsedUp()) {
        const std::size_t at = input.u16() % other.size();
        other.at(at) = input.u8();
    }
    const SceneList first = parseScenes(one);
    const SceneList second = parseScenes(other);
    const auto list = differences(fuzz::optionLists(), first, second);
    fuzz::check(list.empty() == (encodeBank(first) == encodeBank(second)),
                "differences of equal banks, or none of different ones");
    fuzz::check(differences(fuzz::optionLists(), second, first).size() == list.size(),
                "another count of differences the other way round");
    fuzz::checkForms(list);
    fuzz::checkCarriedOut(list, first, second);
    return 0;
}
