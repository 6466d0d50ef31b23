#include "models/embedded/EmbeddedModel.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>

#include "models/embedded/EventReader.h"
#include "models/embedded/Features.h"
#include "models/embedded/Labels.h"
#include "models/embedded/MailText.h"
#include "models/embedded/Weights.h"

namespace brindlet {

namespace resources {
extern const std::string_view embeddedModelWeights;
}

struct EmbeddedModel::Parts {
    Weights weights;
    FeatureExtractor features;
    EventReader events;
};

namespace {

bool asksForEvent(const ModelSchema& schema) {
    return schema.name == "Event" && schema.properties.size() == 2 &&
           schema.properties[0].name == "action" && schema.properties[0].anyOf.empty() &&
           schema.properties[1].name == "object" && schema.properties[1].anyOf.empty();
}

bool asksForCategory(const ModelSchema& schema) {
    if (schema.name != "Label" || schema.properties.size() != 1) return false;
    const auto& property = schema.properties.front();
    if (property.name != "category" || property.anyOf.size() != learnedLabels.size() + 1)
        return false;
    const auto offered = [&](std::string_view label) {
        return std::ranges::find(property.anyOf, label) != property.anyOf.end();
    };
    return std::ranges::all_of(learnedLabels, offered) && offered(bounceLabel);
}

/// Mail servers say so at the start of the subject, in these words and letters.
bool isBounce(std::string_view subject) {
    static constexpr std::array<std::string_view, 4> starts{
        "Undeliverable", "Delivery Status Notification", "Returned mail", "Mail delivery failed"};
    return std::ranges::any_of(starts,
                               [&](std::string_view start) { return subject.starts_with(start); });
}

std::string_view bestLabel(const LabelScores& probabilities, float leastJunk) {
    const auto best = std::ranges::max_element(probabilities);
    const auto label = static_cast<std::size_t>(best - probabilities.begin());
    if (label >= junkLabels) return learnedLabels[label];
    const float junk =
        std::accumulate(probabilities.begin(), probabilities.begin() + junkLabels, 0.0F);
    return learnedLabels[junk < leastJunk ? cannotTellLabel : label];
}

}  // namespace

EmbeddedModel::EmbeddedModel(float leastJunk) : EmbeddedModel(resources::embeddedModelWeights) {
    leastJunk_ = leastJunk;
}

EmbeddedModel::EmbeddedModel(std::string_view weights) {
    if (const auto opened = Weights::open(weights))
        parts_ = std::make_unique<const Parts>(Parts{*opened, {}, {}});
}

EmbeddedModel::~EmbeddedModel() = default;

ModelAvailability EmbeddedModel::availability() const {
    return parts_ ? ModelAvailability::available : ModelAvailability::unavailable;
}

std::optional<LanguageModel::Answer> EmbeddedModel::respond(const std::string&,
                                                            const ModelSchema& schema,
                                                            const std::string& prompt,
                                                            const ModelOptions&) {
    if (!parts_) return std::nullopt;
    if (asksForEvent(schema)) {
        const auto event = parts_->events.read(prompt);
        if (!event) return std::nullopt;
        return Answer{{"action", event->action}, {"object", event->object}};
    }
    if (!asksForCategory(schema)) return std::nullopt;
    const MailText mail = splitPrompt(prompt);
    const std::string_view label =
        isBounce(mail.subject)
            ? bounceLabel
            : bestLabel(parts_->weights.probabilities(parts_->features.extract(mail)), leastJunk_);
    return Answer{{"category", std::string(label)}};
}

}  // namespace brindlet
