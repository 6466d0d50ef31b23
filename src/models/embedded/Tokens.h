#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace brindlet {

/// The words of a folded text, in order, at most `limit`. A word is a run of letters (any byte
/// above ASCII counts as one) with apostrophes inside it. What tells senders apart but not kinds of
/// mail is replaced by a mark that begins with "#": links, addresses, numbers by their shape ("#n4"
/// for four digits, "#dec", "#time", "#date", "#pct", "#mixed" for letters and digits together),
/// money signs, pictures, and the punctuation that carries tone. The views point into `text` and
/// into constants.
std::vector<std::string_view> tokens(std::string_view text, std::size_t limit);

}  // namespace brindlet
