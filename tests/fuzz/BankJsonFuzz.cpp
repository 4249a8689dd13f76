// A JSON bank that somebody edited: the input is a list of edits, each of a line of a right text,
// as random bytes hardly ever come as far as the values.
#include "bank/BankFile.h"
#include "model/SceneValue.h"
#include "tests/fuzz/Checks.h"
#include "tests/fuzz/Input.h"

#include <array>
#include <string>
#include <vector>

namespace scenewright::fuzz {

namespace {

using Lines = std::vector<std::string>;

// The line without the comment at its end.
std::string withoutComment(std::string_view line) {
    std::string kept(line.substr(0, line.find(", \"//")));
    if (kept.size() < line.size() && line.ends_with(','))
        kept += ',';
    return kept;
}

Lines rightLines() {
    const auto bytes = bankBytes(defaultScenes(), BankFormat::Json, optionLists());
    Lines lines;
    for (const std::string& line : split(textOf(bytes), '\n'))
        if (line.find(" \"//\"") == std::string::npos)
            lines.push_back(withoutComment(line));
    return lines;
}

constexpr std::array<std::string_view, 18> kPieces{
    "null",       "true",
    "-1",         "0",
    "127",        "128",
    "1e2",        "12345678901234567890",
    "\"a\"",      "[]",
    "{}",         "\"\\u0000\"",
    "\"\\ud83d",  ",",
    "]",          "}",
    "\"//\": 1,", "\"nameBytes\": \"000102030405060708090a0b\","};

// Puts `piece` in place of what stands behind the line's colon, or of the whole line.
void replaceValue(std::string& line, std::string_view piece) {
    const std::size_t colon = line.find(": ");
    const bool hasComma = line.ends_with(',');
    line.resize(colon == std::string::npos ? 0 : colon + 2);
    line += piece;
    if (hasComma)
        line += ',';
}

void edit(Lines& lines, Input& input) {
    const std::size_t at = input.u16() % lines.size();
    const auto place = lines.begin() + static_cast<std::ptrdiff_t>(at);
    switch (input.below(8)) {
    case 0:
        lines.erase(place);
        break;
    case 1:
        lines.insert(place, std::string(*place));
        break;
    case 2:
        std::swap(*place, lines[(at + 1) % lines.size()]);
        break;
    case 3:
        replaceValue(*place, std::to_string(input.u8()));
        break;
    case 4:
        replaceValue(*place, kPieces[input.below(kPieces.size())]);
        break;
    case 5:
        replaceValue(*place, textOf(input.bytes(input.below(32))));
        break;
    case 6:
        place->insert(input.below(place->size() + 1), textOf(input.bytes(input.below(8))));
        break;
    default:
        lines.resize(at + 1);
        break;
    }
}

std::string joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    return text;
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright::fuzz;
    constexpr int kMaxEdits = 16;
    static const Lines right = rightLines();
    Input input(data, size);
    Lines lines = right;
    for (int i = 0; i < kMaxEdits && !input.isUsedUp() && !lines.empty(); ++i)
        edit(lines, input);
    checkBank(bytesOf(joined(lines)));
    return 0;
}
