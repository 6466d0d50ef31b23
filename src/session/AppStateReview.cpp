#include <utility>

#include "base/Text.h"
#include "platform/Locale.h"
#include "session/AppState.h"
#include "session/Corrections.h"

namespace brindlet {

void AppState::toggleMessage(std::int64_t id) {
    const auto position = index().find(id);
    if (!position) return;
    const Verdict& verdict = (*verdicts)[*position];
    const bool wasTicked = approved->contains(id);
    const bool nowTicked = !wasTicked;
    approved.mutate([&](Ids& ticked) { nowTicked ? ticked.insert(id) : ticked.erase(id); });
    markTouched(id);
    persistSoon();

    const bool correction = corrects(isJunkFolder(), nowTicked, verdict.isJunk);
    const auto others = othersLike(*position, *verdicts, index(), *approved, wasTicked);
    if (!correction && others.empty()) {
        pending.set(std::nullopt);
        return;
    }

    PendingRule offer;
    const auto said = saidBy(isJunkFolder(), nowTicked);
    offer.sender = index().key(index().groupOf(*position));
    offer.display = offer.sender;
    offer.category = verdict.category;
    offer.toJunk = said == Rule::Verdict::junk;
    offer.sourceID = id;
    const auto& family = familyOf(offer.sender);
    offer.templateWords = templateOf(id, family);
    offer.wantApproved = nowTicked;
    const auto rule = rules.add(verdict.sender, verdict.category, said, Rule::Scope::session,
                                verdict.subject, offer.templateWords);
    if (correction) calibration.record(verdict.category, said, offer.sender);
    learned.set(*learned + 1);
    // Where no rule can be learned, none is offered.
    if (!rule || others.empty()) {
        pending.set(std::nullopt);
        return;
    }

    for (const auto other : others) {
        const auto likeID = (*verdicts)[other].id;
        offer.everything.push_back(likeID);
        if (!offer.templateWords.empty() && templateOf(likeID, family) == offer.templateWords)
            offer.members.push_back(likeID);
    }
    pending.set(std::move(offer));
    findKin(*position);
}

const FamilyTemplates& AppState::familyOf(const std::string& key) {
    const auto [family, isNew] = families.try_emplace(key);
    if (isNew) family->second = mineFamily(key, *verdicts, index());
    return family->second;
}

Classifier::Words AppState::familyTemplate(const Verdict& verdict) {
    return templateOf(verdict.id, familyOf(Rules::senderKey(verdict.sender)));
}

// In a junk folder this goes against the tick that led to the offer: it follows what the rule would
// say of the messages, and a tick there says that they are not junk.
void AppState::applyPendingRule(const PendingRule& offer, bool learn, SweepChoice choice) {
    auto ids = offer.everything;
    if (choice == SweepChoice::members) ids = offer.members;
    if (choice == SweepChoice::kin) ids = offer.kin;
    std::optional<Rule> rule;
    const auto source = index().find(offer.sourceID);
    if (learn && source) {
        const Verdict& verdict = (*verdicts)[*source];
        // A rule over all of a sender's mail of the category has no pattern.
        const auto words =
            choice == SweepChoice::everything ? Classifier::Words() : offer.templateWords;
        rule = rules.add(verdict.sender, offer.category,
                         offer.toJunk ? Rule::Verdict::junk : Rule::Verdict::keep,
                         Rule::Scope::always, verdict.subject, words);
    }
    auto what = sweepWords(offer.toJunk, ids.size());
    sweep(std::move(what), std::move(ids), offer.toJunk, std::move(rule));
}

void AppState::dismissPending() {
    pending.set(std::nullopt);
}

void AppState::setCategoryTicked(Category category, bool tick) {
    std::vector<std::int64_t> ids;
    for (const auto& verdict : *verdicts)
        if (verdict.category == category && verdict.messageID) ids.push_back(verdict.id);
    sweep((tick ? "ticked all " : "unticked all ") + lowercased(displayName(category)),
          std::move(ids), tick, std::nullopt);
}

void AppState::setMessagesTicked(const std::vector<std::int64_t>& ids, bool tick, bool learn) {
    std::vector<std::int64_t> kept;
    std::vector<std::uint32_t> positions;
    for (const auto id : ids)
        if (const auto position = index().find(id); position && (*verdicts)[*position].messageID) {
            kept.push_back(id);
            positions.push_back(*position);
        }
    auto what = sweepWords(tick, kept.size());
    sweep(std::move(what), std::move(kept), tick, std::nullopt);
    if (!learn) return;
    for (const auto position : firstOfEachCategory(positions, *verdicts)) {
        const Verdict& verdict = (*verdicts)[position];
        rules.add(verdict.sender, verdict.category, saidBy(isJunkFolder(), tick),
                  Rule::Scope::session, verdict.subject, {});
        learned.set(*learned + 1);
    }
}

void AppState::undoSweep() {
    if (!*lastSweep) return;
    const Sweep undone = **lastSweep;
    const Ids ids(undone.ids);
    approved.mutate([&](Ids& ticked) {
        ticked.eraseAll(ids);
        ticked.insertAll(ids.common(undone.wereApproved));
    });
    if (undone.learned) rules.forget(*undone.learned);
    persistSoon();
    lastSweep.set(std::nullopt);
    pending.set(std::nullopt);
}

/// Ticks or unticks many at once, so that one undo puts them back.
void AppState::sweep(std::string what, std::vector<std::int64_t> ids, bool tick,
                     std::optional<Rule> learnedRule) {
    const Ids swept(ids);
    auto before = approved->common(swept);
    approved.mutate([&](Ids& ticked) { tick ? ticked.insertAll(swept) : ticked.eraseAll(swept); });
    lastSweep.set(
        Sweep{std::move(what), std::move(ids), std::move(before), std::move(learnedRule)});
    pending.set(std::nullopt);
    persistSoon();
}

std::string AppState::sweepWords(bool tick, std::size_t count) const {
    return (tick ? "ticked " : "unticked ") +
           services_.locale.grouped(static_cast<std::int64_t>(count));
}

}  // namespace brindlet
