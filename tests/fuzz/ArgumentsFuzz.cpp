// The arguments of scenewright-cli, or, when the first byte is odd, of scenewright-virtual; each
// ends with a zero byte, as the system hands them over. Parsing does nothing but tell what is to be
// done: no file is opened and no device is touched, as no command runs here.
#include "cli/Command.h"
#include "tests/fuzz/Checks.h"
#include "tests/fuzz/Input.h"
#include "virtual/program/Options.h"

#include <algorithm>
#include <vector>

namespace scenewright::fuzz {

namespace {

class Arguments {
public:
    explicit Arguments(std::span<const std::uint8_t> bytes) : texts_(split(textOf(bytes), '\0')) {
        if (texts_.back().empty())
            texts_.pop_back();
        pointers_.push_back("program");
        for (const std::string& text : texts_)
            pointers_.push_back(text.c_str());
    }
    [[nodiscard]] int count() const { return static_cast<int>(pointers_.size()); }
    [[nodiscard]] const char* const* pointers() const { return pointers_.data(); }

private:
    std::vector<std::string> texts_;
    std::vector<const char*> pointers_;
};

// An answer of whole lines, or trouble of one sentence, or work.
void checkOne(const std::optional<std::string>& answer, const std::optional<std::string>& trouble,
              bool hasWork) {
    const int given = (answer ? 1 : 0) + (trouble ? 1 : 0) + (hasWork ? 1 : 0);
    check(given == (faultIsPlanted() ? 0 : 1), "not one of an answer, trouble and work");
    if (answer)
        check(answer->ends_with('\n'), "an answer without a line feed at its end");
    if (trouble)
        checkTrouble(trouble);
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright;
    fuzz::Input input(data, size);
    const bool isVirtual = input.below(2) == 1;
    const fuzz::Arguments arguments(input.rest());
    if (isVirtual) {
        const auto line = parseProgramLine(arguments.count(), arguments.pointers());
        const auto* const answer = line ? std::get_if<std::string>(&*line) : nullptr;
        fuzz::checkOne(answer ? std::optional(*answer) : std::nullopt,
                       line ? std::nullopt : std::optional(line.error()), line && !answer);
    } else {
        const auto line = parseCommandLine(arguments.count(), arguments.pointers());
        fuzz::checkOne(line ? line->answer : std::nullopt,
                       line ? std::nullopt : std::optional(line.error()),
                       line && line->choice.run != nullptr);
    }
    return 0;
}
