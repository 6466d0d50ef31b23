#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <optional>
#include <span>

#include "classify/Classifier.h"
#include "classify/Interner.h"
#include "classify/PhraseTable.h"
#include "classify/WordSplitter.h"

namespace brindlet {
namespace {

using Numbers = std::vector<std::uint32_t>;
constexpr auto none = PhraseTable::none;
constexpr std::size_t mostWords = 24;

/// The subjects' words, cut to what is looked at and numbered in ascending order of their text.
struct Family {
    std::vector<std::string> vocabulary;
    /// One subject after another, and where each ends.
    Numbers words;
    Numbers ends;

    explicit Family(const std::vector<std::string>& subjects) {
        WordSplitter splitter;
        Interner interner;
        for (const auto& subject : subjects) {
            const auto& split = splitter.split(subject);
            for (std::size_t i = 0; i < std::min(split.size(), mostWords); ++i)
                words.push_back(interner.number(split[i]));
            ends.push_back(static_cast<std::uint32_t>(words.size()));
        }
        Numbers sorted(interner.size());
        std::iota(sorted.begin(), sorted.end(), 0u);
        std::sort(sorted.begin(), sorted.end(), [&](std::uint32_t a, std::uint32_t b) {
            return interner.text(a) < interner.text(b);
        });
        Numbers rank(sorted.size());
        for (std::uint32_t i = 0; i < sorted.size(); ++i) {
            rank[sorted[i]] = i;
            vocabulary.emplace_back(interner.text(sorted[i]));
        }
        for (auto& word : words) word = rank[word];
    }
};

/// True when the words before a phrase change enough to be a name or a title.
bool variesEnough(const std::map<std::int64_t, std::uint32_t>& before) {
    if (before.size() < 5) return false;
    double total = 0;
    for (const auto& [word, count] : before) total += count;
    double entropy = 0;
    for (const auto& [word, count] : before) {
        const double share = count / total;
        entropy -= share * std::log(share);
    }
    return entropy / std::log(static_cast<double>(before.size())) >= 0.3;
}

class Miner {
  public:
    explicit Miner(const Family& family)
        : family_(family),
          phrases_(family.words, family.ends),
          trimmed_(phrases_.size(), none),
          opensWithChange_(phrases_.size()) {}

    /// For each subject the phrase that is its template, or none.
    Numbers templates() {
        Numbers chosen;
        std::size_t start = 0;
        for (const auto end : family_.ends) {
            const auto phrase = choose(start, end);
            chosen.push_back(phrase == none ? none : trimmed(phrase));
            start = end;
        }
        withdrawScarce(chosen);
        blankCommon(chosen);
        return chosen;
    }

    std::span<const std::uint32_t> wordsOf(std::uint32_t phrase) const {
        return phrases_.wordsOf(phrase);
    }

  private:
    /// Longer phrases win over more frequent shorter ones.
    std::uint32_t choose(std::size_t start, std::size_t end) const {
        for (auto length = std::min(PhraseTable::longest, end - start); length >= 2; --length) {
            auto best = none;
            for (auto i = start; i + length <= end; ++i) {
                const auto phrase = phrases_.at(i, length);
                if (phrase != none && (best == none || precedes(phrase, best))) best = phrase;
            }
            if (best != none) return best;
        }
        return none;
    }

    bool precedes(std::uint32_t a, std::uint32_t b) const {
        if (phrases_[a].count != phrases_[b].count) return phrases_[a].count > phrases_[b].count;
        return a != b && std::ranges::lexicographical_compare(wordsOf(a), wordsOf(b));
    }

    std::uint32_t trimmed(std::uint32_t phrase) {
        if (trimmed_[phrase] == none) trimmed_[phrase] = trim(phrase);
        return trimmed_[phrase];
    }

    /// Takes a changing word off the front: a name before "has subscribed to you" goes. What is
    /// left must end nearly all subjects that hold it and be more frequent than what was given.
    std::uint32_t trim(std::uint32_t phrase) {
        const auto start = phrases_.occurrences(phrase).front();
        auto best = phrase;
        for (std::uint32_t dropped = 1; dropped + 2 <= phrases_[phrase].length; ++dropped) {
            const auto rest = phrases_.at(start + dropped, phrases_[phrase].length - dropped);
            const auto& [length, count, atEnd, first] = phrases_[rest];
            if (count > phrases_[best].count && count * 0.9 <= atEnd && opensWithChange(rest))
                best = rest;
        }
        return best;
    }

    bool opensWithChange(std::uint32_t phrase) {
        auto& known = opensWithChange_[phrase];
        if (!known) known = variesEnough(phrases_.wordsBefore(phrase));
        return *known;
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
    const PhraseTable phrases_;
    /// What each phrase was trimmed to; none until asked.
    Numbers trimmed_;
    std::vector<std::optional<bool>> opensWithChange_;
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
        for (const auto word : miner.wordsOf(chosen[i]))
            templates[i].push_back(family.vocabulary[word]);
    }
    return templates;
}

}  // namespace brindlet
