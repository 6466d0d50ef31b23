#pragma once

#include <cstddef>
#include <cstdint>

namespace brindlet::training {

/// Numbers that look random and are the same on every machine and library. SplitMix64.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
        return mixed ^ mixed >> 31;
    }
    /// From 0 up to but without `bound`, which is above 0 and small, so that the bias of the
    /// remainder does not matter.
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(next() % bound); }
    bool chance(std::size_t percent) { return below(100) < percent; }

  private:
    std::uint64_t state_;
};

}  // namespace brindlet::training
