#include "NaivePlan.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "base/Text.h"

namespace brindlet {
namespace {

using Words = std::vector<std::string>;

/// The values of a key in the order in which keys first came.
template <class Key, class Value>
struct InOrder {
    std::vector<std::pair<Key, std::vector<Value>>> lists;

    void add(const Key& key, const Value& value) {
        const auto found = std::find_if(lists.begin(), lists.end(),
                                        [&](const auto& list) { return list.first == key; });
        if (found != lists.end())
            found->second.push_back(value);
        else
            lists.push_back({key, {value}});
    }
};

std::string key(std::string_view sender) {
    const auto open = sender.find('<');
    const auto close = sender.find('>');
    if (open != std::string_view::npos && close != std::string_view::npos && close > open)
        return lowercased(sender.substr(open + 1, close - open - 1));
    return std::string(trimBlanks(lowercased(sender)));
}

}  // namespace

TemplatePlan::Plan naivePlan(const std::vector<TemplatePlan::Message>& messages) {
    TemplatePlan::Plan plan;
    InOrder<std::string, std::size_t> groups;
    for (std::size_t i = 0; i < messages.size(); ++i) groups.add(key(messages[i].sender), i);
    for (const auto& [sender, group] : groups.lists) {
        if (group.size() <= 2) {
            plan.probes.insert(plan.probes.end(), group.begin(), group.end());
            continue;
        }
        std::map<std::size_t, Words> words;
        std::map<std::string, int> subjectsWith;
        for (const auto i : group) {
            words[i] = letterNumberWords(lowercased(messages[i].subject), Apostrophe::joins);
            for (const auto& word : std::set(words[i].begin(), words[i].end()))
                ++subjectsWith[word];
        }
        InOrder<Words, std::size_t> lists;
        for (const auto i : group) {
            Words skeleton;
            for (const auto& word : words[i])
                if (subjectsWith[word] / static_cast<double>(group.size()) >= 0.3)
                    skeleton.push_back(word);
            if (skeleton.size() < 2)
                plan.probes.push_back(i);
            else
                lists.add(skeleton, i);
        }
        for (const auto& [skeleton, list] : lists.lists) {
            const auto m = list.size();
            std::vector<std::size_t> positions{0};
            if (m >= 8) positions = {0, m / 3, 2 * (m / 3)};
            TemplatePlan::Cluster cluster;
            for (std::size_t p = 0; p < m; ++p)
                (std::count(positions.begin(), positions.end(), p) ? cluster.probes
                                                                   : cluster.members)
                    .push_back(list[p]);
            plan.probes.insert(plan.probes.end(), cluster.probes.begin(), cluster.probes.end());
            if (m > 1) plan.clusters.push_back(cluster);
        }
    }
    return plan;
}

}  // namespace brindlet
