#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "stores/Rule.h"
#include "words/Mark.h"

namespace brindlet {

class Locale;

/// One rule of a list.
struct RuleWords {
    std::string sender;
    /// A click on it flips the rule; its help says so.
    Mark verdict;
    /// How much mail of the last scan it covers; empty when none.
    std::string here;
    /// How often the same was decided; empty below two.
    std::string hits;
    /// The one line under the rest.
    std::string line;
    /// Held back, and so can be applied again.
    bool held = false;
    /// Of this session, and so can be made permanent.
    bool ofSession = false;
    /// Will be forgotten when the view is left.
    bool marked = false;

    friend bool operator==(const RuleWords&, const RuleWords&) = default;
};

/// `here` is how many messages of the last scan the rule covers.
RuleWords ruleWords(const Locale& locale, const Rule& rule, std::int64_t here, bool marked);

/// What the controls of a rule say, on every rule alike.
struct RuleControls {
    std::string showHelp = "Show the mail this rule covers";
    std::string enable = "Keep it";
    std::string enableHelp = "Start applying this rule again";
    std::string promote = "Make permanent";
    std::string promoteHelp = "Move it to Always, where nothing automatic touches it";
    std::string markSymbol = "xmark.circle.fill";
    std::string markHelp = "Forget this rule";
    std::string unmarkSymbol = "arrow.uturn.backward.circle.fill";
    std::string unmarkHelp = "Keep this rule after all";
    /// Stands under the messages that a rule covers, if they are many enough to narrow.
    std::string narrow = "Untick any of these to narrow what this rule should catch.";
};

bool worthNarrowing(std::size_t covered);

/// The box that tells a verdict.
Mark verdictMark(Rule::Verdict verdict);

/// Rules under one heading. An empty label stands for no heading.
struct RuleSection {
    std::string label;
    std::string note;
    std::vector<Rule> rules;

    friend bool operator==(const RuleSection&, const RuleSection&) = default;
};

}  // namespace brindlet
