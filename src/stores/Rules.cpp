#include "stores/Rules.h"

#include <algorithm>
#include <utility>

#include "base/Files.h"
#include "base/Json.h"
#include "platform/Clock.h"
#include "stores/RuleIndex.h"
#include "stores/SenderAddress.h"
#include "stores/StoreFile.h"

namespace brindlet {
namespace {

constexpr std::string_view handMade = "added by hand";

bool sameTarget(const Rule& a, const Rule& b) {
    return a.sender == b.sender && a.category == b.category && a.templateWords == b.templateWords;
}

template <class Match>
std::optional<std::size_t> firstIndex(const std::vector<Rule>& rules, Match match) {
    const auto found = std::find_if(rules.begin(), rules.end(), match);
    if (found == rules.end()) return std::nullopt;
    return static_cast<std::size_t>(found - rules.begin());
}

std::optional<std::size_t> indexOf(const std::vector<Rule>& rules, const std::string& id) {
    return firstIndex(rules, [&](const Rule& rule) { return rule.id() == id; });
}

std::vector<const Rule*> coveringRules(const std::vector<Rule>& rules, std::string_view sender) {
    const SenderAddress address(sender);
    std::vector<const Rule*> found;
    for (const Rule& rule : rules)
        if (address.coveredBy(rule.sender)) found.push_back(&rule);
    return found;
}

/// The same decision again makes a rule stronger, the opposite one turns it and starts its count
/// anew; either way it is no longer held back.
void decideAgain(Rule& rule, const Rule& decision) {
    if (rule.verdict == decision.verdict) {
        rule.hits = saturatingSum(rule.hits, 1);
    } else {
        rule.verdict = decision.verdict;
        rule.hits = 1;
        rule.created = decision.created;
        rule.example = decision.example;
    }
    rule.legacy = false;
}

}  // namespace

Rules::Rules(Services services) : services_(services), path_(storeFile(services, "rules.json")) {
    load();
}

void Rules::load() {
    auto text = files::read(path_);
    if (!text) return;
    JsonReader in(*std::move(text));
    std::vector<Rule> lasting, ofSession;
    bool repaired = false;
    in.array([&] {
        Rule rule = Rule::read(in);
        // Rules made by hand once stored a domain in the shape of an address.
        if (rule.sender.starts_with("x@") && rule.example == handMade) {
            rule.sender.erase(0, 2);
            repaired = true;
        }
        (rule.scope == Rule::Scope::always ? lasting : ofSession).push_back(std::move(rule));
    });
    if (!in.finish()) return;
    all.set(std::move(lasting));
    session.set(std::move(ofSession));
    if (repaired) save();
}

void Rules::save() const {
    JsonWriter out;
    out.beginArray();
    for (const Rule& rule : *all) rule.write(out);
    for (const Rule& rule : *session) rule.write(out);
    out.endArray();
    files::write(path_, std::move(out).text());
}

std::optional<Rule> Rules::add(std::string_view sender, std::optional<Category> category,
                               Rule::Verdict verdict, Rule::Scope scope, std::string_view example,
                               const std::vector<std::string>& templateWords) {
    Rule decision;
    decision.sender = senderKey(sender);
    if (decision.sender.empty()) return std::nullopt;
    if (category) decision.category = rawValue(*category);
    decision.verdict = verdict;
    decision.scope = scope;
    decision.hits = 1;
    decision.created = services_.clock.now();
    decision.example = example;
    decision.templateWords = templateWords;
    const auto same = [&](const Rule& rule) { return sameTarget(rule, decision); };
    const auto decideIn = [&](Published<std::vector<Rule>>& rules, std::size_t index) {
        rules.mutate([&](auto& list) { decideAgain(list[index], decision); });
        save();
        return (*rules)[index];
    };

    // Lasting rules first, whatever the scope asked for: a decision of the session never weakens
    // one.
    if (const auto index = firstIndex(*all, same)) return decideIn(all, *index);
    if (scope == Rule::Scope::session) {
        if (const auto index = firstIndex(*session, same)) return decideIn(session, *index);
        session.mutate([&](auto& list) { list.push_back(decision); });
    } else {
        session.mutate([&](auto& list) { std::erase_if(list, same); });
        all.mutate([&](auto& list) { list.push_back(decision); });
    }
    save();
    return decision;
}

void Rules::promote(const Rule& rule) {
    if (rule.scope != Rule::Scope::session) return;
    const auto id = rule.id();
    const auto stored = indexOf(*session, id);
    Rule lasting = stored ? (*session)[*stored] : rule;
    lasting.scope = Rule::Scope::always;
    session.mutate([&](auto& list) {
        std::erase_if(list, [&](const Rule& candidate) { return candidate.id() == id; });
    });
    if (!firstIndex(*all, [&](const Rule& other) { return sameTarget(other, lasting); }))
        all.mutate([&](auto& list) { list.push_back(std::move(lasting)); });
    save();
}

void Rules::flip(const Rule& rule) {
    const auto opposite =
        rule.verdict == Rule::Verdict::junk ? Rule::Verdict::keep : Rule::Verdict::junk;
    auto& rules = rule.scope == Rule::Scope::always ? all : session;
    const auto index = indexOf(*rules, rule.id());
    if (!index) return;
    rules.mutate([&](auto& list) { list[*index].verdict = opposite; });
    save();
}

void Rules::forget(const Rule& rule) {
    const auto id = rule.id();
    for (auto* rules : {&all, &session})
        rules->mutate([&](auto& list) {
            std::erase_if(list, [&](const Rule& candidate) { return candidate.id() == id; });
        });
    save();
}

void Rules::enable(const Rule& rule) {
    const auto index = indexOf(*all, rule.id());
    if (!index) return;
    all.mutate([&](auto& list) { list[*index].legacy = false; });
    save();
}

void Rules::forgetAll() {
    all.set({});
    save();
}

std::vector<Rule> Rules::combined() const {
    std::vector<Rule> rules = *all;
    rules.insert(rules.end(), session->begin(), session->end());
    return rules;
}

std::vector<Rule> Rules::held() const {
    std::vector<Rule> rules;
    for (const Rule& rule : *all)
        if (rule.legacy) rules.push_back(rule);
    return rules;
}

std::vector<Rule> Rules::live() const {
    std::vector<Rule> rules;
    for (const Rule& rule : *all)
        if (!rule.legacy) rules.push_back(rule);
    return rules;
}

bool Rules::covers(const Rule& rule, std::string_view sender) {
    return SenderAddress(sender).coveredBy(rule.sender);
}

std::optional<Rule::Verdict> Rules::blanketVerdict(const std::vector<Rule>& rules,
                                                   std::string_view sender) {
    return RuleIndex::blanketVerdict(coveringRules(rules, sender));
}

std::optional<Rule::Verdict> Rules::match(const std::vector<Rule>& rules, std::string_view sender,
                                          std::string_view category, std::string_view subject) {
    return RuleIndex::match(coveringRules(rules, sender), category, subject);
}

}  // namespace brindlet
