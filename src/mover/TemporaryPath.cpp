#include "mover/TemporaryPath.h"

#include <random>

#include "platform/Directories.h"

namespace brindlet {

std::string freshSuffix() {
    std::random_device random;
    std::uniform_int_distribution<std::size_t> digit(0, 15);
    std::string suffix;
    for (int i = 0; i < 8; ++i) suffix += "0123456789ABCDEF"[digit(random)];
    return suffix;
}

std::string temporaryPath(const Directories& directories, std::string_view kind,
                          std::string_view suffix) {
    std::string path = directories.temporary();
    path.append("/brindlet-").append(kind).append("-").append(suffix).append(".txt");
    return path;
}

}  // namespace brindlet
