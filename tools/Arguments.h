#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace brindlet::tools {

/// The exit status of a tool that was called in a way it does not understand.
inline constexpr int wrongUse = 2;

/// A tool's command line: plain words, options with a value each ("--limit 20"), and flags without
/// one ("--resume"). "--help" is always known. What is not understood leaves one finished sentence
/// in `problem`.
struct Arguments {
    std::vector<std::string> words;
    std::map<std::string, std::string, std::less<>> options;
    std::set<std::string, std::less<>> flags;
    bool help = false;
    std::string problem;

    Arguments(int count, char** values, const std::vector<std::string_view>& known,
              const std::vector<std::string_view>& knownFlags = {});

    bool flag(std::string_view name) const { return flags.contains(name); }
    std::optional<std::string> option(std::string_view name) const;
    /// A whole number within the bounds; notes a problem for anything else.
    std::optional<std::int64_t> number(std::string_view name, std::int64_t least,
                                       std::int64_t most);
};

}  // namespace brindlet::tools
