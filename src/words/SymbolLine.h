#pragma once

#include <string>

namespace brindlet {

/// A sentence led by a symbol.
struct SymbolLine {
    std::string symbol;
    std::string text;

    friend bool operator==(const SymbolLine&, const SymbolLine&) = default;
};

}  // namespace brindlet
