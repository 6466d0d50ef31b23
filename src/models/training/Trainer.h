#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "models/training/Grammar.h"

namespace brindlet::training {

/// How to train. The defaults are those of the weights that ship.
struct TrainingPlan {
    std::uint64_t seed = 20'240'817;
    /// Messages that are looked through for features worth teaching: those seen often enough.
    std::size_t surveyed = 60'000;
    std::uint32_t fewestTimes = 3;
    std::size_t mostFeatures = 125'000;
    std::size_t samples = 480'000;
    double firstStep = 0.25;
    double lastStep = 0.025;
    /// How sure the right label is taken to be; the rest is spread over all.
    double certainty = 0.95;
    /// Percent of a message's features that are hidden from each step.
    std::size_t hiddenFeatures = 30;
    /// The share of naive Bayes in the weights, and by how much its odds are flattened.
    double bayesShare = 0.2;
    double bayesFlattening = 1.2;
};

/// Looks through messages that the grammar makes up for the features that come back; trains a
/// softmax of them over all learned labels, step by step on further messages, each seen once and
/// with a field missing now and then; merges a little naive Bayes into it, which knows what is too
/// rare to be learned; gives the weights' file. The grammar has every learned
/// label and no problem. The same on every machine, byte for byte: one thread, a fixed order, its
/// own randomness.
std::string trainedWeights(const Grammar& grammar, const TrainingPlan& plan);

}  // namespace brindlet::training
