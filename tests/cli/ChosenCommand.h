// A command of scenewright-cli in the test's own process.
#pragma once

#include "cli/Command.h"

#include <sstream>
#include <string>
#include <vector>

namespace scenewright::testing {

// Runs what a line says whose words have no spaces in them; the program's name is not among them.
inline int runCommand(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words{"scenewright-cli"};
    for (std::string word; stream >> word;)
        words.push_back(word);
    std::vector<const char*> pointers;
    pointers.reserve(words.size());
    for (const std::string& word : words)
        pointers.push_back(word.c_str());
    const CommandLine chosen =
        parseCommandLine(static_cast<int>(pointers.size()), pointers.data()).value();
    return chosen.choice.run(chosen.arguments);
}

} // namespace scenewright::testing
