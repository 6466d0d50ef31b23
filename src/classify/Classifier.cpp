#include "classify/Classifier.h"

#include "base/Text.h"
#include "classify/Resources.h"

namespace brindlet {

Classifier::Classifier(LanguageModel& model) : model_(model) {}

std::string Classifier::availabilityProblem() const {
    switch (model_.availability()) {
        case ModelAvailability::available:
            return "";
        case ModelAvailability::deviceNotEligible:
            return "This Mac can't run Apple Intelligence. Brindlet needs an Apple silicon Mac.";
        case ModelAvailability::notEnabled:
            return "Turn on Apple Intelligence in System Settings, then reopen Brindlet.";
        case ModelAvailability::notReady:
            return "macOS is still downloading the on-device model. Try again shortly.";
        case ModelAvailability::unavailable:
            break;
    }
    return "The on-device model isn't available right now.";
}

std::string_view Classifier::instructions() {
    return resources::classifyInstructions;
}

const ModelSchema& Classifier::labelSchema() {
    static const ModelSchema schema = [] {
        ModelSchema::Property category{
            "category", "the category", "Category", "What kind of email this is", {}};
        for (const auto& [value, word] : EnumInfo<Category>::all) category.anyOf.emplace_back(word);
        return ModelSchema{"Label", "The single best category", {std::move(category)}};
    }();
    return schema;
}

std::string Classifier::prompt(std::string_view sender, std::string_view subject,
                               std::string_view body) {
    std::string text = "FROM: ";
    text += sender;
    text += "\nSUBJECT: ";
    text += subject;
    text += "\nBODY:\n";
    text += body;
    return text;
}

Category Classifier::classify(std::string_view sender, std::string_view subject,
                              std::string_view body, const CancelToken& abandoned) const {
    ModelOptions options;
    options.abandoned = abandoned;
    const auto answer = model_.respond(std::string(instructions()), labelSchema(),
                                       prompt(sender, subject, body), options);
    if (!answer) return Category::cannotTell;
    const auto word = answer->find("category");
    if (word == answer->end()) return Category::cannotTell;
    return fromRaw<Category>(trimBlanksAndNewlines(word->second)).value_or(Category::cannotTell);
}

}  // namespace brindlet
