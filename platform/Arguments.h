// The arguments of a program: a table of what there are, and what a command line gives for them.
#pragma once

#include "platform/Text.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// An option, or an argument that is told by its place.
struct ArgumentRow {
    enum class Kind : std::uint8_t {
        Text,
        OptionalText, // an option that may stand without its value, which follows a '='
        Flag,
        Number, // from `least` to `most`, in decimal digits
        Choice, // one of `choices`
    };
    std::string name; // "--scene" of an option, "IN" of an argument told by its place
    std::string help;
    Kind kind = Kind::Text;
    std::string value{};     // what the help calls an option's value
    std::string byDefault{}; // the value when none is given
    bool isRepeated = false; // given as often as the user likes; in its place, at least once
    bool isOptional = false; // of an argument told by its place: may be left out
    int least = 0;
    int most = 0;
    std::vector<std::string> choices{};
    std::vector<std::string> excludes{}; // options that it does not go with

    [[nodiscard]] bool isOption() const { return name.starts_with('-'); }
};

// What a program takes, or one of its commands. An argument told by its place is required unless it
// is optional, and so is a command of a program that has some. Each has -h and --help beside its
// rows.
struct Syntax {
    std::string name;
    std::string help;
    std::vector<ArgumentRow> arguments{};
    std::string footer{}; // closes the help
    std::string version{};
    std::size_t helpColumn = 30; // where the help's second column begins
    std::vector<Syntax> commands{};
};

// What is given, for each row of the program and of its chosen command. A name that no row has
// throws std::out_of_range.
class Arguments {
public:
    [[nodiscard]] bool has(std::string_view name) const { return !texts(name).empty(); }
    // Empty when nothing is given.
    [[nodiscard]] std::string text(std::string_view name) const;
    [[nodiscard]] const std::vector<std::string>& texts(std::string_view name) const;
    [[nodiscard]] std::optional<int> number(std::string_view name) const;

    void set(const std::string& name, std::vector<std::string> texts) {
        texts_.insert_or_assign(name, std::move(texts));
    }

private:
    std::map<std::string, std::vector<std::string>, std::less<>> texts_;
};

struct ParsedArguments {
    Arguments arguments;
    std::string command; // the chosen one's name; empty in a program without commands
    // For standard output, and the program is done: help, or version if there is a row --version.
    std::optional<std::string> answer;
};

// Touches nothing but its arguments; `argv[0]` is the program's name, which is not looked at.
[[nodiscard]] Result<ParsedArguments> parseArguments(const Syntax& program, int argc,
                                                     const char* const* argv);

// What every refusal of an argument ends with.
[[nodiscard]] std::string refusedArgument(std::string_view sentence);

} // namespace scenewright
