#include "session/NaiveReview.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "stores/Rules.h"

namespace brindlet {

NaiveReview::NaiveReview(std::vector<Verdict> verdicts, bool inJunk, std::set<std::int64_t> chosen)
    : ticked(std::move(chosen)), verdicts_(std::move(verdicts)), inJunk_(inJunk) {
    for (const auto& verdict : verdicts_) {
        if (templates_.contains(verdict.id)) continue;
        std::vector<std::int64_t> ids;
        std::vector<std::string> subjects;
        for (const auto& other : verdicts_) {
            if (Rules::senderKey(other.sender) != Rules::senderKey(verdict.sender)) continue;
            ids.push_back(other.id);
            subjects.push_back(other.subject);
        }
        const auto mined = Classifier::mineTemplates(subjects);
        for (std::size_t i = 0; i < ids.size(); ++i) templates_[ids[i]] = mined[i];
    }
}

const Verdict* NaiveReview::find(std::int64_t id) const {
    for (const auto& verdict : verdicts_)
        if (verdict.id == id) return &verdict;
    return nullptr;
}

std::optional<Rule> NaiveReview::learn(const Verdict& verdict, bool keep, Rule::Scope scope,
                                       const Classifier::Words& words) {
    Rule rule;
    rule.sender = Rules::senderKey(verdict.sender);
    if (rule.sender.empty()) return std::nullopt;
    rule.category = rawValue(verdict.category);
    rule.verdict = keep ? Rule::Verdict::keep : Rule::Verdict::junk;
    rule.scope = scope;
    rule.hits = 1;
    rule.example = verdict.subject;
    rule.templateWords = words;
    const auto same = [&](const Rule& other) {
        return other.sender == rule.sender && other.category == rule.category &&
               other.templateWords == rule.templateWords;
    };
    const auto again = [&](Rule& known) {
        if (known.verdict == rule.verdict) {
            ++known.hits;
        } else {
            known.verdict = rule.verdict;
            known.hits = 1;
            known.example = rule.example;
        }
        return known;
    };
    for (auto& known : lasting)
        if (same(known)) return again(known);
    if (scope == Rule::Scope::always) {
        std::erase_if(ofSession, same);
        return lasting.emplace_back(rule);
    }
    for (auto& known : ofSession)
        if (same(known)) return again(known);
    return ofSession.emplace_back(rule);
}

void NaiveReview::count(const Verdict& verdict, bool keep) {
    const std::set<Category> neverJunk = {Category::cannotTell, Category::personalMessageOrReminder,
                                          Category::securityCodeOrSignInAlert,
                                          Category::receiptOrOrderOrShipping,
                                          Category::billOrPayment};
    if (!keep && neverJunk.contains(verdict.category)) return;
    auto& tally = tallies[std::string(rawValue(verdict.category))];
    ++(keep ? tally.toKeep : tally.toJunk);
    auto& senders = keep ? tally.keepSenders : tally.junkSenders;
    const auto key = Rules::senderKey(verdict.sender);
    if (!key.empty() && std::find(senders.begin(), senders.end(), key) == senders.end())
        senders.push_back(key);
}

void NaiveReview::toggle(std::int64_t id) {
    const Verdict* const found = find(id);
    if (!found) return;
    const Verdict& verdict = *found;
    const bool wasTicked = ticked.contains(id);
    const bool nowTicked = !wasTicked;
    if (nowTicked)
        ticked.insert(id);
    else
        ticked.erase(id);
    std::erase(touched, id);
    touched.push_back(id);

    const auto key = Rules::senderKey(verdict.sender);
    const auto words = templates_.at(id);
    std::vector<std::int64_t> others, same;
    for (const auto& other : verdicts_) {
        if (other.id == id || !other.messageID || other.category != verdict.category) continue;
        if (Rules::senderKey(other.sender) != key) continue;
        if (ticked.contains(other.id) != wasTicked) continue;
        others.push_back(other.id);
        if (!words.empty() && templates_.at(other.id) == words) same.push_back(other.id);
    }
    const bool correction = (static_cast<int>(inJunk_) + nowTicked + verdict.isJunk) % 2 == 1;
    offer.reset();
    if (!correction && others.empty()) return;

    const bool keep = inJunk_ ? nowTicked : wasTicked;
    const auto rule = learn(verdict, keep, Rule::Scope::session, words);
    if (correction) count(verdict, keep);
    ++learned;
    if (!rule || others.empty()) return;
    offer.emplace();
    offer->sender = offer->display = key;
    offer->category = verdict.category;
    offer->toJunk = !keep;
    offer->sourceID = id;
    offer->templateWords = words;
    offer->members = same;
    offer->everything = others;
    offer->wantApproved = nowTicked;
}

void NaiveReview::sweep(const std::string& what, const std::vector<std::int64_t>& ids, bool tick,
                        const std::optional<Rule>& rule) {
    lastSweep = Sweep{(tick ? "ticked " : "unticked ") + what, ids, {}, rule};
    for (const auto id : ids) {
        if (ticked.contains(id)) lastSweep->wereApproved.insert(id);
        if (tick)
            ticked.insert(id);
        else
            ticked.erase(id);
    }
    offer.reset();
}

void NaiveReview::applyOffer(bool learns, SweepChoice choice) {
    const PendingRule applied = *offer;
    const auto ids = choice == SweepChoice::members ? applied.members
                     : choice == SweepChoice::kin   ? applied.kin
                                                    : applied.everything;
    std::optional<Rule> rule;
    if (learns)
        rule =
            learn(*find(applied.sourceID), !applied.toJunk, Rule::Scope::always,
                  choice == SweepChoice::everything ? Classifier::Words() : applied.templateWords);
    sweep(std::to_string(ids.size()), ids, applied.toJunk, rule);
}

void NaiveReview::setCategory(Category category, bool tick) {
    std::vector<std::int64_t> ids;
    for (const auto& verdict : verdicts_)
        if (verdict.category == category && verdict.messageID) ids.push_back(verdict.id);
    sweep("all " + lowercased(displayName(category)), ids, tick, std::nullopt);
}

void NaiveReview::setMessages(const std::vector<std::int64_t>& ids, bool tick, bool learns) {
    std::vector<std::int64_t> kept;
    for (const auto id : ids)
        if (const auto* verdict = find(id); verdict && verdict->messageID) kept.push_back(id);
    sweep(std::to_string(kept.size()), kept, tick, std::nullopt);
    if (!learns) return;
    std::set<Category> done;
    for (const auto& verdict : verdicts_) {
        if (std::find(kept.begin(), kept.end(), verdict.id) == kept.end()) continue;
        if (!done.insert(verdict.category).second) continue;
        learn(verdict, inJunk_ ? tick : !tick, Rule::Scope::session, {});
        ++learned;
    }
}

void NaiveReview::undo() {
    if (!lastSweep) return;
    for (const auto id : lastSweep->ids) {
        if (lastSweep->wereApproved.contains(id))
            ticked.insert(id);
        else
            ticked.erase(id);
    }
    if (lastSweep->learned)
        for (auto* rules : {&lasting, &ofSession})
            std::erase_if(*rules,
                          [&](const Rule& rule) { return rule.id() == lastSweep->learned->id(); });
    lastSweep.reset();
    offer.reset();
}

}  // namespace brindlet
