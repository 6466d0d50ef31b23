#pragma once

#include <string>
#include <vector>

namespace brindlet::osascript {

/// How the script host is called: `-e LINE…` or `-`, then the script's arguments.
struct CommandLine {
    /// The lines of all `-e`, one below the other; empty when the script comes by standard input.
    std::string script;
    bool fromStandardInput = false;
    std::vector<std::string> arguments;
    /// What is not understood, as a finished sentence; empty when all is.
    std::string problem;

    CommandLine(int count, char** values);
};

}  // namespace brindlet::osascript
