#pragma once

#include <span>
#include <string_view>

namespace brindlet {

/// What belongs together, one group an entry: phrases parted by "|", their words by one blank, as
/// folded texts have them, in English, German, French, Spanish, Italian, Portuguese, Dutch and
/// Polish. A single word that ends in "*" stands for all words that begin so. Where languages
/// disagree about a word, the one counts in which mail of that kind is commoner.
std::span<const std::string_view> conceptTable();

}  // namespace brindlet
