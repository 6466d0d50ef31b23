#pragma once

#include <cstdint>

/// Numbers that only look random: the same on every machine and with every library, which the
/// standard library's distributions are not.
namespace brindlet::sample {

/// The finishing step of SplitMix64 (Steele, Lea, Flood 2014): every bit of the input moves about
/// half of the output's.
constexpr std::uint64_t scrambled(std::uint64_t bits) {
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9u;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebu;
    return bits ^ (bits >> 31);
}

/// A value that depends on both, for choices that must not depend on the order of asking.
constexpr std::uint64_t mixed(std::uint64_t key, std::uint64_t part) {
    return scrambled(scrambled(key) + 0x9e3779b97f4a7c15u * (part + 1));
}

/// `bits` brought into 0 up to `count` - 1; `count` is below 2^32.
constexpr std::uint64_t reduced(std::uint64_t bits, std::uint64_t count) {
    return ((bits >> 32) * count) >> 32;
}

/// SplitMix64. Draw at most once in an expression: in which order the parts of one are worked out
/// is the compiler's choice, and with it would be what is made.
class Random {
  public:
    explicit constexpr Random(std::uint64_t seed) : state_(seed) {}

    constexpr std::uint64_t next() {
        state_ += 0x9e3779b97f4a7c15u;
        return scrambled(state_);
    }
    constexpr std::uint64_t below(std::uint64_t count) { return reduced(next(), count); }
    constexpr std::uint64_t between(std::uint64_t least, std::uint64_t most) {
        return least + below(most - least + 1);
    }
    constexpr bool chance(std::uint64_t permille) { return below(1000) < permille; }

    /// Fisher and Yates.
    template <class List>
    constexpr void shuffle(List& list) {
        for (std::uint64_t left = list.size(); left > 1; --left) {
            const std::uint64_t other = below(left);
            auto& last = list[left - 1];
            auto held = last;
            last = list[other];
            list[other] = held;
        }
    }

  private:
    std::uint64_t state_;
};

}  // namespace brindlet::sample
