#include "models/training/NaiveBayes.h"

#include <algorithm>

#include "models/training/ExactMath.h"

namespace brindlet::training {

void NaiveBayes::count(const std::vector<KnownFeature>& features, std::size_t label) {
    for (const KnownFeature& feature : features) {
        counts_[feature.number][label] += feature.value;
        totals_[label] += static_cast<double>(feature.value);
    }
}

void NaiveBayes::mergeInto(WeightTable& weights, double share, double flattening) const {
    constexpr double smoothing = 0.1;
    constexpr std::size_t labelCount = learnedLabels.size();
    for (std::size_t i = 0; i < weights.size(); ++i) {
        const LabelScores& counts = counts_[i];
        const bool seen = std::ranges::any_of(counts, [](float count) { return count > 0; });
        std::array<double, labelCount> odds{};
        double mean = 0;
        for (std::size_t label = 0; seen && label < labelCount; ++label) {
            odds[label] =
                exactLog((static_cast<double>(counts[label]) + smoothing) /
                         (totals_[label] + smoothing * static_cast<double>(weights.size())));
            mean += odds[label] / static_cast<double>(labelCount);
        }
        for (std::size_t label = 0; label < labelCount; ++label) {
            const double own = (1 - share) * static_cast<double>(weights[i][label]);
            const double merged = seen ? share * (odds[label] - mean) / flattening : 0;
            weights[i][label] = static_cast<float>(own + merged);
        }
    }
}

}  // namespace brindlet::training
