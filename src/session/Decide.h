#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "classify/Category.h"
#include "session/AddressSet.h"
#include "stores/Rule.h"

namespace brindlet {

/// What a scan knows beside the message when it decides; fixed at the scan's start.
struct DecisionGround {
    /// Lower-cased addresses of the person's own accounts.
    AddressSet own;
    /// Lower-cased addresses that the person has written to.
    AddressSet correspondents;
    /// Categories that the person's corrections have flipped.
    std::map<Category, Rule::Verdict> overrides;
};

/// `isJunk` and `vetoed` are never both true.
struct Decision {
    bool isJunk = false;
    bool vetoed = false;
    bool byRule = false;

    friend bool operator==(const Decision&, const Decision&) = default;
};

/// From a message's category to what becomes of it: a rule of its sender, else a flip of its
/// category that disagrees with the category's default, else that default; each held back by
/// protection where it says junk. `rules` are those that cover the sender. Pure; any thread.
Decision decide(Category category, std::string_view sender, std::string_view subject,
                const std::vector<const Rule*>& rules, const DecisionGround& ground);

/// What a rule over the whole sender decides, with no model asked and no protection: it stands for
/// the person's own word.
struct BlanketDecision {
    Category category = Category::cannotTell;
    Decision decision;
};
BlanketDecision decideByBlanket(Rule::Verdict verdict);

}  // namespace brindlet
