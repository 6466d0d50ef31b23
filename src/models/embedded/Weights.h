#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "models/embedded/Features.h"
#include "models/embedded/Labels.h"

namespace brindlet {

/// Raised with every change to the features, the labels or the file.
inline constexpr std::uint32_t weightsVersion = 2;

/// The trained weights of a linear model: a signed byte a label for every feature that was taught.
///
/// The file, all numbers little-endian: the magic "BRNDWGHT"; the version, the count of places and
/// the count of labels, 32 bits each; the scale of the bytes and a bias a label, 32-bit floats; the
/// places; a 64-bit checksum of all before it.
///
/// The places are a hash table whose keys are one byte long. A feature's first place is its key
/// times their count, divided by 2^32, and if others came before it one of the next; a place begins
/// with the feature's mark, which is the low byte of its key or 1 if that is 0, and 0 in a free
/// place. So a feature that was not taught is mistaken for one that was only once in a hundred
/// times, and then weighs next to nothing among its neighbours.
class Weights {
  public:
    /// What was taught about one feature.
    struct Row {
        std::uint32_t key = 0;
        LabelScores weights{};
    };
    static constexpr std::size_t places = 180'000;

    /// None for anything but a whole and undamaged file of this version. The bytes are not copied
    /// and outlive the weights. Takes under a millisecond.
    static std::optional<Weights> open(std::string_view bytes);

    /// The file for these rows, quantised here. Rows for which there is no room are left out, the
    /// last ones first.
    static std::string written(const std::vector<Row>& rows, const LabelScores& biases);

    /// What the file ends with, over all that stands before it.
    static std::uint64_t checksum(std::string_view bytes);

    /// Probabilities, which add up to one.
    LabelScores probabilities(const Features& features) const;

  private:
    Weights() = default;

    const char* places_ = nullptr;
    float scale_ = 0;
    LabelScores biases_{};
};

}  // namespace brindlet
