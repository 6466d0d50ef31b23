#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Value.h"

namespace brindlet::osascript {

/// Places in a script are counted in characters (code points) from its start, as the script host
/// tells them in front of an error.
struct Range {
    std::size_t from = 0;
    std::size_t to = 0;
};

struct Token {
    enum class Kind { word, text, number, raw, symbol, lineEnd };

    Kind kind = Kind::lineEnd;
    /// Words in lower case, since the language does not tell letter case apart, and terms of
    /// several words as one with single blanks; texts unquoted; a raw code without its guillemets.
    std::string spelling;
    std::int64_t number = 0;
    Range range;
};

struct SyntaxError {
    std::string text;
    Range range;
};

/// Takes a script apart. Comments are dropped, and so is a line end after "¬"; the last token is a
/// line end.
std::variant<std::vector<Token>, SyntaxError> tokens(std::string_view script);

}  // namespace brindlet::osascript
