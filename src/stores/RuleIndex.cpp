#include "stores/RuleIndex.h"

#include <algorithm>
#include <utility>

#include "classify/Classifier.h"
#include "stores/SenderAddress.h"

namespace brindlet {
namespace {

bool standsIn(const std::vector<std::string>& run, const std::vector<std::string>& words) {
    return std::search(words.begin(), words.end(), run.begin(), run.end()) != words.end();
}

}  // namespace

RuleIndex::RuleIndex(std::vector<Rule> rules) : rules_(std::move(rules)) {
    for (std::size_t i = 0; i < rules_.size(); ++i) {
        bySender_[rules_[i].sender].push_back(static_cast<std::uint32_t>(i));
        longestSender_ = std::max(longestSender_, rules_[i].sender.size());
    }
}

RuleIndex::Covering RuleIndex::covering(std::string_view sender) const {
    const SenderAddress address(sender);
    std::vector<std::uint32_t> numbers;
    const auto probe = [&](std::string_view key) {
        // A sender may be a hundred thousand dots; what no rule is as long as need not be hashed.
        if (key.size() > longestSender_) return;
        const auto found = bySender_.find(key);
        if (found == bySender_.end()) return;
        numbers.insert(numbers.end(), found->second.begin(), found->second.end());
    };
    address.eachCovering(probe);

    // The keys differ, so no number came twice.
    std::sort(numbers.begin(), numbers.end());
    Covering rules;
    rules.reserve(numbers.size());
    for (const auto number : numbers) rules.push_back(&rules_[number]);
    return rules;
}

std::optional<Rule::Verdict> RuleIndex::blanketVerdict(std::string_view sender) const {
    return blanketVerdict(covering(sender));
}

std::optional<Rule::Verdict> RuleIndex::blanketVerdict(const Covering& covering) {
    for (const Rule* rule : covering)
        if (!rule->legacy && !rule->category && rule->templateWords.empty()) return rule->verdict;
    return std::nullopt;
}

std::optional<Rule::Verdict> RuleIndex::match(const Covering& covering, std::string_view category,
                                              std::string_view subject) {
    const Rule* longest = nullptr;
    const Rule* narrowed = nullptr;
    const Rule* general = nullptr;
    std::optional<Classifier::Words> words;  // cut once for all the rules, and only if one asks
    for (const Rule* rule : covering) {
        if (rule->legacy || (rule->category && *rule->category != category)) continue;
        const auto length = rule->templateWords.size();
        if (length == 0) {
            auto& first = rule->category ? narrowed : general;
            if (!first) first = rule;
        } else if (!longest || length > longest->templateWords.size()) {
            if (!words) words = Classifier::subjectWords(subject);
            if (standsIn(rule->templateWords, *words)) longest = rule;
        }
    }
    const Rule* const chosen = longest ? longest : narrowed ? narrowed : general;
    return chosen ? std::optional(chosen->verdict) : std::nullopt;
}

}  // namespace brindlet
