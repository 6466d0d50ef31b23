#include "Arguments.h"

#include <algorithm>

#include "base/Text.h"

namespace brindlet::tools {

namespace {

bool contains(const std::vector<std::string_view>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace

Arguments::Arguments(int count, char** values, const std::vector<std::string_view>& known,
                     const std::vector<std::string_view>& knownFlags) {
    for (int i = 1; i < count && problem.empty(); ++i) {
        const std::string_view word = values[i];
        if (word == "--help") {
            help = true;
        } else if (!word.starts_with("--")) {
            words.emplace_back(word);
        } else if (contains(knownFlags, word)) {
            flags.emplace(word);
        } else if (!contains(known, word)) {
            problem = "There is no option " + std::string(word) + ".";
        } else if (++i == count) {
            problem = "A value is missing after " + std::string(word) + ".";
        } else {
            options.insert_or_assign(std::string(word), values[i]);
        }
    }
}

std::optional<std::string> Arguments::option(std::string_view name) const {
    const auto found = options.find(name);
    return found == options.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::int64_t> Arguments::number(std::string_view name, std::int64_t least,
                                              std::int64_t most) {
    const auto text = option(name);
    if (!text) return std::nullopt;
    const auto value = parseInt64(*text);
    if (value && *value >= least && *value <= most) return value;
    problem = std::string(name) + " takes a whole number from " + std::to_string(least) + " to " +
              std::to_string(most) + ", not \"" + *text + "\".";
    return std::nullopt;
}

}  // namespace brindlet::tools
