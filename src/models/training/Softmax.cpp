#include "models/training/Softmax.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "models/training/ExactMath.h"

namespace brindlet::training {
namespace {

constexpr std::size_t labelCount = learnedLabels.size();
constexpr float startingCurvature = 0.01F;

}  // namespace

Softmax::Softmax(std::size_t features)
    : weights(features), curvatures_(features), sums_(features) {}

void Softmax::step(const std::vector<KnownFeature>& features, std::size_t right, double certainty,
                   float stepSize) {
    LabelScores slopes = biases;
    for (const KnownFeature& feature : features) {
        const LabelScores& row = weights[feature.number];
        for (std::size_t label = 0; label < labelCount; ++label)
            slopes[label] += feature.value * row[label];
    }
    const float largest = *std::ranges::max_element(slopes);
    double total = 0;
    std::array<double, labelCount> shares{};
    for (std::size_t label = 0; label < labelCount; ++label)
        total += shares[label] = exactExp(static_cast<double>(slopes[label] - largest));
    for (std::size_t label = 0; label < labelCount; ++label) {
        const double wanted =
            (1 - certainty) / static_cast<double>(labelCount) + (label == right ? certainty : 0);
        slopes[label] = static_cast<float>(shares[label] / total - wanted);
    }

    for (std::size_t label = 0; label < labelCount; ++label) {
        biasCurvatures_[label] += slopes[label] * slopes[label];
        biases[label] -=
            0.3F * stepSize * slopes[label] / std::sqrt(biasCurvatures_[label] + 1e-6F);
    }
    for (const KnownFeature& feature : features) {
        LabelScores& row = weights[feature.number];
        LabelScores& curvatures = curvatures_[feature.number];
        for (std::size_t label = 0; label < labelCount; ++label) {
            const float slope = slopes[label] * feature.value;
            curvatures[label] += slope * slope;
            row[label] -= stepSize * slope / std::sqrt(curvatures[label] + startingCurvature);
        }
    }
}

void Softmax::remember() {
    for (std::size_t i = 0; i < weights.size(); ++i)
        for (std::size_t label = 0; label < labelCount; ++label)
            sums_[i][label] += weights[i][label];
    for (std::size_t label = 0; label < labelCount; ++label) biasSums_[label] += biases[label];
    ++remembered_;
}

void Softmax::settle() {
    const float factor = 1.0F / static_cast<float>(remembered_);
    for (std::size_t i = 0; i < weights.size(); ++i)
        for (std::size_t label = 0; label < labelCount; ++label)
            weights[i][label] = sums_[i][label] * factor;
    for (std::size_t label = 0; label < labelCount; ++label)
        biases[label] = biasSums_[label] * factor;
}

}  // namespace brindlet::training
