#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace brindlet {

/// Tells in one pass over a text's bytes whether any of some short texts stands in it. ASCII
/// letters match in both cases, every other byte as it stands. An automaton of Aho and Corasick in
/// which all finds are one state that is never left, so the pass has no branch per byte. Immutable.
class NeedleSearch {
  public:
    /// No needle is empty; together they have fewer than 65,536 bytes.
    explicit NeedleSearch(std::span<const std::string_view> needles);

    bool anyIn(std::string_view text) const;

  private:
    /// Bytes that no needle holds share class 0.
    std::array<std::uint8_t, 256> classOf_{};
    std::size_t classes_ = 1;
    /// The state after each (state, class). State 0 is the start, state 1 the find.
    std::vector<std::uint16_t> next_;
};

}  // namespace brindlet
