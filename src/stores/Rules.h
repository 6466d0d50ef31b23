#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Observable.h"
#include "classify/Category.h"
#include "platform/Services.h"
#include "stores/Rule.h"

namespace brindlet {

/// The rules, in "rules.json". Main thread; the static operations are pure and run anywhere. Every
/// change is saved at once; a save that fails is not noticed and the rules in memory stay.
class Rules : public Observable {
  public:
    /// Loads the file; whatever is wrong with it leaves the store empty.
    explicit Rules(Services services);

    /// Both in the order of adding, which matters to `match`. The session's rules are in the file
    /// as well and survive a restart.
    Published<std::vector<Rule>> all{*this};
    Published<std::vector<Rule>> session{*this};

    /// Stores a decision, or strengthens or turns the rule that has it already. None, and nothing
    /// stored, for a sender without a key.
    std::optional<Rule> add(std::string_view sender, std::optional<Category> category,
                            Rule::Verdict verdict, Rule::Scope scope, std::string_view example,
                            const std::vector<std::string>& templateWords);
    /// Makes a session rule last, with its hits and its date; a lasting rule that says where and
    /// what already keeps its place and the session rule is dropped.
    void promote(const Rule& rule);
    void flip(const Rule& rule);
    void forget(const Rule& rule);
    /// Accepts a rule that was held back.
    void enable(const Rule& rule);
    /// Leaves the session's rules.
    void forgetAll();

    std::vector<Rule> combined() const;
    std::vector<Rule> held() const;
    std::vector<Rule> live() const;

    /// How wide a learned rule reaches: a person's address stays an address, a bulk sender's falls
    /// back to its domain. Empty when nothing can be learned.
    static std::string senderKey(std::string_view sender);
    /// True when the rule's sender covers the message's raw sender.
    static bool covers(const Rule& rule, std::string_view sender);
    /// The verdict on a whole sender, asked before anything else.
    static std::optional<Rule::Verdict> blanketVerdict(const std::vector<Rule>& rules,
                                                       std::string_view sender);
    /// The verdict for a message whose category is known: the narrower rule beats the wider, the
    /// older the newer. Walks the list; a scan asks its `RuleIndex`, which answers the same.
    static std::optional<Rule::Verdict> match(const std::vector<Rule>& rules,
                                              std::string_view sender, std::string_view category,
                                              std::string_view subject);

  private:
    void load();
    void save() const;
    Services services_;
    std::string path_;
};

}  // namespace brindlet
