#include "session/RuleCoverage.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "classify/Classifier.h"

namespace brindlet {
namespace {

/// Many runs of words looked for in one walk over a text: each step leads from the words so far to
/// those with one more.
class RunFinder {
  public:
    void add(const std::vector<std::uint32_t>& run, std::uint32_t payload) {
        std::uint32_t node = 0;
        for (const auto word : run) {
            const auto [step, isNew] =
                steps_.try_emplace(key(node, word), static_cast<std::uint32_t>(ends_.size()));
            if (isNew) ends_.emplace_back();
            node = step->second;
        }
        ends_[node].push_back(payload);
    }

    /// Calls with the payload of each run at each place where it stands.
    template <class F>
    void find(const std::vector<std::uint32_t>& words, F&& call) const {
        for (std::size_t start = 0; start < words.size(); ++start) {
            std::uint32_t node = 0;
            for (std::size_t i = start; i < words.size(); ++i) {
                const auto step = steps_.find(key(node, words[i]));
                if (step == steps_.end()) break;
                node = step->second;
                for (const auto payload : ends_[node]) call(payload);
            }
        }
    }

  private:
    static std::uint64_t key(std::uint32_t node, std::uint32_t word) {
        return std::uint64_t{node} << 32 | word;
    }
    std::unordered_map<std::uint64_t, std::uint32_t> steps_;
    std::vector<std::vector<std::uint32_t>> ends_{1};
};

}  // namespace

void RuleCoverage::setVerdicts(const VerdictList& verdicts,
                               const std::vector<std::uint32_t>& positions) {
    verdicts_ = verdicts;
    messages_.clear();
    messages_.reserve(positions.size());
    senders_.clear();
    wordNumbers_.clear();
    std::unordered_map<std::string_view, std::uint32_t> numbers;
    for (const auto position : positions) {
        const auto [number, isNew] = numbers.try_emplace(
            verdicts_[position].sender, static_cast<std::uint32_t>(senders_.size()));
        if (isNew) senders_.emplace_back(verdicts_[position].sender);
        messages_.push_back({position, number->second, std::nullopt});
    }
}

void RuleCoverage::setRules(const std::vector<Rule>& rules) {
    patterns_.clear();
    patterns_.reserve(rules.size());
    targets_.clear();
    targetNumbers_.clear();
    longestSender_ = 0;
    for (const Rule& rule : rules) {
        const auto [target, isNew] =
            targetNumbers_.try_emplace(rule.sender, static_cast<std::uint32_t>(targets_.size()));
        if (isNew) targets_.emplace_back();
        longestSender_ = std::max(longestSender_, rule.sender.size());
        Pattern pattern;
        pattern.target = target->second;
        pattern.anyCategory = !rule.category;
        if (rule.category) pattern.category = fromRaw<Category>(*rule.category);
        for (const auto& word : rule.templateWords) pattern.words.push_back(wordNumber(word));
        if (!pattern.words.empty())
            targets_[pattern.target].withTemplate.push_back(
                static_cast<std::uint32_t>(patterns_.size()));
        patterns_.push_back(std::move(pattern));
    }
    fileMessages();

    counts_.assign(rules.size(), 0);
    for (std::size_t i = 0; i < patterns_.size(); ++i) {
        const auto& pattern = patterns_[i];
        if (!pattern.words.empty()) continue;
        const auto& target = targets_[pattern.target];
        if (pattern.anyCategory)
            counts_[i] = static_cast<std::int64_t>(target.messages.size());
        else if (pattern.category)
            counts_[i] = target.tally[static_cast<std::size_t>(*pattern.category)];
    }
    for (const auto& target : targets_) countTemplates(target);
}

void RuleCoverage::fileMessages() {
    std::vector<std::vector<std::uint32_t>> targetsOf(senders_.size());
    for (std::size_t i = 0; i < senders_.size(); ++i)
        senders_[i].eachCovering([&](std::string_view sender) {
            // A sender may be a hundred thousand dots; what no rule is as long as need not be
            // hashed.
            if (sender.size() > longestSender_) return;
            const auto target = targetNumbers_.find(sender);
            if (target != targetNumbers_.end()) targetsOf[i].push_back(target->second);
        });
    for (std::size_t i = 0; i < messages_.size(); ++i) {
        const auto& message = messages_[i];
        for (const auto number : targetsOf[message.sender]) {
            auto& target = targets_[number];
            target.messages.push_back(static_cast<std::uint32_t>(i));
            ++target.tally[static_cast<std::size_t>(categoryOf(message))];
        }
    }
}

void RuleCoverage::countTemplates(const Target& target) {
    if (target.withTemplate.empty() || target.messages.empty()) return;
    RunFinder runs;
    for (const auto number : target.withTemplate) runs.add(patterns_[number].words, number);
    // A phrase may stand twice in a subject, which is still one message.
    constexpr auto never = std::numeric_limits<std::uint32_t>::max();
    std::vector<std::uint32_t> countedFor(patterns_.size(), never);
    for (const auto place : target.messages) {
        auto& message = messages_[place];
        const auto category = categoryOf(message);
        runs.find(wordsOf(message), [&](std::uint32_t number) {
            const auto& pattern = patterns_[number];
            if (!pattern.anyCategory && pattern.category != category) return;
            if (std::exchange(countedFor[number], place) != place) ++counts_[number];
        });
    }
}

std::vector<std::uint32_t> RuleCoverage::covered(std::size_t rule) {
    const auto& pattern = patterns_[rule];
    std::vector<std::uint32_t> found;
    for (const auto place : targets_[pattern.target].messages) {
        auto& message = messages_[place];
        if (!pattern.anyCategory && pattern.category != categoryOf(message)) continue;
        if (!pattern.words.empty()) {
            const auto& words = wordsOf(message);
            if (std::search(words.begin(), words.end(), pattern.words.begin(),
                            pattern.words.end()) == words.end())
                continue;
        }
        found.push_back(message.position);
    }
    return found;
}

Category RuleCoverage::categoryOf(const Message& message) const {
    return verdicts_[message.position].category;
}

const RuleCoverage::Words& RuleCoverage::wordsOf(Message& message) {
    if (!message.words) {
        message.words.emplace();
        for (const auto& word : Classifier::subjectWords(verdicts_[message.position].subject))
            message.words->push_back(wordNumber(word));
    }
    return *message.words;
}

std::uint32_t RuleCoverage::wordNumber(std::string_view word) {
    const auto found = wordNumbers_.find(word);
    if (found != wordNumbers_.end()) return found->second;
    const auto number = static_cast<std::uint32_t>(wordNumbers_.size());
    wordNumbers_.emplace(word, number);
    return number;
}

}  // namespace brindlet
