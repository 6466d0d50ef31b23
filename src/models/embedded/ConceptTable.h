#pragma once

#include <span>
#include <string_view>

namespace brindlet {

/// What belongs together in mail, a table for `Concepts`, as folded texts have it: in English,
/// German, French, Spanish, Italian, Portuguese, Dutch and Polish. Where languages disagree about a
/// word, the one counts in which mail of that kind is commoner.
std::span<const std::string_view> conceptTable();

}  // namespace brindlet
