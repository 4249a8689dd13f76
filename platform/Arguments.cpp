#include "platform/Arguments.h"

#include "platform/Text.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <stdexcept>

namespace scenewright {

namespace {

using Kind = ArgumentRow::Kind;
using Texts = std::vector<std::string>;

// The help: a title and its explanation in two columns, the title on a line of its own if it is
// wider than the first one.

std::string valueText(const ArgumentRow& row) {
    if (row.kind == Kind::Number)
        return fmt::format("{}:INT in [{} - {}]", row.value, row.least, row.most);
    return row.kind == Kind::OptionalText ? "[=" + row.value + "]" : row.value;
}

std::string titleOf(const ArgumentRow& row) {
    if (!row.isOption())
        return row.name + (row.isRepeated ? " TEXT ..." : " TEXT") +
               (row.isOptional ? "" : " REQUIRED");
    std::string title = row.name;
    if (row.kind != Kind::Flag)
        title += " " + valueText(row);
    if (!row.byDefault.empty())
        title += "=" + row.byDefault;
    if (row.isRepeated)
        title += " ...";
    if (!row.excludes.empty())
        title += fmt::format(" Excludes: {}", fmt::join(row.excludes, " "));
    return title;
}

std::string helpLine(const std::string& title, const std::string& help, std::size_t column) {
    const std::string first = "  " + title;
    return first.size() < column ? fmt::format("{:{}}{}\n", first, column, help)
                                 : fmt::format("{}\n{:{}}{}\n", first, "", column, help);
}

std::string helpOf(const Syntax& program, const Syntax& shown) {
    const std::size_t column = program.helpColumn;
    std::string usage = &shown == &program ? program.name : program.name + " " + shown.name;
    usage += " [OPTIONS]";
    std::string places;
    std::string options = helpLine("-h,--help", "Print this help message and exit", column);
    for (const ArgumentRow& row : shown.arguments) {
        (row.isOption() ? options : places) += helpLine(titleOf(row), row.help, column);
        if (!row.isOption())
            usage += (row.isOptional ? " [" + row.name + "]" : " " + row.name) +
                     (row.isRepeated ? "..." : "");
    }
    std::string commands;
    for (const Syntax& command : shown.commands)
        commands += helpLine(command.name, command.help, column);
    if (!commands.empty())
        usage += " [SUBCOMMAND]";
    std::string text = fmt::format("{}\nUsage: {}\n", shown.help, usage);
    for (const auto& [title, lines] :
         {std::pair{"Positionals", &places}, {"Options", &options}, {"Subcommands", &commands}})
        if (!lines->empty())
            text += fmt::format("\n{}:\n{}", title, *lines);
    return text + "\n" + shown.footer + (shown.footer.empty() ? "" : "\n");
}

// What a row does not allow. The sentences are this program's own, as those of the library differ
// from one of its versions to the next.

Result<void> checkText(const ArgumentRow& row, const std::string& text) {
    switch (row.kind) {
    case Kind::Flag:
        if (text != "true") // which the library gives for a flag without a value
            return failure(fmt::format("Could not convert: {} = {}", row.name, text));
        break;
    case Kind::Number:
        if (!numberWithin(text, row.least, row.most))
            return failure(fmt::format("{}: Value {} not in range {} to {}", row.name, text,
                                       row.least, row.most));
        break;
    case Kind::Choice:
        if (std::ranges::find(row.choices, text) == row.choices.end())
            return failure(
                fmt::format("{}: {} not in {{{}}}", row.name, text, fmt::join(row.choices, ",")));
        break;
    case Kind::Text:
    case Kind::OptionalText:
        break;
    }
    return {};
}

Result<void> checkTexts(const ArgumentRow& row, const Arguments& given) {
    const Texts& texts = given.texts(row.name);
    if (texts.size() > 1 && !row.isRepeated && row.kind != Kind::Flag)
        return failure(
            fmt::format("{}: At Most 1 required but received {}", row.name, texts.size()));
    for (const std::string& text : texts)
        if (auto checked = checkText(row, text); !checked)
            return checked;
    return {};
}

Result<void> checkPresence(const ArgumentRow& row, const Arguments& given) {
    if (!row.isOption() && !row.isOptional && !given.has(row.name))
        return failure(row.name + " is required");
    if (given.has(row.name))
        for (const std::string& other : row.excludes)
            if (given.has(other))
                return failure(fmt::format("{} excludes {}", row.name, other));
    return {};
}

Result<void> checkRest(const Texts& rest) {
    if (rest.empty())
        return {};
    return failure(fmt::format("The following {} not expected: {}",
                               rest.size() == 1 ? "argument was" : "arguments were",
                               fmt::join(rest, " ")));
}

// An option lacks its value only at the end of the line.
std::string missingValue(const Syntax& syntax, std::string_view last) {
    last = last.substr(0, last.find('='));
    for (const ArgumentRow& row : syntax.arguments)
        if (row.name == last)
            return fmt::format("{}: 1 required {} missing", last, valueText(row));
    return fmt::format("{}: a value is missing", last);
}

// Shares the words of the line out among the rows, each word as it was typed, and nothing more.
class Parser {
public:
    explicit Parser(const Syntax& program) : program_(program) {
        app_.require_subcommand(0, 1);
        add(app_, program);
        for (const Syntax& command : program.commands)
            add(*app_.add_subcommand(command.name), command);
    }

    Result<void> parse(int argc, const char* const* argv) {
        try {
            app_.parse(argc, argv);
        } catch (const CLI::ArgumentMismatch&) {
            return failure(missingValue(chosen(), argv[argc - 1]));
        } catch (const CLI::ParseError& error) {
            return failure(error.what());
        }
        return {};
    }

    // The command, or the program without one.
    [[nodiscard]] const Syntax& chosen() const {
        const auto commands = app_.get_subcommands();
        return commands.empty() ? program_
                                : *std::ranges::find(program_.commands,
                                                     commands.front()->get_name(), &Syntax::name);
    }
    [[nodiscard]] Texts texts(const ArgumentRow& row) const {
        return options_.at(&row)->count() != 0 ? options_.at(&row)->results() : Texts();
    }
    // What no row takes, without the mark after which nothing is an option.
    [[nodiscard]] Texts rest() const {
        Texts rest = app_.remaining(true);
        if (const auto mark = std::ranges::find(rest, "--"); mark != rest.end())
            rest.erase(mark);
        return rest;
    }
    [[nodiscard]] bool asksForHelp() const {
        return std::ranges::any_of(helps_,
                                   [](const CLI::Option* help) { return help->count() != 0; });
    }

private:
    void add(CLI::App& app, const Syntax& syntax) {
        app.allow_extras();
        app.set_help_flag();
        helps_.push_back(app.add_flag("-h,--help"));
        for (const ArgumentRow& row : syntax.arguments)
            options_[&row] = row.kind == Kind::Flag ? app.add_flag(row.name) : addOption(app, row);
    }
    static CLI::Option* addOption(CLI::App& app, const ArgumentRow& row) {
        CLI::Option* option = app.add_option(row.name);
        if (row.kind == Kind::OptionalText)
            option->expected(0, 0); // the word behind it is never its value
        const bool takesRest = row.isRepeated && !row.isOption();
        if (takesRest)
            option->expected(1, -1);
        return option->allow_extra_args(takesRest)->multi_option_policy(
            CLI::MultiOptionPolicy::TakeAll);
    }

    const Syntax& program_;
    CLI::App app_;
    std::map<const ArgumentRow*, const CLI::Option*> options_;
    std::vector<const CLI::Option*> helps_;
};

std::vector<const ArgumentRow*> rowsOf(const Syntax& program, const Syntax& chosen) {
    std::vector<const ArgumentRow*> rows;
    for (const ArgumentRow& row : program.arguments)
        rows.push_back(&row);
    if (&chosen != &program)
        for (const ArgumentRow& row : chosen.arguments)
            rows.push_back(&row);
    return rows;
}

Result<void> check(const std::vector<const ArgumentRow*>& rows, const Arguments& given,
                   const Texts& rest) {
    for (const auto& checkRow : {&checkTexts, &checkPresence})
        for (const ArgumentRow* row : rows)
            if (auto checked = checkRow(*row, given); !checked)
                return checked;
    return checkRest(rest);
}

} // namespace

std::string Arguments::text(std::string_view name) const {
    const Texts& all = texts(name);
    return all.empty() ? std::string() : all.front();
}

const std::vector<std::string>& Arguments::texts(std::string_view name) const {
    const auto found = texts_.find(name);
    if (found == texts_.end())
        throw std::out_of_range(fmt::format("no argument is called {}", name));
    return found->second;
}

std::optional<int> Arguments::number(std::string_view name) const {
    return has(name) ? numberFrom<int>(text(name)) : std::nullopt;
}

Result<ParsedArguments> parseArguments(const Syntax& program, int argc, const char* const* argv) {
    Parser parser(program);
    if (const auto parsed = parser.parse(argc, argv); !parsed)
        return failure(refusedArgument(parsed.error()));
    const Syntax& chosen = parser.chosen();
    const auto rows = rowsOf(program, chosen);
    ParsedArguments line;
    for (const ArgumentRow* row : rows)
        line.arguments.set(row->name, parser.texts(*row));
    if (!program.version.empty() && line.arguments.has("--version"))
        line.answer = fmt::format("{} {}\n", program.name, program.version);
    else if (parser.asksForHelp())
        line.answer = helpOf(program, chosen);
    if (line.answer)
        return line;
    if (const auto checked = check(rows, line.arguments, parser.rest()); !checked)
        return failure(refusedArgument(checked.error()));
    if (!program.commands.empty() && &chosen == &program)
        return failure("a command is required (--help lists them)");
    for (const ArgumentRow* row : rows)
        if (!row->byDefault.empty() && !line.arguments.has(row->name))
            line.arguments.set(row->name, {row->byDefault});
    line.command = &chosen == &program ? "" : chosen.name;
    return line;
}

std::string refusedArgument(std::string_view sentence) {
    return readableText(sentence) + " (--help tells more)";
}

} // namespace scenewright
