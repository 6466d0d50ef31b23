#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "models/training/Softmax.h"
#include "models/training/Vocabulary.h"

namespace brindlet::training {

/// How often the features come up, by label, and the odds that they speak of.
class NaiveBayes {
  public:
    explicit NaiveBayes(std::size_t features) : counts_(features) {}

    void count(const std::vector<KnownFeature>& features, std::size_t label);

    /// Replaces `share` of the weights by the flattened odds.
    void mergeInto(WeightTable& weights, double share, double flattening) const;

  private:
    WeightTable counts_;
    std::array<double, learnedLabels.size()> totals_{};
};

}  // namespace brindlet::training
