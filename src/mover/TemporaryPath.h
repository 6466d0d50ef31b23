#pragma once

#include <string>
#include <string_view>

namespace brindlet {

class Directories;

/// Eight fresh characters of the kind that a UUID begins with.
std::string freshSuffix();

/// "brindlet-<kind>-<suffix>.txt" in the temporary folder.
std::string temporaryPath(const Directories& directories, std::string_view kind,
                          std::string_view suffix);

}  // namespace brindlet
