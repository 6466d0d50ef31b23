#pragma once

#include <cstdint>
#include <string>

#include "Value.h"

/// How the language's operators treat values. All but `equal` look through references.
namespace brindlet::osascript {

/// Lists are joined with the text item delimiters of the moment.
Answer<std::string> textOf(const Value& value, const std::string& delimiters);
/// A number, or a text of nothing but one.
Answer<std::int64_t> integerOf(const Value& value);
Answer<bool> booleanOf(const Value& value);

/// Texts are equal whatever their letter case. A reference is equal to itself alone, not to what it
/// stands for; values of different kinds are never equal, and nothing raises an error.
bool equal(const Value& left, const Value& right);

/// A text goes on with the right side made a text; anything else makes a list.
Answer<Value> concatenated(const Value& left, const Value& right, const std::string& delimiters);

Answer<Value> sum(const Value& left, const Value& right);
Answer<Value> remainder(const Value& left, const Value& right);

/// The pieces between the delimiters; with empty ones its characters. An empty text is one piece.
std::vector<Value> textItems(const std::string& text, const std::string& delimiters);

/// `contains`, for texts whatever their letter case, and for lists, where the right side stands for
/// a list of one unless it is a list. Remembers the last long text in lower case, since scripts ask
/// the same one for thousands of pieces.
class Containment {
  public:
    Answer<bool> contains(const Value& whole, const Value& part, const std::string& delimiters);

  private:
    std::shared_ptr<const std::string> last_;
    std::string lowered_;
};

}  // namespace brindlet::osascript
