#include "words/CategoryWords.h"

#include <array>

#include "base/Text.h"
#include "platform/Locale.h"
#include "session/AppState.h"

namespace brindlet {
namespace {

Mark verdictMark(bool isJunk) {
    return isJunk ? Mark{"JUNK", Tone::orange, {}} : Mark{"KEEP", Tone::green, {}};
}

Mark categoryBadge(Category category, const Calibration& calibration) {
    const bool junk = isDefaultJunk(category);
    const auto flip = calibration.flip(category);
    if (!flip || (*flip == Rule::Verdict::junk) == junk) return verdictMark(junk);
    const auto help =
        "Learned from your corrections - it overrides the model for this whole category. Change it "
        "under Rules.";
    return junk ? Mark{"YOU KEEP THESE", Tone::green, help}
                : Mark{"YOU JUNK THESE", Tone::orange, help};
}

}  // namespace

std::vector<CategoryRows> categoryRows(const VerdictList& verdicts) {
    struct Parts {
        std::vector<std::uint32_t> open;
        std::vector<std::uint32_t> kept;
    };
    constexpr auto categories = allCases<Category>();
    std::array<Parts, categories.size()> parts;
    std::uint32_t index = 0;
    for (const auto& verdict : verdicts) {
        auto& part = parts[static_cast<std::size_t>(verdict.category)];
        (verdict.vetoed ? part.kept : part.open).push_back(index++);
    }

    std::vector<CategoryRows> filled;
    for (const auto category : categories) {
        auto& [open, kept] = parts[static_cast<std::size_t>(category)];
        if (open.empty() && kept.empty()) continue;
        const auto firstProtected = open.size();
        open.insert(open.end(), kept.begin(), kept.end());
        filled.push_back({category, std::move(open), firstProtected});
    }
    return filled;
}

std::vector<CategoryWords> categoryWords(const AppState& state,
                                         const std::vector<CategoryRows>& categories) {
    const auto& locale = state.services().locale;
    std::vector<CategoryWords> all;
    all.reserve(categories.size());
    for (const auto& rows : categories) {
        CategoryWords words;
        words.category = rows.category;
        words.label = displayName(rows.category);
        words.count = locale.grouped(static_cast<std::int64_t>(rows.rows.size()));
        words.badge = categoryBadge(rows.category, state.calibration);
        words.expanded = *state.expand == rows.category;
        words.chevron = words.expanded ? "chevron.up" : "chevron.down";
        // In a junk folder what protection kept is what should come out: it does not stay put.
        if (rows.firstProtected < rows.rows.size() && !state.isJunkFolder())
            words.stayPut = "These stay put - none of them will be moved";
        words.scroll = words.count + " messages \u00b7 scroll to see them all";
        all.push_back(std::move(words));
    }
    return all;
}

MessageWords messageWords(const AppState& state, const Verdict& verdict) {
    MessageWords words;
    words.subject =
        trimBlanksAndNewlines(verdict.subject).empty() ? "(no subject)" : verdict.subject;
    words.sender = verdict.sender;
    words.canTick = verdict.messageID.has_value();
    if (!words.canTick) {
        words.tickSymbol = "minus.square.dashed";
        words.tickHelp =
            "Mail has no id for this message, so Brindlet can't tick or move it. Everything else "
            "works as usual.";
    } else {
        words.tickSymbol =
            state.approved->contains(verdict.id) ? "checkmark.square.fill" : "square";
    }
    words.mark = verdict.vetoed ? Mark{"PROTECTED", Tone::green, {}} : verdictMark(verdict.isJunk);
    return words;
}

}  // namespace brindlet
