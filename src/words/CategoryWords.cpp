#include "words/CategoryWords.h"

#include <array>

#include "platform/Locale.h"
#include "session/AppState.h"

namespace brindlet {
namespace {

Mark categoryBadge(Category category, const Calibration& calibration) {
    const bool junk = isDefaultJunk(category);
    const auto flip = calibration.flip(category);
    if (!flip || (*flip == Rule::Verdict::junk) == junk)
        return junk ? Mark{"JUNK", Tone::orange, {}} : Mark{"KEEP", Tone::green, {}};
    const auto help =
        "Learned from your corrections - it overrides the model for this whole category. Change it "
        "under Rules.";
    return junk ? Mark{"YOU KEEP THESE", Tone::green, help}
                : Mark{"YOU JUNK THESE", Tone::orange, help};
}

}  // namespace

std::vector<CategoryRows> categoryRows(const VerdictList& verdicts,
                                       const std::vector<std::uint32_t>& positions) {
    struct Parts {
        std::vector<std::uint32_t> open;
        std::vector<std::uint32_t> kept;
        std::vector<std::int64_t> tickable;
    };
    constexpr auto categories = allCases<Category>();
    std::array<Parts, categories.size()> parts;
    for (const auto position : positions) {
        const auto& verdict = verdicts[position];
        auto& part = parts[static_cast<std::size_t>(verdict.category)];
        (verdict.vetoed ? part.kept : part.open).push_back(position);
        if (verdict.messageID) part.tickable.push_back(verdict.id);
    }

    std::vector<CategoryRows> filled;
    for (const auto category : categories) {
        auto& [open, kept, tickable] = parts[static_cast<std::size_t>(category)];
        if (open.empty() && kept.empty()) continue;
        const auto firstProtected = open.size();
        open.insert(open.end(), kept.begin(), kept.end());
        filled.push_back({category, std::move(open), firstProtected, IdSet(std::move(tickable))});
    }
    return filled;
}

TickCount tickCount(const AppState& state, const CategoryRows& category) {
    return {static_cast<std::int64_t>(category.tickable.countCommon(*state.approved)),
            static_cast<std::int64_t>(category.tickable.size())};
}

std::vector<CategoryWords> categoryWords(const AppState& state,
                                         const std::vector<CategoryRows>& categories) {
    const auto& locale = state.services().locale;
    std::vector<CategoryWords> all;
    all.reserve(categories.size());
    for (const auto& rows : categories) {
        const auto ticks = tickCount(state, rows);
        CategoryWords words;
        words.category = rows.category;
        words.label = displayName(rows.category);
        words.count = locale.grouped(static_cast<std::int64_t>(rows.rows.size()));
        words.badge = categoryBadge(rows.category, state.calibration);
        words.expanded = *state.expand == rows.category;
        words.chevron = words.expanded ? "chevron.up" : "chevron.down";
        words.tickSymbol = tickSymbol(ticks);
        if (ticks.tickable > 0)
            words.tickHelp =
                ticks.wouldTick() ? "Tick this whole category" : "Untick this whole category";
        words.reviewed = reviewWords(*state.reviewedCats, std::string(rawValue(rows.category)));
        all.push_back(std::move(words));
    }
    return all;
}

}  // namespace brindlet
