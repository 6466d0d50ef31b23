#include "base/KeyPool.h"

#include <algorithm>

namespace brindlet {

std::string_view KeyPool::add(std::string_view text) {
    constexpr std::size_t blockSize = 256 * 1024;
    if (text.size() > room_) {
        room_ = std::max(blockSize, text.size());
        blocks_.emplace_back(new char[room_]);
        free_ = blocks_.back().get();
    }
    char* const kept = std::copy(text.begin(), text.end(), free_) - text.size();
    free_ += text.size();
    room_ -= text.size();
    return {kept, text.size()};
}

}  // namespace brindlet
