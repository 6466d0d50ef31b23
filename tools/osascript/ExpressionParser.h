#pragma once

#include "Syntax.h"
#include "TokenReader.h"

namespace brindlet::osascript {

/// Reads one expression. What binds tighter comes first: `of`, `mod`, `+`, `&`, `as`, comparisons,
/// `not`, `and`. So `name of a & b as string` joins first and is made a text then.
Expression parseExpression(TokenReader& tokens);

/// An operand without operators around it: a value, a variable, or `x of y of z`.
Expression parseOperand(TokenReader& tokens);

/// `as «class utf8»`, which reading and writing must say.
void expectUtf8(TokenReader& tokens);

/// Whether the word names a property; `selected messages` and the like.
bool isProperty(std::string_view word);

}  // namespace brindlet::osascript
