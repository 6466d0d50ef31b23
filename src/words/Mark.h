#pragma once

#include <string>

namespace brindlet {

/// What a mark tells at a glance: green is safe or kept, orange asks for care or is junk.
enum class Tone { plain, green, orange };

/// A small word in a rounded box. An empty text means that there is no box.
struct Mark {
    std::string text;
    Tone tone = Tone::plain;
    /// Shown while the pointer rests on it; may be empty.
    std::string help;

    friend bool operator==(const Mark&, const Mark&) = default;
};

}  // namespace brindlet
