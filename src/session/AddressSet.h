#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brindlet {

/// Addresses, asked whether one of them occurs anywhere in a text, by bytes. Thousands of addresses
/// cost little more than a few: each is looked for only around an "@" of the text that has its
/// neighbours. Immutable; any thread.
class AddressSet {
  public:
    AddressSet() = default;
    /// Empty addresses are left out.
    explicit AddressSet(std::vector<std::string> addresses);

    std::size_t size() const { return addresses_.size(); }
    bool occursIn(std::string_view text) const;

  private:
    std::vector<std::string> addresses_;
    /// By the bytes before and after an address's first "@".
    std::unordered_map<std::uint16_t, std::vector<std::uint32_t>> byNeighbours_;
    /// Those that have no "@" between two other characters, looked for plainly.
    std::vector<std::uint32_t> others_;
};

}  // namespace brindlet
