#pragma once

namespace brindlet {

/// True when the byte is the letter or sign `lower`, a letter in either case. ASCII alone.
constexpr bool isIgnoringCase(char c, char lower) {
    return (c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c) == lower;
}

}  // namespace brindlet
