#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace brindlet {

/// Messages as a command names them: in rising order, each once, runs folded ("1:3,7"), in as many
/// texts as it takes for none to be longer than 899 characters.
std::vector<std::string> uidSets(std::vector<std::uint32_t> uids);

}  // namespace brindlet
