#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlet::training {

/// One line of a grammar, taken apart: plain text, choices "(a|b|c)", which nest and may be empty,
/// and slots "{name}", filled from the word list of that name. "{name:lower}", "{name:upper}" and
/// "{name:plain}" change what is filled in; plain is lower case with letters and digits alone, as
/// addresses have it. A backslash takes the next character as it is.
struct Phrase {
    enum class Change { none, lower, upper, plain };
    struct Part {
        /// Exactly one of the three is set: choices, a slot's name, or else text.
        std::vector<Phrase> choices;
        std::string slot;
        Change change = Change::none;
        std::string text;
    };
    std::vector<Part> parts;
};

/// False with a bracket that is not closed or opened, or an unknown change.
bool parsePhrase(std::string_view line, Phrase& phrase);

std::string changed(std::string text, Phrase::Change change);

}  // namespace brindlet::training
