#include "stores/StoreFile.h"

#include <limits>

#include "base/Files.h"
#include "platform/Directories.h"

namespace brindlet {

std::string storeFile(const Directories& directories, std::string_view name) {
    std::string path = directories.store();
    if (!path.empty()) path += '/';
    return path += name;
}

std::string storeFile(const Services& services, std::string_view name) {
    return storeFile(services.directories, name);
}

void moveUnreadableAside(const std::string& path) {
    files::moveWithoutReplacing(path, path + ".unreadable");
}

std::int64_t saturatingSum(std::int64_t a, std::int64_t b) {
    using Limits = std::numeric_limits<std::int64_t>;
    if (b > 0 && a > Limits::max() - b) return Limits::max();
    if (b < 0 && a < Limits::min() - b) return Limits::min();
    return a + b;
}

}  // namespace brindlet
