#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace brindlet {

/// Texts by chance, the same for the same seed on every platform.
class RandomSubjects {
  public:
    explicit RandomSubjects(std::uint32_t seed) : random_(seed) {}

    std::size_t below(std::size_t bound) { return random_() % bound; }
    /// Anything: letters of many scripts, marks, joiners, pictures, digits, line breaks.
    std::string text();
    /// A family of look-alike subjects: a few sentences with changing words in them, drawn from a
    /// small stock, so that phrases, ties and withdrawn templates come up.
    std::vector<std::string> family(std::size_t count);

  private:
    std::string sentence(std::size_t stock);
    std::mt19937 random_;
};

}  // namespace brindlet
