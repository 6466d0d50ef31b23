#include "models/training/Trainer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

#include "models/embedded/Features.h"
#include "models/embedded/Labels.h"
#include "models/embedded/Weights.h"
#include "models/training/Dressing.h"
#include "models/training/ExactMath.h"
#include "models/training/Random.h"

namespace brindlet::training {
namespace {

constexpr std::size_t labelCount = learnedLabels.size();
constexpr std::size_t rowCount = std::size_t{1} << featureBits;
constexpr float startingCurvature = 0.01F;

struct Table {
    std::vector<float> cells = std::vector<float>(rowCount * labelCount);
    float* row(std::uint32_t number) { return cells.data() + number * labelCount; }
};

/// A linear softmax under AdaGrad: every weight's step shrinks with the slopes it has seen.
class Softmax {
  public:
    void step(const std::vector<Feature>& features, std::size_t right, double certainty,
              float stepSize) {
        LabelScores slopes = biases;
        for (const Feature& feature : features) {
            const float* row = weights.row(feature.row);
            for (std::size_t label = 0; label < labelCount; ++label)
                slopes[label] += feature.value * row[label];
        }
        const float largest = *std::ranges::max_element(slopes);
        double total = 0;
        std::array<double, labelCount> shares{};
        for (std::size_t label = 0; label < labelCount; ++label)
            total += shares[label] = exactExp(static_cast<double>(slopes[label] - largest));
        for (std::size_t label = 0; label < labelCount; ++label) {
            const double wanted = (1 - certainty) / static_cast<double>(labelCount) +
                                  (label == right ? certainty : 0);
            slopes[label] = static_cast<float>(shares[label] / total - wanted);
        }

        for (std::size_t label = 0; label < labelCount; ++label) {
            biasCurvatures_[label] += slopes[label] * slopes[label];
            biases[label] -=
                0.3F * stepSize * slopes[label] / std::sqrt(biasCurvatures_[label] + 1e-6F);
        }
        for (const Feature& feature : features) {
            float* row = weights.row(feature.row);
            float* curvatures = curvatures_.row(feature.row);
            for (std::size_t label = 0; label < labelCount; ++label) {
                const float slope = slopes[label] * feature.value;
                curvatures[label] += slope * slope;
                row[label] -= stepSize * slope / std::sqrt(curvatures[label] + startingCurvature);
            }
        }
    }

    /// Takes the present weights into the average that `settle` puts in their place. The last steps
    /// alone still follow the last messages too closely.
    void remember() {
        for (std::size_t i = 0; i < weights.cells.size(); ++i) sums_.cells[i] += weights.cells[i];
        for (std::size_t label = 0; label < labelCount; ++label) biasSums_[label] += biases[label];
        ++remembered_;
    }
    void settle() {
        const float factor = 1.0F / static_cast<float>(remembered_);
        for (std::size_t i = 0; i < weights.cells.size(); ++i)
            weights.cells[i] = sums_.cells[i] * factor;
        for (std::size_t label = 0; label < labelCount; ++label)
            biases[label] = biasSums_[label] * factor;
    }

    Table weights;
    LabelScores biases{};

  private:
    Table sums_;
    LabelScores biasSums_{};
    int remembered_ = 0;
    Table curvatures_;
    LabelScores biasCurvatures_{};
};

/// Counts of features by label, and the odds that they speak of.
class NaiveBayes {
  public:
    void count(const std::vector<Feature>& features, std::size_t label) {
        for (const Feature& feature : features) {
            counts_.row(feature.row)[label] += feature.value;
            totals_[label] += static_cast<double>(feature.value);
        }
    }

    /// Replaces `share` of the weights by the flattened odds.
    void mergeInto(std::vector<float>& weights, double share, double flattening) const {
        constexpr double smoothing = 0.1;
        for (std::size_t row = 0; row < rowCount; ++row) {
            const float* counts = counts_.cells.data() + row * labelCount;
            float* cells = weights.data() + row * labelCount;
            const bool seen =
                std::any_of(counts, counts + labelCount, [](float count) { return count > 0; });
            std::array<double, labelCount> odds{};
            double mean = 0;
            for (std::size_t label = 0; seen && label < labelCount; ++label) {
                odds[label] =
                    exactLog((static_cast<double>(counts[label]) + smoothing) /
                             (totals_[label] + smoothing * static_cast<double>(rowCount)));
                mean += odds[label] / static_cast<double>(labelCount);
            }
            for (std::size_t label = 0; label < labelCount; ++label) {
                const double own = (1 - share) * static_cast<double>(cells[label]);
                const double merged = seen ? share * (odds[label] - mean) / flattening : 0;
                cells[label] = static_cast<float>(own + merged);
            }
        }
    }

  private:
    Table counts_;
    std::array<double, labelCount> totals_{};
};

/// How often each label is drawn, about as mail comes: the unclear is rare, and ads and letters
/// have more faces than the rest.
constexpr std::array<std::size_t, labelCount> frequencies{3, 2, 2, 2, 2, 2, 2, 3, 1};

std::size_t anyLabel(Random& random) {
    static constexpr auto total =
        std::accumulate(frequencies.begin(), frequencies.end(), std::size_t{0});
    std::size_t drawn = random.below(total);
    std::size_t label = 0;
    for (; drawn >= frequencies[label]; ++label) drawn -= frequencies[label];
    return label;
}

/// A message without its sender, its body or its subject teaches not to lean on one of them.
void hideAField(SampleMail& mail, Random& random) {
    const auto drawn = random.below(100);
    if (drawn >= 85)
        mail.sender.clear();
    else if (drawn < 30)
        mail.body.clear();
    else if (drawn < 36)
        mail.subject.clear();
}

}  // namespace

std::string trainedWeights(const Grammar& grammar, const TrainingPlan& plan) {
    Random random(plan.seed);
    const FeatureExtractor extractor;
    Softmax softmax;
    NaiveBayes bayes;
    for (std::size_t sample = 0; sample < plan.samples; ++sample) {
        const std::size_t label = anyLabel(random);
        Grammar::Dress dress{};
        SampleMail mail = grammar.make(learnedLabels[label], random, dress);
        dressUp(mail, dress, random);
        hideAField(mail, random);
        auto features = extractor.extract({mail.sender, mail.subject, mail.body});
        bayes.count(features, label);
        std::size_t kept = 0;
        for (const Feature& feature : features)
            if (!random.chance(plan.hiddenFeatures)) features[kept++] = feature;
        features.resize(kept);
        const double progress = static_cast<double>(sample) / static_cast<double>(plan.samples);
        softmax.step(
            features, label, plan.certainty,
            static_cast<float>(plan.firstStep + (plan.lastStep - plan.firstStep) * progress));
        if (sample * 2 >= plan.samples && sample % (plan.samples / 40) == 0) softmax.remember();
    }
    softmax.settle();
    const double share = plan.bayesShare;
    bayes.mergeInto(softmax.weights.cells, share, plan.bayesFlattening);
    for (float& bias : softmax.biases) bias *= static_cast<float>(1 - share);
    return Weights::written(softmax.weights.cells, softmax.biases);
}

}  // namespace brindlet::training
