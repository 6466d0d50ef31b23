#include "models/training/Trainer.h"

#include <array>
#include <cstddef>
#include <numeric>
#include <vector>

#include "models/embedded/Features.h"
#include "models/embedded/Labels.h"
#include "models/embedded/Weights.h"
#include "models/training/Dressing.h"
#include "models/training/NaiveBayes.h"
#include "models/training/Random.h"
#include "models/training/Softmax.h"
#include "models/training/Vocabulary.h"

namespace brindlet::training {
namespace {

constexpr std::size_t labelCount = learnedLabels.size();

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

/// Messages without end, with their labels.
class Samples {
  public:
    Samples(const Grammar& grammar, Random& random) : grammar_(grammar), random_(random) {}

    Features next(std::size_t& label) {
        label = anyLabel(random_);
        Grammar::Dress dress{};
        SampleMail mail = grammar_.make(learnedLabels[label], random_, dress);
        dressUp(mail, dress, random_);
        hideAField(mail, random_);
        return extractor_.extract({mail.sender, mail.subject, mail.body});
    }

  private:
    const Grammar& grammar_;
    Random& random_;
    FeatureExtractor extractor_;
};

}  // namespace

std::string trainedWeights(const Grammar& grammar, const TrainingPlan& plan) {
    Random random(plan.seed);
    Samples samples(grammar, random);
    std::size_t label = 0;

    FeatureSurvey survey;
    for (std::size_t sample = 0; sample < plan.surveyed; ++sample)
        survey.count(samples.next(label));
    const Vocabulary vocabulary(survey.chosen(plan.fewestTimes, plan.mostFeatures));

    Softmax softmax(vocabulary.keys().size());
    NaiveBayes bayes(vocabulary.keys().size());
    for (std::size_t sample = 0; sample < plan.samples; ++sample) {
        const Features features = samples.next(label);
        bayes.count(vocabulary.known(features, [] { return true; }), label);
        const auto shown =
            vocabulary.known(features, [&] { return !random.chance(plan.hiddenFeatures); });
        const double progress = static_cast<double>(sample) / static_cast<double>(plan.samples);
        softmax.step(
            shown, label, plan.certainty,
            static_cast<float>(plan.firstStep + (plan.lastStep - plan.firstStep) * progress));
        if (sample * 2 >= plan.samples && sample % (plan.samples / 40) == 0) softmax.remember();
    }
    softmax.settle();
    bayes.mergeInto(softmax.weights, plan.bayesShare, plan.bayesFlattening);
    for (float& bias : softmax.biases) bias *= static_cast<float>(1 - plan.bayesShare);

    std::vector<Weights::Row> rows;
    rows.reserve(vocabulary.keys().size());
    for (std::size_t i = 0; i < vocabulary.keys().size(); ++i)
        rows.push_back({vocabulary.keys()[i], softmax.weights[i]});
    return Weights::written(rows, softmax.biases);
}

}  // namespace brindlet::training
