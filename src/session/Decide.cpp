#include "session/Decide.h"

#include "base/Text.h"
#include "classify/Classifier.h"
#include "stores/RuleIndex.h"

namespace brindlet {
namespace {

Decision judged(bool wantJunk, bool isProtected, bool byRule) {
    return {wantJunk && !isProtected, wantJunk && isProtected, byRule};
}

}  // namespace

Decision decide(Category category, std::string_view sender, std::string_view subject,
                const std::vector<const Rule*>& rules, const DecisionGround& ground) {
    const bool junkByDefault = isDefaultJunk(category);
    bool wantJunk = junkByDefault;
    bool byRule = false;
    if (const auto verdict = RuleIndex::match(rules, rawValue(category), subject)) {
        wantJunk = *verdict == Rule::Verdict::junk;
        byRule = true;
    } else if (const auto flip = ground.overrides.find(category); flip != ground.overrides.end()) {
        wantJunk = flip->second == Rule::Verdict::junk;
        byRule = wantJunk != junkByDefault;
    }
    if (!wantJunk) return judged(false, false, byRule);

    const std::string lower = lowercased(sender);
    const bool isProtected =
        (isProtectedByCorrespondence(category) && ground.correspondents.occursIn(lower)) ||
        Classifier::isVetoed(subject) || ground.own.occursIn(lower);
    return judged(true, isProtected, byRule);
}

BlanketDecision decideByBlanket(Rule::Verdict verdict) {
    if (verdict == Rule::Verdict::junk)
        return {Category::advertisingOrPromotion, {true, false, true}};
    return {Category::personalMessageOrReminder, {false, false, true}};
}

}  // namespace brindlet
