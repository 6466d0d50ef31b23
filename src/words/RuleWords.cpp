#include "words/RuleWords.h"

#include "platform/Locale.h"

namespace brindlet {
namespace {

constexpr std::size_t leastToNarrow = 6;
constexpr std::int64_t leastToCount = 2;

std::string lineUnder(const Rule& rule, bool marked) {
    if (marked) return "Will be forgotten when you leave this screen";
    return rule.legacy ? "Not being applied - " + rule.scopeText() : rule.scopeText();
}

}  // namespace

RuleWords ruleWords(const Locale& locale, const Rule& rule, std::int64_t here, bool marked) {
    RuleWords words;
    words.sender = rule.sender;
    words.verdict = verdictMark(rule.verdict);
    words.verdict.help = "Flip this rule";
    if (here > 0) words.here = locale.grouped(here) + " here";
    if (rule.hits >= leastToCount) words.hits = "\u00d7" + locale.grouped(rule.hits);
    words.line = lineUnder(rule, marked);
    words.held = rule.legacy;
    words.ofSession = rule.scope == Rule::Scope::session;
    words.marked = marked;
    return words;
}

bool worthNarrowing(std::size_t covered) {
    return covered >= leastToNarrow;
}

Mark verdictMark(Rule::Verdict verdict) {
    return verdict == Rule::Verdict::junk ? Mark{"JUNK", Tone::orange, {}}
                                          : Mark{"KEEP", Tone::green, {}};
}

}  // namespace brindlet
