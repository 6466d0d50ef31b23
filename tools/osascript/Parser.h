#pragma once

#include <string_view>
#include <variant>

#include "Syntax.h"

namespace brindlet::osascript {

/// Understands as much of the language as the program's own scripts use; anything else is an error.
std::variant<Script, SyntaxError> parsed(std::string_view source);

}  // namespace brindlet::osascript
