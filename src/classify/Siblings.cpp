#include <algorithm>
#include <map>

#include "classify/Classifier.h"

namespace brindlet {
namespace {

using Words = Classifier::Words;

/// The list's words without repeats and stop words, in the order of the list.
std::vector<std::string_view> tellingWords(const Words& words) {
    std::vector<std::string_view> telling;
    for (const std::string_view word : words) {
        const auto& stop = Classifier::stopWords;
        if (std::find(stop.begin(), stop.end(), word) == stop.end() &&
            std::find(telling.begin(), telling.end(), word) == telling.end())
            telling.push_back(word);
    }
    return telling;
}

}  // namespace

std::vector<Words> Classifier::siblingSubjects(const Words& words, const std::vector<Words>& others,
                                               std::size_t limit) {
    std::map<std::string_view, std::size_t> listsWith;
    for (const auto& other : others)
        for (const auto word : tellingWords(other)) ++listsWith[word];
    const auto count = [&](std::string_view word) {
        const auto found = listsWith.find(word);
        return found == listsWith.end() ? 0 : found->second;
    };
    const auto lists = std::max<std::size_t>(others.size(), 1);
    const auto isCommon = [&](std::string_view word) { return 2 * count(word) >= lists; };

    const auto telling = tellingWords(words);
    if (telling.empty()) return {};
    std::vector<std::string_view> distinctive;
    std::remove_copy_if(telling.begin(), telling.end(), std::back_inserter(distinctive), isCommon);
    // The rarest common word stands in for a distinctive one. It is common all the same, so the
    // scores below never count it and the result is empty.
    if (distinctive.empty())
        distinctive.push_back(*std::min_element(
            telling.begin(), telling.end(),
            [&](std::string_view a, std::string_view b) { return count(a) < count(b); }));

    struct Scored {
        std::size_t score;
        const Words* list;
    };
    std::vector<Scored> scored;
    for (const auto& other : others) {
        if (other == words) continue;
        const auto candidates = tellingWords(other);
        const auto score = static_cast<std::size_t>(
            std::count_if(candidates.begin(), candidates.end(), [&](std::string_view word) {
                return !isCommon(word) &&
                       std::find(distinctive.begin(), distinctive.end(), word) != distinctive.end();
            }));
        if (score >= 1) scored.push_back({score, &other});
    }
    std::stable_sort(scored.begin(), scored.end(),
                     [](const Scored& a, const Scored& b) { return a.score > b.score; });
    if (scored.size() > limit) scored.resize(limit);
    std::vector<Words> siblings;
    for (const auto& [score, list] : scored) siblings.push_back(*list);
    return siblings;
}

}  // namespace brindlet
