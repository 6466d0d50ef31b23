#pragma once

#include <cstddef>
#include <vector>

#include "models/embedded/Labels.h"
#include "models/training/Vocabulary.h"

namespace brindlet::training {

/// The weights of every label for each feature of a vocabulary.
using WeightTable = std::vector<LabelScores>;

/// A linear softmax under AdaGrad: every weight's step shrinks with the slopes it has seen.
class Softmax {
  public:
    explicit Softmax(std::size_t features);

    /// Learns from one message. `certainty` is how sure the right label is taken to be; the rest is
    /// spread over all.
    void step(const std::vector<KnownFeature>& features, std::size_t right, double certainty,
              float stepSize);

    /// Takes the present weights into the average that `settle` puts in their place. The last steps
    /// alone still follow the last messages too closely.
    void remember();
    void settle();

    WeightTable weights;
    LabelScores biases{};

  private:
    WeightTable curvatures_;
    LabelScores biasCurvatures_{};
    WeightTable sums_;
    LabelScores biasSums_{};
    int remembered_ = 0;
};

}  // namespace brindlet::training
