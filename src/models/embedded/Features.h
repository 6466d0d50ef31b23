#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "models/embedded/ConceptTable.h"
#include "models/embedded/Concepts.h"
#include "models/embedded/MailText.h"

namespace brindlet {

/// One thing seen in a message: what it is, as a hash, and how much of it.
struct Feature {
    std::uint32_t key = 0;
    float value = 0;

    friend bool operator==(const Feature&, const Feature&) = default;
};

/// What was seen in a message, in blocks: words of the subject, of the body, and so on. The known
/// ones of a block are to be made a vector of its length, so that a long body does not outweigh the
/// subject, and words that nobody has taught do not weaken those around them.
struct Features {
    struct Block {
        std::size_t end = 0;  ///< where in `all` the block ends; it begins where the last one ends
        float length = 0;

        friend bool operator==(const Block&, const Block&) = default;
    };
    std::vector<Feature> all;
    std::vector<Block> blocks;

    friend bool operator==(const Features&, const Features&) = default;
};

/// Turns a message into features: words, pairs of words and concepts of subject and body, the
/// sender's words and shape, and facts about the whole (a reply, capitals, how long). The same
/// message gives the same features on every machine. A key may come up more than once. Any thread.
///
/// A change here makes trained weights worthless: raise `weightsVersion` with it and train again.
class FeatureExtractor {
  public:
    Features extract(const MailText& mail) const;

  private:
    Concepts concepts_{conceptTable()};
};

}  // namespace brindlet
