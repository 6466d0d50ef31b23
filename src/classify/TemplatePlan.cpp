#include "classify/TemplatePlan.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>

#include "base/AsciiBlocks.h"
#include "base/Text.h"
#include "classify/Interner.h"
#include "classify/WordSplitter.h"

namespace brindlet::TemplatePlan {
namespace {

using Numbers = std::vector<std::uint32_t>;

/// The indices 0, 1, ... by the list that each belongs to, in ascending order within a list.
/// Refilled rather than made anew, since a scan has thousands of small groups.
class Lists {
  public:
    /// `listOf` holds the list of each index.
    void fill(const Numbers& listOf, std::size_t count) {
        ends_.assign(count + 1, 0);
        for (const auto list : listOf) ++ends_[list + 1];
        for (std::size_t list = 1; list <= count; ++list) ends_[list] += ends_[list - 1];
        indices_.resize(listOf.size());
        // Filling moves each list's start on to its end.
        for (std::uint32_t i = 0; i < listOf.size(); ++i) indices_[ends_[listOf[i]]++] = i;
    }
    /// All indices, list after list.
    std::span<const std::uint32_t> indices() const { return indices_; }
    std::size_t size() const { return ends_.size() - 1; }
    std::span<const std::uint32_t> operator[](std::size_t list) const {
        const auto start = list == 0 ? 0 : ends_[list - 1];
        return std::span(indices_).subspan(start, ends_[list] - start);
    }

  private:
    Numbers ends_;
    Numbers indices_;
};

/// What stands between the first "<" and the first ">" of the whole text, if they come in this
/// order; otherwise the whole text. Only the latter is trimmed.
std::string_view keyPart(std::string_view sender) {
    const auto open = sender.find('<');
    const auto close = open == std::string_view::npos ? open : sender.find('>');
    if (close == std::string_view::npos || close < open) return trimBlanks(sender);
    return sender.substr(open + 1, close - open - 1);
}

/// A word has to stand in three tenths of a group's subjects to be frequent.
bool isFrequent(std::uint32_t subjects, std::size_t groupSize) {
    return std::size_t{10} * subjects >= 3 * groupSize;
}

class Planner {
  public:
    explicit Planner(const std::vector<Message>& messages) : messages_(messages) {}

    Plan make() && {
        groupBySender();
        subjects_.reserve(messages_.size());
        for (const auto index : groups_.indices()) subjects_.push_back(messages_[index].subject);
        for (std::size_t i = 0; i < groups_.size(); ++i) planGroup(groups_[i]);
        return std::move(plan_);
    }

  private:
    using Group = std::span<const std::uint32_t>;

    void groupBySender() {
        Interner senders;
        Numbers groupOf(messages_.size());
        for (std::size_t i = 0; i < messages_.size(); ++i)
            groupOf[i] = senders.number(paddedKey(messages_[i].sender));
        groups_.fill(groupOf, senders.size());
    }

    std::string_view paddedKey(std::string_view sender) {
        const auto key = keyPart(sender);
        key_.resize(std::max(key_.size(), key.size() + Interner::padding));
        if (ascii::lower(key, key_.data())) return {key_.data(), key.size()};
        key_ = lowercased(key);
        const auto size = key_.size();
        key_.append(Interner::padding, '\0');
        return {key_.data(), size};
    }

    void planGroup(Group group) {
        if (group.size() <= 2) {
            plan_.probes.insert(plan_.probes.end(), group.begin(), group.end());
            return;
        }
        numberWords(group);
        numberSkeletons(group);
        skeletonLists_.fill(skeletonOf_, skeletons_.size());
        for (std::size_t i = 0; i < skeletonLists_.size(); ++i) addList(skeletonLists_[i]);
    }

    /// Also counts in how many of the group's subjects each word stands.
    void numberWords(Group group) {
        words_.clear();
        numbers_.clear();
        ends_.clear();
        tallies_.clear();
        constexpr std::size_t usualWords = 8;
        numbers_.reserve(usualWords * group.size());
        ends_.reserve(group.size());
        const auto* subject = subjects_.data() + (group.data() - groups_.indices().data());
        const auto* const end = subjects_.data() + subjects_.size();
        for (std::uint32_t position = 0; position < group.size(); ++position) {
            // Subjects lie scattered in memory, and waiting for them would take a third of the
            // time.
            if (subject + 8 < end) __builtin_prefetch(subject[8].data());
            for (const auto word : splitter_.split(*subject++)) {
                const auto number = words_.number(word);
                numbers_.push_back(number);
                if (number == tallies_.size()) tallies_.emplace_back();
                auto& tally = tallies_[number];
                if (tally.subjects > 0 && tally.lastSubject == position) continue;
                ++tally.subjects;
                tally.lastSubject = position;
            }
            ends_.push_back(static_cast<std::uint32_t>(numbers_.size()));
        }
    }

    void numberSkeletons(Group group) {
        skeletons_.clear();
        skeletonOf_.clear();
        withSkeleton_.clear();
        skeletonOf_.reserve(group.size());
        withSkeleton_.reserve(group.size());
        std::size_t at = 0;
        for (std::size_t position = 0; position < group.size(); ++position) {
            skeleton_.clear();
            for (; at < ends_[position]; ++at)
                if (isFrequent(tallies_[numbers_[at]].subjects, group.size()))
                    skeleton_.push_back(numbers_[at]);
            if (skeleton_.size() < 2) {
                plan_.probes.push_back(group[position]);
                continue;
            }
            const auto bytes = skeleton_.size() * sizeof(std::uint32_t);
            skeleton_.resize(skeleton_.size() + Interner::padding / sizeof(std::uint32_t));
            skeletonOf_.push_back(
                skeletons_.number({reinterpret_cast<const char*>(skeleton_.data()), bytes}));
            withSkeleton_.push_back(group[position]);
        }
    }

    /// The messages of one skeleton, as positions in `withSkeleton_`.
    void addList(std::span<const std::uint32_t> list) {
        const auto message = [&](std::size_t i) -> std::size_t { return withSkeleton_[list[i]]; };
        if (list.size() == 1) {
            plan_.probes.push_back(message(0));
            return;
        }
        // A large list gives three samples, spread through it.
        const std::size_t third = list.size() / 3;
        const std::size_t step = list.size() >= 8 ? third : list.size();
        const std::size_t probes = list.size() >= 8 ? 3 : 1;
        auto& cluster = plan_.clusters.emplace_back();
        cluster.probes.reserve(probes);
        cluster.members.reserve(list.size() - probes);
        for (std::size_t i = 0; i < list.size(); ++i) {
            const bool isProbe = i % step == 0 && i / step < probes;
            (isProbe ? cluster.probes : cluster.members).push_back(message(i));
        }
        plan_.probes.insert(plan_.probes.end(), cluster.probes.begin(), cluster.probes.end());
    }

    struct Tally {
        std::uint32_t subjects = 0;
        std::uint32_t lastSubject = 0;
    };

    const std::vector<Message>& messages_;
    Plan plan_;
    Lists groups_;
    /// In the order of `groups_.indices()`.
    std::vector<std::string_view> subjects_;
    std::string key_;

    // What follows is of one group at a time and only keeps its memory for the next.
    WordSplitter splitter_;
    Interner words_;
    std::vector<Tally> tallies_;
    /// The subjects' words by number, one subject after another, and where each subject ends.
    Numbers numbers_;
    Numbers ends_;
    Numbers skeleton_;
    Interner skeletons_;
    /// The messages that have a skeleton, and beside each its skeleton's number.
    Numbers withSkeleton_;
    Numbers skeletonOf_;
    Lists skeletonLists_;
};

}  // namespace

std::string senderKey(std::string_view sender) {
    return lowercased(keyPart(sender));
}

Plan make(const std::vector<Message>& messages) {
    return Planner(messages).make();
}

}  // namespace brindlet::TemplatePlan
