#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace brindlet {

struct Outcome {
    int status = -1;
    std::string printed;
};

inline constexpr const char* errorsOnly = "2>&1 >/dev/null";

/// Runs a tool through the shell; what it says on standard error goes where `redirection` says.
inline Outcome run(const std::string& command, const char* redirection = "2>/dev/null") {
    Outcome outcome;
    std::FILE* const pipe =
        ::popen((BRINDLET_TOOLS "/" + command + ' ' + redirection).c_str(), "r");
    char block[4096];
    while (const std::size_t got = std::fread(block, 1, sizeof block, pipe))
        outcome.printed.append(block, got);
    const int status = ::pclose(pipe);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

}  // namespace brindlet
