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
    rules_.clear();
    counts_.clear();
    targets_.clear();
    targetNumbers_.clear();
    longestSender_ = 0;
    std::unordered_map<std::string_view, std::uint32_t> numbers;
    for (const auto position : positions) {
        const auto [number, isNew] = numbers.try_emplace(
            verdicts_[position].sender, static_cast<std::uint32_t>(senders_.size()));
        if (isNew) senders_.emplace_back(verdicts_[position].sender);
        messages_.push_back({position, number->second, std::nullopt});
    }
}

void RuleCoverage::setRules(const std::vector<Rule>& rules) {
    rules_.clear();
    rules_.reserve(rules.size());
    const auto knownTargets = targets_.size();
    std::vector<Counts::iterator> unknown;
    for (const Rule& rule : rules) {
        const auto [count, isNew] = counts_.try_emplace(patternOf(rule), 0);
        if (isNew) unknown.push_back(count);
        rules_.push_back(count);
    }
    if (targets_.size() > knownTargets) fileMessages(knownTargets);

    std::map<std::uint32_t, std::vector<Counts::iterator>> withTemplate;
    for (const auto& count : unknown) {
        if (count->first.words.empty())
            count->second = countWithoutTemplate(count->first);
        else
            withTemplate[count->first.target].push_back(count);
    }
    for (const auto& [target, patterns] : withTemplate) countTemplates(patterns);
}

RuleCoverage::Pattern RuleCoverage::patternOf(const Rule& rule) {
    const auto [target, isNew] =
        targetNumbers_.try_emplace(rule.sender, static_cast<std::uint32_t>(targets_.size()));
    if (isNew) targets_.emplace_back();
    longestSender_ = std::max(longestSender_, rule.sender.size());
    Pattern pattern;
    pattern.target = target->second;
    pattern.anyCategory = !rule.category;
    if (rule.category) pattern.category = fromRaw<Category>(*rule.category);
    for (const auto& word : rule.templateWords) pattern.words.push_back(wordNumber(word));
    return pattern;
}

void RuleCoverage::fileMessages(std::size_t firstNew) {
    std::vector<std::vector<std::uint32_t>> targetsOf(senders_.size());
    for (std::size_t i = 0; i < senders_.size(); ++i)
        senders_[i].eachCovering([&](std::string_view sender) {
            // A sender may be a hundred thousand dots; what no rule is as long as need not be
            // hashed.
            if (sender.size() > longestSender_) return;
            const auto target = targetNumbers_.find(sender);
            if (target != targetNumbers_.end() && target->second >= firstNew)
                targetsOf[i].push_back(target->second);
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

std::int64_t RuleCoverage::countWithoutTemplate(const Pattern& pattern) const {
    const auto& target = targets_[pattern.target];
    if (pattern.anyCategory) return static_cast<std::int64_t>(target.messages.size());
    return pattern.category ? target.tally[static_cast<std::size_t>(*pattern.category)] : 0;
}

void RuleCoverage::countTemplates(const std::vector<Counts::iterator>& patterns) {
    RunFinder runs;
    for (std::size_t i = 0; i < patterns.size(); ++i)
        runs.add(patterns[i]->first.words, static_cast<std::uint32_t>(i));
    // A phrase may stand twice in a subject, which is still one message.
    constexpr auto never = std::numeric_limits<std::uint32_t>::max();
    std::vector<std::uint32_t> countedFor(patterns.size(), never);
    for (const auto place : targets_[patterns.front()->first.target].messages) {
        auto& message = messages_[place];
        const auto category = categoryOf(message);
        runs.find(wordsOf(message), [&](std::uint32_t number) {
            auto& [pattern, count] = *patterns[number];
            if (!pattern.anyCategory && pattern.category != category) return;
            if (std::exchange(countedFor[number], place) != place) ++count;
        });
    }
}

std::vector<std::uint32_t> RuleCoverage::covered(std::size_t rule) {
    const auto& pattern = rules_[rule]->first;
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
