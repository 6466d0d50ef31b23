#include "NaiveMining.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "base/Text.h"

namespace brindlet {
namespace {

using Words = std::vector<std::string>;
using Phrase = std::vector<int>;
using Tallies = std::map<Phrase, std::map<int, int>>;

struct Tables {
    std::map<Phrase, int> counts;
    Tallies left;
    Tallies right;
};

int total(const std::map<int, int>& tallies) {
    int sum = 0;
    for (const auto& [word, count] : tallies) sum += count;
    return sum;
}

bool varies(const std::map<int, int>& before) {
    if (before.size() < 5 || total(before) < 1) return false;
    double entropy = 0;
    for (const auto& [word, count] : before) {
        const double p = static_cast<double>(count) / total(before);
        entropy -= p * std::log(p);
    }
    return entropy / std::log(static_cast<double>(before.size())) >= 0.3;
}

template <class Visit>
void forEachPhrase(const std::vector<Phrase>& lists, Visit visit) {
    for (const auto& list : lists)
        for (std::size_t length = 2; length <= std::min<std::size_t>(12, list.size()); ++length)
            for (std::size_t i = 0; i + length <= list.size(); ++i)
                visit(list, i, length,
                      Phrase(list.begin() + static_cast<std::ptrdiff_t>(i),
                             list.begin() + static_cast<std::ptrdiff_t>(i + length)));
}

Phrase trim(const Tables& tables, const Phrase& phrase) {
    if (phrase.size() < 3 || !tables.counts.contains(phrase)) return phrase;
    const int base = tables.counts.at(phrase);
    Phrase best = phrase;
    int bestCount = base;
    for (std::size_t d = 1; d <= phrase.size() - 2; ++d) {
        const Phrase rest(phrase.begin() + static_cast<std::ptrdiff_t>(d), phrase.end());
        const auto counted = tables.counts.find(rest);
        if (counted == tables.counts.end() || counted->second < base ||
            counted->second <= bestCount)
            continue;
        const auto after = tables.right.find(rest);
        if (after == tables.right.end() || total(after->second) < 1) continue;
        const auto atEnd = after->second.find(-2);
        if (total(after->second) * 0.9 > (atEnd == after->second.end() ? 0 : atEnd->second))
            continue;
        const auto before = tables.left.find(rest);
        if (before == tables.left.end() || !varies(before->second)) continue;
        best = rest;
        bestCount = counted->second;
    }
    return best;
}

Phrase choose(const Tables& tables, const Phrase& list) {
    for (auto length = std::min<std::size_t>(12, list.size()); length >= 2; --length) {
        Phrase best;
        for (std::size_t i = 0; i + length <= list.size(); ++i) {
            const Phrase phrase(list.begin() + static_cast<std::ptrdiff_t>(i),
                                list.begin() + static_cast<std::ptrdiff_t>(i + length));
            const int count = tables.counts.at(phrase);
            if (count <= 2) continue;
            const int bestCount = best.empty() ? 0 : tables.counts.at(best);
            if (count > bestCount || (count == bestCount && phrase < best)) best = phrase;
        }
        if (!best.empty()) return trim(tables, best);
    }
    return {};
}

}  // namespace

std::vector<Words> naiveTemplates(const std::vector<std::string>& subjects) {
    std::vector<Words> result(subjects.size());
    if (subjects.size() < 3) return result;

    std::vector<Words> words;
    std::set<std::string> sorted;
    for (const auto& subject : subjects) {
        words.push_back(letterNumberWords(lowercased(subject), Apostrophe::joins));
        if (words.back().size() > 24) words.back().resize(24);
        sorted.insert(words.back().begin(), words.back().end());
    }
    const Words vocabulary(sorted.begin(), sorted.end());
    std::vector<Phrase> lists;
    for (const auto& list : words) {
        lists.emplace_back();
        for (const auto& word : list)
            lists.back().push_back(static_cast<int>(
                std::lower_bound(vocabulary.begin(), vocabulary.end(), word) - vocabulary.begin()));
    }

    Tables tables;
    forEachPhrase(lists, [&](const Phrase&, std::size_t, std::size_t, const Phrase& phrase) {
        ++tables.counts[phrase];
    });
    forEachPhrase(lists,
                  [&](const Phrase& list, std::size_t i, std::size_t length, const Phrase& phrase) {
                      if (tables.counts[phrase] < 3) return;
                      ++tables.left[phrase][i == 0 ? -1 : list[i - 1]];
                      ++tables.right[phrase][i + length == list.size() ? -2 : list[i + length]];
                  });

    std::vector<Phrase> chosen;
    std::map<Phrase, int> choosers;
    for (const auto& list : lists) {
        chosen.push_back(choose(tables, list));
        ++choosers[chosen.back()];
    }
    for (auto& phrase : chosen)
        if (!phrase.empty() && 3 * choosers[phrase] < tables.counts[phrase]) phrase.clear();

    std::set<Phrase> distinct(chosen.begin(), chosen.end());
    distinct.erase(Phrase{});
    std::map<int, std::size_t> templatesWith;
    for (const auto& phrase : distinct)
        for (const int word : std::set(phrase.begin(), phrase.end())) ++templatesWith[word];
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        const bool blank =
            distinct.size() >= 2 && std::all_of(chosen[i].begin(), chosen[i].end(), [&](int word) {
                return templatesWith[word] >= (distinct.size() + 1) / 2;
            });
        if (blank) continue;
        for (const int word : chosen[i])
            result[i].push_back(vocabulary[static_cast<std::size_t>(word)]);
    }
    return result;
}

}  // namespace brindlet
