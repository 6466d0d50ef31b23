#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace brindlet::bench {

struct Letter {
    std::string sender;
    std::string subject;
};

/// Mail as machines send it: each sender has a few sentences with a name, a number or a title in
/// them; senders come mixed, and one subject in ten is not ASCII. The same for the same arguments.
std::vector<Letter> makeLetters(std::size_t count, std::size_t senders, std::uint32_t seed);

/// One sender's letters with subjects of 17 words, which run on from one such sentence to another.
std::vector<Letter> makeLongLetters(std::size_t count, std::uint32_t seed);

}  // namespace brindlet::bench
