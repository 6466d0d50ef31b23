#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <span>
#include <utility>

#include "classify/Classifier.h"
#include "classify/Interner.h"
#include "classify/PhraseTable.h"
#include "classify/WordSplitter.h"

namespace brindlet {
namespace {

using Numbers = std::vector<std::uint32_t>;
constexpr auto none = PhraseTable::none;
constexpr std::size_t mostWords = 24;

/// The subjects' words, cut to what is looked at. Those that phrases can hold have the first
/// numbers, in ascending order of their text; the others are only told apart.
struct Family {
    std::vector<std::string> vocabulary;
    std::size_t differentWords = 0;
    /// One subject after another, and where each ends.
    Numbers words;
    Numbers ends;

    explicit Family(const std::vector<std::string>& subjects) {
        WordSplitter splitter;
        Interner interner;
        Numbers counts;
        for (const auto& subject : subjects) {
            const auto& split = splitter.split(subject);
            for (std::size_t i = 0; i < std::min(split.size(), mostWords); ++i) {
                words.push_back(interner.number(split[i]));
                if (words.back() == counts.size()) counts.push_back(0);
                ++counts[words.back()];
            }
            ends.push_back(static_cast<std::uint32_t>(words.size()));
        }
        differentWords = counts.size();
        Numbers order(differentWords);
        std::iota(order.begin(), order.end(), 0u);
        const auto rare = std::partition(order.begin(), order.end(), [&](std::uint32_t word) {
            return counts[word] >= PhraseTable::fewest;
        });
        std::sort(order.begin(), rare, [&](std::uint32_t a, std::uint32_t b) {
            return interner.text(a) < interner.text(b);
        });
        std::for_each(order.begin(), rare,
                      [&](std::uint32_t word) { vocabulary.emplace_back(interner.text(word)); });
        auto& rank = counts;
        for (std::uint32_t i = 0; i < order.size(); ++i) rank[order[i]] = i;
        for (auto& word : words) word = rank[word];
    }
};

/// Tells whether the words before a phrase change enough to be a name or a title.
class ChangeBefore {
  public:
    explicit ChangeBefore(std::size_t words) : tallies_(words + 1) {}

    bool operator()(const PhraseTable& phrases, std::span<const std::uint32_t> occurrences) {
        for (const auto position : occurrences) {
            // The subject's start counts as one of the words before.
            const auto word = phrases.startsAt(position) ? 0 : phrases.word(position - 1) + 1;
            if (tallies_[word]++ == 0) seen_.push_back(word);
        }
        std::sort(seen_.begin(), seen_.end());
        const auto total = static_cast<double>(occurrences.size());
        double entropy = 0;
        for (const auto word : seen_) {
            const double share = std::exchange(tallies_[word], 0) / total;
            entropy -= share * std::log(share);
        }
        const auto different = static_cast<double>(seen_.size());
        seen_.clear();
        return different >= 5 && entropy / std::log(different) >= 0.3;
    }

  private:
    /// By word; zeros between two phrases.
    Numbers tallies_;
    Numbers seen_;
};

class Miner {
  public:
    explicit Miner(const Family& family)
        : family_(family),
          phrases_(family.words, family.ends),
          changeBefore_(family.differentWords),
          followsChange_(phrases_.size()) {}

    /// For each subject the phrase that is its template, or none.
    Numbers templates() {
        Numbers chosen(family_.ends.size(), none);
        while (phrases_.lengthen()) {
            noteFollowers();
            choose(chosen);
        }
        for (auto& phrase : chosen)
            if (phrase != none) phrase = trimmed(phrase);
        withdrawScarce(chosen);
        blankCommon(chosen);
        return chosen;
    }

    std::span<const std::uint32_t> wordsOf(std::uint32_t phrase) const {
        return phrases_.wordsOf(phrase);
    }

  private:
    /// Notes which phrases of the present length end nearly all subjects that hold them, behind a
    /// name or a title.
    void noteFollowers() {
        for (auto phrase = phrases_.begin(); phrase < phrases_.size(); ++phrase) {
            const auto occurrences = phrases_.occurrences(phrase);
            const auto atEnd =
                std::count_if(occurrences.begin(), occurrences.end(), [&](std::uint32_t position) {
                    return phrases_.startsAt(position + phrases_.length());
                });
            followsChange_.push_back(static_cast<double>(occurrences.size()) * 0.9 <=
                                         static_cast<double>(atEnd) &&
                                     changeBefore_(phrases_, occurrences));
        }
    }

    /// Gives each subject its most frequent phrase of the present length, if it has any: longer
    /// phrases win over more frequent shorter ones.
    void choose(Numbers& chosen) const {
        const auto length = phrases_.length();
        std::size_t start = 0;
        for (std::size_t subject = 0; subject < chosen.size(); ++subject) {
            const auto end = family_.ends[subject];
            auto best = none;
            for (auto i = start; i + length <= end; ++i) {
                const auto phrase = phrases_.at(i);
                if (phrase != none && (best == none || precedes(phrase, best))) best = phrase;
            }
            if (best != none) chosen[subject] = best;
            start = end;
        }
    }

    bool precedes(std::uint32_t a, std::uint32_t b) const {
        if (phrases_[a].count != phrases_[b].count) return phrases_[a].count > phrases_[b].count;
        return a < b;
    }

    /// Takes a changing word off the front: a name before "has subscribed to you" goes. What is
    /// left must be more frequent than what was given.
    std::uint32_t trimmed(std::uint32_t phrase) const {
        auto best = phrase;
        for (auto rest = phrase; phrases_[rest].length > 2;) {
            rest = phrases_[rest].rest;
            if (phrases_[rest].count > phrases_[best].count && followsChange_[rest]) best = rest;
        }
        return best;
    }

    /// A phrase that occurs far more often than it was chosen says little about those that chose
    /// it.
    void withdrawScarce(Numbers& chosen) const {
        Numbers choosers(phrases_.size(), 0);
        for (const auto phrase : chosen)
            if (phrase != none) ++choosers[phrase];
        for (auto& phrase : chosen)
            if (phrase != none && std::uint64_t{3} * choosers[phrase] < phrases_[phrase].count)
                phrase = none;
    }

    /// A template of words that half of the family's templates share tells nothing apart. With two
    /// templates one is half of them, so that both go.
    void blankCommon(Numbers& chosen) const {
        Numbers distinct = chosen;
        std::sort(distinct.begin(), distinct.end());
        distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
        std::erase(distinct, none);
        if (distinct.size() < 2) return;

        Numbers templatesWith(family_.vocabulary.size(), 0);
        for (const auto phrase : distinct) {
            const auto span = wordsOf(phrase);
            Numbers words(span.begin(), span.end());
            std::sort(words.begin(), words.end());
            words.erase(std::unique(words.begin(), words.end()), words.end());
            for (const auto word : words) ++templatesWith[word];
        }
        const auto isCommon = [&](std::uint32_t word) {
            return templatesWith[word] >= (distinct.size() + 1) / 2;
        };
        for (auto& phrase : chosen)
            if (phrase != none && std::ranges::all_of(wordsOf(phrase), isCommon)) phrase = none;
    }

    const Family& family_;
    PhraseTable phrases_;
    ChangeBefore changeBefore_;
    /// By phrase.
    std::vector<bool> followsChange_;
};

}  // namespace

std::vector<Classifier::Words> Classifier::mineTemplates(const std::vector<std::string>& subjects) {
    std::vector<Words> templates(subjects.size());
    if (subjects.size() < 3) return templates;
    const Family family(subjects);
    Miner miner(family);
    const auto chosen = miner.templates();
    for (std::size_t i = 0; i < subjects.size(); ++i) {
        if (chosen[i] == none) continue;
        const auto words = miner.wordsOf(chosen[i]);
        templates[i].reserve(words.size());
        for (const auto word : words) templates[i].push_back(family.vocabulary[word]);
    }
    return templates;
}

}  // namespace brindlet
