#pragma once

#include <optional>
#include <string>
#include <vector>

#include "classify/Category.h"
#include "stores/Rule.h"
#include "words/RuleWords.h"

namespace brindlet {

class AppState;

/// The words of the rules' screen, but for its lists.
struct RulesWords {
    std::string title = "Rules";
    /// How many there are of each sort.
    std::string counts;
    /// Stands when nothing was learned at all; otherwise empty.
    std::string nothing;
    /// True while there is something that "forget all" would forget.
    bool canForgetAll = false;

    friend bool operator==(const RulesWords&, const RulesWords&) = default;
};

/// Main thread.
RulesWords rulesWords(const AppState& state);

/// The rules in the sections of the screen, each only when not empty.
std::vector<RuleSection> ruleSections(const AppState& state);

/// What the form and the button above it say.
struct RuleFormWords {
    std::string forgetAll = "Forget all";
    std::string forgetAllReally = "Really forget all?";
    std::string prompt = "sender or domain - news.example";
    std::string anyKind = "any kind of mail";
    std::string isJunk = "is junk";
    std::string isKept = "is kept";
    std::string add = "Add rule";
    std::string note =
        "A rule decides before the model is asked, so it is also the fastest way to sort.";
    /// What a rule made here says it was made from.
    std::string example = "added by hand";
};

/// A choice of the form's menu of categories: none stands for any kind of mail. In menu order.
std::vector<std::optional<Category>> ruleCategories();
std::string ruleCategoryLabel(std::optional<Category> category);

}  // namespace brindlet
