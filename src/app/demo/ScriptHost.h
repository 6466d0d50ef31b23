#pragma once

#include <string>

namespace brindlet::demo {

/// Where the stand-in for the script host lies, for a demo in `programFolder`: where the package
/// puts it, or else beside the demo, as the build leaves it. The package's place goes first, since
/// the folder of an installed program may hold a script host that is none of ours. The second is
/// named even if nothing lies there, for whoever tells that it is missing.
std::string scriptHostFor(const std::string& programFolder);

}  // namespace brindlet::demo
