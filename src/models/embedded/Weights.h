#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "models/embedded/Features.h"
#include "models/embedded/Labels.h"

namespace brindlet {

/// Raised with every change to the features, the labels or the file.
inline constexpr std::uint32_t weightsVersion = 1;

/// The trained weights of a linear model: a row of one signed byte a label for every feature hash.
///
/// The file, all numbers little-endian: the magic "BRNDWGHT"; the version, the bits of a row's
/// number and the count of labels, 32 bits each; the scale of the bytes and a bias a label, 32-bit
/// floats; the rows; a 64-bit checksum of all before it.
class Weights {
  public:
    /// None for anything but a whole and undamaged file of this version. The bytes are not copied
    /// and outlive the weights. Takes under a millisecond.
    static std::optional<Weights> open(std::string_view bytes);

    /// The file for these weights; `rows` holds 2^featureBits rows, quantised here.
    static std::string written(const std::vector<float>& rows, const LabelScores& biases);

    /// What the file ends with, over all that stands before it.
    static std::uint64_t checksum(std::string_view bytes);

    /// Probabilities, which add up to one.
    LabelScores probabilities(std::span<const Feature> features) const;

  private:
    Weights() = default;

    const char* rows_ = nullptr;
    float scale_ = 0;
    LabelScores biases_{};
};

}  // namespace brindlet
