#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace brindlet {

/// Keeps texts in large blocks, which are never moved nor changed: a view of a text stands as long
/// as the pool or any copy of it. A copy shares the blocks and adds to new ones of its own, so both
/// may go on, each on a thread of its own.
class KeyPool {
  public:
    KeyPool() = default;
    KeyPool(const KeyPool& other) : blocks_(other.blocks_) {}
    KeyPool& operator=(const KeyPool&) = delete;

    std::string_view add(std::string_view text);

  private:
    std::vector<std::shared_ptr<char[]>> blocks_;
    /// What is left of the last block.
    char* free_ = nullptr;
    std::size_t room_ = 0;
};

}  // namespace brindlet
