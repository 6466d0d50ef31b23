#pragma once

#include <cstdint>
#include <vector>

#include "models/embedded/Concepts.h"
#include "models/embedded/MailText.h"

namespace brindlet {

/// One thing seen in a message: the row of the weights that it counts towards, and how much.
struct Feature {
    std::uint32_t row = 0;
    float value = 0;

    friend bool operator==(const Feature&, const Feature&) = default;
};

/// Rows are hashes of so many bits.
inline constexpr int featureBits = 17;

/// Turns a message into features: words, pairs of words and concepts of subject and body, the
/// sender's words and shape, and facts about the whole (a reply, capitals, how long). Each of these
/// blocks has a fixed length as a vector, so that a long body does not outweigh the subject. The
/// same message gives the same features on every machine. A row may come up more than once. Any
/// thread.
///
/// A change here makes trained weights worthless: raise `weightsVersion` with it and train again.
class FeatureExtractor {
  public:
    std::vector<Feature> extract(const MailText& mail) const;

  private:
    Concepts concepts_;
};

}  // namespace brindlet
