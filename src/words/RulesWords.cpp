#include "words/RulesWords.h"

#include <algorithm>
#include <utility>

#include "platform/Locale.h"
#include "session/AppState.h"

namespace brindlet {

RulesWords rulesWords(const AppState& state) {
    const auto& locale = state.services().locale;
    const auto lasting = static_cast<std::int64_t>(state.rules.all->size());
    const auto held = std::count_if(state.rules.all->begin(), state.rules.all->end(),
                                    [](const Rule& rule) { return rule.legacy; });
    const auto learned = static_cast<std::int64_t>(state.rules.session->size());

    RulesWords words;
    const auto add = [&](std::int64_t count, const char* what) {
        if (count < 1) return;
        if (!words.counts.empty()) words.counts += " \u00b7 ";
        words.counts += locale.grouped(count) + what;
    };
    add(held, " need a look");
    add(lasting - held, " always");
    add(learned, " learned");
    words.canForgetAll = lasting > 0;
    if (lasting + learned > 0) return words;

    words.counts = "Corrections you make become rules here.";
    if (state.calibration.rows().empty())
        words.nothing =
            "Nothing yet. Untick a message Brindlet got wrong and it learns one for that kind of "
            "mail from that sender.";
    return words;
}

std::vector<RuleSection> ruleSections(const AppState& state) {
    std::vector<RuleSection> sections;
    const auto add = [&](const char* label, const char* note, std::vector<Rule> rules) {
        if (!rules.empty()) sections.push_back({label, note, std::move(rules)});
    };
    add("NEEDS A LOOK", "written by a bug - not being applied until you say so",
        state.rules.held());
    add("ALWAYS", "kept between launches, and used by every mailbox", state.rules.live());
    add("LEARNED FROM YOUR TICKS", "made automatically as you correct - kept until you remove them",
        *state.rules.session);
    return sections;
}

std::vector<std::optional<Category>> ruleCategories() {
    std::vector<std::optional<Category>> choices = {std::nullopt};
    for (const auto category : allCases<Category>())
        if (category != Category::cannotTell) choices.emplace_back(category);
    return choices;
}

std::string ruleCategoryLabel(std::optional<Category> category) {
    return category ? std::string(displayName(*category)) : RuleFormWords().anyKind;
}

}  // namespace brindlet
