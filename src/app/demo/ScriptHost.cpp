#include "app/demo/ScriptHost.h"

#include <filesystem>

#include "base/Files.h"

namespace brindlet::demo {

std::string scriptHostFor(const std::string& programFolder) {
    const std::filesystem::path folder = programFolder;
    const auto installed = (folder / "../libexec/brindlet/osascript").lexically_normal().string();
    return files::exists(installed) ? installed : (folder / "osascript").string();
}

}  // namespace brindlet::demo
