#include <algorithm>

#include "base/Graphemes.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "classify/Classifier.h"
#include "classify/Resources.h"

namespace brindlet {
namespace {

std::string stem(std::string_view lowercasedWord) {
    return std::string(graphemePrefix(lowercasedWord, 5));
}

std::vector<std::string_view> splitAtBlanks(std::string_view text) {
    std::vector<std::string_view> pieces;
    const char* at = text.data();
    const char* const end = at + text.size();
    const char* start = at;
    const auto close = [&](const char* stop) {
        if (stop > start) pieces.emplace_back(start, static_cast<std::size_t>(stop - start));
    };
    while (at < end) {
        const char* const here = at;
        if (!isBlank(nextCodePoint(at, end))) continue;
        close(here);
        start = at;
    }
    close(end);
    return pieces;
}

/// The words of the model's object, less those that it carried over from the examples in its
/// instructions: only pieces whose stem stands in the subject stay, unless none would.
std::vector<std::string_view> groundedPieces(std::string_view object, std::string_view subject) {
    std::set<std::string> subjectStems;
    for (const auto& word : letterNumberWords(lowercased(subject), Apostrophe::splits))
        subjectStems.insert(stem(word));
    const auto pieces = splitAtBlanks(object);
    std::vector<std::string_view> kept;
    std::copy_if(pieces.begin(), pieces.end(), std::back_inserter(kept),
                 [&](std::string_view piece) { return subjectStems.contains(stem(piece)); });
    return kept.empty() ? pieces : kept;
}

}  // namespace

std::string_view Classifier::eventInstructions() {
    return resources::eventInstructions;
}

const ModelSchema& Classifier::eventSchema() {
    static const ModelSchema schema{
        "Event",
        "what happened",
        {{"action",
          "ONE word for what happened: commented, uploaded, subscribed, canceled, shipped, "
          "discounted, welcomed, alerted, invited, receipt",
          "",
          "",
          {}},
         {"object",
          "what it happened to, 1-4 words, keep the product or service, drop personal names, video "
          "titles and numbers",
          "",
          "",
          {}}}};
    return schema;
}

std::optional<Classifier::Event> Classifier::event(std::string_view subject,
                                                   const CancelToken& abandoned) const {
    ModelOptions options;
    options.abandoned = abandoned;
    const auto answer = model_.respond(std::string(eventInstructions()), eventSchema(),
                                       std::string(subject), options);
    if (!answer) return std::nullopt;
    const auto action = answer->find("action");
    if (action == answer->end() || action->second.empty()) return std::nullopt;

    Event event{stem(lowercased(action->second)), {}};
    const auto answered = answer->find("object");
    const auto object = answered == answer->end() ? "" : lowercased(answered->second);
    for (const auto piece : groundedPieces(object, subject)) event.objects.insert(stem(piece));
    for (const auto word : stopWords) event.objects.erase(stem(word));
    return event;
}

bool Classifier::sameEvent(const Event& a, const Event& b) {
    if (a.action != b.action) return b.objects.contains(a.action) || a.objects.contains(b.action);
    if (a.objects.empty() || b.objects.empty()) return true;
    const auto shared = std::count_if(a.objects.begin(), a.objects.end(), [&](const auto& object) {
        return b.objects.contains(object);
    });
    return std::min(a.objects.size(), b.objects.size()) <= 2 * static_cast<std::size_t>(shared);
}

std::set<std::size_t> Classifier::kinIndices(std::string_view reference,
                                             const std::vector<std::string>& candidates,
                                             const CancelToken& token) const {
    std::set<std::size_t> kin;
    const auto wanted = event(reference, token);
    if (!wanted) return kin;
    for (std::size_t i = 0; i < candidates.size() && !token.cancelled(); ++i) {
        const auto found = event(candidates[i], token);
        if (found && sameEvent(*wanted, *found)) kin.insert(i);
    }
    return kin;
}

}  // namespace brindlet
